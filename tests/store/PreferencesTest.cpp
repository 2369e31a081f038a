// SPDX-License-Identifier: MIT
#include "store/Preferences.h"

#include "store/PreferenceKeys.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <limits>

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace giggle {

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
}

class PreferencesTest : public testing::Test {
protected:
    void writeFile(const QByteArray& json, const QString& suffix = {}) const
    {
        QFile file(m_path + suffix);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(json), json.size());
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("preferences.json"));
};

TEST_F(PreferencesTest, ValuesAndTypesSurviveARestart)
{
    const QString text = QStringLiteral("a \"quoted\" \\ line\nüñ😀 ") + QChar(0) + u'\u2028';
    const double reals[] = {15.0, 0.1, -3.0, 1e300, 5e-324, 1e21, 9007199254740993.0, 1.0 / 3.0};
    const QDateTime date(QDate(2026, 11, 21), QTime(11, 30, 15, 987), Qt::OffsetFromUTC, 3600);
    {
        Preferences preferences(m_path);
        preferences.setText(u"text", text);
        for (int i = 0; i < 8; ++i)
            preferences.setReal(QStringLiteral("real%1").arg(i), reals[i]);
        preferences.setInteger(u"lowest", std::numeric_limits<qint64>::min());
        preferences.setInteger(u"highest", std::numeric_limits<qint64>::max());
        preferences.setBoolean(u"yes", true);
        preferences.setBoolean(u"no", false);
        preferences.setDate(u"date", date);
        ASSERT_TRUE(preferences.synchronize());
    }
    const Preferences preferences(m_path);
    EXPECT_EQ(preferences.text(u"text"), text);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(preferences.real(QStringLiteral("real%1").arg(i)), reals[i]);
    EXPECT_EQ(preferences.integer(u"lowest"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(preferences.integer(u"highest"), std::numeric_limits<qint64>::max());
    EXPECT_TRUE(preferences.boolean(u"yes"));
    EXPECT_TRUE(preferences.isPresent(u"no"));
    EXPECT_FALSE(preferences.boolean(u"no"));
    EXPECT_EQ(preferences.date(u"date"), QDateTime(QDate(2026, 11, 21), QTime(10, 30, 15), Qt::UTC));
}

TEST_F(PreferencesTest, FileKeepsItsPinnedForm)
{
    Preferences preferences(m_path);
    preferences.setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
    preferences.setReal(PreferenceKeys::ListFontSize, 15.0);
    preferences.setDate(PreferenceKeys::ReviewServiceLastRequest,
                        QDateTime(QDate(2026, 11, 21), QTime(10, 0), Qt::UTC));
    preferences.setText(PreferenceKeys::ListFontName, QStringLiteral("Arial"));
    preferences.setInteger(PreferenceKeys::BgColor, 3);
    ASSERT_TRUE(preferences.synchronize());
    EXPECT_EQ(contentsOf(m_path), "{\n"
                                  "\"ListFontName\": {\"text\": \"Arial\"},\n"
                                  "\"ListFontSize\": {\"real\": 15.0},\n"
                                  "\"ReviewService.lastRequest\": {\"date\": \"2026-11-21T10:00:00Z\"},\n"
                                  "\"bgColor\": {\"integer\": 3},\n"
                                  "\"hasBeenLaunchedBeforeFlag\": {\"boolean\": true}\n"
                                  "}\n");
}

TEST_F(PreferencesTest, NumbersOfEitherTypeAreRead)
{
    writeFile(R"({"17":{"integer":17},"cut":{"real":-2.9},"whole":{"real":15},"vast":{"real":1e300}})");
    const Preferences preferences(m_path);
    EXPECT_EQ(preferences.real(u"17"), 17.0);
    EXPECT_EQ(preferences.real(u"whole"), 15.0);
    EXPECT_EQ(preferences.integer(u"cut"), -2);
    EXPECT_EQ(preferences.integer(u"vast"), std::numeric_limits<qint64>::max());
}

TEST_F(PreferencesTest, FlagAndDateOfAnotherTypeCountAsAbsent)
{
    writeFile(R"({"hasBeenLaunchedBeforeFlag":{"text":"true"},"ReviewService.lastRequest":{"integer":5},
                  "noDate":{"date":"soon"}})");
    Preferences preferences(m_path);
    EXPECT_FALSE(preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    EXPECT_TRUE(preferences.isPresent(PreferenceKeys::ReviewServiceLastRequest));
    EXPECT_EQ(preferences.date(PreferenceKeys::ReviewServiceLastRequest), std::nullopt);
    EXPECT_EQ(preferences.date(u"noDate"), std::nullopt);
    preferences.setDate(PreferenceKeys::ReviewServiceLastRequest, std::nullopt);
    EXPECT_FALSE(preferences.isPresent(PreferenceKeys::ReviewServiceLastRequest));
}

TEST_F(PreferencesTest, WrongTypeStopsTheProgram)
{
    writeFile(R"({"ListFontSize":{"text":"big"},"ListFontName":{"real":1.5}})");
    const Preferences preferences(m_path);
    EXPECT_DEATH(
        preferences.real(PreferenceKeys::ListFontSize),
        "Fatal error: The preference \"ListFontSize\" in .* must be of type real, but is of type text");
    EXPECT_DEATH(preferences.integer(PreferenceKeys::ListFontSize),
                 "must be of type integer, but is of type text");
    EXPECT_DEATH(preferences.text(PreferenceKeys::ListFontName), "must be of type text, but is of type real");
    EXPECT_DEATH(preferences.text(PreferenceKeys::ListFontColor), "must be of type text, but is absent");
}

TEST_F(PreferencesTest, UnknownKeysAreKept)
{
    writeFile(R"({"later":{"real":0.1},"Other":{"date":"once upon a time"}})");
    Preferences preferences(m_path);
    preferences.setBoolean(u"new", true);
    preferences.remove(u"absent");
    ASSERT_TRUE(preferences.synchronize());
    EXPECT_EQ(contentsOf(m_path), "{\n"
                                  "\"Other\": {\"date\": \"once upon a time\"},\n"
                                  "\"later\": {\"real\": 0.1},\n"
                                  "\"new\": {\"boolean\": true}\n"
                                  "}\n");
}

class DamagedPreferencesTest : public PreferencesTest, public testing::WithParamInterface<const char*> {};

TEST_P(DamagedPreferencesTest, AreSetAsideAndProveAnEarlierLaunch)
{
    const QByteArray damaged = GetParam();
    writeFile(damaged);
    writeFile("older", QStringLiteral(".damaged"));
    {
        Preferences preferences(m_path);
        EXPECT_FALSE(QFile::exists(m_path));
        EXPECT_EQ(contentsOf(m_path + QStringLiteral(".damaged")), "older");
        EXPECT_EQ(contentsOf(m_path + QStringLiteral(".damaged.2")), damaged);
        EXPECT_FALSE(preferences.isPresent(PreferenceKeys::ListFontName));
        EXPECT_TRUE(preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    }
    // A run that ended before it saved anything leaves the proof to the next one.
    EXPECT_TRUE(Preferences(m_path).boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    writeFile(R"({"hasBeenLaunchedBeforeFlag":{"boolean":false}})");
    EXPECT_FALSE(Preferences(m_path).boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
}

INSTANTIATE_TEST_SUITE_P(Files, DamagedPreferencesTest,
                         testing::Values("", "[]", R"({"ListFontName":{"text":"Ari)",
                                         R"({"ListFontName":"Arial"})", R"({"ListFontName":{}})",
                                         R"({"ListFontName":{"text":"Arial","real":1}})",
                                         R"({"fine":{"real":1},"ListFontName":{"colour":"red"}})",
                                         R"({"a":{"text":5}})", R"({"a":{"real":"5"}})",
                                         R"({"a":{"integer":5.5}})",
                                         R"({"a":{"integer":18446744073709551616}})",
                                         R"({"a":{"boolean":1}})", "{\"a\":{\"text\":\"\xff\"}}"));

TEST_F(PreferencesTest, FileThatCannotBeReadIsNeverReplaced)
{
    ASSERT_TRUE(QDir().mkdir(m_path));
    Preferences preferences(m_path);
    EXPECT_TRUE(preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    preferences.setReal(PreferenceKeys::ListFontSize, 20.0);
    EXPECT_FALSE(preferences.synchronize());
    ASSERT_TRUE(QDir().rmdir(m_path));
    EXPECT_FALSE(preferences.synchronize());
    EXPECT_FALSE(QFile::exists(m_path));
    EXPECT_EQ(preferences.real(PreferenceKeys::ListFontSize), 20.0);
}

TEST_F(PreferencesTest, FailedWriteLeavesTheFileAndCanBeRepeated)
{
    Preferences preferences(m_path);
    preferences.setReal(PreferenceKeys::ListFontSize, 20.0);
    ASSERT_TRUE(preferences.synchronize());
    const QByteArray before = contentsOf(m_path);
    preferences.setReal(PreferenceKeys::ListFontSize, 21.0);

    // A file size limit of nothing fails every write as a full disk does.
    rlimit unlimited = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
    const rlimit full = {0, unlimited.rlim_max};
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const bool saved = preferences.synchronize();
    setrlimit(RLIMIT_FSIZE, &unlimited);
    std::signal(SIGXFSZ, previous);

    EXPECT_FALSE(saved);
    EXPECT_EQ(contentsOf(m_path), before);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    EXPECT_EQ(preferences.real(PreferenceKeys::ListFontSize), 21.0);
    EXPECT_TRUE(preferences.synchronize());
    EXPECT_EQ(Preferences(m_path).real(PreferenceKeys::ListFontSize), 21.0);
}

} // namespace

} // namespace giggle
