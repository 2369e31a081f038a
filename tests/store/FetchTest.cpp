// SPDX-License-Identifier: MIT
#include "store/TextSearch.h"
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
    OptionalText randomText(std::size_t atMost = 4)
    {
        static const std::vector<std::string> pieces = {"a", "A", "b",      "aaaaaaa", "aaaaaaaaaaaaaa",
                                                        " ", "k", "é",      "É",       "\u212A",
                                                        "İ", "😀", "\uFFFF", {'\0'}};
        m_text.clear();
        for (std::size_t i = below(atMost + 1); i > 0; --i)
            m_text += pieces[below(below(3) == 0 ? pieces.size() : 6)];
        return below(8) == 0 ? std::nullopt : OptionalText(m_text);
    }

    void change(Jokes& joke, std::size_t what)
    {
        static constexpr std::array<std::int16_t, 8> ids = {-32768, -257, -1, 0, 1, 255, 256, 32767};
        const bool isUnset = below(6) == 0;
        switch (what) {
        case 0:
            return joke.setCategory(randomText());
        case 1:
            return joke.setRating(randomText());
        case 2:
            return joke.setId(isUnset ? std::nullopt : std::optional(ids[below(ids.size())]));
        case 3:
            return joke.setFavorite(isUnset ? std::nullopt : std::optional(below(2) == 0));
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

    void deleteOneOf(const std::vector<Jokes*>& jokes)
    {
        m_deleted.push_back(jokes[below(jokes.size())]);
        context().deleteObject(*m_deleted.back());
    }

    void restoreOne()
    {
        if (!m_deleted.empty())
            context().restore(*m_deleted[below(m_deleted.size())]);
    }

    std::mt19937 m_random{20261121};
    std::string m_text;
    std::vector<Jokes*> m_deleted; ///< some of them are restored
    CollectionFolder m_folder;
    PersistentContainer m_container = m_folder.open();
};

std::strong_ordering compare(const Jokes& a, const Jokes& b, Attribute key)
{
    return key == Attribute::id ? a.id() <=> b.id() : a.text(key) <=> b.text(key);
}

/// What a fetch is expected to return, in the plainest way.
std::vector<Jokes*> plainFetch(std::vector<Jokes*> jokes, const FetchRequest<Jokes>& request)
{
    if (request.predicate)
        std::erase_if(jokes, [&](const Jokes* joke) { return !request.predicate->matches(*joke); });
    std::ranges::stable_sort(jokes, [&](const Jokes* a, const Jokes* b) {
        for (const auto& [key, order] : request.sortDescriptors)
            if (const auto result = compare(*a, *b, key.attribute()); result != 0)
                return (result < 0) == (order == SortOrder::Ascending);
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
        const std::vector<Jokes*> all = context().fetch<Jokes>({});
        const std::size_t what = below(10);
        if (round % 100 == 50) {
            context().save();
            closeContainer(m_container);
            m_container = m_folder.open();
            m_deleted.clear();
            EXPECT_TRUE(std::ranges::is_sorted(context().fetch<Jokes>({}), {}, &Jokes::oid));
        } else if (round % 10 == 9) // about as many as results are kept up with one by one
            for (std::size_t i = 0; i < 60 + round / 10 % 10; ++i)
                change(*all[i], 4);
        else if (what == 5)
            insertRandomJokes(1);
        else if (what == 6 && all.size() > 150)
            deleteOneOf(all);
        else if (what == 7)
            context().save();
        else if (what == 8)
            restoreOne();
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
            ASSERT_EQ(context().fetch(request), plainFetch(live, request)) << "round " << round;
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
    const auto jokes = [&](const Predicate<Jokes>& predicate) {
        return context().fetch<Jokes>({predicate, {}});
    };
    EXPECT_THAT(jokes({"category == %@", "Caf\xC3\xA9"}), ElementsAre(&composed));
    EXPECT_THAT(jokes({"category = %@", "Cafe\xCC\x81"}), ElementsAre(&decomposed));
    EXPECT_THAT(jokes({"category == %@", ""}), ElementsAre(&empty));
    EXPECT_THAT(jokes({"joke == %@", ""}), IsEmpty());
    EXPECT_THAT(jokes({"favorite == %i", 0}), ElementsAre(&decomposed, &empty, &unset));
    EXPECT_THAT(jokes({"id == %i", 0}), ElementsAre(&decomposed));
    EXPECT_THAT(jokes({"id == %i", 65536}), IsEmpty());
}

bool plainlyContains(const OptionalText& text, const QString& needle)
{
    return text && QString::fromUtf8(*text).toLower().contains(needle.toLower());
}

/// A part of the jokes is prepared, the rest is not; some change afterwards, some are deleted.
TEST_F(FetchTest, SearchFindsWhatAPlainOneWould)
{
    insertRandomJokes(300);
    const std::vector<Jokes*> list = context().fetch<Jokes>({{}, {{"joke", SortOrder::Descending}}});
    for (Jokes* joke : list)
        joke->setJoke(randomText(90));
    EXPECT_EQ(TextSearch::prepare(context(), 0, 100), 100U);
    EXPECT_EQ(TextSearch::prepare(context(), 250, 1000), std::nullopt);
    for (int round = 0; round < 200; ++round) {
        list[below(list.size())]->setJoke(randomText(90));
        if (round % 20 == 0)
            deleteOneOf(list);
        if (round % 20 == 10)
            restoreOne();
        const QString needle = u'a' + QString::fromUtf8(randomText(6).value_or(""));
        const std::vector<Jokes*> some(list.begin(), list.begin() + (round % 2 ? 20 : 300));
        for (const Attribute attribute : {Attribute::joke, Attribute::category, Attribute::rating}) {
            std::vector<Jokes*> expected;
            std::ranges::copy_if(some, std::back_inserter(expected), [&](const Jokes* joke) {
                return plainlyContains(joke->text(attribute), needle);
            });
            ASSERT_EQ(TextSearch(needle).filter(some, attribute), expected) << needle.toStdString();
        }
    }
}

} // namespace

} // namespace giggle
