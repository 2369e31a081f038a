// SPDX-License-Identifier: MIT
#include "lists/CategoryBreakdownTableViewController.h"
#include "lists/CategoryGroupTableViewController.h"
#include "lists/RatingBreakdownTableViewController.h"
#include "lists/RatingGroupTableViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What differs between the sides.
struct ExpectedSide {
    const char* testName;
    OptionalText JokeValues::*name;
    void (Jokes::*setName)(OptionalText);
    QString SharedSelection::*selected;
    std::unique_ptr<GroupTableViewController> (*makeGroups)(ScreenEnvironment&);
    std::unique_ptr<BreakdownTableViewController> (*makeBreakdown)(ScreenEnvironment&);
    QString placeholder;
    std::string header;
    QString headerTitle;
    QString groupScreen;
    QString breakdownScreen;
    QString rowName; ///< of a joke "Dont" of the category and the rating "X"
};

template <class Base, class ScreenClass>
std::unique_ptr<Base> make(ScreenEnvironment& environment)
{
    return std::make_unique<ScreenClass>(environment);
}

const ExpectedSide Sides[] = {
    {"Category", &JokeValues::category, &Jokes::setCategory, &SharedSelection::SelectedCategory,
     make<GroupTableViewController, CategoryGroupTableViewController>,
     make<BreakdownTableViewController, CategoryBreakdownTableViewController>, "Sort and Search by Category",
     "# Categories = ", " Joke Categories", "CategoryGroup", "CategoryBreakdown", "Dont, Category: X"},
    {"Rating", &JokeValues::rating, &Jokes::setRating, &SharedSelection::SelectedRating,
     make<GroupTableViewController, RatingGroupTableViewController>,
     make<BreakdownTableViewController, RatingBreakdownTableViewController>, "Search by Rating",
     "# Ratings = ", " Joke Ratings", "RatingGroup", "RatingBreakdown", "Dont, Category: X, Rating: X"},
};

/// The groups of one side and a breakdown, not loaded yet.
class SideScreensTest : public ScreenFixture, public ::testing::WithParamInterface<ExpectedSide> {
protected:
    [[nodiscard]] const ExpectedSide& side() const { return GetParam(); }

    /// Adds a joke whose category or rating, whichever the side is about, is @p name.
    Jokes& addNamed(OptionalText name, OptionalText joke = "text")
    {
        JokeValues values{.joke = joke};
        values.*side().name = name;
        return addJoke(values);
    }

    void loadBreakdown(const char* name)
    {
        selection.*side().selected = QString::fromUtf8(name);
        breakdown->viewDidLoad();
    }

    /// What a screen reader hears of each group.
    [[nodiscard]] std::vector<std::string> groupRows() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < groups->tableView()->rowCount(); ++row)
            texts.push_back(
                groups->cellForRow(row).value<GroupTableViewCell>().accessibleName().toStdString());
        return texts;
    }

    [[nodiscard]] NewMainListTableViewCell joke(int row) const
    {
        return breakdown->cellForRow(row).value<NewMainListTableViewCell>();
    }

    [[nodiscard]] std::vector<std::string> jokeRows() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < breakdown->tableView()->rowCount(); ++row)
            texts.push_back(joke(row).JokeLabel.trimmed().toStdString());
        return texts;
    }

    /// The groups' header, less what each begins with.
    [[nodiscard]] std::string count() const
    {
        const std::string text = groups->tableView()->headerText().toStdString();
        EXPECT_TRUE(text.starts_with(side().header)) << text;
        return text.substr(std::min(text.size(), side().header.size()));
    }

    std::unique_ptr<GroupTableViewController> groups = side().makeGroups(environment);
    std::unique_ptr<BreakdownTableViewController> breakdown = side().makeBreakdown(environment);
    QAbstractItemModelTester groupTester{groups->tableView(),
                                         QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester jokeTester{breakdown->tableView(),
                                        QAbstractItemModelTester::FailureReportingMode::Fatal};
};

INSTANTIATE_TEST_SUITE_P(, SideScreensTest, ::testing::ValuesIn(Sides),
                         [](const auto& side) { return side.param.testName; });

