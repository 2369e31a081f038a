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

    /// Refuses the request with this number, from 1, and all that follow when it is @p lasting.
    static void runOutAt(int request, bool lasting)
    {
        s_requests = 0;
        s_refused = request;
        s_isLasting = lasting;
    }

    static void end() { s_refused = 0; }

    [[nodiscard]] static int requests() { return s_requests; }

private:
    static bool isRefused()
    {
        ++s_requests;
        return s_refused > 0 && (s_isLasting ? s_requests >= s_refused : s_requests == s_refused);
    }

    static inline sqlite3_mem_methods s_system{};
    static inline int s_requests = 0;
    static inline int s_refused = 0;
    static inline bool s_isLasting = false;
};

/// Opens, shows and changes the collection while memory runs out. False when it did not come that far.
bool useWithScarceMemory(const SimulatedDisk::Image& image, const Rows& rows, int request, bool lasting)
{
    CollectionFolder folder;
    for (const auto& [name, bytes] : image)
        writeBytes(folder.filePath(name), bytes);
    Expectation expected{{rows}, {0}};
    ScarceMemory::runOutAt(request, lasting);
    try {
        const PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        EXPECT_EQ(rowsOf(context), rows);
        context.fetch(Jokes::fetchRequest()).front()->setJoke(std::string(3000, 'n'));
        insertJoke(context, {.category = "Puns", .id = 77});
        if (!saves(context)) {
            EXPECT_TRUE(context.hasChanges());
            ScarceMemory::end();
            context.save();
        }
        expected.collections = {rowsOf(context)};
    } catch (const StoreError&) {
        EXPECT_GE(ScarceMemory::requests(), request);
    }
    const bool cameThatFar = ScarceMemory::requests() >= request;
    ScarceMemory::end();
    expectFreshStart(folder, expected);
    return cameThatFar;
}

SimulatedDisk::Image makeCollection(Rows& rows)
{
    const CollectionFolder folder;
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    for (int i = 0; i < 30; ++i)
        insertJoke(context, {.category = "Puns", .id = std::int16_t(i), .joke = "text"});
    insertJoke(context, {.joke = std::string(9000, 'x')});
    context.save();
    rows = rowsOf(context);
    closeContainer(container);
    return folder.contents();
}

TEST(LowMemoryTest, RefusedRequestIsAFailedCallAndNothingElse)
{
    const ScarceMemory memory;
    Rows rows;
    const SimulatedDisk::Image image = makeCollection(rows);
    int tried = 0;
    for (const bool lasting : {false, true})
        for (int request = 1;; request += isLongRun() ? 1 : 7) {
            SCOPED_TRACE("request " + std::to_string(request) + (lasting ? " and all others" : ""));
            if (!useWithScarceMemory(image, rows, request, lasting))
                break;
            ++tried;
            ASSERT_FALSE(HasFailure());
        }
    reportCount("refused requests for memory", tried);
}

} // namespace

} // namespace giggle
