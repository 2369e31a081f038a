// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace giggle {

/// Hands addresses over to the programs that the user opens them with.
class AddressOpener {
public:
    AddressOpener() = default;
    AddressOpener(const AddressOpener&) = delete;
    AddressOpener& operator=(const AddressOpener&) = delete;
    virtual ~AddressOpener() = default;

    /// In bytes, encoded. A program is handed an address as one argument, and no system takes 128 KiB.
    static constexpr qsizetype LongestAddress = 100'000;

    /// False when @p address is invalid or no program takes it. True says that one was started or asked, not
    /// that it could show anything.
    [[nodiscard]] virtual bool open(const QUrl& address) = 0;
};

} // namespace giggle
