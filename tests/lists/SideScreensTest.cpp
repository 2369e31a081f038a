// SPDX-License-Identifier: MIT
#include "lists/CategoryBreakdownTableViewController.h"
#include "lists/CategoryGroupTableViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The groups of the categories and a breakdown, not loaded yet. The ratings' are the same classes.
class SideScreensTest : public ScreenFixture {
protected:
    Jokes& add(OptionalText category, OptionalText text = "text")
    {
        return addJoke({.category = category, .rating = "Mild", .joke = text});
    }

    void loadBreakdown(const char* name)
    {
        selection.SelectedCategory = QString::fromUtf8(name);
        breakdown.viewDidLoad();
    }

    /// What a screen reader hears of each group.
    [[nodiscard]] std::vector<std::string> groupRows()
    {
        std::vector<std::string> texts;
        for (int row = 0; row < groups->tableView()->rowCount(); ++row)
            texts.push_back(
                groups->cellForRow(row).value<GroupTableViewCell>().accessibleName().toStdString());
        return texts;
    }

    [[nodiscard]] NewMainListTableViewCell joke(int row) const
    {
        return breakdown.cellForRow(row).value<NewMainListTableViewCell>();
    }

    [[nodiscard]] std::vector<std::string> jokeRows()
    {
        std::vector<std::string> texts;
        for (int row = 0; row < breakdown.tableView()->rowCount(); ++row)
            texts.push_back(joke(row).JokeLabel.trimmed().toStdString());
        return texts;
    }

    [[nodiscard]] QString header() { return groups->tableView()->headerText(); }

