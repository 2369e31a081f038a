// SPDX-License-Identifier: MIT
#include "store/Preferences.h"

#include "store/PreferenceKeys.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FileSizeLimit.h"

#include <QDir>
#include <QFile>

#include <limits>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class PreferencesTest : public testing::Test {
protected:
    CollectionFolder m_folder;
    QString m_path = m_folder.filePath(u"preferences.json"_s);
};

TEST_F(PreferencesTest, ValuesAndTypesSurviveARestartInAFileOfThePinnedForm)
{
    const QString text = u"a \"quoted\" \\ line\nüñ😀 "_s + QChar(0) + u'\u2028';
    {
        Preferences preferences(m_path);
        preferences.setText(u"text", text);
        preferences.setReal(u"real", 15.0);
        preferences.setReal(u"third", 1.0 / 3.0);
        preferences.setInteger(u"lowest", std::numeric_limits<qint64>::min());
        preferences.setBoolean(u"no", false);
        preferences.setDate(u"date",
                            QDateTime(QDate(2026, 11, 21), QTime(11, 30, 15, 987), Qt::OffsetFromUTC, 3600));
        ASSERT_TRUE(preferences.synchronize());
    }
    Preferences preferences(m_path);
    EXPECT_EQ(preferences.text(u"text"), text);
    EXPECT_EQ(preferences.real(u"third"), 1.0 / 3.0);
    EXPECT_TRUE(preferences.isPresent(u"no"));
    EXPECT_FALSE(preferences.boolean(u"no"));
    EXPECT_EQ(preferences.date(u"date"), QDateTime(QDate(2026, 11, 21), QTime(10, 30, 15), Qt::UTC));
    preferences.setText(u"text", u"Arial"_s);
    preferences.remove(u"third");
    ASSERT_TRUE(preferences.synchronize());
    EXPECT_EQ(readBytes(m_path), "{\n"
                                 "\"date\": {\"date\": \"2026-11-21T10:30:15Z\"},\n"
                                 "\"lowest\": {\"integer\": -9223372036854775808},\n"
                                 "\"no\": {\"boolean\": false},\n"
                                 "\"real\": {\"real\": 15.0},\n"
                                 "\"text\": {\"text\": \"Arial\"}\n"
                                 "}\n");
}

TEST_F(PreferencesTest, WrongTypeStopsTheProgram)
{
    writeBytes(m_path, R"({"ListFontSize":{"text":"big"}})");
    const Preferences preferences(m_path);
    EXPECT_DEATH(
        static_cast<void>(preferences.real(PreferenceKeys::ListFontSize)),
        "Fatal error: The preference \"ListFontSize\" in .* must be of type real, but is of type text");
    EXPECT_DEATH(static_cast<void>(preferences.text(PreferenceKeys::ListFontColor)),
                 "must be of type text, but is absent");
}

TEST_F(PreferencesTest, DamagedFileIsSetAsideAndProvesAnEarlierLaunch)
{
    for (const QByteArray damaged :
         {"", "[]", R"({"ListFontName":{"text":"Ari)", R"({"ListFontName":"Arial"})", R"({"a":{"text":5}})",
          R"({"a":{"integer":18446744073709551616}})", "{\"a\":{\"text\":\"\xff\"}}"}) {
        SCOPED_TRACE(damaged.constData());
        QFile::remove(m_path + u".damaged.2"_s);
        writeBytes(m_path, damaged);
        writeBytes(m_path + u".damaged"_s, "older");
        const Preferences preferences(m_path);
        EXPECT_FALSE(QFile::exists(m_path));
        EXPECT_EQ(readBytes(m_path + u".damaged"_s), "older");
        EXPECT_EQ(readBytes(m_path + u".damaged.2"_s), damaged);
        EXPECT_FALSE(preferences.isPresent(PreferenceKeys::ListFontName));
        EXPECT_TRUE(preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    }
}

TEST_F(PreferencesTest, FailedWriteLeavesTheFileAndCanBeRepeated)
{
    Preferences preferences(m_path);
    preferences.setReal(PreferenceKeys::ListFontSize, 20.0);
    ASSERT_TRUE(preferences.synchronize());
    const QByteArray before = readBytes(m_path);
    preferences.setReal(PreferenceKeys::ListFontSize, 21.0);

    {
        const FileSizeLimit full(0);
        EXPECT_FALSE(preferences.synchronize());
    }
    EXPECT_EQ(readBytes(m_path), before);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    EXPECT_EQ(preferences.real(PreferenceKeys::ListFontSize), 21.0);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(Preferences(m_path).real(PreferenceKeys::ListFontSize), 21.0);
}

} // namespace

} // namespace giggle
