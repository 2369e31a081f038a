// SPDX-License-Identifier: MIT
#include "platform/linux/StoragePlaces.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace giggle {

namespace {

StoragePlaces::Environment environment(const QHash<QByteArray, QString>& values)
{
    return [values](const char* name) { return values.value(name); };
}

struct PlacesCase {
    QHash<QByteArray, QString> values;
    QString accountHome;
    QString lock;
    QString preferences;
    QString record;
};

TEST(StoragePlacesTest, FollowTheBaseFolders)
{
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    const PlacesCase cases[] = {
        {{{"HOME", s("/h")}},
         s("/account"),
         s("/h/.local/share/giggle-archives/giggle-archives.lock"),
         s("/h/.config/giggle-archives/preferences.json"),
         s("/h/.local/state/giggle-archives/fatal-error")},
        {{{"HOME", s("/h")},
          {"XDG_DATA_HOME", s("/d/")},
          {"XDG_CONFIG_HOME", s("/c")},
          {"XDG_STATE_HOME", s("/s")}},
         s("/account"),
         s("/d/giggle-archives/giggle-archives.lock"),
         s("/c/giggle-archives/preferences.json"),
         s("/s/giggle-archives/fatal-error")},
        {{{"XDG_DATA_HOME", s("relative")}, {"XDG_CONFIG_HOME", s("./c")}, {"XDG_STATE_HOME", s("")}},
         s("/account"),
         s("/account/.local/share/giggle-archives/giggle-archives.lock"),
         s("/account/.config/giggle-archives/preferences.json"),
         s("/account/.local/state/giggle-archives/fatal-error")},
        {{{"HOME", s("no/home")}, {"XDG_DATA_HOME", s("/d")}},
         s(""),
         s("/d/giggle-archives/giggle-archives.lock"),
         s(""),
         s("")},
    };
    for (const PlacesCase& one : cases) {
        const StoragePlaces places(environment(one.values), one.accountHome);
        EXPECT_EQ(places.instanceLock(), one.lock);
        EXPECT_EQ(places.preferenceFile(), one.preferences);
        EXPECT_EQ(places.fatalErrorRecord(), one.record);
        EXPECT_EQ(QFileInfo(places.windowMemory()).path(), QFileInfo(one.record).path());
    }
}

TEST(StoragePlacesTest, MissingFoldersAreMadeForTheUserAlone)
{
    const QTemporaryDir home;
    const StoragePlaces places(environment({{"HOME", home.filePath(QStringLiteral("new"))}}), {});
    const mode_t mask = ::umask(0);
    const auto problem = places.prepare();
    ::umask(mask);
    EXPECT_EQ(problem, std::nullopt);
    for (const char* folder : {"new", "new/.local", "new/.local/share/giggle-archives", "new/.config",
                               "new/.config/giggle-archives", "new/.local/state/giggle-archives"}) {
        struct stat status = {};
        const QByteArray path = QFile::encodeName(home.filePath(QString::fromUtf8(folder)));
        ASSERT_EQ(::stat(path.constData(), &status), 0) << folder;
        EXPECT_EQ(status.st_mode & 0777U, 0700U) << folder;
    }
    EXPECT_EQ(places.prepare(), std::nullopt);
}

TEST(StoragePlacesTest, OnlyTheCollectionsFolderIsIndispensable)
{
    const QTemporaryDir home;
    const QString blocked = home.filePath(QStringLiteral("file"));
    ASSERT_TRUE(QFile(blocked).open(QIODevice::WriteOnly));
    const StoragePlaces noSettings(
        environment({{"HOME", home.path()}, {"XDG_CONFIG_HOME", blocked}, {"XDG_STATE_HOME", blocked}}), {});
    EXPECT_EQ(noSettings.prepare(), std::nullopt);
    EXPECT_TRUE(QFileInfo(noSettings.collectionFolder()).isDir());

    const StoragePlaces noCollection(environment({{"HOME", home.path()}, {"XDG_DATA_HOME", blocked}}), {});
    EXPECT_TRUE(noCollection.prepare().value_or(QString()).contains(blocked));
    EXPECT_TRUE(StoragePlaces(environment({}), {}).prepare().value_or(QString()).contains(u"HOME"));
}

} // namespace

} // namespace giggle
