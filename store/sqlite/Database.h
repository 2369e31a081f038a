// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"
#include "store/StoreError.h"

#include <QString>

#include <cstdint>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace giggle::sqlite {

class Statement;

/// One connection to a database file. Failures are thrown as StoreError with SQLite's extended code.
class Database {
public:
    enum class Mode {
        Shared,    ///< normal locking: other programs may read meanwhile
        Existing,  ///< the same, but a file that is missing is not made
        Exclusive, ///< nobody else may read, and no shared-memory file is needed
        Immutable, ///< read only, for a file that nobody can write; an unfinished write-ahead log is not read
    };

    Database(const QString& path, Mode mode);
    ~Database();

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Runs statements whose rows, if any, do not matter.
    void execute(const char* sql);

    /// The first column of the first row as a number, 0 without a row.
    std::int64_t integer(const char* sql);

    [[nodiscard]] bool isReadOnly() const;

    /// Whether a transaction is open.
    [[nodiscard]] bool isInTransaction() const;

    /// Whether the file that is open still stands under its name, or may do so.
    [[nodiscard]] bool isStillInPlace();

    /// While set, closing leaves the write-ahead log as it is instead of moving it into the file and removing
    /// it: what a database that may yet be refused needs.
    void keepWriteAheadLog(bool keep);

    /// Moves what the write-ahead log holds into the file and makes it empty; false when another program
    /// still reads it.
    [[nodiscard]] bool emptyWriteAheadLog();

    /// Forces what the write-ahead log holds to the disk.
    void syncWriteAheadLog();

    /// The error of the last call that failed.
    [[nodiscard]] StoreError lastError(const QString& whatFailed) const;

    [[nodiscard]] sqlite3* handle() const { return m_handle.get(); }

private:
    friend class Transaction;

    struct Closer {
        void operator()(sqlite3* handle) const;
    };

    /// Runs a statement that is prepared at the first call.
    void run(std::unique_ptr<Statement>& statement, std::string_view sql);

    QString m_path;
    std::unique_ptr<sqlite3, Closer> m_handle;
    std::unique_ptr<Statement> m_begin;
    std::unique_ptr<Statement> m_commit;
};

/// A prepared statement. It must not outlive its database.
class Statement {
public:
    Statement(Database& database, std::string_view sql);

    /// Steps to the next row; false when there is none, and the statement is then reset.
    bool step();

    /// Steps a statement that yields no row, and resets it also when it fails.
    void run();

    void reset() noexcept;

    /// @name Parameters are numbered from 1. A bound text must live until the statement is reset.
    /// @{
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, OptionalText value);
    void bindNull(int parameter);
    /// @}

    /// @name Columns are numbered from 0. A text lasts until the next step.
    /// @{
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] OptionalText text(int column) const;
    [[nodiscard]] bool isNull(int column) const;
    /// @}

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const;
    };

    Database& m_database;
    std::unique_ptr<sqlite3_stmt, Finalizer> m_statement;
};

/// A write transaction: rolled back, silently, unless it is committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& m_database;
};

} // namespace giggle::sqlite
