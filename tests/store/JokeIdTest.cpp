// SPDX-License-Identifier: MIT
#include "store/NextJokeId.h"
#include "tests/support/CollectionFolder.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

using Ids = std::vector<std::optional<std::int16_t>>;

TEST(NextJokeIdTest, FollowsTheHighestId)
{
    const std::vector<std::pair<Ids, int>> cases = {
        {{}, 1},          {{1, 2, 7}, 8},   {{std::nullopt}, 1}, {{-5, std::nullopt}, -4},
        {{0, -32768}, 1}, {{32766}, 32767},
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

} // namespace

} // namespace giggle
