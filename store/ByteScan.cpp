// SPDX-License-Identifier: MIT
#include "store/ByteScan.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <vector>

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

} // namespace

ByteScan::ByteScan(std::string needle, std::string_view sample) : m_needle(std::move(needle))
{
    if (m_needle.empty())
        return;
    std::array<std::size_t, 256> counts{};
    for (const char byte : sample)
        ++counts[static_cast<std::uint8_t>(byte)];
    std::vector<std::size_t> offsets(m_needle.size());
    std::iota(offsets.begin(), offsets.end(), 0U);
    std::ranges::stable_sort(
        offsets, {}, [&](std::size_t offset) { return counts[static_cast<std::uint8_t>(m_needle[offset])]; });
    m_rarest = probeAt(offsets.front());
    m_secondRarest = probeAt(offsets[offsets.size() > 1 ? 1 : 0]);
}

ByteScan::Probe ByteScan::probeAt(std::size_t offset) const
{
    return {offset, static_cast<std::uint8_t>(m_needle[offset]), caseBit(m_needle[offset])};
}

bool ByteScan::findsPlainly(const char* start, std::size_t places) const
{
    const auto isFolded = [](char wanted, char found) {
        return static_cast<char>(found | caseBit(wanted)) == wanted;
    };
    for (const char* end = start + places; start != end; ++start)
        if (isFolded(static_cast<char>(m_rarest.byte), start[m_rarest.offset]) &&
            std::equal(m_needle.begin(), m_needle.end(), start, isFolded))
            return true;
    return false;
}

/// Looks at BlockSize places, first at two bytes of each only.
__attribute__((always_inline)) inline bool ByteScan::findsInBlock(const char* start) const
{
    Block first;
    Block second;
    std::memcpy(&first, start + m_rarest.offset, BlockSize);
    std::memcpy(&second, start + m_secondRarest.offset, BlockSize);
    const auto candidates = ((first | m_rarest.caseBit) == m_rarest.byte) &
                            ((second | m_secondRarest.caseBit) == m_secondRarest.byte);
    std::array<std::uint64_t, BlockSize / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), &candidates, BlockSize);
    if ((words[0] | words[1] | words[2] | words[3]) == 0)
        return false;
    return findsPlainly(start, BlockSize);
}

GIGGLE_WIDE_REGISTERS
bool ByteScan::findsIn(std::string_view text) const
{
    if (m_needle.empty())
        return true;
    if (text.size() < m_needle.size())
        return false;
    const std::size_t places = text.size() - m_needle.size() + 1;
    if (places < BlockSize)
        return findsPlainly(text.data(), places);
    for (std::size_t i = 0; i + BlockSize <= places; i += BlockSize)
        if (findsInBlock(text.data() + i))
            return true;
    // The last places, together with some that have been looked at.
    return places % BlockSize != 0 && findsInBlock(text.data() + places - BlockSize);
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
