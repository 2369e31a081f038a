// SPDX-License-Identifier: MIT
#include "store/PreferenceKeys.h"
#include "tests/lists/SideFixture.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;

class BreakdownTest : public SideFixture {
protected:
    void load(const char* name = "Puns")
    {
        selectedName() = QString::fromUtf8(name);
        breakdown->viewDidLoad();
    }

    [[nodiscard]] NewMainListTableViewCell cell(int row) const
    {
        return breakdown->cellForRow(row).value<NewMainListTableViewCell>();
    }

    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < breakdown->tableView()->rowCount(); ++row)
            texts.push_back(cell(row).JokeLabel.trimmed().toStdString());
        return texts;
    }

    [[nodiscard]] std::string header() const { return breakdown->tableView()->headerText().toStdString(); }

    QAbstractItemModelTester tester{breakdown->tableView(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_P(BreakdownTest, ListsTheJokesOfTheChosenName)
{
    addNamed("Puns", "b");
    addNamed("puns", "other");
    addNamed("Puns", "a");
    addNamed({}, "none");
    load();
    EXPECT_EQ(breakdown->title(), QStringLiteral("(Puns)"));
    EXPECT_EQ(selection.CallingScreen, QStringLiteral("MainList"));
    EXPECT_EQ(breakdown->searchPlaceholder(), QStringLiteral("Sort and Search by Joke"));
    EXPECT_THAT(rows(), ElementsAre("a", "b"));
    EXPECT_EQ(header(), "2 Jokes");
    breakdown->SortData();
    EXPECT_THAT(rows(), ElementsAre("b", "a"));
    breakdown->viewWillAppear();
    EXPECT_EQ(navigator.navigationBarHidden, false);
}

TEST_P(BreakdownTest, SharesAndPrintsWhatTheSearchLeaves)
{
    addNamed("Puns", "Don't");
    addNamed("Puns", "other");
    load();
    breakdown->setSearchText(QStringLiteral("DON"));
    const std::string text = "Don't\n" + std::string(34, '-') + "\n\n\n";
    breakdown->shareButtonClicked();
    breakdown->PrintJokes();
    EXPECT_EQ(std::get<SharedText>(system.shareSheet.presented.at(0).items.at(0)).text.toStdString(), text);
    EXPECT_EQ(system.printPanel.presented.at(0).text.toStdString(), text);
    system.messageCapability.canSend = false;
    breakdown->shareButtonClicked();
    mainQueue.advance(std::chrono::milliseconds(0));
    EXPECT_EQ(system.shareSheet.presented.size(), 1U);
    EXPECT_EQ(navigator.alerts.at(0).title, QStringLiteral("Can't Send Text Message"));
}

TEST_P(BreakdownTest, ARowShowsTheLabelsOfItsSide)
{
    userDefaults.setText(PreferenceKeys::ListFontName, QStringLiteral("No Such Font"));
    userDefaults.setReal(PreferenceKeys::ListFontSize, 20);
    userDefaults.setText(PreferenceKeys::ListFontColor, QStringLiteral("red"));
    addJoke({.category = "X", .rating = "X", .favorite = true, .joke = "Don't"});
    load("X");
    EXPECT_EQ(cell(0).accessibleName(), QString::fromUtf8(side().rowName));
    EXPECT_TRUE(cell(0).favorite);
    EXPECT_EQ(cell(0).fontFamily, QStringLiteral("Arial")) << "the default stands in";
    EXPECT_EQ(cell(0).fontPixelSize, 20.0);
    EXPECT_EQ(cell(0).textColor, QColor(Qt::red));
    EXPECT_FALSE(cell(1).hasContent);
}

TEST_P(BreakdownTest, ASearchResultOutlastsALoad)
{
    Jokes& first = addNamed("Puns", "EGG 1");
    addNamed("Puns", "egg 2");
    addNamed("Puns", {});
    load();
    breakdown->setSearchText(QStringLiteral("Egg"));
    EXPECT_THAT(rows(), ElementsAre("EGG 1", "egg 2"));
    EXPECT_EQ(header(), "2 Jokes");

    (first.*side().setName)("Other");
    breakdown->SortData();
    EXPECT_THAT(rows(), ElementsAre("EGG 1", "egg 2"));
    breakdown->setSearchText(QStringLiteral("e"));
    EXPECT_THAT(rows(), ElementsAre("egg 2"));
    breakdown->viewDidDisappear();
    EXPECT_THAT(rows(), ElementsAre("egg 2", ""));
}

TEST_P(BreakdownTest, ATickIsStoredAtOnce)
{
    addNamed("Puns", "egg 1");
    addNamed("Puns", "ham");
    addNamed("Puns", "egg 2").setFavorite(true);
    context().save();
    load();
    const auto stored = [this] {
        return RawDatabase(folder.file()).rows("SELECT joke, favorite FROM jokes ORDER BY joke");
    };
    breakdown->setSearchText(QStringLiteral("egg"));
    breakdown->checkBoxClicked(0, true);
    EXPECT_EQ(selection.SelectedFavorite, QStringLiteral("T"));
    breakdown->checkBoxClicked(1, false);
    EXPECT_EQ(selection.SelectedFavorite, QStringLiteral("F"));
    breakdown->checkBoxClicked(2, true); // not among the rows on show
    EXPECT_THAT(stored(), ElementsAre("egg 1|1", "egg 2|0", "ham|NULL"));
    EXPECT_TRUE(cell(0).favorite);
    EXPECT_FALSE(context().hasChanges());
}

TEST_P(BreakdownTest, ATickThatCannotBeSavedStaysAndWaits)
{
    const Jokes& joke = addNamed("Puns");
    load();
    RawDatabase raw(folder.file());
    raw.execute("ALTER TABLE jokes RENAME TO away");
    breakdown->checkBoxClicked(0, true);
    EXPECT_TRUE(cell(0).favorite);
    EXPECT_TRUE(context().hasChanges());
    raw.execute("ALTER TABLE away RENAME TO jokes");
    context().save();
    EXPECT_THAT(raw.rows("SELECT favorite FROM jokes"), ElementsAre("1"));
    EXPECT_EQ(joke.favorite(), true);
}

TEST_P(BreakdownTest, ARowHandsItsJokeToTheEditor)
{
    addJoke({.category = "X", .rating = "X", .joke = "It's"});
    addJoke({.rating = "X"})
        .setCategory(side().name == &JokeValues::category ? OptionalText("X") : std::nullopt);
    load("X");
    selection.SelectedFavorite = QStringLiteral("kept");
    breakdown->selectRow(2);
    EXPECT_TRUE(navigator.performed.empty());
    breakdown->selectRow(1);
    EXPECT_THAT(navigator.performed, ElementsAre(SegueId::EditJoke));
    breakdown->prepareForSegue(SegueId::EditJoke);
    EXPECT_EQ(selection.CallingScreen, QString::fromUtf8(side().breakdownScreen));
    EXPECT_EQ(selection.SelectedJokeText, QStringLiteral("It's"));
    EXPECT_EQ(selection.SelectedCategory, QStringLiteral("X"));
    EXPECT_EQ(selection.SelectedFavorite, QStringLiteral("kept"));
    EXPECT_EQ(selection.SelectedRating, side().name == &JokeValues::rating ? QStringLiteral("X") : QString());
    breakdown->copyRow(1);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("It's"));
    EXPECT_EQ(navigator.confirmed, QStringLiteral("Copied."));
    breakdown->selectRow(0); // without a text
    EXPECT_EQ(selection.SelectedJokeText, QStringLiteral("It's"));
}

TEST_P(BreakdownTest, TheEditorsRouteLoadsItAgain)
{
    Jokes& joke = addNamed("Puns", "a");
    load();
    EXPECT_TRUE(breakdown->isTargetOf(side().route));
    EXPECT_FALSE(breakdown->isTargetOf(side().otherRoute));
    joke.setJoke("changed");
    addNamed("Puns", "b");
    breakdown->unwound(side().route);
    EXPECT_THAT(rows(), ElementsAre("b", "changed"));
    (joke.*side().setName)("Other");
    breakdown->unwound(side().route);
    EXPECT_THAT(rows(), ElementsAre("b"));
}

INSTANTIATE_TEST_SUITE_P(Sides, BreakdownTest, ::testing::ValuesIn(ExpectedSides), sideName);

} // namespace giggle
