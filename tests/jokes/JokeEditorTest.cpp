// SPDX-License-Identifier: MIT
#include "jokes/AddJokeViewController.h"
#include "jokes/EditJokeViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"
#include "ui/DisplayText.h"

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class JokeEditorTest : public ScreenFixture {
protected:
    /// Chooses a joke as a list does, and opens it.
    std::unique_ptr<EditJokeViewController> openEditor(const Jokes& joke,
                                                       const QString& callingScreen = u"MainList"_qs)
    {
        selection.CallingScreen = callingScreen;
        selection.SelectedCategory = textOrEmpty(joke.category());
        selection.SelectedJokeText = textOrEmpty(joke.joke());
        selection.SelectedFavorite = joke.favorite().value_or(false) ? u"T"_qs : u"F"_qs;
        selection.SelectedRating = textOrEmpty(joke.rating());
        auto editor = std::make_unique<EditJokeViewController>(environment);
        editor->viewDidLoad();
        return editor;
    }

    /// Types a new joke and saves it.
    std::unique_ptr<AddJokeViewController> add(const QString& category, const QString& joke,
                                               const QString& rating = {})
    {
        selection.CallingScreen = u"MainList"_qs;
        auto screen = std::make_unique<AddJokeViewController>(environment);
        screen->viewDidLoad();
        screen->setCategoryTextField(category);
        screen->setJokeTextView(joke);
        screen->setRatingTextField(rating);
        screen->SaveButtonClicked();
        return screen;
    }

    std::vector<std::string> stored() { return storedRows(folder.file()); }
};

TEST_F(JokeEditorTest, AddStoresWhatTheFieldsHoldLessWhatIsNotDisplayed)
{
    const struct {
        QString category;
        QString joke;
        QString rating;
        std::string stored; // as "category|favorite|id|joke|rating", or empty where the alert comes instead
    } cases[] = {
        {u"Puns"_qs, u"A"_qs, u"Mild"_qs, "Puns|NULL|1|A|Mild"},
        {u" \t Two words\u00A0\u3000"_qs, u"Two\nlines "_qs, {}, "Two words|NULL|2|Two\nlines |NULL"},
        {u"  "_qs, u"\u201CCaf\u00E9\u201D isn't \U0001F600^|\\"_qs, u" \t"_qs, "|NULL|3|Caf isnt | \t"},
        {u"\nNo blank\n"_qs, u"\u05E9\u05DC\u05D5\u05DD\t"_qs, {}, "\nNo blank\n|NULL|4||NULL"},
        {{}, u"text"_qs, u"Mild"_qs, {}},
        {u"Puns"_qs, {}, u"Mild"_qs, {}},
    };

    for (const auto& [category, joke, rating, row] : cases) {
        const std::vector<std::string> before = liveRows(context());
        navigator = {};
        EXPECT_EQ(add(category, joke, rating)->hasUnsavedChanges(), row.empty());
        if (row.empty()) {
            EXPECT_EQ(liveRows(context()), before);
            EXPECT_TRUE(navigator.unwound.empty());
            EXPECT_EQ(
                navigator.alerts.at(0).message,
                u"Required Fields Labeled in RED Not Entered or Date Released is not 4 numbers (yyyy)"_qs);
        } else {
            EXPECT_EQ(stored().back(), std::to_string(before.size() + 1) + '|' + row);
            EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToList));
            EXPECT_TRUE(navigator.alerts.empty());
        }
    }
}

TEST_F(JokeEditorTest, ARefusedSaveKeepsTheJokeForTheNextOne)
{
    static_cast<void>(context().fetch(Jokes::fetchRequest())); // makes the collection
    RawDatabase other(folder.file());
    other.execute("ALTER TABLE jokes RENAME TO away");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(add(u"Puns"_qs, u"first"_qs)->hasUnsavedChanges());
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("jokes"));
    EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToList));
    other.execute("ALTER TABLE away RENAME TO jokes");
    EXPECT_FALSE(add(u"Puns"_qs, u"second"_qs)->hasUnsavedChanges());
    EXPECT_THAT(storedRows(other), ElementsAre("1|Puns|NULL|1|first|NULL", "2|Puns|NULL|2|second|NULL"));
}