    std::optional<CategoryGroupTableViewController> groups{std::in_place, environment};
    CategoryBreakdownTableViewController breakdown{environment};
    QAbstractItemModelTester tester{breakdown.tableView(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(SideScreensTest, GroupsAreTheNamesOfJokesWithTheirCounts)
{
    insertCategory(context(), "Unused");
    insertRating(context(), "Unused");
    groups->viewDidLoad();
    for (const OptionalText name : {"b", "B", "b", "\xC3\xA9", "\xF0\x9F\x98\x80", "\xEF\xBC\xA1", ""})
        add(name);
    add({});
    groups->viewWillAppear();
    // By code point, in which the emoji comes last.
    const std::vector<std::string> ascending{
        "No name, 1", "B, 1", "b, 2", "\xC3\xA9, 1", "\xEF\xBC\xA1, 1", "\xF0\x9F\x98\x80, 1"};
    EXPECT_EQ(groupRows(), ascending);
    EXPECT_EQ(header(), u"# Categories = 6"_s);
    groups->SortData();
    EXPECT_EQ(groupRows(), std::vector<std::string>(ascending.rbegin(), ascending.rend()));
}

TEST_F(SideScreensTest, AGroupStaysWhenItsJokesAreGone)
{
    Jokes& moved = add("Puns");
    Jokes& deleted = add("Dad");
    groups->viewDidLoad();
    moved.setCategory("Animals"); // not saved
    context().deleteObject(deleted);
    EXPECT_THAT(groupRows(), ElementsAre("Dad, 0", "Puns, 0")) << "counted when it is drawn";
    groups->viewWillAppear();
    EXPECT_THAT(groupRows(), ElementsAre("Animals, 1", "Dad, 0", "Puns, 0"));
    const QSignalSpy resets(groups->tableView(), &TableModel::modelReset);
    groups->viewWillAppear();
    EXPECT_EQ(resets.count(), 0) << "the list would lose its place";
    groups.emplace(environment);
    groups->viewDidLoad();
    EXPECT_THAT(groupRows(), ElementsAre("Animals, 1"));
}

TEST_F(SideScreensTest, SearchNarrowsTheGroupsAndSortTurnsThemRound)
{
    for (const OptionalText name : {"Concatenate", "Tomcat", "Dog", ""})
        add(name);
    groups->viewDidLoad();
    groups->setSearchText(u"CAT"_s);
    EXPECT_THAT(groupRows(), ElementsAre("Concatenate, 1", "Tomcat, 1"));
    EXPECT_EQ(header(), u"# Categories = 2 of 4"_s);
    add("Cats");
    groups->SortData();
    EXPECT_THAT(groupRows(), ElementsAre("Tomcat, 1", "Concatenate, 1")) << "nothing is fetched";
    for (const int gone : {-1, 2})
        groups->selectRow(gone);
    EXPECT_THAT(navigator.performed, IsEmpty());
    groups->selectRow(0);
    EXPECT_EQ(selection.SelectedCategory, u"Tomcat"_s);
}

TEST_F(SideScreensTest, UnreadableJokesLeaveTheListsEmptyAndSortingBeforeLoadingEndsTheProgram)
{
    EXPECT_DEATH(groups->SortData(), "sorted before it was loaded");
    EXPECT_DEATH(breakdown.SortData(), "sorted before it was loaded");
    (void)context();
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    groups->viewDidLoad();
    EXPECT_EQ(header(), u"# Categories = 0"_s);
    loadBreakdown("Puns");
    EXPECT_EQ(breakdown.numberOfRows(), 0);
}

TEST_F(SideScreensTest, ABreakdownOpensItsJokesTurnsRoundAndItsSearchResultOutlastsALoad)
{
    userDefaults.setReal(PreferenceKeys::ListFontSize, 20);
    Jokes& first = add("Puns", "EGG 1");
    add("Puns", "egg 2");
    add("Puns", {});
    add("puns", "egg 3");
    loadBreakdown("Puns");
    EXPECT_EQ(joke(0).fontPixelSize, 20.0);
    EXPECT_THAT(jokeRows(), ElementsAre("", "EGG 1", "egg 2"));
    for (const int row : {1, 0, 3}) // the last two are a joke without a text, and none
        breakdown.selectRow(row);
    EXPECT_THAT(navigator.performed, ElementsAre(SegueId::EditJoke, SegueId::EditJoke));
    EXPECT_EQ(selection.SelectedJokeText, u"EGG 1"_s);
    breakdown.SortData();
    EXPECT_THAT(jokeRows(), ElementsAre("egg 2", "EGG 1", ""));
    breakdown.setSearchText(u"Egg"_s);
    breakdown.shareButtonClicked();
    EXPECT_TRUE(
        std::get<SharedText>(system.shareSheet.presented.at(0).items.at(0)).text.startsWith(u"egg 2\n"));
    first.setCategory("Other");
    breakdown.SortData();
    EXPECT_THAT(jokeRows(), ElementsAre("egg 2", "EGG 1"));
    breakdown.setSearchText(u"e"_s);
    EXPECT_THAT(jokeRows(), ElementsAre("egg 2"));
    breakdown.viewDidDisappear();
    EXPECT_THAT(jokeRows(), ElementsAre("", "egg 2"));
}

TEST_F(SideScreensTest, ATickIsStoredAtOnceOrStaysAndWaitsForTheNextOne)
{
    add("Puns", "egg 1");
    add("Puns", "ham");
    addJoke({.category = "Puns", .favorite = true, .joke = "egg 2"});
    loadBreakdown("Puns");
    RawDatabase raw(folder.file());
    breakdown.setSearchText(u"egg"_s);
    raw.execute("ALTER TABLE jokes RENAME TO away");
    breakdown.checkBoxClicked(1, false);
    EXPECT_FALSE(joke(1).favorite);
    raw.execute("ALTER TABLE away RENAME TO jokes");
    breakdown.checkBoxClicked(0, true);
    breakdown.checkBoxClicked(2, true); // not among the rows on show
    EXPECT_THAT(raw.rows("SELECT joke, favorite FROM jokes ORDER BY joke"),
                ElementsAre("egg 1|1", "egg 2|0", "ham|NULL"));
}

} // namespace

} // namespace giggle
