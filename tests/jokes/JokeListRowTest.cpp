// SPDX-License-Identifier: MIT
#include "jokes/CheckBoxSelectionDelegate.h"
#include "store/PreferenceKeys.h"
#include "tests/jokes/JokeListFixture.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;

class JokeListRowTest : public JokeListFixture {};

class RecordingDelegate : public CheckBoxSelectionDelegate {
public:
    void checkBoxSelectionChanged(bool isChecked, int indexPath) override
    {
        changes.emplace_back(isChecked, indexPath);
    }

    std::vector<std::pair<bool, int>> changes;
};

} // namespace

TEST_F(JokeListRowTest, ShowsAJokeFilteredWithItsLineFeed)
{
    addJoke({.category = "It's \xC3\xA9", .rating = "\"Mild\"", .favorite = true, .joke = "Don't\nstop"});
    list.viewDidLoad();
    const NewMainListTableViewCell shown = cell(0);
    EXPECT_TRUE(shown.hasContent);
    EXPECT_EQ(shown.JokeLabel, QStringLiteral("Dont\nstop\n"));
    EXPECT_EQ(shown.CategoryLabel, QStringLiteral("Category: It's \u00E9")) << "only the joke is filtered";
    EXPECT_EQ(shown.RatingLabel, QStringLiteral("Rating: \"Mild\""));
    EXPECT_TRUE(shown.favorite);
    EXPECT_EQ(shown.accessibleName(), QStringLiteral("Dont\nstop, Category: It's \u00E9, Rating: \"Mild\""));
}

TEST_F(JokeListRowTest, SaysWhatIsMissingAsTheModeWantsIt)
{
    addJoke({.favorite = true, .joke = "bare"});
    list.viewDidLoad();

    struct Case {
        Mode mode;
        const char* searchText;
        const char* category;
    };

    const Case cases[] = {
        {CategoryMode, "", "Category: "},  {RatingMode, "", "Category: N/A"},
        {JokeMode, "", "Category: N/A"},   {JokeMode, "bare", "Category: "},
        {FavoritesMode, "", "Category: "}, {FavoritesMode, "x", "Category: "},
    };
    for (const Case& c : cases) {
        list.setSearchText({});
        list.setSelectedSegment(c.mode);
        list.setSearchText(QString::fromLatin1(c.searchText));
        ASSERT_EQ(list.numberOfRows(), 1) << c.mode << c.searchText;
        EXPECT_EQ(cell(0).CategoryLabel, QString::fromLatin1(c.category)) << c.mode << c.searchText;
        EXPECT_EQ(cell(0).RatingLabel, QStringLiteral("Rating: N/A"));
    }
}

TEST_F(JokeListRowTest, ARowWithoutTextIsEmptyInTheCategoryModeAlone)
{
    addJoke({.category = "A"});
    addJoke({.category = "B", .joke = ""});
    addJoke({.category = "C", .joke = "'"});
    list.viewDidLoad();
    EXPECT_FALSE(cell(0).hasContent);
    EXPECT_FALSE(cell(1).hasContent);
    EXPECT_TRUE(cell(2).hasContent) << "its text is only filtered away";
    EXPECT_EQ(cell(2).JokeLabel, QStringLiteral("\n"));
    EXPECT_FALSE(cell(3).hasContent) << "a row that is not there";

    list.setSearchText(QStringLiteral("b"));
    EXPECT_TRUE(cell(0).hasContent);
    list.setSearchText({});
    list.setSelectedSegment(RatingMode);
    EXPECT_TRUE(cell(0).hasContent);
    EXPECT_TRUE(cell(1).hasContent);
}

