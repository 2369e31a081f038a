// SPDX-License-Identifier: MIT
#pragma once

#include "store/FileIdentity.h"
#include "store/sqlite/Database.h"

#include <QString>

#include <memory>
#include <optional>

namespace giggle {

/// A collection's open file: one connection in write-ahead mode, every commit forced to the disk.
class PersistentStore {
public:
    /// Opens the collection at @p path, makes an empty one where there is none (with its folder), and brings
    /// an older one to the current version. Throws StoreError for a file that is not a collection, that a
    /// newer version wrote or that is damaged; such a file is not changed in a single byte. A collection that
    /// cannot be written, or whose disk is full, opens for reading.
    explicit PersistentStore(const QString& path);
    ~PersistentStore();

    PersistentStore(const PersistentStore&) = delete;
    PersistentStore& operator=(const PersistentStore&) = delete;

    [[nodiscard]] sqlite::Database& database() { return *m_database; }

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Whether another connection has written since the store was opened or accepted its contents last, or
    /// whether a failed write of our own leaves that open. Exact only inside a transaction.
    [[nodiscard]] bool mayHaveBeenChangedElsewhere();

    /// @name Called before the transaction of a save and after its commit. Both throw StoreError
    /// The first when the file or its log was removed, renamed or replaced since it was opened: what is
    /// written now would be gone with the program. The second when it is not certain that the save stays on
    /// the disk.
    /// @{
    void willSave();
    void didSave();
    /// @}

    /// The contents were found to be what they should be: changes until now no longer count.
    void acceptContents();

    /// @name Durability of commits
    /// Relaxed, a crash of the machine may take the last commits back, but never out of order and never half
    /// of one. Strict again, everything that was committed is on the disk.
    /// @{
    void relaxDurability();
    void restoreDurability();
    /// @}

private:
    void create();
    void makeTables();
    void openChecked();
    [[nodiscard]] std::unique_ptr<sqlite::Database> openReadable();
    [[nodiscard]] std::int64_t dataVersion();
    [[nodiscard]] bool usesWriteAheadLog();
    void rememberLog();
    void requireFileInPlace();
    /// Forces to the disk which files there are.
    void synchronizeEntries();
    /// A file that stands beside the collection while commits are relaxed: after a power cut the log may then
    /// lack parts anywhere, and is read as far as it goes.
    [[nodiscard]] QString bulkMark() const;
    [[nodiscard]] bool isBulkUnfinished() const;

    QString m_path;
    std::unique_ptr<sqlite::Database> m_database;
    std::optional<sqlite::Statement> m_dataVersionQuery;
    std::optional<sqlite::Statement> m_journalModeQuery;
    std::int64_t m_acceptedDataVersion = 0;
    bool m_isRelaxed = false;
    bool m_logEntryIsCertain = false; ///< The folder was synced after this connection's log was made.
    std::optional<FileIdentity> m_logIdentity; ///< of the log that this connection writes to, once it is made
};

} // namespace giggle
