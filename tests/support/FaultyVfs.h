// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

namespace giggle {

/// While it lives, every file that SQLite opens goes through it to the system, and chosen operations that
/// change a file fail: writing, truncating, syncing, deleting, and growing the shared memory. One at a time;
/// it must outlive the databases that were opened meanwhile.
class FaultyVfs {
public:
    enum class Failing {
        Once,        ///< an error that passes
        OnceButDone, ///< the same, but the operation has taken effect all the same
        FromThenOn,  ///< what is on the disk stays as it is, as if the program had ended there
    };

    FaultyVfs();
    ~FaultyVfs();

    FaultyVfs(const FaultyVfs&) = delete;
    FaultyVfs& operator=(const FaultyVfs&) = delete;

    /// Counts operations anew and lets the one with this number, from 1, fail.
    void failAt(int operation, Failing failing);

    /// From now on nothing fails.
    void disarm() { m_failAt = 0; }

    /// Whether an operation has failed since failAt().
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// Whether a write-ahead log has been written to since it was synced.
    [[nodiscard]] bool hasUnsyncedLog() const { return m_hasUnsyncedLog; }

private:
    struct File;
    template <auto Method>
    struct Passed;
    template <auto Method, int Error>
    struct Counted;

    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags);
    static int remove(sqlite3_vfs*, const char* name, int syncFolder);
    static File& asFile(sqlite3_file* file);
    static sqlite3_file* inner(sqlite3_file* file);
    static const sqlite3_io_methods* methods();
    [[nodiscard]] bool nextOperationFails();
    /// Counts an operation, lets it happen or not, and returns its result or @p error.
    template <class Operation>
    int perform(Operation operation, int error);

    static FaultyVfs* s_current;

    sqlite3_vfs* m_system;
    sqlite3_vfs m_vfs;
    int m_operations = 0;
    int m_failAt = 0;
    Failing m_failing = Failing::Once;
    bool m_hasFailed = false;
    bool m_hasUnsyncedLog = false;
};

} // namespace giggle
