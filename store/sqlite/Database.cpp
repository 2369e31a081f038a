// SPDX-License-Identifier: MIT
#include "store/sqlite/Database.h"

#include <QUrl>

#include <sqlite3.h>

namespace giggle::sqlite {

namespace {

constexpr int BusyTimeoutMilliseconds = 1000;

QByteArray immutableUri(const QString& path)
{
    return QUrl::fromLocalFile(path).toEncoded() + "?immutable=1";
}

/// What a user can do about an error. Begins with a full stop, empty when nobody knows.
QString adviceFor(int extendedCode, const QString& path)
{
    switch (extendedCode & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral(". Close the other program that uses \"%1\", and try again").arg(path);
    case SQLITE_FULL:
        return QStringLiteral(". Make room on the disk of \"%1\", and try again").arg(path);
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return QStringLiteral(". See to it that \"%1\" and its folder can be read and written").arg(path);
    case SQLITE_IOERR:
        return QStringLiteral(". See whether the disk of \"%1\" is full, damaged or gone").arg(path);
    default:
        return {};
    }
}

int openFlags(Database::Mode mode)
{
    switch (mode) {
    case Database::Mode::Immutable:
        return SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
    case Database::Mode::Existing:
        return SQLITE_OPEN_READWRITE;
    case Database::Mode::Shared:
    case Database::Mode::Exclusive:
        break;
    }
    return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

} // namespace

void Database::Closer::operator()(sqlite3* handle) const
{
    sqlite3_close_v2(handle);
}

Database::Database(const QString& path, Mode mode) : m_path(path)
{
    sqlite3* handle = nullptr;
    const int flags = openFlags(mode);
    const QByteArray name = mode == Mode::Immutable ? immutableUri(path) : path.toUtf8();
    const int result = sqlite3_open_v2(name.constData(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    m_handle.reset(handle);
    if (result != SQLITE_OK)
        throw lastError(QStringLiteral("The collection could not be opened"));
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, BusyTimeoutMilliseconds);
    // Files come from anywhere: nothing that a schema says may run code.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    if (mode == Mode::Exclusive)
        execute("PRAGMA locking_mode = EXCLUSIVE");
}

Database::~Database() = default;

void Database::run(std::unique_ptr<Statement>& statement, std::string_view sql)
{
    if (!statement)
        statement = std::make_unique<Statement>(*this, sql);
    statement->run();
}

void Database::execute(const char* sql)
{
    if (sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw lastError(QStringLiteral("The collection could not be used"));
}

std::int64_t Database::integer(const char* sql)
{
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

bool Database::isReadOnly() const
{
    return sqlite3_db_readonly(handle(), "main") == 1;
}

bool Database::isInTransaction() const
{
    return sqlite3_get_autocommit(handle()) == 0;
}

bool Database::isStillInPlace()
{
    int hasMoved = 0;
    return sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved) != SQLITE_OK ||
           hasMoved == 0;
}

void Database::keepWriteAheadLog(bool keep)
{
    int flag = keep ? 1 : 0;
    sqlite3_db_config(handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, flag, nullptr);
    sqlite3_file_control(handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &flag);
}

bool Database::emptyWriteAheadLog()
{
    return integer("PRAGMA wal_checkpoint(TRUNCATE)") == 0; // "busy"
}

void Database::syncWriteAheadLog()
{
    sqlite3_file* log = nullptr;
    const int result = sqlite3_file_control(handle(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (result != SQLITE_OK || !log || !log->pMethods)
        return; // nothing has been written yet
    if (log->pMethods->xSync(log, SQLITE_SYNC_FULL) != SQLITE_OK)
        throw StoreError(SQLITE_IOERR_FSYNC, QStringLiteral("What was saved could not be forced to the disk"),
                         {{QStringLiteral("path"), m_path}});
}

StoreError Database::lastError(const QString& whatFailed) const
{
    const int code = m_handle ? sqlite3_extended_errcode(handle()) : SQLITE_NOMEM;
    const QString reason =
        QString::fromUtf8(m_handle ? sqlite3_errmsg(handle()) : sqlite3_errstr(SQLITE_NOMEM));
    return StoreError(
        code, QStringLiteral("%1: %2").arg(whatFailed, reason) + adviceFor(code, m_path),
        {{QStringLiteral("path"), m_path}, {QStringLiteral("SQLite code"), QString::number(code)}});
}

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql) : m_database(database)
{
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v3(database.handle(), sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    m_statement.reset(statement);
    if (result != SQLITE_OK)
        throw database.lastError(QStringLiteral("The collection could not be read"));
}

bool Statement::step()
{
    switch (sqlite3_step(m_statement.get())) {
    case SQLITE_ROW:
        return true;
    case SQLITE_DONE:
        reset();
        return false;
    default: {
        const StoreError error = m_database.lastError(QStringLiteral("The collection could not be read"));
        reset();
        throw error;
    }
    }
}

void Statement::run()
{
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_DONE || result == SQLITE_ROW) {
        reset();
        return;
    }
    const StoreError error = m_database.lastError(QStringLiteral("The collection could not be saved"));
    reset();
    throw error;
}

void Statement::reset() noexcept
{
    sqlite3_reset(m_statement.get());
}

void Statement::bind(int parameter, std::int64_t value)
{
    sqlite3_bind_int64(m_statement.get(), parameter, value);
}

void Statement::bind(int parameter, OptionalText value)
{
    if (!value)
        return bindNull(parameter);
    // A null pointer would bind NULL, and an empty view may have one.
    const char* data = value->empty() ? "" : value->data();
    const int result =
        sqlite3_bind_text64(m_statement.get(), parameter, data, value->size(), SQLITE_STATIC, SQLITE_UTF8);
    if (result != SQLITE_OK) // longer than SQLite's limit of 10^9 bytes
        throw m_database.lastError(QStringLiteral("The collection could not be saved"));
}

void Statement::bindNull(int parameter)
{
    sqlite3_bind_null(m_statement.get(), parameter);
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

OptionalText Statement::text(int column) const
{
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    if (!data)
        return std::nullopt;
    return std::string_view(data, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column)));
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

Transaction::Transaction(Database& database) : m_database(database)
{
    database.run(database.m_begin, "BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    // A failed COMMIT may have ended the transaction already.
    if (m_database.isInTransaction())
        sqlite3_exec(m_database.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit()
{
    m_database.run(m_database.m_commit, "COMMIT");
}

} // namespace giggle::sqlite
