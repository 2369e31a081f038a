// SPDX-License-Identifier: MIT
#include "app/Storyboard.h"
#include "benchmarks/BaselineDatabase.h"
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "lists/CategoryBreakdownTableViewController.h"
#include "lists/CategoryGroupTableViewController.h"
#include "lists/RatingGroupTableViewController.h"
#include "platform/Platform.h"
#include "platform/linux/BundleResources.h"
#include "platform/linux/DesktopAddressOpener.h"
#include "platform/linux/LinuxFileOpener.h"
#include "platform/linux/LinuxFonts.h"
#include "platform/linux/LinuxMailComposer.h"
#include "platform/linux/LinuxMessageCapability.h"
#include "platform/linux/LinuxStoreReview.h"
#include "platform/linux/PortalInterfaceStyle.h"
#include "platform/linux/SingleInstance.h"
#include "store/AppDelegate.h"
#include "store/Preferences.h"
#include "ui/NavigationController.h"
#include "ui/ScreenEnvironment.h"
#include "ui/SharedSelection.h"
#include "ui/TimerMainQueue.h"

#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace giggle {

namespace {

constexpr std::string_view LargeCategory = "A large category";

/// What screens need that are measured without their pages, beside a raw connection to the same file.
struct Desk {
    explicit Desk(const QString& folder)
        : appDelegate(folder), raw(Collections::fileIn(folder), BaselineDatabase::Sync::Full)
    {
    }

    [[nodiscard]] ManagedObjectContext& context() { return appDelegate.persistentContainer().viewContext(); }

