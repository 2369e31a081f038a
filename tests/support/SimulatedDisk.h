// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <random>
#include <vector>

namespace giggle {

/// While it lives, it stands between this program and the system's calls on the files of one folder: the
/// executable that links it replaces those calls for SQLite and Qt as well. It makes chosen calls fail, and
/// knows what a power cut would leave of the folder: nothing is certain to be on the disk but what was
/// synced, files' contents and folders' entries alike. Memory that is shared through "-shm" files counts as
/// lost. One at a time; single thread.
class SimulatedDisk {
public:
    enum class Fault {
        Error,        ///< the call fails and has done nothing
        ErrorButDone, ///< the call fails although it has been carried out
        NoSpace,      ///< nothing grows any more: a write that would comes out short, and the next one fails
        Interrupted,  ///< a signal comes in between: nothing was done, and the call may be repeated
        Short,        ///< a write ends half way, and may be continued
    };

    enum class Lasting { Once, FromThenOn };

    enum class Unsynced { Lost, Kept, Random };

    /// Files and their bytes, by name.
    using Image = std::map<QString, QByteArray>;

    /// The folder is still empty.
    explicit SimulatedDisk(const QString& folder);

    ~SimulatedDisk() { s_current = nullptr; }

    SimulatedDisk(const SimulatedDisk&) = delete;
    SimulatedDisk& operator=(const SimulatedDisk&) = delete;

    /// Counts calls anew and lets the one with this number, from 1, fail. Calls that read count only
    /// @p withReads.
    void failAt(int call, Fault fault, Lasting lasting, bool withReads = false);

    /// From now on nothing fails.
    void repair() { m_failAt = 0; }

    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// Calls since failAt() or the start.
    [[nodiscard]] int calls() const { return m_calls; }

    /// Called before every call that changes the folder or syncs. It must not touch the folder.
    void setObserver(std::function<void()> observer) { m_observer = std::move(observer); }

    /// What a power cut at this moment leaves; at random, sector by sector and entry by entry.
    [[nodiscard]] Image afterPowerCut(Unsynced unsynced, std::mt19937& random) const;

    struct Calls; ///< the replaced calls of the system

private:
    using Names = std::map<QString, int>; ///< to files, which are numbered
    static constexpr int Folder = 0;      ///< in place of a file

    /// Of a file's bytes, or of the folder's entries.
    struct Change {
        int file = Folder;
        qsizetype offset = -1; ///< of bytes, or the end when there are none
        QByteArray bytes = {};
        QString removed = {};
        QString made = {};
        bool isSynced = false;

        [[nodiscard]] bool isOfEntries() const { return offset < 0; }

        void applyTo(Names& names, std::map<int, QByteArray>& contents) const;
    };

    enum class Kind { Read, Write, Other };

    /// What is to become of a call.
    enum class Outcome { Normal, Fails, FailsAfterwards, ComesOutShort };

    [[nodiscard]] Outcome nextCall(Kind kind, bool grows);
    [[nodiscard]] QString nameOf(const char* path) const;
    void change(Change change);

    inline static SimulatedDisk* s_current = nullptr;

    QString m_folder;
    std::vector<Change> m_changes; ///< all of them, from the empty folder on
    Names m_names;
    std::map<int, int> m_files; ///< by descriptor
    int m_lastFile = Folder;
    std::function<void()> m_observer;

    int m_calls = 0;
    int m_failAt = 0;
    Fault m_fault = Fault::Error;
    Lasting m_lasting = Lasting::Once;
    bool m_countsReads = false;
    bool m_hasFailed = false;
    bool m_nextWriteFails = false;
};

} // namespace giggle
