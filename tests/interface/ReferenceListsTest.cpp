// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ReferenceLists : public InterfaceFixture {
protected:
    /// Over two categories, one of them without a name, and a joke of the other.
    void openCategories()
    {
        insertCategory(context(), std::nullopt);
        insertCategory(context(), "Puns");
        openWith({{.category = "Puns", .id = 1, .joke = "Pop"}}, u"Reference Lists"_qs);
        openPage(QAccessible::Button, u"Categories"_qs);
    }
};

TEST_F(ReferenceLists, NamesAreAddedOnceRenamedAndDeletedAndJokesLeftAlone)
{
    openCategories();
    waitForRows({u"No name"_qs, u"Puns"_qs});
    key(Qt::Key_N, Qt::ControlModifier);
    waitForRest();
    press(QAccessible::Button, u"Save"_qs);
    waitFor(QAccessible::Dialog, u"Record not Saved!"_qs);
    press(QAccessible::Button, u"OK"_qs);
    waitForFocus(QAccessible::EditableText, u"Category"_qs);
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
    openCategories();
    openPage(QAccessible::ListItem, QString::fromStdString(odd));
    waitForFocus(QAccessible::EditableText, u"Category"_qs);
    key(Qt::Key_Return);
    waitForRows({u"No name"_qs, u"Puns"_qs, QString::fromStdString(odd)});
}

} // namespace

} // namespace giggle