    QTemporaryDir settings;
    AppDelegate appDelegate;
    Preferences userDefaults{settings.filePath(QStringLiteral("preferences.json"))};
    SharedSelection selection;
    Storyboard storyboard;
    NavigationController navigator{storyboard};
    TimerMainQueue mainQueue;
    PortalInterfaceStyle interfaceStyle;
    LinuxFonts fonts;
    BundleResources resources;
    SingleInstance windowActivation{settings.filePath(QStringLiteral("lock"))};
    LinuxStoreReview storeReview;
    DesktopAddressOpener addressOpener;
    LinuxMailComposer mailComposer{addressOpener, settings.filePath(QStringLiteral("outgoing"))};
    LinuxMessageCapability messageCapability;
    LinuxFileOpener fileOpener{addressOpener};
    Platform platform{interfaceStyle, fonts,        resources,         windowActivation, storeReview,
                      addressOpener,  mailComposer, messageCapability, fileOpener};
    ScreenEnvironment environment{appDelegate, userDefaults, selection, navigator, mainQueue, platform};
    BaselineDatabase raw;
};

std::size_t appearWithAllRows(GroupTableViewController& groups)
{
    groups.viewWillAppear();
    std::size_t length = 0;
    for (int row = 0; row < groups.numberOfRows(); ++row)
        length +=
            static_cast<std::size_t>(groups.cellForRow(row).value<GroupTableViewCell>().CountLabel.size());
    return length;
}

/// Both group screens come on screen and count every name.
Sides groupSides(Collections& collections, std::size_t size)
{
    const auto desk = std::make_shared<Desk>(collections.folder(size));
    const auto categories = std::make_shared<CategoryGroupTableViewController>(desk->environment);
    const auto ratings = std::make_shared<RatingGroupTableViewController>(desk->environment);
    categories->viewDidLoad();
    ratings->viewDidLoad();
    const auto ours = [=] { return appearWithAllRows(*categories) + appearWithAllRows(*ratings); };
    const auto baseline = [desk] {
        return desk->raw.counts("category").size() + desk->raw.counts("rating").size();
    };
    if (static_cast<std::size_t>(categories->numberOfRows() + ratings->numberOfRows()) != baseline())
        throw std::logic_error("both sides must count the same names");
    return {[desk, ours] { return secondsFor(ours); }, [baseline] { return secondsFor(baseline); }};
}

/// The folder of a collection to be changed, 20,000 jokes of whose 65,536 have one category.
QString folderWithLargeCategory(Collections& collections, std::size_t size)
{
    QString folder = collections.copy(size);
    const PersistentContainer container = Collections::open(folder);
    const std::vector<Jokes*> jokes = container.viewContext().fetch(Jokes::fetchRequest());
    for (std::size_t i = 0; i < size * 20'000 / LargestSize; ++i)
        jokes[i * 7919 % size]->setCategory(LargeCategory);
    container.viewContext().save();
    return folder;
}

std::shared_ptr<Desk> deskWithLargeCategory(Collections& collections, std::size_t size)
{
    auto desk = std::make_shared<Desk>(folderWithLargeCategory(collections, size));
    desk->selection.SelectedCategory = QString::fromUtf8(LargeCategory);
    return desk;
}

std::vector<RawJoke> jokesOfLargeCategory(BaselineDatabase& raw)
{
    return raw.jokes("WHERE category = '" + std::string(LargeCategory) + "' ORDER BY joke");
}

/// Makes the context forget which results it has kept.
void fetchOtherThings(ManagedObjectContext& context)
{
    for (int i = 0; i < 16; ++i)
        (void)context.fetch(FetchRequest<Jokes>{Predicate<Jokes>("joke == %@", std::to_string(i)), {}});
}

/// The screen is loaded for the first time, and draws its first rows.
Sides breakdownSides(Collections& collections, std::size_t size)
{
    const auto desk = deskWithLargeCategory(collections, size);
    const auto open = [desk] {
        CategoryBreakdownTableViewController breakdown(desk->environment);
        breakdown.viewDidLoad();
        for (int row = 0; row < 10; ++row)
            benchmark::DoNotOptimize(breakdown.cellForRow(row));
        return breakdown.numberOfRows();
    };
    const auto baseline = [desk] { return jokesOfLargeCategory(desk->raw); };
    if (static_cast<std::size_t>(open()) != baseline().size())
        throw std::logic_error("both sides of a breakdown must find the same jokes");
    return {[desk, open] {
                fetchOtherThings(desk->context());
                return secondsFor(open);
            },
            [baseline] { return secondsFor(baseline); }};
}

/// The same with its page, from the tap on.
Sides firstFrameSides(Collections& collections, std::size_t size)
{
    const QString folder = folderWithLargeCategory(collections, size);
    const auto baseline = [folder] {
        BaselineDatabase raw(Collections::fileIn(folder), BaselineDatabase::Sync::Full);
        return jokesOfLargeCategory(raw);
    };
    return {[folder] { return measuredElsewhere(ScreenMeasurement::BreakdownFrame, folder); },
            [baseline] { return secondsFor(baseline); }};
}

Sides tickSides(Collections& collections, std::size_t size)
{
    const auto desk = deskWithLargeCategory(collections, size);
    const auto breakdown = std::make_shared<CategoryBreakdownTableViewController>(desk->environment);
    breakdown->viewDidLoad();
    const auto raw = std::make_shared<BaselineDatabase>(Collections::fileIn(collections.copy(size)),
                                                        BaselineDatabase::Sync::Full);
    const auto ours = [desk, breakdown, tick = 0]() mutable {
        const int row = ++tick * 7919 % breakdown->numberOfRows();
        const bool isTicked = breakdown->cellForRow(row).value<CategoryBreakdownTableViewCell>().favorite;
        return secondsFor([&] {
            breakdown->checkBoxClicked(row, !isTicked);
            return 0;
        });
    };
    const auto baseline = [raw, rows = raw->jokes("ORDER BY oid"), tick = std::size_t(0)]() mutable {
        RawJoke& row = rows[++tick * 7919 % rows.size()];
        return secondsFor([&] {
            row.favorite = 1 - row.favorite;
            raw->upsert(row);
            return 0;
        });
    };
    return {ours, baseline};
}

} // namespace

std::vector<Figure> groupFigures()
{
    return {
        {"groups of both sides, with counts", "raw GROUP BY", {.largestValue = 1e-3}, groupSides, 51},
        {"breakdown, opened", "raw WHERE and ORDER BY", {.largestValue = 0.1}, breakdownSides},
        {"breakdown, tap to first frame",
         "raw WHERE and ORDER BY",
         {.largestValue = 0.1},
         firstFrameSides,
         5},
        {"favorite tick", "raw upsert, full sync", {.largestRatio = 1.1}, tickSides, 101},
    };
}

} // namespace giggle
