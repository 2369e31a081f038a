// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

/// Whether the write-ahead log @p logPath is damaged in front of commits that were complete: SQLite reads a
/// log up to the first frame that is not as it was written, and would drop them in silence.
///
/// A log that merely ends in a commit which never came to its end, as a power cut leaves it, is not damaged;
/// nor is one that ends in remains of failed or earlier commits. Holds for logs of which every commit was
/// forced to the disk before the next began. Damage of the last commit cannot be told from a power cut.
/// @param pageSize the database's, in bytes
[[nodiscard]] bool losesCommits(const QString& logPath, int pageSize);

} // namespace giggle
