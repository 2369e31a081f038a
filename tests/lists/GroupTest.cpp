// SPDX-License-Identifier: MIT
#include "jokes/EditJokeViewController.h"
#include "tests/lists/SideFixture.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GroupTest : public SideFixture {
protected:
    /// What a screen reader hears of each row.
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        const TableModel& table = *groups->tableView();
        for (int row = 0; row < table.rowCount(); ++row)
            texts.push_back(table.data(table.index(row), TableModel::CellRole)
                                .value<GroupTableViewCell>()
                                .accessibleName()
                                .toStdString());
        return texts;
    }

    [[nodiscard]] std::string header() const
    {
        std::string text = groups->tableView()->headerText().toStdString();
        EXPECT_TRUE(text.starts_with(side().header)) << text;
        return text.substr(std::min(text.size(), std::string(side().header).size()));
    }

    QAbstractItemModelTester tester{groups->tableView(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_P(GroupTest, ListsTheNamesOfJokesWithTheirCounts)
{
    insertCategory(context(), "Unused");
    insertRating(context(), "Unused");
    groups->viewDidLoad();
    EXPECT_EQ(header(), "0");
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(groups->searchPlaceholder(), QString::fromUtf8(side().placeholder));
    EXPECT_EQ(selection.CallingScreen, QString::fromUtf8(side().groupScreen));

    for (const OptionalText name : {"b", "B", "b", "\xC3\xA9", "\xF0\x9F\x98\x80", "\xEF\xBC\xA1", ""})
        addNamed(name);
    addNamed({});
    groups->viewWillAppear();
    // By code point, in which the emoji comes last.
    const std::vector<std::string> ascending{
        "No name, 1", "B, 1", "b, 2", "\xC3\xA9, 1", "\xEF\xBC\xA1, 1", "\xF0\x9F\x98\x80, 1"};
    EXPECT_EQ(rows(), ascending);
    EXPECT_EQ(header(), "6");
    EXPECT_EQ(groups->headerTitle(), u'6' + QString::fromUtf8(side().headerTitle));
    groups->SortData();
    EXPECT_EQ(rows(), std::vector<std::string>(ascending.rbegin(), ascending.rend()));
}

TEST_P(GroupTest, ANameStaysWhenItsJokesAreGone)
{
    Jokes& moved = addNamed("Puns");
    Jokes& deleted = addNamed("Dad");
    groups->viewDidLoad();
    (moved.*side().setName)("Animals"); // not saved
    context().deleteObject(deleted);
    EXPECT_THAT(rows(), ElementsAre("Dad, 0", "Puns, 0")) << "counted when it is drawn";
    groups->viewWillAppear();
    EXPECT_THAT(rows(), ElementsAre("Animals, 1", "Dad, 0", "Puns, 0"));
    groups->SortData();
    EXPECT_THAT(rows(), ElementsAre("Puns, 0", "Dad, 0", "Animals, 1"));

    groups = side().makeGroups(environment);
    groups->viewDidLoad();
    EXPECT_THAT(rows(), ElementsAre("Animals, 1"));
}

TEST_P(GroupTest, SearchNarrowsTheRowsAndSortTurnsThemRound)
{
    for (const OptionalText name : {"Concatenate", "Tomcat", "Dog", ""})
        addNamed(name);
    groups->viewDidLoad();
    groups->setSearchText(QStringLiteral("CAT"));
    EXPECT_THAT(rows(), ElementsAre("Concatenate, 1", "Tomcat, 1"));
    EXPECT_EQ(header(), "2 of 4");
    EXPECT_EQ(groups->headerTitle(), u'2' + QString::fromUtf8(side().headerTitle));

    addNamed("Cats");
    groups->SortData();
    EXPECT_THAT(rows(), ElementsAre("Tomcat, 1", "Concatenate, 1")) << "nothing is fetched";
    EXPECT_EQ(header(), "2 of 4");
    groups->selectRow(0);
    EXPECT_EQ(selectedName(), QStringLiteral("Tomcat"));
    groups->viewDidDisappear();
    EXPECT_EQ(groups->searchText(), QString());
    EXPECT_EQ(header(), "4");
    groups->viewWillAppear();
    EXPECT_THAT(rows(), ElementsAre("Tomcat, 1", "Dog, 1", "Concatenate, 1", "Cats, 1", "No name, 1"));
}

TEST_P(GroupTest, ARowLeadsToItsBreakdownAndBackLeadsToTheMenu)
{
    addNamed("Puns");
    groups->viewDidLoad();
    selection.CallingScreen = QStringLiteral("elsewhere");
    groups->selectRow(1);
    groups->selectRow(-1);
    EXPECT_THAT(navigator.performed, IsEmpty());
    groups->selectRow(0);
    EXPECT_EQ(selectedName(), QStringLiteral("Puns"));
    EXPECT_EQ(selection.CallingScreen, QString::fromUtf8(side().groupScreen));
    EXPECT_THAT(navigator.performed, ElementsAre(side().segue));
    groups->UnwindSegue();
    EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToMainMenu));
}

TEST_P(GroupTest, ReturningKeepsThePlaceInTheList)
{
    for (int i = 0; i < 5000; ++i)
        insertJoke(context(), {.category = std::to_string(i), .rating = std::to_string(i)});
    groups->viewDidLoad();
    EXPECT_EQ(header(), "5000");
    QSignalSpy resets(groups->tableView(), &TableModel::modelReset);
    groups->viewWillAppear();
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(header(), "5000");
}

TEST_P(GroupTest, UnreadableJokesLeaveTheListAsItWas)
{
    (void)context();
    RawDatabase(folder.file()).execute("DROP TABLE jokes");
    groups->viewDidLoad();
    EXPECT_EQ(header(), "0");
    selectedName() = QStringLiteral("Puns");
    breakdown->viewDidLoad();
    EXPECT_EQ(breakdown->numberOfRows(), 0);
}

TEST_P(GroupTest, ARatingWithoutANameEndsTheProgramInTheEditorOnly)
{
    addNamed("Puns");
    insertRating(context(), {});
    groups->viewDidLoad();
    EXPECT_THAT(rows(), ElementsAre("Puns, 1"));
    selectedName() = QStringLiteral("Puns");
    breakdown->viewDidLoad();
    breakdown->selectRow(0);
    EditJokeViewController editor(environment);
    EXPECT_DEATH(editor.viewDidLoad(), "rating without a name");
}

TEST_P(GroupTest, SortingBeforeLoadingEndsTheProgram)
{
    EXPECT_DEATH(groups->SortData(), "sorted before it was loaded");
    EXPECT_DEATH(breakdown->SortData(), "sorted before it was loaded");
}

INSTANTIATE_TEST_SUITE_P(Sides, GroupTest, ::testing::ValuesIn(ExpectedSides), sideName);

} // namespace giggle
