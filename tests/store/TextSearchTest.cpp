// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"

#include "store/ByteScan.h"
#include "tests/support/CollectionFolder.h"

#include <array>
#include <random>

#include <gmock/gmock.h>

namespace giggle {

namespace {

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text);
}

bool plainlyContains(std::string_view text, std::string_view needle)
{
    return fromUtf8(text).toLower().contains(fromUtf8(needle).toLower());
}

/// Each text in memory of its own size, so that a byte read past its end is noticed.
bool scans(const std::string& text, std::string_view needle)
{
    const std::vector<char> exact(text.begin(), text.end());
    const std::string_view view(exact.data(), exact.size());
    const bool found = ByteScan(std::string(needle)).findsIn(view);
    // A sample decides where the scan looks first, never what it finds.
    for (const std::string_view sample : {std::string_view(text), needle, needle.substr(1)})
        EXPECT_EQ(ByteScan(std::string(needle), sample).findsIn(view), found);
    return found;
}

TEST(ByteScanTest, FindsANeedleAtEveryPlaceOfEveryLength)
{
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789_-+!";
    for (std::size_t size = 1; size <= letters.size(); ++size) {
        const std::string needle = letters.substr(0, size);
        std::string shouted = needle;
        std::ranges::transform(shouted, shouted.begin(), [](char c) { return char(std::toupper(c)); });
        std::string lastWrong = shouted;
        lastWrong.back() = '~';
        for (std::size_t before = 0; before <= 70; ++before)
            for (const std::size_t after : {0, 1, 31, 32, 33}) {
                const std::string start(before, shouted.back());
                const std::string end(after, needle.front());
                ASSERT_TRUE(scans(start + shouted + end, needle)) << before << " " << size << " " << after;
                ASSERT_EQ(scans(start + lastWrong + end, needle), size == 1 && before + after > 0);
                // Cut by its last byte, which lies just behind the text.
                const std::string whole = std::string(before, '.') + shouted;
                ASSERT_FALSE(ByteScan(needle).findsIn(std::string_view(whole).substr(0, before + size - 1)));
            }
    }
}

TEST(ByteScanTest, FoldsLettersOnly)
{
    // Bytes that differ from each other in the case bit alone, but are no letters.
    for (const auto& [found, wanted] : {std::pair{"@", "`"},
                                        {"[", "{"},
                                        {"\\", "|"},
                                        {"]", "}"},
                                        {"^", "~"},
                                        {"\x10", "0"},
                                        {"_", "\x7F"},
                                        {"\xC3\x89", "\xC3\xA9"}})
        for (const std::size_t filling : {0, 40}) {
            const std::string text = std::string(filling, '.') + found;
            EXPECT_FALSE(scans(text, wanted)) << wanted;
            EXPECT_TRUE(scans(text, found)) << found;
        }
    EXPECT_FALSE(isAscii(std::string(70, 'a') + "\x80"));
    EXPECT_TRUE(isAscii(std::string(70, '\x7F') + '\0'));
}

TEST(TextSearchTest, LowersBothSidesByUnicodesRules)
{
    const std::vector<std::pair<std::string, std::string>> pairs = {
        {"\xE2\x84\xAA"
         "elvin",
         "kelvin"}, // the Kelvin sign is a k
        {"kelvin", "\xE2\x84\xAA"},
        {"STRASSE", "stra\xC3\x9F"
                    "e"}, // sharp s is not ss
        {"STRA\xE1\xBA\x9E"
         "E",
         "stra\xC3\x9F"
         "e"},                           // but its capital is its own
        {"\xC4\xB0stanbul", "istanbul"}, // capital dotted I becomes two characters
        {"\xC4\xB0stanbul", "i"},
        {"istanbul", "\xC4\xB0"},
        {"\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89"},
        {"E\xCC\x81t", "\xC3\xA9t"}, // nothing is composed
        {"\xCE\xA3\xCE\x99\xCE\xA3", "\xCF\x83\xCE\xB9\xCF\x83"},
        {"\xF0\x90\x90\x80", "\xF0\x90\x90\xA8"}, // letters beyond 16 bits have cases too
        {std::string("a\0B", 3), "b"},
        {std::string("a\0B", 3), std::string("\0b", 2)},
        {"ab", std::string("a\0", 2)},
        {"", "a"},
    };
    for (const auto& [text, needle] : pairs)
        EXPECT_EQ(TextSearch(fromUtf8(needle)).isContainedIn(text), plainlyContains(text, needle))
            << text << " / " << needle;
}

TEST(TextSearchTest, FiltersAsAPlainSearchWould)
{
    std::mt19937 random(11);
    const auto below = [&](std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
    };
    const std::array<std::string, 12> pieces = {"a",        "b",        "A",
                                                "B",        "ab",       " ",
                                                "\xC3\xA9", "\xC3\x89", "\xE2\x84\xAA",
                                                "\xC4\xB0", "k",        std::string(1, '\0')};
    const auto randomText = [&](std::size_t atMost) {
        std::string text;
        for (std::size_t i = below(atMost + 1); i > 0; --i)
            text += pieces[below(below(3) == 0 ? pieces.size() : 6)];
        return text;
    };
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    for (int i = 0; i < 300; ++i) {
        const std::string text = randomText(90);
        const std::string name = randomText(4);
        insertJoke(context, {.category = below(9) == 0 ? OptionalText() : name,
                             .rating = name,
                             .joke = below(9) == 0 ? OptionalText() : text});
    }
    // A part of the jokes is prepared, the rest is not; some change afterwards, some are deleted.
    EXPECT_EQ(TextSearch::prepare(context, 0, 100), 100U);
    EXPECT_EQ(TextSearch::prepare(context, 250, 1000), std::nullopt);
    std::vector<Jokes*> list = context.fetch<Jokes>({{}, {{"joke", SortOrder::Descending}}});
    for (int round = 0; round < 200; ++round) {
        Jokes& changed = *list[below(list.size())];
        changed.setJoke(randomText(90));
        if (round % 20 == 0)
            context.deleteObject(*list[below(list.size())]);
        std::string needle = randomText(6) + "a";
        const std::vector<Jokes*> some(list.begin(), list.begin() + (round % 2 ? 20 : 300));
        for (const Attribute attribute : {Attribute::joke, Attribute::category, Attribute::rating}) {
            std::vector<Jokes*> expected;
            std::ranges::copy_if(some, std::back_inserter(expected), [&](const Jokes* joke) {
                return joke->text(attribute) && plainlyContains(*joke->text(attribute), needle);
            });
            ASSERT_EQ(TextSearch(fromUtf8(needle)).filter(some, attribute), expected) << needle;
        }
    }
}

} // namespace

} // namespace giggle
