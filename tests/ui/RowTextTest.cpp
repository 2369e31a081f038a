// SPDX-License-Identifier: MIT
#include "platform/AttributedText.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"
#include "ui/DisplayText.h"
#include "ui/ListDisplaySettings.h"

#include <set>

namespace giggle {

namespace {

class ListDisplaySettingsTest : public ScreenFixture {
protected:
    ListDisplaySettings read() const { return ListDisplaySettings::read(userDefaults); }
};

} // namespace

TEST(DisplayTextTest, DropsWhatIsNotAllowedCodePointByCodePoint)
{
    struct Case {
        std::string_view text;
        const char* shown;
    };

    const Case cases[] = {
        {"", ""},
        {"Don't stop", "Dont stop"},
        {"a \"b\" \\ | ^ c", "a b    c"},
        {"tab\there\r\nnext", "tabhere\nnext"},
        {"cafe\xCC\x81 caf\xC3\xA9", "cafe caf"},
        {"a\xF0\x9F\x98\x80z", "az"},
        {std::string_view("a\0b", 3), "ab"},
        {",;:-=?!@#$%&*()[]{}/<>_+~`.", ",;:-=?!@#$%&*()[]{}/<>_+~`."},
    };
    for (const Case& c : cases)
        EXPECT_EQ(filteredForDisplay(c.text), QString::fromLatin1(c.shown)) << c.text;
}

TEST_F(ListDisplaySettingsTest, TakesWhatIsStored)
{
    userDefaults.setText(PreferenceKeys::ListFontName, QStringLiteral("Courier New"));
    userDefaults.setInteger(PreferenceKeys::ListFontSize, 17);
    userDefaults.setText(PreferenceKeys::ListFontColor, QStringLiteral("magenta"));
    const ListDisplaySettings settings = read();
    EXPECT_EQ(settings.ListFontName, QStringLiteral("Courier New"));
    EXPECT_EQ(settings.ListFontSize, 17.0);
    EXPECT_EQ(colorNamed(settings.ListFontColor), QColor(Qt::magenta));
}

TEST_F(ListDisplaySettingsTest, ColorsAreKnownByTheirExactNames)
{
    EXPECT_EQ(colorNamed(QStringLiteral("green")), QColor(0, 255, 0));
    EXPECT_EQ(colorNamed(QStringLiteral("Blue")), std::nullopt);
    EXPECT_EQ(colorNamed(QStringLiteral("teal")), std::nullopt);
    EXPECT_EQ(colorNamed(QString()), std::nullopt);
}

TEST_F(ListDisplaySettingsTest, AWrongTypeEndsTheProgram)
{
    userDefaults.setText(PreferenceKeys::ListFontSize, QStringLiteral("15"));
    EXPECT_DEATH((void)read(), "ListFontSize");
}

TEST_F(ListDisplaySettingsTest, AFontThatIsNotThereEndsTheProgram)
{
    userDefaults.setText(PreferenceKeys::ListFontName, QStringLiteral("No Such Font"));
    const ListDisplaySettings settings = read();
    EXPECT_DEATH((void)settings.requiredFont(system.fonts), "No Such Font");
}

TEST(AttributedTextTest, KeepsEveryCodeUnit)
{
    const QString text = QStringLiteral("a\u00A0b\u2028c\u2029\r\nd");
    AttributedText attributed;
    attributed.append(text);
    attributed.append(QStringLiteral("e"));
    EXPECT_EQ(attributed.plainText(), text + u'e');
}

} // namespace giggle
