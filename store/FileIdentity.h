// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace giggle {

/// Tells a file from another that has taken its name.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// Of the file at @p path now; absent when there is none.
[[nodiscard]] std::optional<FileIdentity> identityOfFile(const QString& path);

} // namespace giggle
