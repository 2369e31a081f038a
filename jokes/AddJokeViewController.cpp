// SPDX-License-Identifier: MIT
#include "jokes/AddJokeViewController.h"

#include "store/NextJokeId.h"
#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

#include <array>
#include <cstdint>

namespace giggle {

void AddJokeViewController::viewDidLoad()
{
    loadLists(Duplicates::Kept);
}

void AddJokeViewController::SaveButtonClicked()
{
    static constexpr std::array WaysBack{WayBack{CallingScreens::MainList, UnwindRoute::ToList},
                                         WayBack{CallingScreens::MainMenu, UnwindRoute::ToMenu}};
    // These are the words that users know, and not to be corrected.
    if (!validate(
            jokeTextView(), QStringLiteral("Movie Not Saved"),
            QStringLiteral("Required Fields Labeled in RED Not Entered or Date Released is not 4 numbers "
                           "(yyyy)")))
        return;
    // The screen holds no jokes of its own that could stand in for a collection that cannot be read.
    const std::int16_t id = nextJokeID(viewContext(), {});
    Jokes* joke = nullptr;
    if (!loggingFailure([&] { joke = &viewContext().insert<Jokes>(); }))
        return; // what was typed stays here
    joke->setId(id);
    writeFields(*joke, jokeTextView());
    saveAndGoBack(WaysBack);
}

} // namespace giggle
