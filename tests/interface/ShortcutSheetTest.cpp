// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QTest>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ShortcutSheet : public InterfaceFixture {
protected:
    bool isShown() { return find(QAccessible::Dialog, u"Keyboard Shortcuts"_qs); }

    void putAway()
    {
        key(Qt::Key_Escape);
        EXPECT_TRUE(waitUntil([&] { return !isShown(); }));
    }
};

TEST_F(ShortcutSheet, EachOfItsKeysOpensItAndEscapeLeadsBackToThePage)
{
    skipSeeding();
    openWindow();
    openArea(u"Joke List"_qs);
    const std::pair<Qt::Key, Qt::KeyboardModifiers> keys[] = {{Qt::Key_F1, Qt::NoModifier},
                                                              {Qt::Key_Slash, Qt::ControlModifier},
                                                              {Qt::Key_Question, Qt::ShiftModifier}};
    for (const auto& [one, modifiers] : keys) {
        QTest::keyClick(&window(), one, modifiers);
        waitFor(QAccessible::Dialog, u"Keyboard Shortcuts"_qs);
        EXPECT_TRUE(find(QAccessible::ListItem, u"Control N: new joke, category or rating"_qs));
        EXPECT_TRUE(find(QAccessible::ListItem, u"F1 or Question Mark or Control Slash: show this list"_qs));
        putAway();
    }
    key(Qt::Key_N, Qt::ControlModifier); // the page has the keyboard again
    waitFor(QAccessible::Heading, u"Add Joke"_qs);
}

TEST_F(ShortcutSheet, AQuestionMarkThatIsTypedIsText)
{
    skipSeeding();
    openWindow();
    openArea(u"Joke List"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"?"_qs);
    waitFor(QAccessible::StaticText, u"Nothing found"_qs);
    EXPECT_FALSE(isShown());
    key(Qt::Key_F1); // works here, too
    waitFor(QAccessible::Dialog, u"Keyboard Shortcuts"_qs);
    putAway();
}

} // namespace

} // namespace giggle
