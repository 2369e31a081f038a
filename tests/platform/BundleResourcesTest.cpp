// SPDX-License-Identifier: MIT
#include "platform/linux/BundleResources.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(BundleResourcesTest, EarlierFoldersWinAndMissingOnesAreSkipped)
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    const auto touch = [](const QString& path) { return QFile(path).open(QIODevice::WriteOnly); };
    ASSERT_TRUE(touch(first.filePath(QStringLiteral("both.txt"))));
    ASSERT_TRUE(QDir(first.path()).mkdir(QStringLiteral("folder.txt")));
    ASSERT_TRUE(touch(second.filePath(QStringLiteral("both.txt"))));
    ASSERT_TRUE(touch(second.filePath(QStringLiteral("folder.txt"))));

    const BundleResources resources({QStringLiteral("/nonexistent"), first.path(), second.path()});
    const QString txt = QStringLiteral("txt");
    EXPECT_EQ(resources.pathForResource(QStringLiteral("both"), txt),
              first.filePath(QStringLiteral("both.txt")));
    EXPECT_EQ(resources.pathForResource(QStringLiteral("folder"), txt),
              second.filePath(QStringLiteral("folder.txt")));
    EXPECT_EQ(resources.pathForResource(QStringLiteral("both"), QStringLiteral("pdf")), std::nullopt);
}

} // namespace

} // namespace giggle
