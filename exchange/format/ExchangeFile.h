// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>
#include <string>

namespace giggle {

/// The largest file that is read, in bytes.
inline constexpr qint64 MaximumExchangeFileSize = 256'000'000;

/// A file's whole text, or why it cannot be had, in words for the user.
struct FileText {
    std::optional<std::string> text;
    QString failure;
};

/// Reads a file as UTF-8. A byte-order mark at its start is left out.
[[nodiscard]] FileText readUtf8File(const QString& path);

/// Reads a file as ASCII: any other byte is a failure.
[[nodiscard]] FileText readAsciiFile(const QString& path);

} // namespace giggle
