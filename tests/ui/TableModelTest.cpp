// SPDX-License-Identifier: MIT
#include "ui/TableModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace giggle {

namespace {

class Words : public TableDataSource {
public:
    int numberOfRows() const override { return static_cast<int>(words.size()); }

    QVariant cellForRow(int row) const override { return words.at(row); }

    QString headerText() const override { return QString::number(words.size()); }

    RowIdentity identityOfRow(int row) const override { return words.at(row).at(0).unicode(); }

    QStringList words{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")};
};

class TableModelTest : public ::testing::Test {
protected:
    TableModelTest() { table.reload(); }

    QStringList shown() const
    {
        QStringList cells;
        for (int row = 0; row < table.rowCount(); ++row)
            cells.append(table.data(table.index(row), TableModel::CellRole).toString());
        return cells;
    }

    void remove(int row)
    {
        table.removeRow(row, [this, row] { source.words.removeAt(row); });
    }

    Words source;
    TableModel table{source};
    // Reads the neighbours of what is removed before and after, among much else; a fault aborts the test.
    QAbstractItemModelTester tester{&table, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(TableModelTest, RemovesOneRowWithoutAReset)
{
    QSignalSpy removals(&table, &TableModel::rowsRemoved);
    QSignalSpy resets(&table, &TableModel::modelReset);
    QSignalSpy counts(&table, &TableModel::countChanged);
    QSignalSpy headers(&table, &TableModel::headerTextChanged);
    remove(1);
    EXPECT_EQ(shown(), QStringList({"a", "c", "d"}));
    remove(2);
    EXPECT_EQ(shown(), QStringList({"a", "c"}));
    remove(0);
    remove(0);
    EXPECT_EQ(shown(), QStringList());
    EXPECT_EQ(removals.count(), 4);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(counts.count(), 4);
    EXPECT_EQ(headers.count(), 4);
    EXPECT_EQ(table.headerText(), QStringLiteral("0"));
}

TEST_F(TableModelTest, PutsOneRowInWithoutAReset)
{
    QSignalSpy resets(&table, &TableModel::modelReset);
    QSignalSpy headers(&table, &TableModel::headerTextChanged);
    for (const int row : {0, 2, 6})
        table.insertRow(row, [this, row] { source.words.insert(row, QStringLiteral("new")); });
    EXPECT_EQ(shown(), QStringList({"new", "a", "new", "b", "c", "d", "new"}));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(headers.count(), 3);
}

TEST_F(TableModelTest, RedrawingKeepsThePlaceAsLongAsTheRowsAreTheSame)
{
    QSignalSpy resets(&table, &TableModel::modelReset);
    QSignalSpy changes(&table, &TableModel::dataChanged);
    table.redraw();
    EXPECT_EQ(resets.count(), 0);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes.at(0).at(0).toModelIndex().row(), 0);
    EXPECT_EQ(changes.at(0).at(1).toModelIndex().row(), 3);

    source.words.append(QStringLiteral("e"));
    table.redraw();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(table.count(), 5);
}

TEST_F(TableModelTest, TheFirstRowInSightIsFoundAgainByWhatItShowsElseByItsNumber)
{
    EXPECT_EQ(table.keptPlace().topRow, -1);

    struct {
        QStringList words;
        int topRow;
        int currentRow;
    } cases[] = {
        {{"a", "b", "c", "d"}, 2, 3},
        {{"d", "c", "b", "a"}, 1, 0}, // turned round
        {{"new", "a", "b", "c", "d"}, 3, 4},
        {{"a", "b", "d"}, 2, 2}, // the top row is gone
        {{"x"}, 0, 0},
        {{}, -1, -1},
    };

    for (const auto& one : cases) {
        source.words = {"a", "b", "c", "d"};
        table.reload();
        table.keepPlace(2, 7.5, 3);
        source.words = one.words;
        table.reload();
        EXPECT_EQ(table.keptPlace(), (TablePlace{one.topRow, 7.5, one.currentRow}))
            << one.words.join(u' ').toStdString();
    }
}

} // namespace giggle
