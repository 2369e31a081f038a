// SPDX-License-Identifier: MIT
#include "ui/TableModel.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

class Words : public TableDataSource {
public:
    int numberOfRows() const override { return static_cast<int>(words.size()); }

    QVariant cellForRow(int row) const override { return words.at(row); }

    QString headerText() const override { return {}; }

    RowIdentity identityOfRow(int row) const override { return words.at(row).at(0).unicode(); }

    QStringList words;
};

} // namespace

TEST(TableModelTest, TheFirstRowInSightIsFoundAgainByWhatItShowsElseByItsNumber)
{
    Words source;
    TableModel table(source);
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
