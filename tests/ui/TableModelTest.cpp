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

    Words source;
    TableModel table{source};
    QAbstractItemModelTester tester{&table, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

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
