// SPDX-License-Identifier: MIT
#include "store/NextJokeId.h"
#include "tests/support/CollectionFolder.h"

#include <random>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using testing::ElementsAre;

using Ids = std::vector<std::optional<std::int16_t>>;

TEST(NextJokeIdTest, FollowsTheHighestId)
{
    const std::vector<std::pair<Ids, int>> cases = {
        {{}, 1},
        {{1, 2, 7}, 8},
        {{7, 2, 1, 7}, 8},
        {{std::nullopt}, 1},
        {{-5}, -4},
        {{-5, std::nullopt}, -4},
        {{-1}, 0},
        {{0, -32768}, 1},
        {{-32768}, -32767},
        {{32766}, 32767},
    };
    for (const auto& [ids, next] : cases) {
        CollectionFolder folder;
        PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        for (const auto& id : ids)
            insertJoke(context, {.id = id});
        EXPECT_EQ(nextJokeID(context, {}), next) << testing::PrintToString(ids);
    }
}

TEST(NextJokeIdTest, OverflowEndsTheProgram)
{
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    insertJoke(container.viewContext(), {.id = 32767});
    EXPECT_DEATH(static_cast<void>(nextJokeID(container.viewContext(), {})),
                 "Fatal error: Arithmetic overflow: the highest joke id is 32767");
}

TEST(NextJokeIdTest, CollectionThatCannotBeReadLeavesTheHeldJokes)
{
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    CollectionFolder otherFolder;
    PersistentContainer other = otherFolder.open();
    Jokes& held = insertJoke(other.viewContext(), {.id = 41});
    Jokes& heldWithoutId = insertJoke(other.viewContext(), {});
    RawDatabase(folder.file()).execute("DROP TABLE jokes");

    testing::internal::CaptureStderr();
    EXPECT_EQ(nextJokeID(container.viewContext(), {&held, &heldWithoutId}), 42);
    EXPECT_EQ(nextJokeID(container.viewContext(), {}), 1);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("no such table: jokes"));
}

/// The index against a look at every joke, while ids come, go and move.
TEST(JokeIdIndexTest, AgreesWithALookAtEveryJoke)
{
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    std::mt19937 random(7);
    const auto below = [&](int limit) { return std::uniform_int_distribution(0, limit - 1)(random); };
    const Ids ids = {-32768, -32767, -1, 0, 1, 63, 64, 32767, std::nullopt};
    for (int round = 0; round < 600; ++round) {
        ManagedObjectContext& context = container.viewContext();
        const std::vector<Jokes*> jokes = context.fetch(Jokes::fetchRequest());
        const auto& id = ids[static_cast<std::size_t>(below(static_cast<int>(ids.size())))];
        Jokes* joke = jokes.empty() ? nullptr : jokes[static_cast<std::size_t>(below(int(jokes.size())))];
        if (const int what = below(5); !joke || (what == 0 && jokes.size() < 40))
            insertJoke(context, {.id = id});
        else if (what == 1)
            context.deleteObject(*joke);
        else
            joke->setId(id);
        if (round % 100 == 99) {
            context.save();
            closeContainer(container);
            container = folder.open();
        }

        std::optional<std::int16_t> highest;
        const std::vector<Jokes*> all = container.viewContext().fetch(Jokes::fetchRequest());
        for (const auto& wanted : ids) {
            if (!wanted)
                continue;
            std::vector<Jokes*> withId;
            std::ranges::copy_if(all, std::back_inserter(withId),
                                 [&](const Jokes* each) { return each->id() == wanted; });
            ASSERT_EQ(container.viewContext().fetch<Jokes>({Predicate<Jokes>("id == %i", *wanted), {}}),
                      withId);
            if (!withId.empty())
                highest = std::max(highest, wanted);
        }
        ASSERT_EQ(container.viewContext().highestJokeId(), highest) << "round " << round;
    }
}

} // namespace

} // namespace giggle
