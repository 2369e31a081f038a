// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFonts.h"

#include <QFontInfo>

#include <limits>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(LinuxFontsTest, AliasesResolveToInstalledFamilies)
{
    LinuxFonts fonts;
    const char* const names[][2] = {{"Arial", "Liberation Sans"},
                                    {"Times New Roman", "Liberation Serif"},
                                    {"Courier New", "Liberation Mono"},
                                    {"Liberation Mono", "Liberation Mono"},
                                    {"arial", "Liberation Sans"}};
    for (const auto& [name, family] : names) {
        const auto font = fonts.font(QString::fromUtf8(name), 15.0);
        ASSERT_TRUE(font) << name;
        EXPECT_EQ(QFontInfo(*font).family(), QString::fromUtf8(family));
        EXPECT_EQ(font->pixelSize(), 15);
    }
}

TEST(LinuxFontsTest, UnknownNamesDoNotFallBackToAnotherFamily)
{
    LinuxFonts fonts;
    for (const char* name : {"", "No Such Family", "Arial Liberation", "Liberation San"})
        EXPECT_FALSE(fonts.font(QString::fromUtf8(name), 15.0)) << name;
}

TEST(LinuxFontsTest, EveryFamilyHasAFontAndIsThereOnce)
{
    LinuxFonts fonts;
    QStringList families = fonts.families();
    for (const char* name : {"Arial", "Liberation Sans"})
        EXPECT_EQ(families.count(QString::fromUtf8(name)), 1) << name;
    for (const QString& family : families)
        EXPECT_TRUE(fonts.font(family, 15.0)) << qPrintable(family);
    EXPECT_EQ(families.removeDuplicates(), 0);
}

} // namespace

} // namespace giggle
