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
    const QDateTime date(QDate(2026, 11, 21), QTime(11, 30, 15, 987), Qt::OffsetFromUTC, 3600);
    {
        Preferences preferences(m_path);
        preferences.setText(u"text", text);
        preferences.setReal(u"real", 1.0 / 3.0);
        preferences.setInteger(u"lowest", std::numeric_limits<qint64>::min());
        preferences.setBoolean(u"no", false);
        preferences.setDate(u"date", date);
        ASSERT_TRUE(preferences.synchronize());
    }
    const Preferences preferences(m_path);
    EXPECT_EQ(preferences.text(u"text"), text);
    EXPECT_EQ(preferences.real(u"real"), 1.0 / 3.0);
    EXPECT_EQ(preferences.integer(u"lowest"), std::numeric_limits<qint64>::min());
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

TEST_F(PreferencesTest, WrongTypeStopsTheProgram)
{
    writeFile(R"({"ListFontSize":{"text":"big"}})");
    const Preferences preferences(m_path);
    EXPECT_DEATH(
        preferences.real(PreferenceKeys::ListFontSize),
        "Fatal error: The preference \"ListFontSize\" in .* must be of type real, but is of type text");
    EXPECT_DEATH(preferences.text(PreferenceKeys::ListFontColor), "must be of type text, but is absent");
}

TEST_F(PreferencesTest, DamagedFileIsSetAsideAndProvesAnEarlierLaunch)
{
    for (const QByteArray damaged :
         {"", "[]", R"({"ListFontName":{"text":"Ari)", R"({"ListFontName":"Arial"})", R"({"a":{"text":5}})",
          R"({"a":{"integer":18446744073709551616}})", "{\"a\":{\"text\":\"\xff\"}}"}) {
        SCOPED_TRACE(damaged.constData());
        QFile::remove(m_path + QStringLiteral(".damaged.2"));
        writeFile(damaged);
        writeFile("older", QStringLiteral(".damaged"));
        const Preferences preferences(m_path);
        EXPECT_FALSE(QFile::exists(m_path));
        EXPECT_EQ(contentsOf(m_path + QStringLiteral(".damaged")), "older");
        EXPECT_EQ(contentsOf(m_path + QStringLiteral(".damaged.2")), damaged);
        EXPECT_FALSE(preferences.isPresent(PreferenceKeys::ListFontName));
        EXPECT_TRUE(preferences.boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag));
    }
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
