// SPDX-License-Identifier: MIT
#include "tests/endurance/RandomUser.h"
#include "tests/support/HurriedAnimations.h"
#include "tests/support/LongRun.h"

#include <QElapsedTimer>
#include <QQmlEngine>
#include <QTest>

#include <climits>
#include <fstream>

#include <malloc.h>
#include <unistd.h>

namespace giggle {

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool HasSanitizer = true; // which keeps memory that was freed
#else
constexpr bool HasSanitizer = false;
#endif

/// In kilobytes, without what the allocator holds back.
int residentKilobytes()
{
    ::malloc_trim(0);
    long total = 0; // with a sanitizer more pages than an int holds
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return int(resident * (::sysconf(_SC_PAGESIZE) / 1024));
}

class LongUseTest : public RandomUser {
protected:
    LongUseTest() : RandomUser({}, 20261121) {}

    void use(int deeds)
    {
        for (int i = 0; i < deeds && !HasFailure(); ++i)
            below(2) ? saveSomething() : readSomething();
    }

    /// In the window's first size, on which its pictures depend.
    int memory()
    {
        window().resize(360, 640);
        QTest::qWait(500);
        qmlEngine(&window())->collectGarbage();
        QTest::qWait(100);
        return residentKilobytes();
    }
};

/// A deed takes a user, who has to read, think and type, about three seconds.
TEST_F(LongUseTest, EveryDeedSavesWhatItSaysAndMemoryStaysFlat)
{
    const HurriedAnimations hurry;
    const int deeds = isLongRun() ? 1200 : 120;
    constexpr int LargestGrowth = 6 * 1024;
    begin();
    QElapsedTimer watch;
    watch.start();
    use(deeds / 2);
    const int before = memory();
    use(deeds / 2);
    const int after = memory();
    EXPECT_EQ(possible(), QList<SavedRows>{savedRows(context(), userDefaults())});
    std::printf("%d deeds in %d s; resident %d kB in the middle, %d kB at the end\n", deeds,
                int(watch.elapsed() / 1000), before, after);
    RecordProperty("resident kilobytes in the middle", before);
    RecordProperty("resident kilobytes at the end", after);
    EXPECT_LT(after - before, HasSanitizer ? INT_MAX : LargestGrowth);
}

} // namespace

} // namespace giggle
