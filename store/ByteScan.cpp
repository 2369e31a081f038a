// SPDX-License-Identifier: MIT
#include "store/ByteScan.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

// Where the loader can choose by processor, the scan is compiled for wider registers too.
#if defined(__x86_64__) && defined(__gnu_linux__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define GIGGLE_WIDE_REGISTERS __attribute__((target_clones("avx2", "default")))
#else
#define GIGGLE_WIDE_REGISTERS
#endif

namespace giggle {

namespace {

constexpr std::size_t BlockSize = 32;
using Block = std::uint8_t __attribute__((vector_size(BlockSize)));

/// The bit by which an ASCII letter's two cases differ, 0 for any other byte.
std::uint8_t caseBit(char lowerCase)
{
    return lowerCase >= 'a' && lowerCase <= 'z' ? 0x20 : 0;
}

bool matchesAt(const char* text, std::string_view needle)
{
    return std::ranges::equal(needle, std::string_view(text, needle.size()), [](char wanted, char found) {
        return static_cast<char>(found | caseBit(wanted)) == wanted;
    });
}

/// Looks at the BlockSize places from @p start on, first at each place's first and last byte only.
struct BlockScan {
    std::string_view needle;
    std::uint8_t first = static_cast<std::uint8_t>(needle.front());
    std::uint8_t last = static_cast<std::uint8_t>(needle.back());
    std::uint8_t firstCaseBit = caseBit(needle.front());
    std::uint8_t lastCaseBit = caseBit(needle.back());

    __attribute__((always_inline)) inline bool findsAt(const char* start) const
    {
        Block firstBytes;
        Block lastBytes;
        std::memcpy(&firstBytes, start, BlockSize);
        std::memcpy(&lastBytes, start + needle.size() - 1, BlockSize);
        const auto candidates = ((firstBytes | firstCaseBit) == first) & ((lastBytes | lastCaseBit) == last);
        std::uint64_t words[BlockSize / sizeof(std::uint64_t)];
        std::memcpy(words, &candidates, BlockSize);
        if ((words[0] | words[1] | words[2] | words[3]) == 0)
            return false;
        for (std::size_t i = 0; i < BlockSize; ++i)
            if (candidates[i] && matchesAt(start + i, needle))
                return true;
        return false;
    }
};

} // namespace

GIGGLE_WIDE_REGISTERS
bool containsIgnoringAsciiCase(std::string_view text, std::string_view needle)
{
    if (needle.empty())
        return true;
    if (text.size() < needle.size())
        return false;
    const std::size_t places = text.size() - needle.size() + 1;
    if (places < BlockSize) {
        for (std::size_t i = 0; i < places; ++i)
            if (matchesAt(text.data() + i, needle))
                return true;
        return false;
    }
    const BlockScan scan{needle};
    for (std::size_t i = 0; i + BlockSize <= places; i += BlockSize)
        if (scan.findsAt(text.data() + i))
            return true;
    // The last places, together with some that have been looked at.
    return places % BlockSize != 0 && scan.findsAt(text.data() + places - BlockSize);
}

bool isAscii(std::string_view text)
{
    // No early exit, so that the loop is vectorised.
    std::uint8_t seen = 0;
    for (const char byte : text)
        seen |= static_cast<std::uint8_t>(byte);
    return seen < 0x80;
}

} // namespace giggle
