// SPDX-License-Identifier: MIT
#include "tests/support/RawDatabase.h"

#include <stdexcept>

#include <sqlite3.h>

namespace giggle {

RawDatabase::RawDatabase(const QString& path) : m_handle(nullptr, sqlite3_close_v2)
{
    sqlite3* handle = nullptr;
    const int result = sqlite3_open(path.toUtf8().constData(), &handle);
    m_handle.reset(handle);
    check(result);
}

void RawDatabase::check(int result) const
{
    if (result != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_handle.get()));
}

void RawDatabase::execute(const std::string& sql)
{
    check(sqlite3_exec(m_handle.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

std::vector<std::string> RawDatabase::rows(const std::string& sql)
{
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(m_handle.get(), sql.c_str(), -1, &statement, nullptr));
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::string row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            row.append(column > 0 ? "|" : "").append(text ? std::string(text, size) : "NULL");
        }
        rows.push_back(row);
    }
    check(sqlite3_finalize(statement));
    return rows;
}

} // namespace giggle
