// SPDX-License-Identifier: MIT
#include "jokes/SearchPreparation.h"

#include "store/TextSearch.h"
#include "ui/MainQueue.h"

#include <QPointer>

namespace giggle {

namespace {

// One step takes well under the time of a frame.
constexpr std::size_t JokesPreparedAtOnce = 1000;

void prepareFrom(std::size_t firstJoke, const QPointer<QObject>& screen, MainQueue& mainQueue,
                 ManagedObjectContext& context)
{
    mainQueue.async([firstJoke, screen, &mainQueue, &context] {
        if (!screen)
            return;
        if (const auto next = TextSearch::prepare(context, firstJoke, JokesPreparedAtOnce))
            prepareFrom(*next, screen, mainQueue, context);
    });
}

} // namespace

void prepareSearchLater(QObject& screen, MainQueue& mainQueue, ManagedObjectContext& context)
{
    prepareFrom(0, &screen, mainQueue, context);
}

} // namespace giggle
