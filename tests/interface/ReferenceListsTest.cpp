// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ReferenceLists : public InterfaceFixture {
protected:
    /// Two categories, one of them without a name, a rating, and a joke of both.
    void openWithNames()
    {
        insertCategory(context(), std::nullopt);
        insertCategory(context(), "Puns");
        insertRating(context(), "Mild");
        openWith({{.category = "Puns", .rating = "Mild", .id = 1, .joke = "Pop"}}, u"Reference Lists"_qs);
    }
};

TEST_F(ReferenceLists, NamesAreAddedOnceRenamedAndDeletedAndJokesLeftAlone)
{
    openWithNames();
    openPage(QAccessible::Button, u"Categories"_qs);
    waitForRows({u"No name"_qs, u"Puns"_qs});
    openPage(QAccessible::Button, u"Add"_qs);
    type(u"Ape"_qs);
    press(QAccessible::Button, u"Save"_qs);
    pressIfThere(QAccessible::Button, u"Save"_qs); // while the page slides out: no second Ape
    waitForRows({u"No name"_qs, u"Ape"_qs, u"Puns"_qs});
    waitForRest();

    openPage(QAccessible::ListItem, u"Puns"_qs);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"Zoo"_qs);
    key(Qt::Key_Return);
    waitForRows({u"No name"_qs, u"Ape"_qs, u"Zoo"_qs});
    waitForRest();

    focus(QAccessible::ListItem, u"Ape"_qs);
    key(Qt::Key_Delete);
    waitForRows({u"No name"_qs, u"Zoo"_qs});
    waitFor(QAccessible::AlertMessage, u"Category deleted: Ape"_qs);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).front()->category(), "Puns");
}

TEST_F(ReferenceLists, OddNamesPassThroughTheFieldUnchanged)
{
    const std::string odd = "two\nlines ^ \u2028 \u00a0 " + std::string(100'000, 'x');
    insertCategory(context(), odd);
    openWithNames();
    openPage(QAccessible::Button, u"Categories"_qs);
    openPage(QAccessible::ListItem, QString::fromStdString(odd));
    waitForFocus(QAccessible::EditableText, u"Category"_qs);
    key(Qt::Key_Return);
    waitForRows({u"No name"_qs, u"Puns"_qs, QString::fromStdString(odd)});
}

TEST_F(ReferenceLists, ARefusalGivesTheFieldBackAndTypedTextIsNotLostUnasked)
{
    openWithNames();
    openPage(QAccessible::Button, u"Ratings"_qs);
    key(Qt::Key_N, Qt::ControlModifier);
    waitForFocus(QAccessible::EditableText, u"Rating"_qs);
    waitForRest();
    press(QAccessible::Button, u"Save"_qs);
    waitFor(QAccessible::Dialog, u"Record not Saved!"_qs);
    press(QAccessible::Button, u"OK"_qs);
    waitForFocus(QAccessible::EditableText, u"Rating"_qs);
    type(u"M"_qs);
    key(Qt::Key_Escape);
    press(QAccessible::Button, u"Discard"_qs);
    waitForRows({u"Mild"_qs});
}

} // namespace

} // namespace giggle
