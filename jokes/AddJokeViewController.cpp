// SPDX-License-Identifier: MIT
#include "jokes/AddJokeViewController.h"

#include "store/ManagedObjectContext.h"
#include "store/NextJokeId.h"
#include "ui/DisplayText.h"
#include "ui/SharedSelection.h"

namespace giggle {

void AddJokeViewController::viewDidLoad()
{
    loadLists(Category::fetchRequest(), Duplicates::Kept);
}

void AddJokeViewController::SaveButtonClicked()
{
    // The texts come from a form for films, and stay as they are.
    if (!validate(
            jokeTextView(), QStringLiteral("Movie Not Saved"),
            QStringLiteral("Required Fields Labeled in RED Not Entered or Date Released is not 4 numbers "
                           "(yyyy)")))
        return;
    insertJoke();
    saveContext();
    goBack();
}

void AddJokeViewController::insertJoke()
{
    // The screen holds no jokes of its own that could stand in for a collection that cannot be read.
    const std::int16_t id = nextJokeID(viewContext(), {});
    Jokes& joke = viewContext().insert<Jokes>();
    joke.setId(id);
    joke.setCategory(trimmedOfBlanks(categoryTextField()).toStdString());
    joke.setJoke(filteredForDisplay(jokeTextView()).toStdString());
    if (!ratingTextField().isEmpty())
        joke.setRating(ratingTextField().toStdString());
}

void AddJokeViewController::goBack()
{
    const QString& callingScreen = environment().selection.CallingScreen;
    if (callingScreen == QLatin1StringView("MainList"))
        environment().navigator.unwind(UnwindRoute::ToList);
    else if (callingScreen == QLatin1StringView("MainMenu"))
        environment().navigator.unwind(UnwindRoute::ToMenu);
}

} // namespace giggle