TEST_F(JokeEditorTest, NoIdAboveTheHighestEndsTheProgramWithNothingHalf)
{
    addJoke({.id = 32767, .joke = "last"});
    EXPECT_DEATH(add(u"Puns"_qs, u"one too many"_qs), "Fatal error: Arithmetic overflow");
    EXPECT_THAT(stored(), ElementsAre("1|NULL|NULL|32767|last|NULL"));
}

TEST_F(JokeEditorTest, PickersOfferTheNamesThatThereAre)
{
    for (const OptionalText name : {OptionalText("b"), OptionalText("b"), OptionalText("B"), OptionalText()})
        insertCategory(context(), name);
    insertRating(context(), "Mild");
    const auto edit = openEditor(addJoke({.joke = "x"}));
    EXPECT_EQ(add({}, {})->listOfCatagories(), QStringList({u"B"_qs, u"b"_qs, u"b"_qs}));
    EXPECT_EQ(edit->listOfCatagories(), QStringList({u"B"_qs, u"b"_qs}));
    edit->didSelectRow(1, JokeEditor::CategoryPicker);
    edit->didSelectRow(0, JokeEditor::RatingPicker);
    edit->didSelectRow(1, JokeEditor::RatingPicker); // there is none
    EXPECT_EQ(edit->categoryTextField() + edit->ratingTextField(), u"bMild"_qs);
    insertRating(context(), std::nullopt);
    EXPECT_DEATH(add({}, {}), "a rating without a name");
}

TEST_F(JokeEditorTest, EditStoresTheTextLessTheLineThatIsShownBehindIt)
{
    const struct {
        std::string before;
        std::optional<QString> typed;
        std::string after;
    } cases[] = {{"Ends in a line\n", {}, "Ends in a line\n"},
                 {"Caf\xC3\xA9 \"x\"\ty", {}, "Caf xy"},
                 {"One\nTwo", u"One\nTwo\n, tail"_qs, "One\nTwo\n, tail"},
                 {"One\nTwo", u"One\nTwo, tail\n"_qs, "One\nTwo, tail"},
                 {"One\nTwo", u"OneTwo\n"_qs, "OneTwo"},
                 {"One\nTwo", u"One\nTwo"_qs, "One\nTwo"}};

    for (const auto& [before, typed, after] : cases) {
        Jokes& joke = addJoke({.category = "Puns", .joke = before});
        const auto editor = openEditor(joke);
        EXPECT_FALSE(editor->hasUnsavedChanges());
        if (typed)
            editor->setJokeTextView(*typed);
        else
            EXPECT_EQ(editor->jokeTextView().toStdString(), after + '\n');
        editor->SaveButtonClicked();
        EXPECT_EQ(joke.joke(), after);
        EXPECT_EQ(joke.favorite(), false);
        EXPECT_FALSE(context().hasChanges());
        context().deleteObject(joke);
    }
}

TEST_F(JokeEditorTest, WhatIsPrintedStaysInTheTextViewAndIsSavedWithAnotherChange)
{
    Jokes& joke = addJoke({.category = "Puns", .joke = "Don't"});
    const QString shown =
        u"From: Giggle Archives App for iPhone and iPad\n\nDont\n\n"_qs + QString(34, u'-') + u"\n\n\n"_qs;
    const auto editor = openEditor(joke);
    editor->shareButtonClicked();
    EXPECT_EQ(std::get<SharedText>(system.shareSheet.presented.back().items.at(0)).text, u"Dont\n"_qs);
    editor->PrintJoke();
    EXPECT_EQ(system.printPanel.presented.back().text, shown);
    EXPECT_EQ(editor->jokeTextView(), shown);
    EXPECT_FALSE(editor->hasUnsavedChanges());
    editor->setRatingTextField(u"Mild"_qs);
    EXPECT_TRUE(editor->hasUnsavedChanges());
    editor->SaveButtonClicked();
    EXPECT_EQ(joke.joke(), shown.toStdString());
}

