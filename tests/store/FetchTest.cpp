// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <algorithm>
#include <array>
#include <map>
#include <random>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FetchTest : public testing::Test {
protected:
    [[nodiscard]] ManagedObjectContext& context() const { return m_container.viewContext(); }

    std::size_t below(std::size_t limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }

    /// Texts that share beginnings of every length with others, or nothing.
    std::optional<std::string> randomText()
    {
        static const std::array<std::string, 9> pieces = {
            "a",        "aaaaaaa",          "aaaaaaaaaaaaaa", "b",           std::string(1, '\0'),
            "\xC3\xA9", "\xF0\x9F\x98\x80", "\x7F",           "\xEF\xBF\xBF"};
        if (below(8) == 0)
            return std::nullopt;
        std::string text;
        for (std::size_t i = below(5); i > 0; --i)
            text += pieces[below(pieces.size())];
        return text;
    }

    std::optional<std::int16_t> randomId()
    {
        static constexpr std::array<std::int16_t, 8> ids = {-32768, -257, -1, 0, 1, 255, 256, 32767};
        return below(6) == 0 ? std::nullopt : std::optional(ids[below(ids.size())]);
    }

    void change(Jokes& joke, std::size_t what)
    {
        switch (what) {
        case 0:
            return joke.setCategory(randomText());
        case 1:
            return joke.setRating(randomText());
        case 2:
            return joke.setId(randomId());
        case 3:
            return joke.setFavorite(below(3) == 0 ? std::nullopt : std::optional(below(2) == 0));
        default:
            return joke.setJoke(randomText());
        }
    }

    void insertRandomJokes(std::size_t count)
    {
        for (; count > 0; --count) {
            auto& joke = context().insert<Jokes>();
            for (std::size_t attribute = 0; attribute < AttributeCount; ++attribute)
                change(joke, attribute);
        }
    }

    [[nodiscard]] std::vector<Jokes*> fetch(const FetchRequest<Jokes>& request) const
    {
        return context().fetch(request);
    }

    /// The names in use, and how many jokes have each, are those that the live jokes say.
    void expectCounts(const std::vector<Jokes*>& live, PredicateFormat<Jokes, AttributeType::Text> format,
                      OptionalText (Jokes::*name)() const,
                      std::vector<std::string_view> (ManagedObjectContext::*namesInUse)()) const
    {
        std::map<std::string_view, std::size_t> expected;
        for (const Jokes* joke : live)
            if (const OptionalText text = (joke->*name)())
                ++expected[*text];
        std::map<std::string_view, std::size_t> counted;
        for (const std::string_view text : (context().*namesInUse)())
            counted[text] += context().count<Jokes>({Predicate<Jokes>(format, text), {}});
        ASSERT_EQ(counted, expected);
    }

    std::mt19937 m_random{20261121};
    CollectionFolder m_folder;
    PersistentContainer m_container = m_folder.open();
};

int compare(const Jokes& a, const Jokes& b, const SortDescriptor<Jokes>& descriptor)
{
    const Attribute key = descriptor.key.attribute();
    const auto result = key == Attribute::id ? a.id() <=> b.id() : a.text(key) <=> b.text(key);
    const int sign = result < 0 ? -1 : result > 0 ? 1 : 0;
    return descriptor.order == SortOrder::Ascending ? sign : -sign;
}

/// What a fetch is expected to return, in the plainest way.
std::vector<Jokes*> plainFetch(std::vector<Jokes*> jokes, const FetchRequest<Jokes>& request)
{
    if (request.predicate)
        std::erase_if(jokes, [&](const Jokes* joke) { return !request.predicate->matches(*joke); });
    std::ranges::stable_sort(jokes, [&](const Jokes* a, const Jokes* b) {
        for (const auto& descriptor : request.sortDescriptors)
            if (const int order = compare(*a, *b, descriptor); order != 0)
                return order < 0;
        return false;
    });
    return jokes;
}

