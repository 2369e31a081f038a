// SPDX-License-Identifier: MIT
#include "jokes/JokeEditor.h"

#include "store/FatalError.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <algorithm>
#include <string>
#include <vector>

namespace giggle {

namespace {

/// The names of some records, without those that are unset, in code-point order, which QString's own order is
/// not.
template <class Record>
QStringList namesOf(const std::vector<Record*>& records, OptionalText (Record::*nameOf)() const)
{
    std::vector<std::string> names;
    for (const Record* record : records)
        if (const OptionalText each = (record->*nameOf)())
            names.emplace_back(*each);
    std::ranges::sort(names);
    QStringList list;
    list.reserve(static_cast<qsizetype>(names.size()));
    for (const std::string& name : names)
        list.append(textOrEmpty(name));
    return list;
}

QStringList withoutDuplicates(QStringList sortedNames)
{
    sortedNames.erase(std::unique(sortedNames.begin(), sortedNames.end()), sortedNames.end());
    return sortedNames;
}

} // namespace

void JokeEditor::loadLists(Duplicates categoryDuplicates)
{
    loggingFailure([&] {
        m_listOfCatagories = namesOf(viewContext().fetch(Category::fetchRequest()), &Category::category);
    });
    if (categoryDuplicates == Duplicates::Dropped)
        m_listOfCatagories = withoutDuplicates(std::move(m_listOfCatagories));
    loggingFailure([&] {
        const std::vector<Rating*> ratings = viewContext().fetch(Rating::fetchRequest());
        if (std::ranges::any_of(ratings, [](const Rating* rating) { return !rating->rating(); }))
            fatalError(QStringLiteral("The collection holds a rating without a name."), __FILE__, __LINE__);
        m_listOfRatings = withoutDuplicates(namesOf(ratings, &Rating::rating));
    });
    emit listsLoaded();
}

void JokeEditor::setCategoryTextField(const QString& text)
{
    if (text == m_categoryTextField)
        return;
    m_categoryTextField = text;
    emit categoryTextFieldChanged();
}

void JokeEditor::setJokeTextView(const QString& text)
{
    if (text == m_jokeTextView)
        return;
    m_jokeTextView = text;
    emit jokeTextViewChanged();
}

void JokeEditor::setRatingTextField(const QString& text)
{
    if (text == m_ratingTextField)
        return;
    m_ratingTextField = text;
    emit ratingTextFieldChanged();
}

void JokeEditor::didSelectRow(int row, Picker picker)
{
    const QStringList& names = picker == CategoryPicker ? m_listOfCatagories : m_listOfRatings;
    if (row < 0 || row >= names.size())
        return;
    if (picker == CategoryPicker)
        setCategoryTextField(names[row]);
    else
        setRatingTextField(names[row]);
}

bool JokeEditor::hasUnsavedChanges() const
{
    return m_categoryTextField != m_savedCategory || m_jokeTextView != m_savedJoke ||
           m_ratingTextField != m_savedRating;
}

void JokeEditor::markAsSaved()
{
    m_savedCategory = m_categoryTextField;
    m_savedJoke = m_jokeTextView;
    m_savedRating = m_ratingTextField;
}

bool JokeEditor::validate(const QString& joke, const QString& title, const QString& message)
{
    if (!m_categoryTextField.isEmpty() && !joke.isEmpty())
        return true;
    environment().navigator.present(information(title, message));
    return false;
}

void JokeEditor::writeFields(Jokes& record, const QString& joke) const
{
    record.setCategory(trimmedOfBlanks(m_categoryTextField).toStdString());
    record.setJoke(filteredForDisplay(joke).toStdString());
    if (!m_ratingTextField.isEmpty())
        record.setRating(m_ratingTextField.toStdString());
}

void JokeEditor::saveAndGoBack(std::span<const WayBack> waysBack)
{
    if (loggingFailure([this] { viewContext().save(); }))
        markAsSaved();
    const auto wayBack =
        std::ranges::find(waysBack, environment().selection.CallingScreen, &WayBack::callingScreen);
    if (wayBack != waysBack.end())
        environment().navigator.unwind(wayBack->route);
}

} // namespace giggle
