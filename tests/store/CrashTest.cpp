// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <array>
#include <csignal>
#include <random>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace giggle {

namespace {

constexpr int JokesPerSave = 3;

/// In a child process, until it is killed: save n sets the category of the first joke to n and adds jokes of
/// that name. The number of each save that has returned goes into the pipe.
[[noreturn]] void saveForEver(const CollectionFolder& folder, int pipe, bool inBulk)
{
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    std::optional<BulkSaving> bulk;
    if (inBulk)
        bulk.emplace(context);
    std::vector<Jokes*> jokes = context.fetch(Jokes::fetchRequest());
    Jokes& ledger = jokes.empty() ? insertJoke(context, {.category = "0"}) : *jokes.front();
    for (int number = std::stoi(std::string(*ledger.category())) + 1;; ++number) {
        const std::string name = std::to_string(number);
        ledger.setCategory(name);
        for (int i = 0; i < JokesPerSave; ++i)
            insertJoke(context, {.rating = name, .joke = std::string(2000, 'x')});
        context.save();
        if (::write(pipe, &number, sizeof number) != sizeof number)
            ::_exit(1);
    }
}

/// Lets a child save and kills it after a time; the last save that it has reported, or 0.
int lastReportedSave(const CollectionFolder& folder, useconds_t lifetime, bool inBulk)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        saveForEver(folder, ends[1], inBulk);
    }
    ::close(ends[1]);
    ::usleep(lifetime);
    ::kill(child, SIGKILL);
    int last = 0;
    for (int number = 0; ::read(ends[0], &number, sizeof number) == sizeof number;)
        last = number;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the child ended by itself";
    return last;
}

/// The number of saves that the collection holds; every one of them must be whole.
int savesIn(const CollectionFolder& folder)
{
    PersistentContainer container = folder.open();
    const std::vector<Jokes*> jokes = container.viewContext().fetch(Jokes::fetchRequest());
    if (jokes.empty())
        return 0;
    const int saves = std::stoi(std::string(*jokes.front()->category()));
    EXPECT_EQ(jokes.size(), 1U + static_cast<std::size_t>(JokesPerSave * saves));
    for (std::size_t i = 1; i < jokes.size(); ++i)
        EXPECT_EQ(jokes[i]->rating(), std::to_string((i - 1) / JokesPerSave + 1));
    return saves;
}

TEST(CrashTest, EverySaveThatWasReportedIsWholeAndNoneIsHalf)
{
    std::mt19937 random(20261121);
    for (const bool inBulk : {false, true}) {
        int saves = 0;
        CollectionFolder growing;
        for (int kill = 0; kill < 35; ++kill) {
            SCOPED_TRACE(kill);
            // Some are killed while they make a new collection.
            CollectionFolder fresh;
            const bool isFresh = kill % 5 == 0;
            const CollectionFolder& folder = isFresh ? fresh : growing;
            const int before = isFresh ? 0 : saves;
            const auto lifetime =
                std::uniform_int_distribution<useconds_t>(0, isFresh ? 8000 : 40'000)(random);
            const int reported = std::max(before, lastReportedSave(folder, lifetime, inBulk));
            const int found = savesIn(folder);
            ASSERT_TRUE(found == reported || found == reported + 1) << found << " of " << reported;
            if (!isFresh)
                saves = found;
        }
        EXPECT_GT(saves, 5) << "hardly a save was tried";
    }
}

} // namespace

} // namespace giggle
