// SPDX-License-Identifier: MIT
#include "ui/DisplayText.h"

#include <array>

namespace giggle {

namespace {

// All allowed characters are ASCII, so that filtering bytes of UTF-8 filters code points.
constexpr std::array<bool, 256> allowedBytes()
{
    std::array<bool, 256> allowed{};
    for (const char c : AllowedDisplayCharacters)
        allowed[static_cast<unsigned char>(c)] = true;
    return allowed;
}

constexpr std::array<bool, 256> IsAllowed = allowedBytes();

} // namespace

QString filteredForDisplay(std::string_view utf8)
{
    QByteArray kept;
    kept.reserve(static_cast<qsizetype>(utf8.size()));
    for (const char c : utf8)
        if (IsAllowed[static_cast<unsigned char>(c)])
            kept.append(c);
    return QString::fromLatin1(kept);
}

} // namespace giggle
