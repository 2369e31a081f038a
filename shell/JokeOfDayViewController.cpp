// SPDX-License-Identifier: MIT
#include "shell/JokeOfDayViewController.h"

#include "store/FatalError.h"
#include "store/ManagedObjectContext.h"
#include "store/StoreError.h"
#include "ui/DisplayText.h"

#include <QRandomGenerator>

#include <limits>
#include <random>

namespace giggle {

void JokeOfDayViewController::viewDidLoad()
{
    loadList();
    ShuffleJokes();
}

void JokeOfDayViewController::loadList()
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.sortDescriptors = {{"joke"}, {"category"}};
    try {
        m_jokeList = viewContext().fetch(request);
    } catch (const StoreError&) {
        // Nothing is said here: the choice from an empty list will.
    }
}

void JokeOfDayViewController::ShuffleJokes()
{
    if (m_jokeList.empty())
        fatalError(QStringLiteral("There is no joke to choose the joke of the day from."), __FILE__,
                   __LINE__);
    if (m_jokeList.size() > std::numeric_limits<std::int32_t>::max())
        fatalError(QStringLiteral("There are too many jokes to choose one from."), __FILE__, __LINE__);
    const auto last = static_cast<std::int32_t>(m_jokeList.size() - 1);
    m_selectedJoke = std::uniform_int_distribution<std::int32_t>(0, last)(*QRandomGenerator::system());
    const Jokes& joke = *m_jokeList[static_cast<std::size_t>(m_selectedJoke)];
    m_categoryTextField = textOrEmpty(joke.category());
    m_ratingTextField = textOrEmpty(joke.rating());
    m_jokeTextView = textOrEmpty(joke.joke());
    emit jokeChanged();
}

} // namespace giggle
