// SPDX-License-Identifier: MIT
#include "store/ByteScan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <functional>
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
    std::vector<std::size_t> places(sample.size() < m_needle.size() ? 0
                                                                    : sample.size() - m_needle.size() + 1);
    std::iota(places.begin(), places.end(), 0U);
    std::vector<Probe> probes;
    for (std::size_t i = 0; i < std::min(m_needle.size(), MaximumProbes); ++i)
        probes.push_back({i, static_cast<std::uint8_t>(m_needle[i]), caseBit(m_needle[i])});
    // Letters that often stand together tell less than their numbers say: so each one is the rarest of those
    // that stand with the ones before.
    for (Probe& probe : m_probes)
        probe = probes.empty() ? m_probes.front() : takeRarest(probes, places, sample);
}

ByteScan::Probe ByteScan::takeRarest(std::vector<Probe>& probes, std::vector<std::size_t>& places,
                                     std::string_view sample)
{
    const auto matches = [&](const Probe& probe) {
        return [&](std::size_t place) { return probe.matches(sample[place + probe.offset]); };
    };
    const auto rarest = std::ranges::min_element(
        probes, {}, [&](const Probe& probe) { return std::ranges::count_if(places, matches(probe)); });
    const Probe probe = *rarest;
    probes.erase(rarest);
    std::erase_if(places, std::not_fn(matches(probe)));
    return probe;
}

bool ByteScan::matchesAt(const char* start) const
{
    return std::equal(m_needle.begin(), m_needle.end(), start, [](char wanted, char found) {
        return static_cast<char>(found | caseBit(wanted)) == wanted;
    });
}

bool ByteScan::findsPlainly(const char* start, std::size_t places) const
{
    for (const char* end = start + places; start != end; ++start)
        if (matchesAt(start))
            return true;
    return false;
}

/// Looks at BlockSize places, first at the probes' bytes of each only.
__attribute__((always_inline)) inline bool ByteScan::findsInBlock(const char* start) const
{
    Block candidates = ~Block{};
    for (const Probe& probe : m_probes) {
        Block bytes;
        std::memcpy(&bytes, start + probe.offset, BlockSize);
        candidates &= Block((bytes | probe.caseBit) == probe.byte);
    }
    std::array<std::uint64_t, BlockSize / sizeof(std::uint64_t)> words;
    std::memcpy(words.data(), &candidates, BlockSize);
    if ((words[0] | words[1] | words[2] | words[3]) == 0)
        return false;
    for (std::uint64_t word : words) {
        for (; word != 0; word &= ~(0xffULL << (std::countr_zero(word) & ~7)))
            if (matchesAt(start + std::countr_zero(word) / 8))
                return true;
        start += sizeof word;
    }
    return false;
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
