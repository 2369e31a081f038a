// SPDX-License-Identifier: MIT
#include "shell/FirstLaunchSeeding.h"

#include "exchange/format/ExchangeFile.h"
#include "exchange/format/ExchangeReader.h"
#include "platform/Resources.h"
#include "shell/DefaultNames.h"
#include "store/AppDelegate.h"
#include "store/FatalError.h"
#include "ui/StoreCalls.h"

namespace giggle {

namespace {

const QString StarterName = QStringLiteral("GiggleArchives");
const QString StarterType = QStringLiteral("txt");

// In whose name a collection that cannot be loaded ends the program: the screen that runs the seeding.
constexpr const char* SourceFile = "ViewController";

std::string contents(FileText file)
{
    if (!file.text)
        fatalError(QStringLiteral("The starter collection cannot be read: ") + file.failure, __FILE__,
                   __LINE__);
    return *std::move(file.text);
}

} // namespace

FirstLaunchSeeding::FirstLaunchSeeding(AppDelegate& appDelegate, const Resources& resources)
    : m_appDelegate(appDelegate), m_resources(resources)
{
}

bool FirstLaunchSeeding::isCollectionEmpty() const
{
    ManagedObjectContext& context = m_appDelegate.persistentContainer().viewContext();
    bool isEmpty = false;
    loggingFailure([&] {
        isEmpty = context.fetch(Jokes::fetchRequest()).empty() &&
                  context.fetch(Category::fetchRequest()).empty() &&
                  context.fetch(Rating::fetchRequest()).empty();
    });
    return isEmpty;
}

void FirstLaunchSeeding::seedDefaultCategories()
{
    ManagedObjectContext& context = m_appDelegate.persistentContainer().viewContext();
    // The names themselves come with the starter collection, which would otherwise find them taken.
    loggingFailure([&] {
        for ([[maybe_unused]] const std::string_view name : DefaultCategoryNames)
            context.insert<Category>();
    });
}

void FirstLaunchSeeding::seedDefaultRatings()
{
    ManagedObjectContext& context = m_appDelegate.persistentContainer().viewContext();
    for (const std::string_view name : DefaultRatingNames)
        loggingFailure([&] {
            context.insert<Rating>().setRating(name);
            context.save();
        });
}

void FirstLaunchSeeding::importStarterCollection()
{
    using NamesFilter = ExchangeReader::NamesFilter;
    ExchangeReader reader(m_appDelegate, StarterName + u'.' + StarterType, SourceFile, __LINE__);
    reader.readJokes(contents(readUtf8File(starterFile())));
    reader.readCategories(contents(readAsciiFile(starterFile())), NamesFilter::KeepsSection);
    // Handed the name instead of the contents, and so finding no ratings: the store keeps exactly the
    // defaults.
    reader.readRatings(StarterName.toStdString(), NamesFilter::KeepsSection);
}

QString FirstLaunchSeeding::starterFile() const
{
    const std::optional<QString> path = m_resources.pathForResource(StarterName, StarterType);
    if (!path)
        fatalError(QStringLiteral("The starter collection %1.%2 is missing.").arg(StarterName, StarterType),
                   __FILE__, __LINE__);
    return *path;
}

} // namespace giggle
