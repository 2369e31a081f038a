// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
        std::uint8_t caseBit = 0; ///< by which a letter's two cases differ

        [[nodiscard]] bool matches(char found) const
        {
            return (static_cast<std::uint8_t>(found) | caseBit) == byte;
        }
    };

    /// Among so many of a needle's bytes those are chosen that a scan looks at first.
    static constexpr std::size_t MaximumProbes = 32;

    /// Takes out the probe that the fewest @p places of the sample match, and all places that do not match
    /// it.
    static Probe takeRarest(std::vector<Probe>& probes, std::vector<std::size_t>& places,
                            std::string_view sample);

    [[nodiscard]] bool matchesAt(const char* start) const;
    /// @name Whether the needle begins at one of the places from @p start on
    /// @{
    [[nodiscard]] bool findsPlainly(const char* start, std::size_t places) const;
    [[nodiscard]] bool findsInBlock(const char* start) const;
    /// @}

    std::string m_needle;
    std::array<Probe, 3> m_probes;
};

[[nodiscard]] bool isAscii(std::string_view text);

} // namespace giggle
