// SPDX-License-Identifier: MIT
#include "lists/AddCategoryViewController.h"
#include "lists/AddRatingViewController.h"
#include "lists/CategoryTableViewController.h"
#include "lists/EditCategoryViewController.h"
#include "lists/EditRatingViewController.h"
#include "lists/RatingTableViewController.h"
#include "tests/support/ScreenFixture.h"
#include "ui/SharedSelection.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Names = std::vector<std::string>;

/// One side's classes, and the texts of its screens.
struct NameSide {
    std::string table; ///< whose one column has the same name
    const ListSide& ways;
    std::unique_ptr<NameListViewController> (*makeList)(ScreenEnvironment&);
    std::unique_ptr<NameEditor> (*makeAdd)(ScreenEnvironment&);
    std::unique_ptr<NameEditor> (*makeEdit)(ScreenEnvironment&);
    QString (*label)(const QVariant& cell);
    QString header;
    QStringList texts;
};

template <class Base, class ScreenClass>
std::unique_ptr<Base> make(ScreenEnvironment& environment)
{
    return std::make_unique<ScreenClass>(environment);
}

const NameSide CategoryNames{
    "category",
    CategorySide,
    make<NameListViewController, CategoryTableViewController>,
    make<NameEditor, AddCategoryViewController>,
    make<NameEditor, EditCategoryViewController>,
    [](const QVariant& cell) { return cell.value<CategoryTableViewCell>().CategoryNameLabel; },
    "# Categories = ",
    {"Categories", "", "Add Category", "Edit Category", "Category"},
};
const NameSide RatingNames{
    "rating",
    RatingSide,
    make<NameListViewController, RatingTableViewController>,
    make<NameEditor, AddRatingViewController>,
    make<NameEditor, EditRatingViewController>,
    [](const QVariant& cell) { return cell.value<RatingTableViewCell>().RatingNameLabel; },
    "# Ratings = ",
    {"Ratings", "Sort and Search By Rating", "Add Rating", "Edit Rating", "Rating"},
};

/// One side's screens over the names that a test stores.
class NameScreens : public ScreenFixture {
protected:
    explicit NameScreens(const NameSide& side) : m_side(side) {}

    [[nodiscard]] const NameSide& side() const { return m_side; }

    void store(const std::vector<OptionalText>& names)
    {
        for (const OptionalText name : names) {
            if (side().table == "category")
                insertCategory(context(), name);
            else
                insertRating(context(), name);
        }
        context().save();
    }

    /// What is in the file, in the order of insertion.
    [[nodiscard]] Names stored()
    {
        return RawDatabase(folder.file())
            .rows("SELECT " + side().table + " FROM " + side().table + " ORDER BY oid");
    }

    [[nodiscard]] Names rows() const
    {
        Names names;
        const TableModel& table = *list->tableView();
        for (int row = 0; row < table.rowCount(); ++row)
            names.push_back(side().label(table.data(table.index(row), TableModel::CellRole)).toStdString());
        return names;
    }

    [[nodiscard]] QString header() const { return list->tableView()->headerText(); }

    /// Types a name into the add screen and saves.
    void add(const QString& name)
    {
        const auto screen = side().makeAdd(environment);
        screen->viewDidLoad();
        screen->setName(name);
        screen->SaveGenre();
    }

    /// Chooses a name, types another into the rename screen and saves.
    void rename(const QString& from, const QString& to)
    {
        selection.*side().ways.nameToRename = from;
        const auto screen = side().makeEdit(environment);
        screen->viewDidLoad();
        EXPECT_EQ(screen->name(), from);
        EXPECT_FALSE(screen->hasUnsavedChanges());
        screen->setName(to);
        screen->SaveGenre();
    }

    void removeAll()
    {
        list->viewDidLoad();
        while (list->numberOfRows() > 0)
            list->deleteRow(0);
        navigator = {};
    }

