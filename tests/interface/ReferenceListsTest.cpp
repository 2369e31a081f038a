// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QTest>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using ::testing::ElementsAre;

class ReferenceLists : public InterfaceFixture {
protected:
    /// Two categories, one of them without a name, a rating, and a joke of both.
    void openWithNames()
    {
        skipSeeding();
        insertCategory(context(), std::nullopt);
        insertCategory(context(), "Puns");
        insertRating(context(), "Mild");
        insertJoke(context(), {.category = "Puns", .rating = "Mild", .id = 1, .joke = "Pop"});
        context().save();
        openWindow();
        openArea(u"Reference Lists"_qs);
    }

    QStringList rows() { return names(QAccessible::ListItem); }

    void waitForRows(const QStringList& expected)
    {
        waitUntil([&] { return rows() == expected; });
        EXPECT_EQ(rows(), expected);
    }

    /// Waits for a field that has the keyboard.
    void waitForField(const QString& name)
    {
        QAccessibleInterface* field = waitFor(QAccessible::EditableText, name);
        EXPECT_TRUE(waitUntil([&] { return bool(field->state().focused); }));
    }

    void setFocus(const QString& row)
    {
        waitFor(QAccessible::ListItem, row)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::setFocusAction());
    }

    /// Adds "Ape", renames it and deletes it again, on the page of one side.
    void addRenameAndDelete(const QString& list, const QString& field, const QStringList& rest)
    {
        press(QAccessible::Button, list);
        waitForRows(rest);
        press(QAccessible::Button, u"Add"_qs);
        waitForField(field);
        type(u"Ape"_qs);
        press(QAccessible::Button, u"Save"_qs);
        waitForRows(QStringList{rest}.mid(0, rest.size() - 1) + QStringList{u"Ape"_qs, rest.last()});

        press(QAccessible::ListItem, u"Ape"_qs);
        waitForField(field);
        key(Qt::Key_A, Qt::ControlModifier);
        type(u"Zoo"_qs);
        key(Qt::Key_Return);
        waitForRows(rest + QStringList{u"Zoo"_qs});

        setFocus(u"Zoo"_qs);
        key(Qt::Key_Delete);
        waitForRows(rest);
        key(Qt::Key_Escape);
        waitFor(QAccessible::Heading, u"Reference Lists"_qs);
        ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::List, list); }));
    }
};

TEST_F(ReferenceLists, NamesOfBothSidesAreAddedRenamedAndDeleted)
{
    openWithNames();
    addRenameAndDelete(u"Categories"_qs, u"Category"_qs, {u"No name"_qs, u"Puns"_qs});
    addRenameAndDelete(u"Ratings"_qs, u"Rating"_qs, {u"Mild"_qs});
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(ReferenceLists, RenamingLeavesJokesAlone)
{
    openWithNames();
    press(QAccessible::Button, u"Categories"_qs);
    press(QAccessible::ListItem, u"Puns"_qs);
    waitForField(u"Category"_qs);
    key(Qt::Key_End);
    type(u"ch"_qs);
    key(Qt::Key_S, Qt::ControlModifier);
    waitForRows({u"No name"_qs, u"Punsch"_qs});
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).front()->category(), "Puns");
}

TEST_F(ReferenceLists, EnterPressedTwiceStoresANameOnce)
{
    openWithNames();
    press(QAccessible::Button, u"Ratings"_qs);
    press(QAccessible::Button, u"Add"_qs);
    waitForField(u"Rating"_qs);
    type(u"Adult"_qs);
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    waitForRows({u"Adult"_qs, u"Mild"_qs});
}

TEST_F(ReferenceLists, OddNamesPassThroughTheFieldUnchanged)
{
    const std::string odd = "two\nlines ^ \u2028 \u00a0 " + std::string(10'000, 'x');
    insertCategory(context(), odd);
    openWithNames();
    press(QAccessible::Button, u"Categories"_qs);
    press(QAccessible::ListItem, QString::fromStdString(odd));
    waitForField(u"Category"_qs);
    key(Qt::Key_Return);
    waitForRows({u"No name"_qs, u"Puns"_qs, QString::fromStdString(odd)});
}

TEST_F(ReferenceLists, RefusalsAndTypedTextAskBeforeAnythingIsLost)
{
    openWithNames();
    press(QAccessible::Button, u"Ratings"_qs);
    waitForRows({u"Mild"_qs});
    key(Qt::Key_N, Qt::ControlModifier);
    waitForField(u"Rating"_qs);
    press(QAccessible::Button, u"Save"_qs);
    waitFor(QAccessible::Dialog, u"Record not Saved!"_qs);
    press(QAccessible::Button, u"OK"_qs);
    waitForField(u"Rating"_qs);
    type(u"M"_qs);
    key(Qt::Key_Escape);
    waitFor(QAccessible::Dialog, u"Discard Changes?"_qs);
    press(QAccessible::Button, u"Discard"_qs);
    waitForRows({u"Mild"_qs});
}

TEST_F(ReferenceLists, TypingInTheRatingSearchNarrowsTheRows)
{
    insertRating(context(), "Adult");
    openWithNames();
    press(QAccessible::Button, u"Ratings"_qs);
    waitForRows({u"Adult"_qs, u"Mild"_qs});
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"ILD"_qs);
    waitFor(QAccessible::Heading, u"# Ratings = 1"_qs);
    waitForRows({u"Mild"_qs});
}

} // namespace

} // namespace giggle
