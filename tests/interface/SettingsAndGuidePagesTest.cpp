// SPDX-License-Identifier: MIT
#include "store/PreferenceKeys.h"
#include "tests/interface/InterfaceFixture.h"
#include "ui/PdfPageItem.h"


namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using SettingsAndGuidePages = InterfaceFixture;

TEST_F(SettingsAndGuidePages, AmongFiveHundredFontsOneIsFoundByTypingAndIsThereAfterARestart)
{
    system().fonts.installed.clear();
    for (int i = 0; i < 500; ++i)
        system().fonts.installed << u"Family %1"_qs.arg(i, 3, 10, QChar(u'0'));
    userDefaults().setText(PreferenceKeys::ListFontName, u"Family 250"_qs);
    openWith({}, u"Default Settings"_qs);
    press(QAccessible::EditableText, u"Font"_qs);
    waitFor(QAccessible::ListItem, u"Family 250"_qs);
    EXPECT_LT(rows().size(), 50) << "only the rows in sight are made";
    type(u"family 4"_qs);
    EXPECT_EQ(fieldText(u"Font"_qs), u"Family 400"_qs);
    key(Qt::Key_Down);
    press(QAccessible::Button, u"Back"_qs); // with the picker open
    waitFor(QAccessible::Button, u"Menu"_qs);

    restart();
    openArea(u"Default Settings"_qs);
    EXPECT_EQ(fieldText(u"Font"_qs), u"Family 401"_qs);
}

TEST_F(SettingsAndGuidePages, TheGuideIsReadScrolledAndZoomed)
{
    system().resources.paths[u"overview.pdf"_qs] = u":/resources/overview.pdf"_qs;
    openWith({}, u"Overview"_qs);
    const QStringList pages = names(QAccessible::Section);
    ASSERT_GE(pages.size(), 6);
    EXPECT_FALSE(names(QAccessible::StaticText).filter(u"joke"_qs).isEmpty());
    auto* first = qobject_cast<PdfPageItem*>(find(QAccessible::Section, pages.first())->object());
    EXPECT_TRUE(waitUntil([&] { return first->isDrawn(); }));
    const QPoint corner = first->mapToScene({5, 5}).toPoint();
    EXPECT_EQ(window().grabWindow().pixelColor(corner), QColor(Qt::white)) << "paper under the ink";

    const double whole = first->width();
    key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(first->width(), 1.1 * whole);
    key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(first->width(), whole);
    key(Qt::Key_End);
    EXPECT_TRUE(waitUntil([&] { return !first->isInSight(); }));
    key(Qt::Key_Home);
    EXPECT_TRUE(waitUntil([&] { return first->isInSight(); }));
}

} // namespace

} // namespace giggle
