// SPDX-License-Identifier: MIT
#include "app/DailyCopying.h"
#include "store/PreferenceKeys.h"
#include "tests/endurance/RandomUser.h"
#include "tests/support/HurriedAnimations.h"
#include "tests/support/LongRun.h"

#include <QDataStream>
#include <QDir>

#include <algorithm>
#include <array>
#include <csignal>
#include <set>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace giggle {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr int Pipe = 3; ///< where the user writes what has been promised
constexpr const char* FolderVariable = "GIGGLE_KILLED_FOLDER";
constexpr const char* SeedVariable = "GIGGLE_KILLED_SEED";

enum class Word : quint8 { Begun, WillChange, DidChange };

/// What lies in a collection and its preferences.
struct State {
    std::multiset<std::string> rows;
    double fontSize = 0;

    bool operator==(const State&) const = default;
};

QDataStream& operator<<(QDataStream& stream, const SavedRows& rows)
{
    stream << quint32(rows.size());
    for (const std::string& row : rows)
        stream << QByteArray::fromStdString(row);
    return stream;
}

QDataStream& operator>>(QDataStream& stream, SavedRows& rows)
{
    quint32 count = 0;
    stream >> count;
    rows.clear();
    for (QByteArray row; count > 0 && stream.status() == QDataStream::Ok; --count) {
        stream >> row;
        rows.push_back(row.toStdString());
    }
    return stream;
}

/// Saves at random until it is killed. Run by the test below in a process of its own.
class KilledUser : public RandomUser {
protected:
    KilledUser()
        : RandomUser(qEnvironmentVariable(FolderVariable), qEnvironmentVariableIntValue(SeedVariable))
    {
    }

    void say(Word word, const Change& change)
    {
        QByteArray told;
        QDataStream(&told, QIODevice::WriteOnly)
            << quint8(word) << change.removed << change.added << change.fontSize << change.comesRowByRow;
        if (::write(Pipe, told.constData(), size_t(told.size())) != told.size())
            ::_exit(1);
    }

    void willChange(const Change& change) override { say(Word::WillChange, change); }

    void didChange() override { say(Word::DidChange, {}); }
};

TEST_F(KilledUser, DISABLED_SavesUntilItIsKilled)
{
    const HurriedAnimations hurry;
    const DailyCopying copying(appDelegate(), {.quiet = 100ms, .interval = 300ms});
    openWindow();
    if (find(QAccessible::Dialog, u"Initial Setup Recomendations?"_qs))
        press(QAccessible::Button, u"Ok"_qs);
    if (!userDefaults().isPresent(PreferenceKeys::ListFontSize)) {
        userDefaults().setReal(PreferenceKeys::ListFontSize, 15);
        userDefaults().synchronize();
    }
    say(Word::Begun,
        {.added = savedRows(context()), .fontSize = userDefaults().real(PreferenceKeys::ListFontSize)});
    while (!HasFailure())
        saveSomething();
}

/// All that one user may have left behind.
class Promises {
public:
    explicit Promises(std::optional<State> before) : m_state(std::move(before)) {}

    void hear(QByteArray told)
    {
        QDataStream stream(told);
        for (;;) {
            quint8 word = 0;
            Change change;
            stream >> word >> change.removed >> change.added >> change.fontSize >> change.comesRowByRow;
            if (stream.status() != QDataStream::Ok)
                return; // the last words may be cut off
            hear(Word(word), change);
        }
    }

    [[nodiscard]] int acknowledged() const { return m_acknowledged; }

    [[nodiscard]] bool isInterrupted() const { return m_pending.has_value(); }

    [[nodiscard]] bool allow(const State& found) const
    {
        if (!m_state)
            return true; // killed while the starter collection was put in place
        if (found == *m_state)
            return true;
        if (!m_pending)
            return false;
        State state = *m_state;
        Change change = *m_pending;
        if (!change.comesRowByRow)
            return found == after(std::move(state), change);
        for (const std::string& row : change.added) {
            state.rows.insert(row);
            if (found == state)
                return true;
        }
        return false;
    }

private:
    void hear(Word word, const Change& change)
    {
        if (word == Word::Begun) {
            const State begun{{change.added.begin(), change.added.end()}, change.fontSize};
            EXPECT_TRUE(!m_state || *m_state == begun) << "the screens show other things than are stored";
            m_state = begun;
        } else if (word == Word::WillChange) {
            m_pending = change;
        } else {
            m_state = after(std::move(*m_state), *m_pending);
            m_pending.reset();
            ++m_acknowledged;
        }
    }

    static State after(State state, const Change& change)
    {
        for (const std::string& row : change.removed)
            if (const auto found = state.rows.find(row); found != state.rows.end())
                state.rows.erase(found);
            else
                ADD_FAILURE() << "not there before: " << row;
        state.rows.insert(change.added.begin(), change.added.end());
        if (change.fontSize > 0)
            state.fontSize = change.fontSize;
        return state;
    }

