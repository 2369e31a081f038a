// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace giggle {

/// Tells of many texts whether they contain a needle when the ASCII letters of the texts are lower-cased.
class ByteScan {
public:
    /// @param needle lower-case already; bytes beyond ASCII count as they are. An empty one is in every text.
    /// @param sample what the texts are like, which decides at which bytes the needle is recognised fastest
    explicit ByteScan(std::string needle, std::string_view sample = {});

    [[nodiscard]] const std::string& needle() const { return m_needle; }

    [[nodiscard]] bool findsIn(std::string_view text) const;

private:
    /// One byte of the needle.
    struct Probe {
        std::size_t offset = 0;
        std::uint8_t byte = 0;
        std::uint8_t caseBit = 0;
    };

    [[nodiscard]] Probe probeAt(std::size_t offset) const;
    /// @name Whether the needle begins at one of the places from @p start on
    /// @{
    [[nodiscard]] bool findsPlainly(const char* start, std::size_t places) const;
    [[nodiscard]] bool findsInBlock(const char* start) const;
    /// @}

    std::string m_needle;
    Probe m_rarest;
    Probe m_secondRarest;
};

[[nodiscard]] bool isAscii(std::string_view text);

} // namespace giggle
