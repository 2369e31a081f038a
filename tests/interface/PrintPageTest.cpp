// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

TEST_F(InterfaceFixture, ThePrintedDocumentFollowsSegmentsAndSearch)
{
    const QString header = u"From: Giggle Archives App for iPhone and iPad"_qs;
    const QString moo = u"Moo, Category: Animal, Rating: Mild"_qs;
    const QString pop = u"Pop, Category: Puns, Rating: N/A"_qs;
    // The rows of the jokes, and below them the lines of the document that say something.
    const auto shows = [&](const QStringList& items) {
        return waitUntil([&] {
            QStringList shown = rows();
            shown.removeIf(
                [](const QString& row) { return row == u"Empty line" || row.startsWith(u"----"); });
            return shown == items;
        });
    };
    openWith({{.category = "Puns", .id = 1, .joke = "Pop"},
              {.category = "Animal", .rating = "Mild", .id = 2, .favorite = true, .joke = "Moo"}});
    openArea(u"Print"_qs);
    EXPECT_TRUE(shows({moo, pop, header, u"Moo"_qs, u"Pop"_qs}));
    EXPECT_FALSE(find(QAccessible::CheckBox, u"Favorite"_qs));
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"PUN"_qs);
    EXPECT_TRUE(shows({pop, header, u"Pop"_qs}));
    press(QAccessible::Button, u"Email"_qs);
    EXPECT_EQ(system().mailComposer.presented.size(), 1U);
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(system().printPanel.presented.at(0).text.startsWith(header + u"\n\nPop\n-"_qs));
    press(QAccessible::RadioButton, u"Favorites"_qs);
    EXPECT_TRUE(shows({moo, header, u"Moo"_qs}));
}

} // namespace

} // namespace giggle