    std::optional<State> m_state;
    std::optional<Change> m_pending;
    int m_acknowledged = 0;
};

[[noreturn]] void becomeUser(const QString& folder, int seed, int pipe)
{
    const QByteArray output = QFile::encodeName(folder) + "/output.txt";
    const int file = ::open(output.constData(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    ::dup2(pipe, Pipe);
    qputenv(FolderVariable, folder.toUtf8());
    qputenv(SeedVariable, QByteArray::number(seed));
    ::execl("/proc/self/exe", "long_use_tests", "--gtest_also_run_disabled_tests",
            "--gtest_filter=KilledUser.DISABLED_SavesUntilItIsKilled", nullptr);
    ::_exit(1);
}

/// What a user tells until it is killed, a while after its start or, if it gets that far, its first words.
QByteArray toldUntilKilled(const QString& folder, int seed, std::chrono::milliseconds lifetime,
                           bool fromFirstWords)
{
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0)
        throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0)
        becomeUser(folder, seed, ends[1]);
    ::close(ends[1]);
    QByteArray told;
    std::array<char, 65536> buffer{};
    const auto read = [&] {
        const ssize_t count = ::read(ends[0], buffer.data(), buffer.size());
        told.append(buffer.data(), std::max<ssize_t>(count, 0));
        return count > 0;
    };
    pollfd waited{.fd = ends[0], .events = POLLIN, .revents = 0};
    if (fromFirstWords && ::poll(&waited, 1, 30'000) == 1)
        read();
    QDeadlineTimer end(lifetime);
    while (!end.hasExpired() && ::poll(&waited, 1, int(end.remainingTime())) == 1)
        if (!read())
            break;
    ::kill(child, SIGKILL);
    while (read())
        ;
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        << "the user ended by itself: " << readBytes(folder + u"/output.txt"_qs).right(3000).toStdString();
    return told;
}

/// What a fresh start finds; all of it must be whole.
State freshStart(const CollectionFolder& folder)
{
    State state;
    {
        const PersistentContainer container = folder.open();
        const SavedRows rows = savedRows(container.viewContext());
        state.rows.insert(rows.begin(), rows.end());
    }
    Preferences preferences(folder.filePath(u"preferences.json"_qs));
    if (preferences.isPresent(PreferenceKeys::ListFontSize))
        state.fontSize = preferences.real(PreferenceKeys::ListFontSize);
    EXPECT_FALSE(QFile::exists(folder.filePath(u"preferences.json.damaged"_qs)));
    QStringList files{folder.file()};
    const QDir copies(folder.filePath(u"copies"_qs));
    for (const QString& copy : copies.entryList({u"*.sqlite"_qs}, QDir::Files))
        files << copies.filePath(copy);
    for (const QString& file : files)
        EXPECT_EQ(RawDatabase(file).rows("PRAGMA integrity_check"), std::vector<std::string>{"ok"})
            << file.toStdString();
    return state;
}

TEST(KilledUserTest, WhatTheScreensHaveAcknowledgedIsFoundByTheNextStart)
{
    const int kills = isLongRun() ? 500 : 15;
    constexpr int KillsOfOneCollection = 8;
    std::mt19937 random(isLongRun() ? 500 : 15);
    std::unique_ptr<CollectionFolder> folder;
    std::optional<State> state;
    int acknowledged = 0;
    int survived = 0;
    int interrupted = 0;
    int copies = 0;
    for (int kill = 0; kill < kills; ++kill) {
        SCOPED_TRACE(kill);
        if (kill % KillsOfOneCollection == 0) {
            folder = std::make_unique<CollectionFolder>();
            state.reset();
        }
        const bool atStart = kill % 5 == 0;
        const std::chrono::milliseconds lifetime(
            std::uniform_int_distribution(0, atStart ? 900 : 2500)(random));
        Promises promises(state);
        promises.hear(toldUntilKilled(folder->path(), kill, lifetime, !atStart));
        const State found = freshStart(*folder);
        EXPECT_TRUE(promises.allow(found)) << "neither what was acknowledged nor what was tried since";
        acknowledged += promises.acknowledged();
        interrupted += promises.isInterrupted();
        copies += !QDir(folder->filePath(u"copies"_qs)).isEmpty();
        survived += !testing::Test::HasFailure();
        if (testing::Test::HasFailure())
            break;
        state = found;
        // Without its flag the next launch fills the collection again.
        if (!Preferences(folder->filePath(u"preferences.json"_qs))
                 .boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag))
            state.reset();
    }
    std::printf("%d deeds acknowledged, %d interrupted; copies found after %d kills\n", acknowledged,
                interrupted, copies);
    reportCount("users killed", kills, survived);
    EXPECT_GT(acknowledged, kills / 2) << "hardly anything was saved";
}

} // namespace

} // namespace giggle
