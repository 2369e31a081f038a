// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include "exchange/format/ExchangeReader.h"
#include "shell/ViewController.h"
#include "store/AppDelegate.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"
#include "tests/support/FakeNavigator.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/HandTurnedQueue.h"
#include "ui/ScreenEnvironment.h"
#include "ui/SharedSelection.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const std::string ExchangeText = "[GIGGLEARCHIVES]\nPuns^Mild^1^T^Replaces the first\nCorny^^7^F^" +
                                 std::string(5000, 'c') +
                                 "\nCorny^Mild^8^T^Eighth\nPuns^Adult^9^F^Ninth\n[CATEGORY]\nPuns\nCorny\n";

QString preferencesOf(const CollectionFolder& folder)
{
    return folder.filePath(u"preferences.json"_s);
}

double fontSizeIn(const Preferences& preferences)
{
    return preferences.isPresent(PreferenceKeys::ListFontSize)
               ? preferences.real(PreferenceKeys::ListFontSize)
               : 0;
}

/// A save of this state is tried.
template <class State>
void attempt(std::vector<State>& states, State state)
{
    if (states.back() != state)
        states.push_back(std::move(state));
}

/// The save that was tried last has been acknowledged.
template <class State>
void acknowledge(std::vector<State>& states)
{
    states.erase(states.begin(), states.end() - 1);
}

} // namespace

Session::Session(const CollectionFolder& folder, Kind kind, std::function<bool()> hasFailed)
    : m_folder(folder), m_kind(kind), m_hasFailed(std::move(hasFailed))
{
}

void Session::run()
{
    m_kind == Kind::FirstLaunch ? runFirstLaunch() : runDaily();
}

void Session::use(const std::function<void(ManagedObjectContext&)>& steps)
{
    for (int round = 0; round < 2; ++round)
        try {
            const PersistentContainer container = m_folder.open();
            ManagedObjectContext& context = container.viewContext();
            sqlite::Database& database = context.store().database();
            if (database.isReadOnly())
                throw StoreError(SQLITE_READONLY, u"opened for reading"_s);
            database.execute(m_kind == Kind::RollbackMode ? "PRAGMA journal_mode = DELETE"
                                                          : "PRAGMA wal_autocheckpoint = 4");
            static_cast<void>(liveRows(context)); // nothing is read during a commit

            // Called before each commit, also those of an import.
            std::function<void()> note = [&] { attempt(m_expectation.collections, liveRows(context)); };
            const auto call = [](void* work) {
                (*static_cast<std::function<void()>*>(work))();
                return 0;
            };
            sqlite3_commit_hook(database.handle(), call, &note);
            steps(context);
            sqlite3_commit_hook(database.handle(), nullptr, nullptr);
            return;
        } catch (const StoreError&) {
            EXPECT_TRUE(hasFailed());
        }
}

void Session::save(ManagedObjectContext& context)
{
    if (saves(context) || saves(context)) {
        attempt(m_expectation.collections, liveRows(context));
        acknowledge(m_expectation.collections);
    } else {
        EXPECT_TRUE(hasFailed() && context.hasChanges());
    }
}

void Session::acknowledgeUnlessFailed(ManagedObjectContext& context)
{
    attempt(m_expectation.collections, liveRows(context));
    if (context.hasChanges())
        save(context);
    else if (!hasFailed())
        acknowledge(m_expectation.collections);
}

void Session::changeFontSize(double size)
{
    Preferences preferences(preferencesOf(m_folder));
    preferences.setReal(PreferenceKeys::ListFontSize, size);
    attempt(m_expectation.fontSizes, size);
    if (preferences.synchronize() || preferences.synchronize())
        acknowledge(m_expectation.fontSizes);
    else
        EXPECT_TRUE(hasFailed());
}

void Session::importJokes()
{
    AppDelegate appDelegate(m_folder.path());
    ExchangeReader reader(appDelegate, u"jokes.txt"_s, "ImportViewController", 1);
    reader.readJokes(ExchangeText);
    reader.readCategories(ExchangeText, ExchangeReader::NamesFilter::KeepsSection);
}

void Session::runDaily()
{
    changeFontSize(17);
    use([&](ManagedObjectContext& context) {
        Jokes& first = insertJoke(context, {.category = "Puns", .id = 1, .joke = "First"});
        save(context);
        Jokes& second = insertJoke(context, {.rating = "Mild", .id = 2, .joke = std::string(9000, 'x')});
        insertCategory(context, "Puns");
        save(context);
        first.setFavorite(true);
        save(context);
        first.setJoke(std::string(6000, 'y'));
        save(context);
        changeFontSize(18);
        context.deleteObject(second);
        save(context);
        insertRating(context, "Mild");
        save(context);
    });
    use([&](ManagedObjectContext& context) {
        importJokes();
        acknowledgeUnlessFailed(context);
        insertJoke(context, {.id = 10, .joke = "Tenth"});
        save(context);
        changeFontSize(19);
        for (Jokes* joke : context.fetch(Jokes::fetchRequest()))
            if (joke->id() == 7)
                context.deleteObject(*joke);
        save(context);
    });
}

void Session::runFirstLaunch()
{
    use([&](ManagedObjectContext& context) {
        AppDelegate appDelegate(m_folder.path());
        Preferences userDefaults(preferencesOf(m_folder));
        SharedSelection selection;
        FakeNavigator navigator;
        HandTurnedQueue mainQueue;
        FakePlatform system;
        const CollectionFolder resources;
        const QString starter = resources.filePath(u"starter"_s);
        writeBytes(starter, QByteArray::fromStdString(ExchangeText));
        system.resources.paths.insert(u"GiggleArchives.txt"_s, starter);
        ScreenEnvironment environment{appDelegate, userDefaults, selection,
                                      navigator,   mainQueue,    system.platform};
        ViewController menu(environment);
        menu.viewDidLoad();
        acknowledgeUnlessFailed(context);
        menu.viewDidLoad();
    });
}

void expectFreshStart(const CollectionFolder& folder, const Expectation& expected)
{
    try {
        const PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        const Rows found = liveRows(context);
        EXPECT_THAT(expected.collections, testing::Contains(found));
        EXPECT_FALSE(context.store().database().isReadOnly());
        insertJoke(context, {.id = 99, .joke = "afterwards"});
        context.save();
        EXPECT_EQ(storedRows(folder.file()).size(), found.size() + 1);
    } catch (const StoreError& error) {
        ADD_FAILURE() << error.what();
    }
    Preferences preferences(preferencesOf(folder));
    EXPECT_THAT(expected.fontSizes, testing::Contains(fontSizeIn(preferences)));
    EXPECT_FALSE(QFile::exists(preferencesOf(folder) + u".damaged"_s));
}

void expectFreshStart(const SimulatedDisk::Image& image, const Expectation& expected)
{
    const CollectionFolder folder;
    for (const auto& [name, bytes] : image)
        writeBytes(folder.filePath(name), bytes);
    expectFreshStart(folder, expected);
}

bool saves(ManagedObjectContext& context)
{
    try {
        context.save();
        return true;
    } catch (const StoreError&) {
        return false;
    }
}

} // namespace giggle
