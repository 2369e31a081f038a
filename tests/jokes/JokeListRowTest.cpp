// SPDX-License-Identifier: MIT
#include "store/PreferenceKeys.h"
#include "tests/jokes/JokeListFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using JokeListRowTest = JokeListFixture;

} // namespace

TEST_F(JokeListRowTest, ShowsAJokeFilteredWithItsLineFeed)
{
    addJoke({.category = "It's \xC3\xA9", .rating = "\"Mild\"", .favorite = true, .joke = "Don't\nstop"});
    list.viewDidLoad();
    const NewMainListTableViewCell shown = cell(0);
    EXPECT_TRUE(shown.hasContent);
    EXPECT_EQ(shown.JokeLabel, u"Dont\nstop\n"_s);
    EXPECT_EQ(shown.CategoryLabel, u"Category: It's \u00E9"_s) << "only the joke is filtered";
    EXPECT_EQ(shown.RatingLabel, u"Rating: \"Mild\""_s);
    EXPECT_TRUE(shown.favorite);
    EXPECT_EQ(shown.accessibleName(), u"Dont\nstop, Category: It's \u00E9, Rating: \"Mild\""_s);
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
        EXPECT_EQ(cell(0).RatingLabel, u"Rating: N/A"_s);
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
    EXPECT_EQ(cell(2).JokeLabel, u"\n"_s);
    EXPECT_FALSE(cell(3).hasContent) << "a row that is not there";

    list.setSearchText(u"b"_s);
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
    EXPECT_EQ(cell(0).fontFamily, u"Arial"_s);
    EXPECT_EQ(cell(0).fontPixelSize, 15.0);
    EXPECT_TRUE(cell(0).hasTextColor);
    EXPECT_EQ(cell(0).textColor, QColor(Qt::black));

    userDefaults.setText(PreferenceKeys::ListFontName, u"Courier New"_s);
    userDefaults.setReal(PreferenceKeys::ListFontSize, 0.25);
    userDefaults.setText(PreferenceKeys::ListFontColor, u"Blue"_s);
    EXPECT_EQ(cell(0).fontFamily, u"Arial"_s) << "settings are read when the screen is loaded";
    NewMainListTableViewController next(environment);
    next.viewDidLoad();
    const auto shown = next.cellForRow(0).value<NewMainListTableViewCell>();
    EXPECT_EQ(shown.fontFamily, u"Courier New"_s);
    EXPECT_EQ(shown.fontPixelSize, 1.0);
    EXPECT_FALSE(shown.hasTextColor);
}

} // namespace giggle