    /// Lets saves fail until the triggers are gone.
    void refuseWrites()
    {
        RawDatabase database(folder.file());
        for (const std::string event : {"INSERT", "UPDATE"})
            database.execute("CREATE TRIGGER refuse_" + event + " BEFORE " + event + " ON " + side().table +
                             " BEGIN SELECT RAISE(ABORT, 'the disk is full'); END");
    }

private:
    const NameSide& m_side; // before the list, which is made from it

protected:
    std::unique_ptr<NameListViewController> list = side().makeList(environment);
    QAbstractItemModelTester tester{list->tableView(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

class NameScreensTest : public NameScreens, public ::testing::WithParamInterface<NameSide> {
protected:
    NameScreensTest() : NameScreens(GetParam()) {}
};

struct CategoryListTest : NameScreens {
    CategoryListTest() : NameScreens(CategoryNames) {}
};

struct RatingListTest : NameScreens {
    RatingListTest() : NameScreens(RatingNames) {}
};

INSTANTIATE_TEST_SUITE_P(Sides, NameScreensTest, ::testing::Values(CategoryNames, RatingNames),
                         [](const auto& side) { return side.param.table; });

} // namespace

TEST_P(NameScreensTest, EveryTextIsTheSides)
{
    const auto add = side().makeAdd(environment);
    const auto edit = side().makeEdit(environment);
    EXPECT_EQ(QStringList(
                  {list->title(), list->searchPlaceholder(), add->title(), edit->title(), edit->fieldName()}),
              side().texts);
}

TEST_P(NameScreensTest, SortTurnsTheOrderOfThisVisitRound)
{
    list->viewDidLoad();
    EXPECT_EQ(header(), side().header + u'0');
    EXPECT_FALSE(selection.SortAsc);

    store({"b", "", "B", "\u00e9", "a", "a"});
    list->SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("\u00e9", "b", "a", "a", "B", ""));
    EXPECT_EQ(header(), side().header + u'6');
    EXPECT_EQ(selection.SortAsc, false);
    list->SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("", "B", "a", "a", "b", "\u00e9"));
    EXPECT_EQ(selection.SortAsc, true);

    list->SortButtonTapped();
    const auto next = side().makeList(environment);
    next->viewDidLoad();
    EXPECT_TRUE(next->sortAsc());
}

TEST_P(NameScreensTest, LeadsToTheEditorsAndFetchesOnTheWayBack)
{
    store({"b", "a"});
    list->viewDidLoad();
    list->AddTapped();
    list->selectRow(1);
    EXPECT_THAT(navigator.performed, ElementsAre(side().ways.addSegue, side().ways.editSegue));
    EXPECT_EQ(selection.*side().ways.nameToRename, QStringLiteral("b"));

    store({"c"});
    EXPECT_TRUE(list->isTargetOf(side().ways.unwindRoute));
    EXPECT_FALSE(list->isTargetOf(UnwindRoute::ToList));
    list->unwound(side().ways.unwindRoute);
    EXPECT_THAT(rows(), ElementsAre("a", "b", "c"));
}

TEST_P(NameScreensTest, DeletesOneRecordForGoodAndNoJoke)
{
    addJoke({.category = "twin", .rating = "twin", .id = 1, .joke = "j"});
    store({"twin", "a", "twin"});
    list->viewDidLoad();
    list->deleteRow(1);
    EXPECT_THAT(rows(), ElementsAre("a", "twin"));
    EXPECT_EQ(header(), side().header + u'2');
    EXPECT_THAT(stored(), ElementsAre("a", "twin"));
    list->deleteRow(2); // there is none any more
    EXPECT_THAT(RawDatabase(folder.file()).rows("SELECT category, rating FROM jokes"),
                ElementsAre("twin|twin"));
}

