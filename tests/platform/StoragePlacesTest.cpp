// SPDX-License-Identifier: MIT
#include "platform/linux/StoragePlaces.h"

#include <QDirIterator>
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

TEST(StoragePlacesTest, FollowTheBaseFolders)
{
    const struct {
        QHash<QByteArray, QString> values;
        const char* accountHome;
        QStringList folders; ///< of the lock, the preferences and the record; none where there is no place
    } cases[] = {
        {{{"HOME", "/h"}}, "/account", {"/h/.local/share", "/h/.config", "/h/.local/state"}},
        {{{"HOME", "/h"}, {"XDG_DATA_HOME", "/d/"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_STATE_HOME", "/s"}},
         "/account",
         {"/d", "/c", "/s"}},
        {{{"XDG_DATA_HOME", "relative"}, {"XDG_CONFIG_HOME", "./c"}, {"XDG_STATE_HOME", ""}},
         "/account",
         {"/account/.local/share", "/account/.config", "/account/.local/state"}},
        {{{"HOME", "no/home"}, {"XDG_DATA_HOME", "/d"}}, "", {"/d", "", ""}},
    };

    const auto placeOf = [](const QString& folder, const QString& file) {
        return folder.isEmpty() ? QString() : folder + u"/giggle-archives/"_qs + file;
    };
    for (const auto& one : cases) {
        const StoragePlaces places(environment(one.values), QString::fromLatin1(one.accountHome));
        EXPECT_EQ(places.instanceLock(), placeOf(one.folders[0], u"giggle-archives.lock"_qs));
        EXPECT_EQ(places.preferenceFile(), placeOf(one.folders[1], u"preferences.json"_qs));
        EXPECT_EQ(places.fatalErrorRecord(), placeOf(one.folders[2], u"fatal-error"_qs));
        EXPECT_EQ(places.windowMemory(), placeOf(one.folders[2], u"window.json"_qs));
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
    QDirIterator each(home.path(), QDir::AllDirs | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    int made = 0;
    for (; each.hasNext(); ++made)
        EXPECT_FALSE(QFile::permissions(each.next()) & QFile::Permissions(0x77))
            << qPrintable(each.filePath());
    EXPECT_EQ(made, 8);
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
