// SPDX-License-Identifier: MIT
#pragma once

#include "store/ManagedObjectContext.h"

#include <cstdint>
#include <vector>

namespace giggle {

/// The id of the next joke: the highest id, 0 when no joke has one, plus 1. Freed ids are not used again
/// unless they lie above every remaining one. An id past the 16-bit range ends the program. When the
/// collection cannot be read, the failure is logged and the jokes in @p held count instead.
[[nodiscard]] std::int16_t nextJokeID(ManagedObjectContext& context, const std::vector<Jokes*>& held);

} // namespace giggle