TEST_P(NameScreensTest, ADeletedNameComesBackWhereItWas)
{
    const std::string longName = std::string(59, 'x') + "\U0001F600y";
    store({"twin", "a", "twin", longName});
    list->viewDidLoad();
    list->deleteRow(1);
    list->SortButtonTapped();
    list->deleteRow(0);
    const QString deleted = side().texts.back() + QStringLiteral(" deleted: ");
    EXPECT_EQ(navigator.undoOffer, deleted + QStringLiteral("x").repeated(59) + u'\u2026');
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre(longName, "twin", "a"));
    list->deleteRow(1);
    EXPECT_EQ(navigator.undoOffer, deleted + QStringLiteral("twin"));
    list->SortButtonTapped();
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre("a", "twin", longName));
    EXPECT_EQ(header(), side().header + u'3');
    EXPECT_THAT(stored(), ElementsAre("a", "twin", longName));
}

TEST_P(NameScreensTest, AddStoresTheNameLessBlanksOrSaysWhyNot)
{
    struct Case {
        QString typed;
        Names stored;
        QString refusal = {};
    };

    const std::string taken = "Taken";
    const QString longName = QStringLiteral("x").repeated(10'000);
    const Case cases[] = {
        {{}, {taken}, QStringLiteral("Category not Entered")},
        {QStringLiteral("Taken"), {taken}, QStringLiteral("Duplicates not allowed")},
        {QStringLiteral("taken"), {taken, "taken"}},
        {QStringLiteral(" Taken"), {taken, taken}}, // what is typed is compared, what is trimmed is stored
        {QStringLiteral("\t\u00a0a b\u3000 "), {taken, "a b"}},
        {QStringLiteral("  "), {taken, ""}},
        {QStringLiteral(" \na\n "), {taken, "\na\n"}},
        {QStringLiteral("a^'\"|\\"), {taken, "a^'\"|\\"}},
        {longName, {taken, longName.toStdString()}},
    };
    for (const Case& c : cases) {
        removeAll();
        store({taken});
        add(c.typed);
        EXPECT_EQ(stored(), c.stored) << c.typed.left(20).toStdString();
        ASSERT_EQ(navigator.alerts.size(), c.refusal.isEmpty() ? 0u : 1u);
        ASSERT_EQ(navigator.unwound.size(), c.refusal.isEmpty() ? 1u : 0u);
        if (!c.refusal.isEmpty()) {
            EXPECT_EQ(navigator.alerts[0].title, QStringLiteral("Record not Saved!"));
            EXPECT_EQ(navigator.alerts[0].message, c.refusal);
            ASSERT_EQ(navigator.alerts[0].actions.size(), 1u);
            EXPECT_EQ(navigator.alerts[0].actions[0].title, QStringLiteral("OK"));
        }
    }
}

TEST_P(NameScreensTest, RenameChangesTheFirstRecordAndChecksNothing)
{
    struct Case {
        QString from;
        QString to;
        Names stored;
    };

    const Case cases[] = {
        {QStringLiteral("b"), QStringLiteral(" c\u00a0"), {"a", "c", "b"}},
        {QStringLiteral("b"), QStringLiteral("a"), {"a", "a", "b"}},
        {QStringLiteral("b"), {}, {"a", "", "b"}},
        {QStringLiteral("b"), QStringLiteral(" "), {"a", "", "b"}},
        {QStringLiteral("B"), QStringLiteral("c"), {"a", "b", "b"}}, // there is none
        {{}, QStringLiteral("c"), {"a", "b", "b"}},
    };
    for (const Case& c : cases) {
        removeAll();
        store({"a", "b", "b"});
        rename(c.from, c.to);
        EXPECT_EQ(stored(), c.stored) << c.to.toStdString();
        EXPECT_THAT(navigator.unwound, ElementsAre(side().ways.unwindRoute));
        EXPECT_THAT(navigator.alerts, IsEmpty());
    }
}

TEST_P(NameScreensTest, AFailedSaveIsLoggedAndTheNextOneStoresTheName)
{
    store({"a"});
    list->viewDidLoad();
    refuseWrites();
    ::testing::internal::CaptureStderr();
    add(QStringLiteral("new"));
    rename(QStringLiteral("a"), QStringLiteral("z"));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("the disk is full"));
    EXPECT_THAT(navigator.unwound, ElementsAre(side().ways.unwindRoute, side().ways.unwindRoute));
    list->unwound(side().ways.unwindRoute);
    EXPECT_THAT(rows(), ElementsAre("new", "z"));
    EXPECT_THAT(stored(), ElementsAre("a"));

    RawDatabase(folder.file()).execute("DROP TRIGGER refuse_INSERT; DROP TRIGGER refuse_UPDATE");
    add(QStringLiteral("newer"));
    EXPECT_THAT(stored(), ElementsAre("z", "new", "newer"));
}

