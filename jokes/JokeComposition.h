// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "store/Jokes.h"

#include <vector>

namespace giggle {

/// The jokes as they are shared and printed, in this order: each in large bold type, a dashed line below it,
/// and some room. A joke without a text is an empty piece. Nothing of a text is left out.
[[nodiscard]] AttributedText composeJokes(const std::vector<Jokes*>& jokes);

} // namespace giggle