TEST_F(JokeEditorTest, EditChangesTheFirstJokeWithTheChosenText)
{
    addJoke({.category = "Puns", .rating = "Mild", .id = 1, .joke = "same"});
    const Jokes& second = addJoke({.category = "Dad", .rating = "Adult", .id = 2, .joke = "same"});
    const auto editor = openEditor(second, u"RatingBreakdown"_qs);
    EXPECT_EQ(editor->checkBox(), u"Unchecked"_qs);
    editor->CheckBoxChecked(u"Checked"_qs);
    EXPECT_TRUE(editor->hasUnsavedChanges());
    editor->setCategoryTextField(u" Corny "_qs);
    editor->setRatingTextField({});
    editor->setJokeTextView(u"\u00E9\u00E9"_qs);
    selection.SelectedJokeText = u"chosen later"_qs;
    editor->SaveButtonClicked();
    EXPECT_THAT(stored(), ElementsAre("1|Corny|1|1||Mild", "2|Dad|NULL|2|same|Adult"));
    EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToRatingBreakdown));
}

TEST_F(JokeEditorTest, EditSaysWhatIsMissingAndIsSilentWhereTheJokeIsGone)
{
    Jokes& joke = addJoke({.category = "Puns", .joke = "text"});
    const auto editor = openEditor(joke);
    editor->setJokeTextView(u"\n"_qs); // what is left of the line that display puts behind the text
    editor->SaveButtonClicked();
    ASSERT_EQ(navigator.alerts.size(), 1U);
    EXPECT_EQ(navigator.alerts[0].message, u"Required Fields Labeled in RED Not Entered"_qs);

    context().deleteObject(joke);
    editor->setJokeTextView(u"changed"_qs);
    editor->SaveButtonClicked();
    EXPECT_EQ(navigator.alerts.size(), 1U);
    EXPECT_TRUE(navigator.unwound.empty());
    EXPECT_TRUE(editor->hasUnsavedChanges());
}

TEST_F(JokeEditorTest, TextSizeIsOfTheViewersOwnAndStoredAtOnce)
{
    userDefaults.setReal(PreferenceKeys::ViewerFontSize, 2.0);
    const Jokes& joke = addJoke({.joke = "x"});
    const auto editor = openEditor(joke);
    editor->IncreaseFontSize();
    for (int i = 0; i < 4; ++i)
        editor->DecreaseFontSize();
    EXPECT_EQ(editor->textFont().pixelSize(), 1);
    const Preferences nextLaunch(folder.filePath(u"preferences.json"_qs));
    EXPECT_EQ(nextLaunch.real(PreferenceKeys::ViewerFontSize), -1.0);
    userDefaults.setText(PreferenceKeys::ListFontName, u"No Such Font"_qs);
    EXPECT_DEATH(openEditor(joke), "No Such Font");
}

TEST_F(JokeEditorTest, TheReviewIsAskedForIfTheScreenIsStillThereAfterAWhile)
{
    const Jokes& joke = addJoke({.joke = "x"});
    openEditor(joke).reset();
    mainQueue.advance(std::chrono::seconds(10));
    EXPECT_FALSE(userDefaults.isPresent(PreferenceKeys::ReviewServiceLastRequest));
    const auto editor = openEditor(joke);
    mainQueue.advance(std::chrono::seconds(10));
    EXPECT_TRUE(userDefaults.isPresent(PreferenceKeys::ReviewServiceLastRequest));
}

} // namespace

} // namespace giggle