TEST_P(NameScreensTest, ATableThatCannotBeReadLeavesTheScreensUsable)
{
    RawDatabase(folder.file()).execute("DROP TABLE " + side().table);
    ::testing::internal::CaptureStderr();
    list->viewDidLoad();
    add(QStringLiteral("new"));
    rename(QStringLiteral("a"), QStringLiteral("b"));
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr(side().table));
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(navigator.unwound.size(), 2u);
}

TEST_F(CategoryListTest, OneWithoutANameIsAnEmptyRowThatCanBeDeletedButNotRenamed)
{
    store({std::nullopt, "a", std::nullopt});
    list->viewDidLoad();
    EXPECT_THAT(rows(), ElementsAre("", "", "a"));
    selection.selectedCategoryName = QStringLiteral("a");
    list->selectRow(0);
    rename(selection.selectedCategoryName, QStringLiteral("b"));
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
    list->deleteRow(0);
    EXPECT_THAT(stored(), ElementsAre("a", "NULL"));
    EXPECT_EQ(navigator.undoOffer, QStringLiteral("Category deleted."));
    navigator.undo();
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
    add(QStringLiteral("a"));
    EXPECT_EQ(navigator.alerts.size(), 1u) << "the records without a name hide the others";
}

TEST_F(CategoryListTest, ASearchTextNarrowsNothing)
{
    store({"a", "b"});
    list->viewDidLoad();
    list->setSearchText(QStringLiteral("a"));
    EXPECT_THAT(rows(), ElementsAre("a", "b"));
    EXPECT_EQ(header(), QStringLiteral("# Categories = 2"));
}

TEST_F(RatingListTest, OneWithoutANameEndsTheProgram)
{
    store({"a", std::nullopt});
    EXPECT_DEATH(list->viewDidLoad(), "a rating without a name");
}

TEST_F(RatingListTest, SearchFindsTheTextAnywhereInEitherCase)
{
    store({"Mild", "Mild+", "Adult", "Ämild"});
    list->viewDidLoad();
    list->setSearchText(QStringLiteral("MILD"));
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+", "Ämild"));
    EXPECT_EQ(header(), QStringLiteral("# Ratings = 3"));
    list->setSearchText(QStringLiteral("ä"));
    EXPECT_THAT(rows(), ElementsAre("Ämild"));
    list->selectRow(0);
    EXPECT_EQ(selection.selectedRatingName, QStringLiteral("Ämild"));
    list->setSearchText({});
    EXPECT_EQ(header(), QStringLiteral("# Ratings = 4"));
}

TEST_F(RatingListTest, DeletingWhileSearchingLeavesTheWholeListAsItWas)
{
    store({"Mild", "Mild+", "Adult"});
    list->viewDidLoad();
    list->setSearchText(QStringLiteral("mild"));
    list->SortButtonTapped(); // the search is not repeated
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+"));
    list->deleteRow(0);
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+"));
    list->deleteRow(0);
    EXPECT_THAT(rows(), ElementsAre("Mild+"));
    EXPECT_THAT(stored(), ElementsAre("Mild+", "Adult"));
    list->setSearchText({});
    EXPECT_THAT(rows(), ElementsAre("Mild+", "Mild", "Adult"));
    rename(QStringLiteral("Mild"), QStringLiteral("back from the dead"));
    list->deleteRow(1);
    EXPECT_THAT(stored(), ElementsAre("Mild+", "Adult"));
    list->SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("Adult", "Mild+"));
}

} // namespace giggle
