// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"

#include "tests/support/CollectionFolder.h"

#include <array>
#include <random>

#include <gtest/gtest.h>

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
