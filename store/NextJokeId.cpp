// SPDX-License-Identifier: MIT
#include "store/NextJokeId.h"

#include "store/Console.h"
#include "store/FatalError.h"

#include <algorithm>
#include <limits>

namespace giggle {

namespace {

std::optional<std::int16_t> highestId(const std::vector<Jokes*>& jokes)
{
    std::optional<std::int16_t> highest;
    for (const Jokes* joke : jokes)
        highest = std::max(highest, joke->id()); // nothing is less than every id
    return highest;
}

} // namespace

std::int16_t nextJokeID(ManagedObjectContext& context, const std::vector<Jokes*>& held)
{
    std::optional<std::int16_t> highest;
    try {
        highest = context.highestJokeId();
    } catch (const StoreError& error) {
        printFailure(error.localizedDescription());
        highest = highestId(held);
    }
    const int next = highest.value_or(0) + 1;
    if (next > std::numeric_limits<std::int16_t>::max())
        fatalError(
            QStringLiteral("Arithmetic overflow: the highest joke id is %1, and there is no higher one. "
                           "Everything saved before is whole")
                .arg(*highest),
            __FILE__, __LINE__);
    return static_cast<std::int16_t>(next);
}

} // namespace giggle
