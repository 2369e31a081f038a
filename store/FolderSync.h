// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace giggle {

/// Makes @p folder and what is missing above it, each for the user alone. An absolute path. A folder that is
/// there already stays as it is. Each new one is on the disk under its name when this returns, where the file
/// system can tell: a power failure could else take what was first saved in it along. Returns the reason when
/// it fails, with the folder that could not be made.
[[nodiscard]] std::optional<QString> makeFolder(const QString& folder);

/// Waits until the entries of @p folder (files made, renamed or removed in it) are on the disk. File systems
/// that cannot sync a folder count as done. False, with the reason in `errno`, when it fails.
bool synchronizeFolder(const QString& folder);

} // namespace giggle
