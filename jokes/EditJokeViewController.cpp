// SPDX-License-Identifier: MIT
#include "jokes/EditJokeViewController.h"

#include "jokes/JokeComposition.h"
#include "platform/Platform.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"
#include "ui/DisplayText.h"
#include "ui/MainQueue.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"
#include "ui/TextOutput.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace giggle {

namespace {

constexpr std::chrono::seconds ReviewDelay{5};

QString checkedName()
{
    return QStringLiteral("Checked");
}

QString uncheckedName()
{
    return QStringLiteral("Unchecked");
}

} // namespace

EditJokeViewController::EditJokeViewController(ScreenEnvironment& environment)
    : JokeEditor(environment), m_reviewService(environment.userDefaults, environment.platform.storeReview),
      m_checkBox(uncheckedName())
{
    connect(this, &JokeEditor::jokeTextViewChanged, this, &EditJokeViewController::followDisplayLineFeed);
}

void EditJokeViewController::viewDidLoad()
{
    loadLists(Duplicates::Dropped);
    showSelection();
    requestReviewLater();
}

void EditJokeViewController::showSelection()
{
    const SharedSelection& selection = environment().selection;
    setCategoryTextField(selection.SelectedCategory);
    setRatingTextField(selection.SelectedRating);
    if (!selection.SelectedFavorite.isEmpty())
        CheckBoxChecked(selection.isFavorite() ? checkedName() : uncheckedName());
    m_displaySettings = ListDisplaySettings::readForViewer(environment().userDefaults);
    m_selectedJoke = selection.SelectedJokeText;
    if (const QString joke = filteredForDisplay(m_selectedJoke); !joke.isEmpty()) {
        m_textFont = m_displaySettings.requiredFont(environment().platform.fonts);
        setJokeTextView(joke + u'\n');
        m_displayLineFeed = joke.size();
    } else {
        m_textFont = m_displaySettings.fontOrDefault(environment().platform.fonts);
    }
    markAsSaved();
}

void EditJokeViewController::requestReviewLater()
{
    environment().mainQueue.asyncAfter(ReviewDelay, [self = QPointer(this)] {
        if (self)
            self->m_reviewService.requestReviewIfDue();
    });
}

bool EditJokeViewController::shouldChangeText(const QString& replacement) const
{
    return isAllowedInEditing(replacement);
}

bool EditJokeViewController::hasTextColor() const
{
    return colorNamed(m_displaySettings.ListFontColor).has_value();
}

QColor EditJokeViewController::textColor() const
{
    return colorNamed(m_displaySettings.ListFontColor).value_or(QColor());
}

void EditJokeViewController::CheckBoxChecked(const QString& stateName)
{
    if (stateName == m_checkBox)
        return;
    m_checkBox = stateName;
    emit checkBoxChanged();
}

void EditJokeViewController::IncreaseFontSize()
{
    changeFontSize(1);
}

void EditJokeViewController::DecreaseFontSize()
{
    changeFontSize(-1);
}

void EditJokeViewController::changeFontSize(double difference)
{
    m_displaySettings.ListFontSize += difference;
    m_textFont = m_displaySettings.drawnInListSize(m_textFont);
    emit textFontChanged();
    Preferences& userDefaults = environment().userDefaults;
    userDefaults.setReal(PreferenceKeys::ViewerFontSize, m_displaySettings.ListFontSize);
    userDefaults.synchronize();
}

void EditJokeViewController::shareButtonClicked()
{
    shareText(*this, environment(), [this] { return jokeTextView(); });
}

void EditJokeViewController::PrintJoke()
{
    JokeComposition composition;
    composition.appendHeader();
    composition.appendJoke(jokeTextView().toStdString());
    const bool hadChanges = hasUnsavedChanges();
    setJokeTextView(composition.plainText());
    m_displayLineFeed = -1; // what is printed is stored as it is
    // Going back loses nothing that the user has typed.
    if (!hadChanges)
        markAsSaved();
    AttributedText text = composition.attributedText();
    m_textFont = text.runs()[1].attributes.font.value_or(m_textFont);
    m_displaySettings.ListFontSize = m_textFont.pixelSize();
    m_displaySettings.ListFontColor.clear();
    emit textFontChanged();
    printText(environment(), std::move(text));
}

QString EditJokeViewController::enteredJoke() const
{
    QString joke = jokeTextView();
    // Where something was typed behind it, it is a line break that the user has seen.
    if (m_displayLineFeed >= 0 && m_displayLineFeed == joke.size() - 1)
        joke.chop(1);
    return joke;
}

void EditJokeViewController::followDisplayLineFeed()
{
    const QString& now = jokeTextView();
    const QString before = std::exchange(m_followedJoke, now);
    if (m_displayLineFeed < 0)
        return;
    const qsizetype shorter = std::min(before.size(), now.size());
    const qsizetype prefix = std::ranges::mismatch(before, now).in1 - before.begin();
    qsizetype suffix = 0;
    while (suffix < shorter - prefix && before[before.size() - 1 - suffix] == now[now.size() - 1 - suffix])
        ++suffix;
    if (m_displayLineFeed >= before.size() - suffix)
        m_displayLineFeed += now.size() - before.size();
    else if (m_displayLineFeed >= prefix)
        m_displayLineFeed = -1;
}

void EditJokeViewController::SaveButtonClicked()
{
    static constexpr std::array WaysBack{
        WayBack{CallingScreens::MainList, UnwindRoute::ToList},
        WayBack{CallingScreens::CategoryBreakdown, UnwindRoute::ToCategoryBreakdown},
        WayBack{CallingScreens::RatingBreakdown, UnwindRoute::ToRatingBreakdown}};
    if (!validate(enteredJoke(), QStringLiteral("Joke Not Saved"),
                  QStringLiteral("Required Fields Labeled in RED Not Entered")))
        return;
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.predicate = Predicate<Jokes>("joke = %@", m_selectedJoke.toStdString());
    // When the fetch fails, what an earlier save found counts on.
    loggingFailure([&] { m_results = viewContext().fetch(request); });
    if (m_results.empty())
        return;
    writeFields(*m_results.front(), enteredJoke());
    m_results.front()->setFavorite(m_checkBox == checkedName());
    saveAndGoBack(WaysBack);
}

bool EditJokeViewController::hasUnsavedChanges() const
{
    return JokeEditor::hasUnsavedChanges() || m_checkBox != m_savedCheckBox;
}

void EditJokeViewController::markAsSaved()
{
    JokeEditor::markAsSaved();
    m_savedCheckBox = m_checkBox;
}

} // namespace giggle
