// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace giggle {

/// What the first launch makes categories for, and which categories the starter collection may use. In this
/// order.
inline constexpr std::array<std::string_view, 18> DefaultCategoryNames{
    "Animal",    "Blonde", "Observational", "Anecdotal",   "Situational",      "Character",
    "One-liner", "Ironic", "Deadpan",       "Farcical",    "Self-deprecating", "Slapstick",
    "Chicken",   "Corny",  "Dad",           "Knock Knock", "Wordplay",         "Parody",
};

/// The ratings that the first launch puts into the collection, in this order.
inline constexpr std::array<std::string_view, 8> DefaultRatingNames{
    "All Ages", "Children", "Teenagers", "Mild", "Mild+", "Moderate", "Adult", "Adult+",
};

} // namespace giggle