TEST_F(JokeListRowTest, DrawsTheTextAsTheSettingsSay)
{
    addJoke({.category = "A", .joke = "text"});
    list.viewDidLoad();
    EXPECT_EQ(cell(0).fontFamily, QStringLiteral("Arial"));
    EXPECT_EQ(cell(0).fontPixelSize, 15.0);
    EXPECT_TRUE(cell(0).hasTextColor);
    EXPECT_EQ(cell(0).textColor, QColor(Qt::black));

    userDefaults.setText(PreferenceKeys::ListFontName, QStringLiteral("Courier New"));
    userDefaults.setReal(PreferenceKeys::ListFontSize, 0.25);
    userDefaults.setText(PreferenceKeys::ListFontColor, QStringLiteral("Blue"));
    EXPECT_EQ(cell(0).fontFamily, QStringLiteral("Arial")) << "settings are read when the screen is loaded";
    NewMainListTableViewController next(environment);
    next.viewDidLoad();
    const auto shown = next.cellForRow(0).value<NewMainListTableViewCell>();
    EXPECT_EQ(shown.fontFamily, QStringLiteral("Courier New"));
    EXPECT_EQ(shown.fontPixelSize, 1.0);
    EXPECT_FALSE(shown.hasTextColor);
}

TEST_F(JokeListRowTest, AFontThatIsNotThereEndsTheProgramWithTheFirstRow)
{
    userDefaults.setText(PreferenceKeys::ListFontName, QStringLiteral("No Such Font"));
    list.viewDidLoad();
    EXPECT_EQ(header(), "# Jokes = 0");
    addJoke({.category = "A", .joke = "text"});
    list.unwound(UnwindRoute::ToList);
    EXPECT_DEATH((void)list.cellForRow(0), "No Such Font");
}

TEST_F(JokeListRowTest, AChosenRowLeavesItsJokeInTheSelection)
{
    addJoke({.category = "A", .rating = "Mild", .favorite = true, .joke = "It's"});
    addJoke({.category = "B", .favorite = false});
    list.viewDidLoad();
    list.selectRow(0);
    EXPECT_EQ(selection.SelectedCategory, QStringLiteral("A"));
    EXPECT_EQ(selection.SelectedJokeText, QStringLiteral("It's")) << "the whole text, not the filtered one";
    EXPECT_EQ(selection.SelectedFavorite, QStringLiteral("T"));
    EXPECT_EQ(selection.SelectedRating, QStringLiteral("Mild"));
    list.selectRow(1);
    EXPECT_EQ(selection.SelectedCategory, QStringLiteral("B"));
    EXPECT_EQ(selection.SelectedJokeText, QString());
    EXPECT_EQ(selection.SelectedFavorite, QStringLiteral("F"));
    EXPECT_EQ(selection.SelectedRating, QString());
    EXPECT_THAT(navigator.performed, ElementsAre(SegueId::EditJoke, SegueId::EditJoke));
}

TEST_F(JokeListRowTest, DeletingARowRemovesItsJokeForGood)
{
    for (const std::string_view name : {"a", "b", "c"})
        addJoke({.category = "A", .joke = name});
    list.viewDidLoad();
    QSignalSpy removals(list.jokeTableView(), &TableModel::rowsRemoved);
    QSignalSpy resets(list.jokeTableView(), &TableModel::modelReset);
    list.deleteRow(1);
    EXPECT_THAT(rows(), ElementsAre("a", "c"));
    EXPECT_EQ(header(), "# Jokes = 2");
    EXPECT_EQ(removals.count(), 1);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 2U);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(JokeListRowTest, ADeletionThatCannotBeSavedEndsTheProgram)
{
    addJoke({.category = "A", .joke = "a"});
    list.viewDidLoad();
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    EXPECT_DEATH(list.deleteRow(0), "Unresolved error .*AppDelegate, line 62");
}

TEST_F(JokeListRowTest, PressesOnARowThatIsGoneDoNothing)
{
    addJoke({.category = "A", .joke = "a"});
    list.viewDidLoad();
    for (const int row : {-1, 1}) {
        list.deleteRow(row);
        list.selectRow(row);
        list.checkBoxClicked(row, true);
    }
    EXPECT_THAT(rows(), ElementsAre("a"));
    EXPECT_EQ(selection.SelectedFavorite, QString());
    EXPECT_TRUE(navigator.performed.empty());
}

} // namespace giggle
