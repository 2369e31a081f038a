// SPDX-License-Identifier: MIT
#include "benchmarks/BaselineDatabase.h"

#include <stdexcept>

#include <sqlite3.h>

namespace giggle {

namespace {

std::string textAt(sqlite3_stmt* row, int column)
{
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return data ? std::string(data, static_cast<std::size_t>(sqlite3_column_bytes(row, column)))
                : std::string();
}

void bindText(sqlite3_stmt* statement, int parameter, const std::string& text)
{
    sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

} // namespace

void BaselineDatabase::Closer::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

void BaselineDatabase::Closer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

BaselineDatabase::BaselineDatabase(const QString& file, Sync sync)
{
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(file.toUtf8().constData(), &handle,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    m_handle.reset(handle);
    check(result == SQLITE_OK);
    execute("PRAGMA journal_mode = WAL");
    execute(sync == Sync::Full ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = NORMAL");
}

void BaselineDatabase::check(bool isWell) const
{
    if (!isWell)
        throw std::runtime_error(sqlite3_errmsg(m_handle.get()));
}

void BaselineDatabase::execute(const char* sql)
{
    check(sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK);
}

BaselineDatabase::Statement BaselineDatabase::prepare(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(m_handle.get(), sql.c_str(), -1, &statement, nullptr) == SQLITE_OK);
    return Statement(statement);
}

std::size_t BaselineDatabase::scan()
{
    std::size_t bytes = 0;
    for (const char* table : {"jokes", "category", "rating"}) {
        const Statement rows = prepare(std::string("SELECT * FROM ") + table);
        const int columns = sqlite3_column_count(rows.get());
        while (sqlite3_step(rows.get()) == SQLITE_ROW) {
            for (int column = 0; column < columns; ++column) {
                if (sqlite3_column_type(rows.get(), column) == SQLITE_INTEGER)
                    bytes += sqlite3_column_int64(rows.get(), column) != 0;
                else if (sqlite3_column_text(rows.get(), column))
                    bytes += static_cast<std::size_t>(sqlite3_column_bytes(rows.get(), column));
            }
        }
    }
    return bytes;
}

std::vector<RawJoke> BaselineDatabase::jokes(const std::string& clauses)
{
    std::vector<RawJoke> jokes;
    const Statement rows = prepare("SELECT oid, category, favorite, id, joke, rating FROM jokes " + clauses);
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
        jokes.push_back({sqlite3_column_int64(rows.get(), 0), textAt(rows.get(), 1),
                         sqlite3_column_int64(rows.get(), 2), sqlite3_column_int64(rows.get(), 3),
                         textAt(rows.get(), 4), textAt(rows.get(), 5)});
    return jokes;
}

std::vector<std::pair<std::string, std::int64_t>> BaselineDatabase::counts(const std::string& column)
{
    std::vector<std::pair<std::string, std::int64_t>> counts;
    const Statement rows = prepare("SELECT " + column + ", COUNT(*) FROM jokes GROUP BY 1 ORDER BY 1");
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
        counts.emplace_back(textAt(rows.get(), 0), sqlite3_column_int64(rows.get(), 1));
    return counts;
}

void BaselineDatabase::upsert(const RawJoke& joke)
{
    if (!m_upsert) {
        m_begin = prepare("BEGIN IMMEDIATE");
        m_commit = prepare("COMMIT");
        m_upsert = prepare("INSERT INTO jokes VALUES(?1, ?2, ?3, ?4, ?5, ?6) ON CONFLICT(oid) DO UPDATE SET "
                           "category = ?2, favorite = ?3, id = ?4, joke = ?5, rating = ?6");
    }
    sqlite3_stmt* statement = m_upsert.get();
    sqlite3_bind_int64(statement, 1, joke.oid);
    bindText(statement, 2, joke.category);
    sqlite3_bind_int64(statement, 3, joke.favorite);
    sqlite3_bind_int64(statement, 4, joke.id);
    bindText(statement, 5, joke.joke);
    bindText(statement, 6, joke.rating);
    run(m_begin);
    run(m_upsert);
    run(m_commit);
}

void BaselineDatabase::run(const Statement& statement)
{
    check(sqlite3_step(statement.get()) == SQLITE_DONE);
    check(sqlite3_reset(statement.get()) == SQLITE_OK);
}

void BaselineDatabase::sync()
{
    sqlite3_file* log = nullptr;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    check(log && log->pMethods && log->pMethods->xSync(log, SQLITE_SYNC_FULL) == SQLITE_OK);
}

} // namespace giggle
