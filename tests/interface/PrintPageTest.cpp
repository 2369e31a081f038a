// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class PrintPage : public InterfaceFixture {
protected:
    PrintPage()
    {
        openWith({{.category = "Puns", .id = 1, .joke = "Pop"},
                  {.category = "Animal", .rating = "Mild", .id = 2, .favorite = true, .joke = "Moo"}});
    }

    /// The rows of the jokes, and below them the lines of the document that say something.
    void waitForItems(const QStringList& items)
    {
        EXPECT_TRUE(waitUntil([&] {
            QStringList shown = rows();
            shown.removeIf(
                [](const QString& row) { return row == u"Empty line" || row.startsWith(u"----"); });
            return shown == items;
        })) << rows().join(u'|').toStdString();
    }

    const QString header = u"From: Giggle Archives App for iPhone and iPad"_qs;
    const QString moo = u"Moo, Category: Animal, Rating: Mild"_qs;
    const QString pop = u"Pop, Category: Puns, Rating: N/A"_qs;
};

TEST_F(PrintPage, TheDocumentFollowsSegmentsAndSearch)
{
    openArea(u"Print"_qs);
    waitForItems({moo, pop, header, u"Moo"_qs, u"Pop"_qs});
    EXPECT_FALSE(find(QAccessible::CheckBox, u"Favorite"_qs));
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"PUN"_qs);
    waitForItems({pop, header, u"Pop"_qs});
    press(QAccessible::Button, u"Email"_qs);
    EXPECT_EQ(system().mailComposer.presented.size(), 1U);
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(system().printPanel.presented.at(0).text.startsWith(header + u"\n\nPop\n-"_qs));
    press(QAccessible::RadioButton, u"Favorites"_qs);
    waitForItems({moo, header, u"Moo"_qs});
}

TEST_F(PrintPage, ListEditorAndBreakdownPrintAndShareToo)
{
    const auto printAndShare = [&](const QString& printed) {
        press(QAccessible::Button, u"Share"_qs);
        press(QAccessible::Button, u"Print"_qs);
        EXPECT_TRUE(system().printPanel.presented.back().text.startsWith(printed));
    };
    openArea(u"Joke List"_qs);
    waitFor(QAccessible::Heading, u"# Jokes = 2"_qs);
    printAndShare(u"Moo\n-"_qs);
    press(QAccessible::ListItem, moo);
    waitFor(QAccessible::Button, u"Larger text"_qs);
    waitUntilGone(QAccessible::List, u"Joke List"_qs);
    printAndShare(header + u"\n\nMoo\n\n-"_qs);
    press(QAccessible::Button, u"Back"_qs); // and nobody asks about changes
    waitFor(QAccessible::Heading, u"# Jokes = 2"_qs);
    waitUntilGone(QAccessible::Button, u"Larger text"_qs);
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    openArea(u"Jokes by Category"_qs);
    press(QAccessible::ListItem, u"Puns, 1"_qs);
    waitFor(QAccessible::Heading, u"1 Jokes"_qs);
    printAndShare(u"Pop\n-"_qs);
    EXPECT_EQ(system().shareSheet.presented.size(), 3U);
    EXPECT_EQ(system().printPanel.presented.size(), 3U);
}

} // namespace

} // namespace giggle
