// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QInputMethodEvent>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class JokeEditorPages : public InterfaceFixture {
protected:
    JokeEditorPages()
    {
        for (const OptionalText name : {OptionalText("Animal"), OptionalText("Puns"), OptionalText()})
            insertCategory(context(), name);
        insertRating(context(), "Mild");
    }

    void openList()
    {
        openWith({{.category = "Animal", .rating = "Mild", .id = 1, .joke = "Moo\nBoo"}}, u"Joke List"_qs);
    }

    const QString only = u"Moo\nBoo, Category: Animal, Rating: Mild"_qs;
};

TEST_F(JokeEditorPages, AJokeIsWrittenWithKeysAndPickersSavedOnceAndEdited)
{
    insertCategory(context(), "Animal"); // the keys pass names that stand there twice
    openList();
    press(QAccessible::Button, u"Add"_qs);
    waitForFocus(QAccessible::EditableText, u"Category"_qs);
    key(Qt::Key_Down);
    waitFor(QAccessible::List, u"Category choices"_qs);
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Down);
    EXPECT_EQ(fieldText(u"Category"_qs), u"Puns"_qs);
    key(Qt::Key_Tab);
    waitUntilGone(QAccessible::List, u"Category choices"_qs);
    type(u"It's new"_qs);
    key(Qt::Key_Return, Qt::ShiftModifier);
    type(u"!"_qs);
    key(Qt::Key_Tab);
    type(u"Own"_qs);
    press(QAccessible::Button, u"Save"_qs);
    pressIfThere(QAccessible::Button, u"Save"_qs); // while the page slides out: no second joke
    EXPECT_EQ(context().count(Jokes::fetchRequest()), 2U);
    waitForRest();
    openPage(QAccessible::ListItem, u"Its new\n!, Category: Puns, Rating: Own"_qs);

    press(QAccessible::CheckBox, u"Favorite"_qs);
    focus(QAccessible::EditableText, u"Joke"_qs);
    key(Qt::Key_Home, Qt::ControlModifier);
    type(u"So "_qs);
    key(Qt::Key_S, Qt::ControlModifier);
    press(QAccessible::RadioButton, u"Favorites"_qs);
    waitForRows({u"So Its new\n!, Category: Puns, Rating: Own"_qs});
}

TEST_F(JokeEditorPages, WhatMayNotBeTypedLeavesTheFieldAsItIs)
{
    openList();
    openPage(QAccessible::ListItem, only);
    focus(QAccessible::EditableText, u"Joke"_qs);
    key(Qt::Key_Home, Qt::ControlModifier);
    type(u"a'b\"c"_qs);
    key(Qt::Key_Return);
    QGuiApplication::clipboard()->setText(u"d\u2019e"_qs);
    key(Qt::Key_V, Qt::ControlModifier);
    QGuiApplication::clipboard()->setText(u"f g"_qs);
    key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(fieldText(u"Joke"_qs), u"abcf gMoo\nBoo\n"_qs);
    QInputMethodEvent composed(u"\u00B4"_qs, {});
    composed.setCommitString(u"\u00E9"_qs);
    QCoreApplication::sendEvent(window().activeFocusItem(), &composed);
    EXPECT_EQ(fieldText(u"Joke"_qs), u"abcf gMoo\nBoo\n"_qs);
}

// Without care for words that fit no line, each of the two takes more than a minute.
TEST_F(JokeEditorPages, AMegabyteInOneWordIsPastedSavedAndListed)
{
    openList();
    QElapsedTimer timer;
    timer.start();
    for (const QString& word : {QString(1'000'000, u'a'), u"nobreak\u00A0"_qs.repeated(100'000)}) {
        openPage(QAccessible::Button, u"Add"_qs);
        focus(QAccessible::EditableText, u"Category"_qs);
        type(u"A"_qs);
        focus(QAccessible::EditableText, u"Joke"_qs);
        QGuiApplication::clipboard()->setText(word);
        key(Qt::Key_V, Qt::ControlModifier);
        key(Qt::Key_S, Qt::ControlModifier);
        waitUntilGone(QAccessible::EditableText, u"Rating"_qs);
    }
    waitFor(QAccessible::Heading, u"# Jokes = 3"_qs);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).at(1)->joke()->size(), 1'000'000U);
    EXPECT_LT(timer.elapsed(), 30'000);
}

TEST_F(JokeEditorPages, ChangesAreLostOnlyWhenTheUserAgrees)
{
    openList();
    openPage(QAccessible::ListItem, only);
    focus(QAccessible::EditableText, u"Rating"_qs);
    type(u"x"_qs);
    window().close();
    press(QAccessible::Button, u"Keep Editing"_qs);
    EXPECT_TRUE(window().isVisible());
    waitUntilGone(QAccessible::Button, u"Discard"_qs);
    press(QAccessible::Button, u"Back"_qs);
    waitFor(QAccessible::Dialog, u"Discard Changes?"_qs);
    key(Qt::Key_Escape);
    waitUntilGone(QAccessible::Button, u"Discard"_qs);
    EXPECT_EQ(fieldText(u"Rating"_qs), u"Mildx"_qs);
    press(QAccessible::Button, u"Back"_qs);
    press(QAccessible::Button, u"Discard"_qs);
    waitFor(QAccessible::ListItem, only);
}

} // namespace

} // namespace giggle
