// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace giggle {

/// A plain SQLite connection, as another program has one: what it reads does not depend on the store's code.
/// Failures are thrown as std::runtime_error.
class RawDatabase {
public:
    /// Opens the file, and makes it when it is not there.
    explicit RawDatabase(const QString& path);

    void execute(const std::string& sql);

    /// Each row as its columns joined by "|", unset ones as "NULL".
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql);

private:
    void check(int result) const;

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> m_handle;
};

} // namespace giggle