TEST_P(SideScreensTest, GroupsAreTheNamesOfJokesWithTheirCounts)
{
    insertCategory(context(), "Unused");
    insertRating(context(), "Unused");
    groups->viewDidLoad();
    EXPECT_EQ(count(), "0");
    EXPECT_EQ(groups->searchPlaceholder(), side().placeholder);
    EXPECT_EQ(selection.CallingScreen, side().groupScreen);
    for (const OptionalText name : {"b", "B", "b", "\xC3\xA9", "\xF0\x9F\x98\x80", "\xEF\xBC\xA1", ""})
        addNamed(name);
    addNamed({});
    groups->viewWillAppear();
    // By code point, in which the emoji comes last.
    const std::vector<std::string> ascending{
        "No name, 1", "B, 1", "b, 2", "\xC3\xA9, 1", "\xEF\xBC\xA1, 1", "\xF0\x9F\x98\x80, 1"};
    EXPECT_EQ(groupRows(), ascending);
    EXPECT_EQ(count(), "6");
    EXPECT_EQ(groups->headerTitle(), u'6' + side().headerTitle);
    groups->SortData();
    EXPECT_EQ(groupRows(), std::vector<std::string>(ascending.rbegin(), ascending.rend()));
}

TEST_P(SideScreensTest, AGroupStaysWhenItsJokesAreGone)
{
    Jokes& moved = addNamed("Puns");
    Jokes& deleted = addNamed("Dad");
    groups->viewDidLoad();
    (moved.*side().setName)("Animals"); // not saved
    context().deleteObject(deleted);
    EXPECT_THAT(groupRows(), ElementsAre("Dad, 0", "Puns, 0")) << "counted when it is drawn";
    groups->viewWillAppear();
    EXPECT_THAT(groupRows(), ElementsAre("Animals, 1", "Dad, 0", "Puns, 0"));
    groups = side().makeGroups(environment);
    groups->viewDidLoad();
    EXPECT_THAT(groupRows(), ElementsAre("Animals, 1"));
}

TEST_P(SideScreensTest, SearchNarrowsTheGroupsAndSortTurnsThemRound)
{
    for (const OptionalText name : {"Concatenate", "Tomcat", "Dog", ""})
        addNamed(name);
    groups->viewDidLoad();
    groups->setSearchText(u"CAT"_s);
    EXPECT_THAT(groupRows(), ElementsAre("Concatenate, 1", "Tomcat, 1"));
    EXPECT_EQ(count(), "2 of 4");
    addNamed("Cats");
    groups->SortData();
    EXPECT_THAT(groupRows(), ElementsAre("Tomcat, 1", "Concatenate, 1")) << "nothing is fetched";
    for (const int gone : {-1, 2})
        groups->selectRow(gone);
    EXPECT_THAT(navigator.performed, IsEmpty());
    groups->selectRow(0);
    EXPECT_EQ(selection.*side().selected, u"Tomcat"_s);
    groups->viewDidDisappear();
    EXPECT_EQ(groups->searchText(), QString());
    EXPECT_EQ(count(), "4");
}

TEST_P(SideScreensTest, ReturningToTheGroupsKeepsThePlaceInTheList)
{
    for (int i = 0; i < 5000; ++i)
        insertJoke(context(), {.category = std::to_string(i), .rating = std::to_string(i)});
    groups->viewDidLoad();
    QSignalSpy resets(groups->tableView(), &TableModel::modelReset);
    groups->viewWillAppear();
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(count(), "5000");
}

TEST_P(SideScreensTest, UnreadableJokesLeaveTheListsEmptyAndSortingBeforeLoadingEndsTheProgram)
{
    EXPECT_DEATH(groups->SortData(), "sorted before it was loaded");
    EXPECT_DEATH(breakdown->SortData(), "sorted before it was loaded");
    (void)context();
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    groups->viewDidLoad();
    EXPECT_EQ(count(), "0");
    loadBreakdown("Puns");
    EXPECT_EQ(breakdown->numberOfRows(), 0);
}

TEST_P(SideScreensTest, ABreakdownListsTheJokesOfTheChosenName)
{
    addNamed("Puns", "b");
    addNamed("puns", "other");
    addNamed("Puns", "a");
    addNamed({}, "none");
    loadBreakdown("Puns");
    EXPECT_EQ(breakdown->title(), u"(Puns)"_s);
    EXPECT_EQ(selection.CallingScreen, u"MainList"_s);
    EXPECT_EQ(breakdown->searchPlaceholder(), u"Sort and Search by Joke"_s);
    EXPECT_THAT(jokeRows(), ElementsAre("a", "b"));
    EXPECT_EQ(breakdown->tableView()->headerText(), u"2 Jokes"_s);
    breakdown->SortData();
    EXPECT_THAT(jokeRows(), ElementsAre("b", "a"));
}

