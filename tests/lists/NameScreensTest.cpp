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

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Names = std::vector<std::string>;

/// One side's classes, and the texts of its screens.
struct NameSide {
    std::string table; ///< whose one column has the same name
    void (*insert)(ManagedObjectContext&, OptionalText);
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
    [](ManagedObjectContext& context, OptionalText name) { insertCategory(context, name); },
    CategorySide,
    make<NameListViewController, CategoryTableViewController>,
    make<NameEditor, AddCategoryViewController>,
    make<NameEditor, EditCategoryViewController>,
    [](const QVariant& cell) { return cell.value<CategoryTableViewCell>().CategoryNameLabel; },
    "# Categories = ",
    {"Categories", "", "Add Category", "Edit Category", "Category"}};
const NameSide RatingNames{
    "rating",
    [](ManagedObjectContext& context, OptionalText name) { insertRating(context, name); },
    RatingSide,
    make<NameListViewController, RatingTableViewController>,
    make<NameEditor, AddRatingViewController>,
    make<NameEditor, EditRatingViewController>,
    [](const QVariant& cell) { return cell.value<RatingTableViewCell>().RatingNameLabel; },
    "# Ratings = ",
    {"Ratings", "Sort and Search By Rating", "Add Rating", "Edit Rating", "Rating"}};

/// One side's screens over the names that a test stores.
class NameScreens : public ScreenFixture {
protected:
    explicit NameScreens(const NameSide& side) : m_side(side) {}

    [[nodiscard]] const NameSide& side() const { return m_side; }

    void store(const std::vector<OptionalText>& names)
    {
        for (const OptionalText name : names)
            side().insert(context(), name);
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

TEST_P(NameScreensTest, ADeletedNameComesBackWhereItWas)
{
    const std::string longName = std::string(59, 'x') + "\U0001F600y";
    store({"twin", "a", "twin", longName});
    list->viewDidLoad();
    list->deleteRow(1);
    list->SortButtonTapped();
    list->deleteRow(0);
    const QString deleted = side().texts.back() + u" deleted: "_s;
    EXPECT_EQ(navigator.undoOffer, deleted + u"x"_s.repeated(59) + u'\u2026');
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre(longName, "twin", "a"));
    list->deleteRow(1);
    EXPECT_EQ(navigator.undoOffer, deleted + u"twin"_s);
    list->SortButtonTapped();
    navigator.undo();
    EXPECT_THAT(rows(), ElementsAre("a", "twin", longName));
    EXPECT_EQ(header(), side().header + u'3');
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
        ASSERT_EQ(navigator.alerts.size(), c.refusal.isEmpty() ? 0u : 1u);
        ASSERT_EQ(navigator.unwound.size(), c.refusal.isEmpty() ? 1u : 0u);
        if (!c.refusal.isEmpty()) {
            EXPECT_EQ(navigator.alerts[0].message, c.refusal);
        }
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
        EXPECT_THAT(navigator.unwound, ElementsAre(side().ways.unwindRoute));
        EXPECT_THAT(navigator.alerts, IsEmpty());
    }
}

TEST_P(NameScreensTest, AFailedSaveIsLoggedAndTheNextOneStoresTheName)
{
    store({"a"});
    list->viewDidLoad();
    RawDatabase database(folder.file());
    database.execute("ALTER TABLE " + side().table + " RENAME TO away");
    ::testing::internal::CaptureStderr();
    add(u"new"_s);
    rename(u"a"_s, u"z"_s);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr(side().table));
    EXPECT_THAT(navigator.unwound, ElementsAre(side().ways.unwindRoute, side().ways.unwindRoute));
    list->unwound(side().ways.unwindRoute);
    EXPECT_THAT(rows(), ElementsAre("new", "z"));

    database.execute("ALTER TABLE away RENAME TO " + side().table);
    EXPECT_THAT(stored(), ElementsAre("a"));
    add(u"newer"_s);
    EXPECT_THAT(stored(), ElementsAre("z", "new", "newer"));
}

TEST_F(CategoryListTest, OneWithoutANameIsAnEmptyRowThatCanBeDeletedButNotRenamed)
{
    store({std::nullopt, "a", std::nullopt});
    list->viewDidLoad();
    EXPECT_THAT(rows(), ElementsAre("", "", "a"));
    selection.selectedCategoryName = u"a"_s;
    list->selectRow(0);
    rename(selection.selectedCategoryName, u"b"_s);
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
    list->deleteRow(0);
    EXPECT_THAT(stored(), ElementsAre("a", "NULL"));
    EXPECT_EQ(navigator.undoOffer, u"Category deleted."_s);
    navigator.undo();
    EXPECT_THAT(stored(), ElementsAre("NULL", "a", "NULL"));
    add(u"a"_s);
    EXPECT_EQ(navigator.alerts.size(), 1u) << "the records without a name hide the others";
}

TEST_F(CategoryListTest, ASearchTextNarrowsNothing)
{
    store({"a", "b"});
    list->viewDidLoad();
    list->setSearchText(u"a"_s);
    EXPECT_THAT(rows(), ElementsAre("a", "b"));
    EXPECT_EQ(header(), u"# Categories = 2"_s);
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
    list->setSearchText(u"MILD"_s);
    EXPECT_THAT(rows(), ElementsAre("Mild", "Mild+", "Ämild"));
    EXPECT_EQ(header(), u"# Ratings = 3"_s);
    list->setSearchText(u"ä"_s);
    EXPECT_THAT(rows(), ElementsAre("Ämild"));
    list->selectRow(0);
    EXPECT_EQ(selection.selectedRatingName, u"Ämild"_s);
    list->setSearchText({});
    EXPECT_EQ(header(), u"# Ratings = 4"_s);
}

TEST_F(RatingListTest, DeletingWhileSearchingLeavesTheWholeListAsItWas)
{
    store({"Mild", "Mild+", "Adult"});
    list->viewDidLoad();
    list->setSearchText(u"mild"_s);
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
    rename(u"Mild"_s, u"back from the dead"_s);
    list->deleteRow(1);
    EXPECT_THAT(stored(), ElementsAre("Mild+", "Adult"));
    list->SortButtonTapped();
    EXPECT_THAT(rows(), ElementsAre("Adult", "Mild+"));
}

} // namespace giggle
