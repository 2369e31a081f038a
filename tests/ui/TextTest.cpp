// SPDX-License-Identifier: MIT
#include "tests/support/FakePlatform.h"
#include "ui/Appearance.h"
#include "ui/DisplayText.h"
#include "ui/LargeTextModel.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(DisplayTextTest, DropsWhatIsNotAllowedCodePointByCodePoint)
{
    const std::pair<std::string_view, const char*> cases[] = {
        {"", ""},
        {"Don't stop", "Dont stop"},
        {"a \"b\" \\ | ^ c", "a b    c"},
        {"tab\there\r\nnext", "tabhere\nnext"},
        {"cafe\xCC\x81 caf\xC3\xA9", "cafe caf"},
        {"a\xF0\x9F\x98\x80z", "az"},
        {std::string_view("a\0b", 3), "ab"},
        {",;:-=?!@#$%&*()[]{}/<>_+~`.", ",;:-=?!@#$%&*()[]{}/<>_+~`."},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(filteredForDisplay(text), QString::fromLatin1(shown)) << text;
}

TEST(LargeTextModelTest, RowsHoldEveryLineAndLongOnesInPiecesOfWholeCharacters)
{
    std::string longLine;
    for (int i = 0; i < 3000; ++i)
        longLine += i % 7 == 0 ? "\xF0\x9F\x98\x80" : i % 200 == 3 ? " " : "\xC3\xA9";
    for (const std::string& text :
         {std::string(), std::string("\n"), std::string("a"), std::string("a\n\nb"), longLine,
          longLine + "\nend", std::string(1000, 'x') + "\n", std::string(1001, 'x')}) {
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

TEST(AppearanceTest, FollowsTheSystemsFontWithinLimits)
{
    FakeInterfaceStyle style;
    const Appearance appearance(style);
    const QFont before = QGuiApplication::font();
    EXPECT_DOUBLE_EQ(appearance.textScale(), 1.0);
    for (const auto& [pointSize, scale] : {std::pair(22., 2.), std::pair(8., 1.), std::pair(1000., 3.)}) {
        QFont font = before;
        font.setPointSizeF(pointSize);
        QGuiApplication::setFont(font);
        QCoreApplication::processEvents();
        EXPECT_DOUBLE_EQ(appearance.textScale(), scale) << pointSize;
    }
    QGuiApplication::setFont(before);
}

} // namespace

} // namespace giggle
