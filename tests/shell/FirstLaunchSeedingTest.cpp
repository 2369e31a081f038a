// SPDX-License-Identifier: MIT
#include "shell/FirstLaunchSeeding.h"

#include "tests/support/ScreenFixture.h"
#include "ui/DefaultNames.h"

#include <string>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

const QByteArray Starter = "[GIGGLEARCHIVES]\r\n"
                           "Puns^Mild^1^T^It's \"one\"@#@two~#~three\r\n"
                           "Corny^All Ages^2^F^Second\r\n"
                           "[CATEGORY]\r\n"
                           "Puns\r\n"
                           "Corny\r\n"
                           "Puns\r\n"
                           "[RATING]\r\n"
                           "Only in the file\r\n";

OptionalText nameOf(const Category& record)
{
    return record.category();
}

OptionalText nameOf(const Rating& record)
{
    return record.rating();
}

class FirstLaunchSeedingTest : public ScreenFixture {
protected:
    void provideStarter(const QByteArray& text)
    {
        const QString path = folder.filePath(QStringLiteral("starter"));
        writeBytes(path, text);
        system.resources.paths.insert(QStringLiteral("GiggleArchives.txt"), path);
    }

    template <class Record>
    std::vector<std::string> names()
    {
        std::vector<std::string> names;
        for (const Record* record : context().fetch(Record::fetchRequest()))
            names.emplace_back(nameOf(*record).value_or("(none)"));
        return names;
    }

    std::vector<Jokes*> jokes() { return context().fetch(Jokes::fetchRequest()); }

    FirstLaunchSeeding seeding{appDelegate, system.resources};
};

} // namespace

TEST_F(FirstLaunchSeedingTest, LeavesTheDefaultCategoriesUnnamedAndPending)
{
    seeding.seedDefaultCategories();
    EXPECT_THAT(names<Category>(), ElementsAreArray(std::vector<std::string>(18, "(none)")));
    EXPECT_TRUE(context().hasChanges());
    seeding.seedDefaultRatings();
    EXPECT_FALSE(context().hasChanges()) << "the ratings' saves store them";
}

TEST_F(FirstLaunchSeedingTest, AddsEveryDefaultRatingEveryTime)
{
    seeding.seedDefaultRatings();
    EXPECT_THAT(names<Rating>(), ElementsAre("All Ages", "Children", "Teenagers", "Mild", "Mild+", "Moderate",
                                             "Adult", "Adult+"));
    seeding.seedDefaultRatings();
    EXPECT_EQ(names<Rating>().size(), 16U);
}

TEST_F(FirstLaunchSeedingTest, TakesOverJokesAndCategoriesOfTheStarterFile)
{
    provideStarter(Starter);
    seeding.importStarterCollection();
    const std::vector<Jokes*> read = jokes();
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[0]->category(), "Puns");
    EXPECT_EQ(read[0]->rating(), "Mild");
    EXPECT_EQ(read[0]->id(), 1);
    EXPECT_EQ(read[0]->favorite(), true);
    EXPECT_EQ(read[0]->joke(), "Its one\ntwo'three");
    EXPECT_EQ(read[1]->favorite(), false);
    EXPECT_THAT(names<Category>(), ElementsAre("Puns", "Corny"));
    EXPECT_TRUE(names<Rating>().empty()) << "the file's ratings stay behind";
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(FirstLaunchSeedingTest, ReplacesAJokeThatHasTheSameId)
{
    provideStarter(Starter);
    Jokes& mine = addJoke({.category = "Mine", .id = 1, .favorite = false, .joke = "Mine"});
    seeding.importStarterCollection();
    EXPECT_EQ(jokes().size(), 2U);
    EXPECT_EQ(mine.category(), "Puns");
    EXPECT_EQ(mine.favorite(), true);
}

TEST_F(FirstLaunchSeedingTest, AStarterFileThatCannotBeReadEndsTheProgram)
{
    EXPECT_DEATH(seeding.importStarterCollection(), "GiggleArchives.txt is missing");
    system.resources.paths.insert(QStringLiteral("GiggleArchives.txt"),
                                  folder.filePath(QStringLiteral("gone")));
    EXPECT_DEATH(seeding.importStarterCollection(), "cannot be read");
    provideStarter("[GIGGLEARCHIVES]\nPuns^Mild^1^T^\xFF\n");
    EXPECT_DEATH(seeding.importStarterCollection(), "UTF-8");
    provideStarter("[GIGGLEARCHIVES]\nPuns^Mild^1^T^caf\xC3\xA9\n");
    EXPECT_DEATH(seeding.importStarterCollection(), "ASCII");
}

TEST_F(FirstLaunchSeedingTest, ACollectionThatCannotBeLoadedEndsTheProgramInTheMenusName)
{
    provideStarter(Starter);
    writeBytes(folder.file(), "no collection at all");
    EXPECT_DEATH(seeding.importStarterCollection(), "Unresolved error .*ViewController");
}

} // namespace giggle