/// More than are kept at a time, so that results are also computed anew in between.
std::vector<FetchRequest<Jokes>> requests()
{
    constexpr auto Down = SortOrder::Descending;
    return {
        {},
        {{}, {{"joke"}}},
        {{}, {{"joke", Down}}},
        {{}, {{"category"}, {"joke"}}},
        {{}, {{"category", Down}, {"joke"}}},
        {{}, {{"rating"}, {"id", Down}}},
        {{}, {{"id"}}},
        {{}, {{"id", Down}}},
        {Predicate<Jokes>("category == %@", "a"), {{"joke"}}},
        {Predicate<Jokes>("rating == %@", ""), {{"id"}}},
        {Predicate<Jokes>("favorite == %i", 1), {{"category"}}},
        {Predicate<Jokes>("id == %i", 255), {}},
    };
}

TEST_F(FetchTest, KeptResultsAreNeverStale)
{
    insertRandomJokes(200);
    for (std::size_t round = 0; round < 300; ++round) {
        const std::vector<Jokes*> all = fetch({});
        const std::size_t what = below(9);
        if (round % 100 == 50) {
            context().save();
            closeContainer(m_container);
            m_container = m_folder.open();
            EXPECT_TRUE(std::ranges::is_sorted(fetch({}), {}, &Jokes::oid));
        } else if (round % 10 == 9) // about as many as results are kept up with one by one
            for (std::size_t i = 0; i < 60 + round / 10 % 10; ++i)
                all[i]->setJoke(std::to_string((i * 7 + round) % 100) + "," + std::to_string(round));
        else if (what == 5)
            insertRandomJokes(1);
        else if (what == 6 && all.size() > 150)
            context().deleteObject(*all[below(all.size())]);
        else if (what == 7)
            context().save();
        else
            change(*all[below(all.size())], what);

        std::vector<Jokes*> live;
        for (const Jokes& joke : context().residentJokes())
            if (!joke.isDeleted())
                live.push_back(const_cast<Jokes*>(&joke));
        ASSERT_EQ(context().highestJokeId(), (*std::ranges::max_element(live, {}, &Jokes::id))->id());
        // A few of them, often the ones of the round before.
        for (std::size_t i = 0; i < 6; ++i) {
            const FetchRequest<Jokes> request = requests()[(i + round / 20) % 12];
            ASSERT_EQ(fetch(request), plainFetch(live, request)) << "round " << round;
            ASSERT_EQ(context().count(request), plainFetch(live, request).size()) << "round " << round;
        }
        using Context = ManagedObjectContext;
        expectCounts(live, "category == %@", &Jokes::category, &Context::categoriesOfJokes);
        expectCounts(live, "rating == %@", &Jokes::rating, &Context::ratingsOfJokes);
    }
}

TEST_F(FetchTest, PredicatesCompareExactly)
{
    Jokes& composed = insertJoke(context(), {.category = "Caf\xC3\xA9", .favorite = true});
    Jokes& decomposed = insertJoke(context(), {.category = "Cafe\xCC\x81", .id = 0});
    Jokes& empty = insertJoke(context(), {.category = "", .favorite = false});
    Jokes& unset = insertJoke(context(), {});
    Category& name = insertCategory(context(), "Puns");
    Category& sameName = insertCategory(context(), "Puns");
    insertCategory(context(), "puns");

    const auto jokes = [&](const Predicate<Jokes>& predicate) { return fetch({predicate, {}}); };
    EXPECT_THAT(jokes({"category == %@", "Caf\xC3\xA9"}), ElementsAre(&composed));
    EXPECT_THAT(jokes({"category = %@", "Cafe\xCC\x81"}), ElementsAre(&decomposed));
    EXPECT_THAT(jokes({"category == %@", ""}), ElementsAre(&empty));
    EXPECT_THAT(jokes({"joke == %@", ""}), IsEmpty());
    EXPECT_THAT(jokes({"favorite == %i", 1}), ElementsAre(&composed));
    EXPECT_THAT(jokes({"favorite == %i", 0}), ElementsAre(&decomposed, &empty, &unset));
    EXPECT_THAT(jokes({"id == %i", 0}), ElementsAre(&decomposed));
    EXPECT_THAT(jokes({"id == %i", 65536}), IsEmpty());
    EXPECT_THAT(context().fetch<Category>({Predicate<Category>("category == %@", "Puns"), {}}),
                ElementsAre(&name, &sameName));
}

} // namespace

} // namespace giggle
