// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <map>

namespace giggle {

/// What a row shows, as a number that stays with it while rows come, go and change places. Different rows of
/// a table have different ones, as a rule.
using RowIdentity = std::int64_t;

/// Of a row that can only be told by its number.
constexpr RowIdentity NoIdentity = -1;

/// A row that is to be found again: by what it shows, or else by its number.
struct RowAnchor {
    RowIdentity identity = NoIdentity;
    int row = -1; ///< -1 for none

    bool operator==(const RowAnchor&) const = default;
};

/// Where a list was left.
struct ListPlace {
    RowAnchor top;     ///< the first row in sight
    double offset = 0; ///< how many pixels of it are out of sight; less than 0 when there is room above it
    RowAnchor current; ///< the row that keys act on
};

/// The places of lists, by names that are never shown. An entry keeps its address.
using ListPlaces = std::map<QString, ListPlace>;

} // namespace giggle
