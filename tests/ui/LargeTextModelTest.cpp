// SPDX-License-Identifier: MIT
#include "ui/LargeTextModel.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(LargeTextModelTest, RowsHoldEveryLineAndLongOnesInPiecesOfWholeCharacters)
{
    std::string longLine;
    for (int i = 0; i < 3000; ++i)
        longLine += i % 7 == 0 ? "\xF0\x9F\x98\x80" : i % 200 == 3 ? " " : "\xC3\xA9";
    std::string manyLines;
    for (int i = 0; i < 1000; ++i)
        manyLines += std::to_string(i) + '\n';
    for (const std::string& text :
         {std::string(), std::string("\n"), std::string("a"), std::string("a\n\nb"), longLine,
          longLine + "\nend", manyLines, std::string(1000, 'x') + "\n", std::string(1001, 'x')}) {
        LargeTextModel model;
        const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        model.setText(text);
        QString joined;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QString line = model.data(model.index(row), LargeTextModel::LineRole).toString();
            EXPECT_LE(line.toUtf8().size(), int(LargeTextModel::LongestPiece));
            EXPECT_FALSE(line.contains(QChar::ReplacementCharacter)) << "a character was cut";
            joined += line;
        }
        EXPECT_EQ(joined, QString::fromStdString(text).remove(u'\n'));
        model.copy();
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    }
}

} // namespace

} // namespace giggle
