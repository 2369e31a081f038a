// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

TEST_F(InterfaceFixture, TheShortcutsAreListedByEachOfTheirKeysButNotByAQuestionMarkThatIsTyped)
{
    openWith({});
    openArea(u"Joke List"_qs);
    const auto expectSheet = [&](Qt::Key pressed, Qt::KeyboardModifiers modifiers) {
        key(pressed, modifiers);
        waitFor(QAccessible::ListItem, u"Control N: new joke, category or rating"_qs);
        key(Qt::Key_Escape);
        waitUntilGone(QAccessible::Dialog, u"Keyboard Shortcuts"_qs);
    };
    expectSheet(Qt::Key_Slash, Qt::ControlModifier);
    expectSheet(Qt::Key_Question, Qt::ShiftModifier);
    key(Qt::Key_F, Qt::ControlModifier); // the page has the keyboard again
    type(u"?"_qs);
    waitFor(QAccessible::StaticText, u"Nothing found"_qs);
    EXPECT_FALSE(find(QAccessible::Dialog, u"Keyboard Shortcuts"_qs));
    expectSheet(Qt::Key_F1, Qt::NoModifier);
}

} // namespace

} // namespace giggle
