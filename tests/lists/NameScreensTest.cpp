// SPDX-License-Identifier: MIT
#include "lists/AddNameViewController.h"
#include "lists/EditNameViewController.h"
#include "lists/NameListViewController.h"
#include "tests/support/ScreenFixture.h"
#include "ui/SharedSelection.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Names = std::vector<std::string>;

/// Its cells are the names themselves.
struct NameList : NameListViewController {
    using NameListViewController::NameListViewController;

    QVariant cellForRow(int row) const override { return nameInRow(row); }
};

/// One side's screens over the names that a test stores.
class NameScreensTest : public ScreenFixture, public ::testing::WithParamInterface<const ListSide*> {
protected:
    void store(const std::vector<OptionalText>& names)
    {
        for (const OptionalText name : names)
            if (&side == &CategorySide)
                insertCategory(context(), name);
            else
                insertRating(context(), name);
        context().save();
    }

    /// What is in the file, in the order of insertion.
    [[nodiscard]] Names stored()
    {
        return RawDatabase(folder.file()).rows("SELECT " + table + " FROM " + table + " ORDER BY oid");
    }

    [[nodiscard]] Names rows()
    {
        Names names;
        for (int row = 0; row < list.tableView()->rowCount(); ++row)
            names.push_back(list.cellForRow(row).toString().toStdString());
        return names;
    }

    [[nodiscard]] QString header() { return list.tableView()->headerText(); }

    /// Types a name into the add screen and saves.
    void add(const QString& name)
    {
        AddNameViewController screen(environment, side);
        screen.viewDidLoad();
        screen.setName(name);
        EXPECT_EQ(screen.hasUnsavedChanges(), !name.isEmpty());
        screen.SaveGenre();
    }

    /// Chooses a name, types another into the rename screen and saves.
    void rename(const QString& from, const QString& to)
    {
        selection.*side.nameToRename = from;
        EditNameViewController screen(environment, side);
        screen.viewDidLoad();
        EXPECT_EQ(screen.name(), from);
        EXPECT_FALSE(screen.hasUnsavedChanges());
        screen.setName(to);
        screen.SaveGenre();
    }

    void removeAll()
    {
        list.viewDidLoad();
        while (list.numberOfRows() > 0)
            list.deleteRow(0);
        navigator = {};
    }

    const ListSide& side = *GetParam();
    const std::string table = side.fieldName.toString().toLower().toStdString(); ///< and its only column
    NameList list{environment, side};
    QAbstractItemModelTester tester{list.tableView(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

INSTANTIATE_TEST_SUITE_P(, NameScreensTest, ::testing::Values(&CategorySide, &RatingSide),
                         [](const auto& side) { return side.param->listTitle.toString().toStdString(); });

TEST_P(NameScreensTest, SortTurnsTheOrderOfThisVisitRound)
{
    list.viewDidLoad();
    EXPECT_FALSE(selection.SortAsc);
    store({"b", "", "B", "\u00e9", "a", "a"});
    list.SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("\u00e9", "b", "a", "a", "B", ""));
    EXPECT_EQ(header(), side.headerPrefix.toString() + u'6');
    list.SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("", "B", "a", "a", "b", "\u00e9"));
    EXPECT_TRUE(selection.SortAsc);

    list.SortButtonTapped();
    NameList next(environment, side);
    next.viewDidLoad();
    EXPECT_TRUE(next.sortAsc());
}

TEST_P(NameScreensTest, ADeletedNameComesBackWhereItWas)
{
    const std::string longName = std::string(59, 'x') + "\U0001F600y";
    store({"twin", "a", "twin", longName});
    list.viewDidLoad();
    list.deleteRow(1);
    list.SortButtonTapped();
    list.deleteRow(0);
    const QString offer = side.fieldName.toString() + u" deleted: "_s + u"x"_s.repeated(59) + u'\u2026';
    EXPECT_EQ(navigator.undoOffer, offer);
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre(longName, "twin", "a"));
    list.deleteRow(1);
    list.SortButtonTapped();
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre("a", "twin", longName));
    EXPECT_THAT(stored(), ElementsAre("a", "twin", longName));
}

