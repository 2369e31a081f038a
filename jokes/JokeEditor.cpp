// SPDX-License-Identifier: MIT
#include "jokes/JokeEditor.h"

#include "store/AppDelegate.h"
#include "store/FatalError.h"
#include "ui/StoreCalls.h"

#include <algorithm>

namespace giggle {

namespace {

/// In code-point order, which QString's own order is not.
QStringList sorted(std::vector<std::string> names)
{
    std::ranges::sort(names);
    QStringList list;
    list.reserve(static_cast<qsizetype>(names.size()));
    for (const std::string& name : names)
        list.append(QString::fromStdString(name));
    return list;
}

QStringList withoutDuplicates(QStringList sortedNames)
{
    sortedNames.erase(std::unique(sortedNames.begin(), sortedNames.end()), sortedNames.end());
    return sortedNames;
}

} // namespace

ManagedObjectContext& JokeEditor::viewContext() const
{
    return environment().appDelegate.persistentContainer().viewContext();
}

void JokeEditor::loadLists(const FetchRequest<Category>& categories, Duplicates categoryDuplicates)
{
    std::vector<std::string> names;
    loggingFailure([&] {
        for (const Category* category : viewContext().fetch(categories))
            if (const OptionalText name = category->category())
                names.emplace_back(*name);
    });
    m_listOfCatagories = sorted(std::move(names));
    if (categoryDuplicates == Duplicates::Dropped)
        m_listOfCatagories = withoutDuplicates(std::move(m_listOfCatagories));

    names.clear();
    FetchRequest<Rating> ratings = Rating::fetchRequest();
    ratings.sortDescriptors = {{"rating"}};
    loggingFailure([&] {
        for (const Rating* rating : viewContext().fetch(ratings)) {
            if (!rating->rating())
                fatalError(QStringLiteral("The collection holds a rating without a name."), __FILE__,
                           __LINE__);
            names.emplace_back(*rating->rating());
        }
    });
    m_listOfRatings = withoutDuplicates(sorted(std::move(names)));
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
    environment().navigator.present({title, message, {{QStringLiteral("OK"), {}}}});
    return false;
}

void JokeEditor::saveContext()
{
    loggingFailure([this] { viewContext().save(); });
    markAsSaved();
}

} // namespace giggle
