// SPDX-License-Identifier: MIT
#include "tests/endurance/Session.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace giggle {

namespace {

/// While it lives, memory that SQLite asks for can run out. Nothing may be open when it begins or ends.
class ScarceMemory {
public:
    ScarceMemory()
    {
        sqlite3_shutdown();
        sqlite3_config(SQLITE_CONFIG_GETMALLOC, &s_system);
        sqlite3_mem_methods scarce = s_system;
        scarce.xMalloc = [](int size) { return isRefused() ? nullptr : s_system.xMalloc(size); };
        scarce.xRealloc = [](void* memory, int size) {
            return isRefused() ? nullptr : s_system.xRealloc(memory, size);
        };
        sqlite3_config(SQLITE_CONFIG_MALLOC, &scarce);
    }

    ~ScarceMemory()
    {
        sqlite3_shutdown();
        sqlite3_config(SQLITE_CONFIG_MALLOC, &s_system);
    }

    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    static inline int requests = 0;       ///< so far
    static inline int refused = 0;        ///< the number of the request that is refused, from 1
    static inline bool isLasting = false; ///< all that follow are refused, too

private:
    static bool isRefused()
    {
        ++requests;
        return refused > 0 && (isLasting ? requests >= refused : requests == refused);
    }

    static inline sqlite3_mem_methods s_system{};
};

/// Opens, shows and changes the collection while memory runs out. False when it did not come that far.
bool useWithScarceMemory(const QByteArray& file, const Rows& rows, int request)
{
    CollectionFolder folder;
    writeBytes(folder.file(), file);
    Expectation expected{{rows}, {0}};
    ScarceMemory::requests = 0;
    ScarceMemory::refused = request;
    try {
        const PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        EXPECT_EQ(rowsOf(context), rows);
        context.fetch(Jokes::fetchRequest()).front()->setJoke(std::string(3000, 'n'));
        insertJoke(context, {.category = "Puns", .id = 77});
        if (!saves(context)) {
            EXPECT_TRUE(context.hasChanges());
            ScarceMemory::refused = 0;
            context.save();
        }
        expected.collections = {rowsOf(context)};
    } catch (const StoreError&) {
        EXPECT_GE(ScarceMemory::requests, request);
    }
    const bool cameThatFar = ScarceMemory::requests >= request;
    ScarceMemory::refused = 0;
    expectFreshStart(folder, expected);
    return cameThatFar;
}

TEST(LowMemoryTest, RefusedRequestIsAFailedCallAndNothingElse)
{
    const ScarceMemory memory;
    const CollectionFolder folder;
    PersistentContainer container = folder.open();
    for (int i = 0; i < 30; ++i)
        insertJoke(container.viewContext(), {.category = "Puns", .id = std::int16_t(i), .joke = "text"});
    insertJoke(container.viewContext(), {.joke = std::string(9000, 'x')});
    container.viewContext().save();
    const Rows rows = rowsOf(container.viewContext());
    closeContainer(container);
    const QByteArray file = readBytes(folder.file());
    int tried = 0;
    for (const bool lasting : {false, true}) {
        ScarceMemory::isLasting = lasting;
        for (int request = 1; useWithScarceMemory(file, rows, request); request += isLongRun() ? 1 : 7) {
            ++tried;
            ASSERT_FALSE(HasFailure()) << "request " << request << (lasting ? " and all others" : "");
        }
    }
    reportCount("refused requests for memory", tried);
}

} // namespace

} // namespace giggle