TEST_P(SideScreensTest, ARowOfABreakdownShowsTheLabelsOfItsSideInTheListsFont)
{
    userDefaults.setText(PreferenceKeys::ListFontName, u"No Such Font"_s);
    userDefaults.setReal(PreferenceKeys::ListFontSize, 20);
    userDefaults.setText(PreferenceKeys::ListFontColor, u"red"_s);
    addJoke({.category = "X", .rating = "X", .favorite = true, .joke = "Don't"});
    loadBreakdown("X");
    EXPECT_EQ(joke(0).accessibleName(), side().rowName);
    EXPECT_TRUE(joke(0).favorite);
    EXPECT_EQ(joke(0).fontFamily, u"Arial"_s) << "the default stands in";
    EXPECT_EQ(joke(0).fontPixelSize, 20.0);
    EXPECT_EQ(joke(0).textColor, QColor(Qt::red));
    EXPECT_FALSE(joke(1).hasContent);
}

TEST_P(SideScreensTest, ASearchResultOutlastsALoad)
{
    Jokes& first = addNamed("Puns", "EGG 1");
    addNamed("Puns", "egg 2");
    addNamed("Puns", {});
    loadBreakdown("Puns");
    breakdown->setSearchText(u"Egg"_s);
    EXPECT_THAT(jokeRows(), ElementsAre("EGG 1", "egg 2"));
    breakdown->shareButtonClicked();
    EXPECT_TRUE(
        std::get<SharedText>(system.shareSheet.presented.at(0).items.at(0)).text.startsWith(u"EGG 1\n"));
    (first.*side().setName)("Other");
    breakdown->SortData();
    EXPECT_THAT(jokeRows(), ElementsAre("EGG 1", "egg 2"));
    breakdown->setSearchText(u"e"_s);
    EXPECT_THAT(jokeRows(), ElementsAre("egg 2"));
    breakdown->viewDidDisappear();
    EXPECT_THAT(jokeRows(), ElementsAre("egg 2", ""));
}

TEST_P(SideScreensTest, ATickIsStoredAtOnceOrStaysAndWaits)
{
    addNamed("Puns", "egg 1");
    addNamed("Puns", "ham");
    addNamed("Puns", "egg 2").setFavorite(true);
    context().save();
    loadBreakdown("Puns");
    RawDatabase raw(folder.file());
    const auto stored = [&] { return raw.rows("SELECT joke, favorite FROM jokes ORDER BY joke"); };
    breakdown->setSearchText(u"egg"_s);
    breakdown->checkBoxClicked(0, true);
    EXPECT_EQ(selection.SelectedFavorite, u"T"_s);
    breakdown->checkBoxClicked(2, true); // not among the rows on show
    EXPECT_THAT(stored(), ElementsAre("egg 1|1", "egg 2|1", "ham|NULL"));
    raw.execute("ALTER TABLE jokes RENAME TO away");
    breakdown->checkBoxClicked(1, false);
    EXPECT_FALSE(joke(1).favorite);
    raw.execute("ALTER TABLE away RENAME TO jokes");
    context().save();
    EXPECT_THAT(stored(), ElementsAre("egg 1|1", "egg 2|0", "ham|NULL"));
}

TEST_P(SideScreensTest, ARowOfABreakdownHandsItsJokeToTheEditor)
{
    addJoke({.category = "X", .rating = "X", .joke = "It's"});
    addNamed("X", {});
    loadBreakdown("X");
    selection.SelectedFavorite = u"kept"_s;
    breakdown->selectRow(2);
    EXPECT_TRUE(navigator.performed.empty());
    breakdown->selectRow(1);
    EXPECT_THAT(navigator.performed, ElementsAre(SegueId::EditJoke));
    breakdown->prepareForSegue(SegueId::EditJoke);
    EXPECT_EQ(selection.CallingScreen, side().breakdownScreen);
    EXPECT_EQ(selection.SelectedJokeText, u"It's"_s);
    EXPECT_EQ(selection.SelectedFavorite, u"kept"_s);
    breakdown->copyRow(1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"It's"_s);
    EXPECT_EQ(navigator.confirmed, u"Copied."_s);
    breakdown->selectRow(0); // without a text
    EXPECT_EQ(selection.SelectedJokeText, u"It's"_s);
}

} // namespace

} // namespace giggle
