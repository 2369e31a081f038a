// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

/// Whether a row of the database file @p path says that it consists of nothing at all. SQLite never writes
/// such a row, but takes it for one whose values are all unset, and its own checks pass it over: one flipped
/// bit then empties a joke in silence.
///
/// Only for a file without a log or a journal to be applied: an interrupted write may leave anything in it.
/// @param pageSize the database's, in bytes
[[nodiscard]] bool holdsHollowRow(const QString& path, int pageSize);

} // namespace giggle
