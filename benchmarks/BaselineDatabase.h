// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace giggle {

/// A joke as a program would hold it that uses nothing but the database.
struct RawJoke {
    std::int64_t oid;
    std::string category;
    std::int64_t favorite;
    std::int64_t id;
    std::string joke;
    std::string rating;
};

/// The baseline: SQLite's own interface with as little around it as possible. Failures are thrown as
/// std::runtime_error.
class BaselineDatabase {
public:
    enum class Sync { Normal, Full };

    /// Opens a file in write-ahead mode; it is made when there is none.
    BaselineDatabase(const QString& file, Sync sync);

    void execute(const char* sql);

    /// Reads every column of every row of the three tables, and keeps none. Returns how many bytes it saw.
    [[nodiscard]] std::size_t scan();

    /// What "SELECT oid, category, favorite, id, joke, rating FROM jokes" yields with @p clauses behind it.
    [[nodiscard]] std::vector<RawJoke> jokes(const std::string& clauses);

    /// Each value of @p column with the number of jokes that have it, in order.
    [[nodiscard]] std::vector<std::pair<std::string, std::int64_t>> counts(const std::string& column);

    /// Writes one row, in a transaction of its own.
    void upsert(const RawJoke& joke);

    /// Forces what was committed to the disk.
    void sync();

private:
    struct Closer {
        void operator()(sqlite3* handle) const;
        void operator()(sqlite3_stmt* statement) const;
    };

    using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

    [[nodiscard]] Statement prepare(const std::string& sql);
    void run(const Statement& statement);
    void check(bool isWell) const;

    std::unique_ptr<sqlite3, Closer> m_handle;
    Statement m_begin;
    Statement m_upsert;
    Statement m_commit;
};

} // namespace giggle