TEST_P(NameScreensTest, AddStoresTheNameLessBlanksOrSaysWhyNot)
{
    const std::string taken = "Taken";
    const QString longName = u"x"_s.repeated(10'000);

    const struct {
        QString typed;
        Names stored;
        QString refusal = {};
    } cases[] = {
        {{}, {taken}, u"Category not Entered"_s},
        {u"Taken"_s, {taken}, u"Duplicates not allowed"_s},
        {u"taken"_s, {taken, "taken"}},
        {u" Taken"_s, {taken, taken}}, // what is typed is compared, what is trimmed is stored
        {u"\t\u00a0a b\u3000 "_s, {taken, "a b"}},
        {u"  "_s, {taken, ""}},
        {u" \na\n "_s, {taken, "\na\n"}},
        {u"a^'\"|\\"_s, {taken, "a^'\"|\\"}},
        {longName, {taken, longName.toStdString()}},
    };

    for (const auto& c : cases) {
        removeAll();
        store({taken});
        add(c.typed);
        EXPECT_EQ(stored(), c.stored) << c.typed.left(20).toStdString();
        EXPECT_EQ(navigator.unwound.size(), c.refusal.isEmpty() ? 1u : 0u);
        EXPECT_EQ(navigator.alerts.empty() ? QString() : navigator.alerts[0].message, c.refusal);
    }
}

TEST_P(NameScreensTest, RenameChangesTheFirstRecordAndChecksNothing)
{
    const struct {
        QString from;
        QString to;
        Names stored;
    } cases[] = {
        {"b", " c\u00a0", {"a", "c", "b"}}, {"b", "a", {"a", "a", "b"}}, {"b", "", {"a", "", "b"}},
        {"b", " ", {"a", "", "b"}},         {"B", "c", {"a", "b", "b"}}, // there is none
        {"", "c", {"a", "b", "b"}},
    };

    for (const auto& c : cases) {
        removeAll();
        store({"a", "b", "b"});
        rename(c.from, c.to);
        EXPECT_EQ(stored(), c.stored) << c.to.toStdString();
        EXPECT_THAT(navigator.unwound, ElementsAre(side.unwindRoute));
    }
}

TEST_P(NameScreensTest, AFailedSaveIsLoggedAndTheNextOneStoresTheName)
{
    store({"a"});
    RawDatabase database(folder.file());
    database.execute("ALTER TABLE " + table + " RENAME TO away");
    ::testing::internal::CaptureStderr();
    add(u"new"_s);
    rename(u"a"_s, u"z"_s);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr(table));
    EXPECT_THAT(navigator.unwound, ElementsAre(side.unwindRoute, side.unwindRoute));
    database.execute("ALTER TABLE away RENAME TO " + table);
    EXPECT_THAT(stored(), ElementsAre("a"));
    add(u"newer"_s);
    EXPECT_THAT(stored(), ElementsAre("z", "new", "newer"));
}

TEST_P(NameScreensTest, ACategoryWithoutANameIsAnEmptyRowAndARatingWithoutOneEndsTheProgram)
{
    store({std::nullopt, "a", std::nullopt});
    if (&side == &RatingSide) {
        EXPECT_DEATH(list.viewDidLoad(), "a rating without a name");
        return;
    }
    list.viewDidLoad();
    EXPECT_THAT(rows(), ElementsAre("", "", "a"));
    selection.selectedCategoryName = u"a"_s;
    list.selectRow(0);
    rename(selection.selectedCategoryName, u"b"_s);
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
    list.deleteRow(0);
    EXPECT_THAT(stored(), ElementsAre("a", "NULL"));
    EXPECT_EQ(navigator.undoOffer, u"Category deleted."_s);
    navigator.undo();
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
}

TEST_P(NameScreensTest, ASearchNarrowsTheRatingsAndDeletingMeanwhileLeavesTheWholeListAsItWas)
{
    store({"Mild", "Mild+", "Adult", "Ämild"});
    list.viewDidLoad();
    list.setSearchText(u"ä"_s);
    if (&side == &CategorySide) {
        EXPECT_EQ(rows().size(), 4U);
        return;
    }
    list.selectRow(0);
    EXPECT_EQ(selection.selectedRatingName, u"Ämild"_s);
    list.setSearchText(u"MILD"_s);
    list.SortButtonTapped(); // the search is not repeated
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+", "Ämild"));
    list.deleteRow(1);
    list.SortButtonTapped();
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+", "Ämild"));
    list.deleteRow(1);
    list.setSearchText({});
    EXPECT_THAT(rows(), ElementsAre("Adult", "Mild", "Mild+", "Ämild"));
    rename(u"Mild+"_s, u"back from the dead"_s);
    list.deleteRow(2);
    EXPECT_THAT(stored(), ElementsAre("Mild", "Adult", "Ämild"));
}

} // namespace

} // namespace giggle
