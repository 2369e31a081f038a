// SPDX-License-Identifier: MIT
#include "store/StoreSchema.h"

#include "store/LogCheck.h"
#include "store/PageCheck.h"
#include "store/sqlite/Database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <array>

#include <sqlite3.h>

namespace giggle::StoreSchema {

namespace {

/// Step n leads from version n to version n + 1.
constexpr std::array Migrations{
    "CREATE TABLE jokes(oid INTEGER PRIMARY KEY, category TEXT, favorite INTEGER CHECK (favorite IN (0, 1)), "
    "id INTEGER CHECK (id BETWEEN -32768 AND 32767), joke TEXT, rating TEXT) STRICT;"
    "CREATE TABLE category(oid INTEGER PRIMARY KEY, category TEXT) STRICT;"
    "CREATE TABLE rating(oid INTEGER PRIMARY KEY, rating TEXT) STRICT;"
    "PRAGMA application_id = 0x47696741;"
    "PRAGMA user_version = 1;",
};
static_assert(Migrations.size() == CurrentVersion);

struct Column {
    std::string_view table;
    std::string_view name;
    std::string_view type;
    std::int64_t since = 1; ///< the first version that has it
};

constexpr std::array Columns{
    Column{"jokes", "oid", "INTEGER"},      Column{"jokes", "category", "TEXT"},
    Column{"jokes", "favorite", "INTEGER"}, Column{"jokes", "id", "INTEGER"},
    Column{"jokes", "joke", "TEXT"},        Column{"jokes", "rating", "TEXT"},
    Column{"category", "oid", "INTEGER"},   Column{"category", "category", "TEXT"},
    Column{"rating", "oid", "INTEGER"},     Column{"rating", "rating", "TEXT"},
};

// Places in the first page of a database file, as its published format fixes them.
constexpr int HeaderSize = 100;
constexpr int PageSizeOffset = 16;
constexpr int UserVersionOffset = 60;
constexpr int ApplicationIdOffset = 68;
constexpr QByteArrayView Magic("SQLite format 3\0", 16);

// The same in the header of a rollback journal.
constexpr int JournalHeaderSize = 28;
constexpr int InitialPagesOffset = 16;
constexpr QByteArrayView JournalMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);

StoreError refusal(int code, const QString& path, const QString& reason)
{
    return StoreError(
        code,
        QStringLiteral(
            "\"%1\" was left untouched: %2. To go on, move it and the files whose names begin with "
            "its name to another place, and put a copy there instead: the daily copies lie beside it "
            "in the folder \"%3\". Without a file there Giggle Archives starts with an empty collection")
            .arg(path, reason, QFileInfo(path).dir().filePath(QStringLiteral("copies"))),
        {{QStringLiteral("path"), path}});
}

StoreError damage(int code, const QString& path, const QString& finding)
{
    return refusal(code, path, QStringLiteral("it is damaged (%1)").arg(finding));
}

void checkIdentity(std::int64_t applicationId, std::int64_t version, const QString& path)
{
    if (applicationId != ApplicationId)
        throw refusal(SQLITE_NOTADB, path, QStringLiteral("it belongs to another application"));
    if (version > CurrentVersion)
        throw refusal(
            SQLITE_MISMATCH, path,
            QStringLiteral(
                "a newer version of Giggle Archives wrote it (format %1, this program knows %2) and "
                "can open it")
                .arg(version)
                .arg(CurrentVersion));
    if (version < 1)
        throw refusal(SQLITE_MISMATCH, path, QStringLiteral("its format %1 is unknown").arg(version));
}

bool tellsOfDamage(const StoreError& error)
{
    const int code = error.extendedCode() & 0xff;
    // The last is what SQLite says of a format that it does not know.
    return code == SQLITE_CORRUPT || code == SQLITE_NOTADB || code == SQLITE_ERROR;
}

int pageSizeIn(const QByteArray& header)
{
    const int stored = qFromBigEndian<quint16>(header.constData() + PageSizeOffset);
    return stored == 1 ? 65536 : stored;
}

/// Whether a write that was interrupted is to be finished or taken back when the file is opened. Until then
/// anything may stand in it.
bool hasUnfinishedWrite(const QString& path)
{
    return QFileInfo(path + QLatin1StringView("-wal")).size() > 0 ||
           QFileInfo(path + QLatin1StringView("-journal")).size() > 0;
}

/// What is wrong with a file at rest that SQLite does not find, empty when nothing is.
QString overlookedDamageOf(const QString& path, int pageSize)
{
    constexpr int SmallestPage = 512;
    if (pageSize < SmallestPage)
        return {}; // SQLite finds that
    // SQLite takes the missing rest of a last page for zeros.
    if (QFileInfo(path).size() % pageSize != 0)
        return QStringLiteral("its end is cut off");
    return holdsHollowRow(path, pageSize) ? QStringLiteral("a row in it is hollow") : QString();
}

/// What is wrong with the file, empty when nothing is.
QString damageOf(sqlite::Database& database)
{
    try {
        // Finds rows that lists would miss or hold twice; at the largest collection it takes some 25 ms.
        sqlite::Statement check(database, "PRAGMA quick_check(1)");
        if (!check.step())
            return QStringLiteral("no finding");
        const std::string_view finding = check.text(0).value_or("no finding");
        // The first line names the database, of which there is one.
        return finding == "ok" ? QString() : QString::fromUtf8(finding).section(u'\n', -1);
    } catch (const StoreError& error) {
        if (!tellsOfDamage(error))
            throw;
        return error.localizedDescription();
    }
}

void checkColumns(sqlite::Database& database, std::int64_t version, const QString& path)
{
    sqlite::Statement lookup(
        database,
        "SELECT 1 FROM pragma_table_info(?1) WHERE name = ?2 AND type = ?3 COLLATE NOCASE AND pk = ?4");
    for (const Column& column : Columns) {
        if (column.since > version)
            continue;
        lookup.bind(1, column.table);
        lookup.bind(2, column.name);
        lookup.bind(3, column.type);
        lookup.bind(4, std::int64_t(column.name == "oid" ? 1 : 0));
        if (!lookup.step())
            throw refusal(SQLITE_SCHEMA, path,
                          QStringLiteral("it says that it is a collection, but its table %1 has no column %2")
                              .arg(QLatin1StringView(column.table), QLatin1StringView(column.name)));
        lookup.reset();
    }
}

} // namespace

bool isAbsent(const QString& path)
{
    const QFileInfo file(path);
    if (file.exists() && (!file.isFile() || file.size() > 0))
        return false;
    const QString log = path + QLatin1StringView("-wal");
    if (QFileInfo(log).size() > 0)
        throw refusal(SQLITE_CORRUPT, path,
                      QStringLiteral("it is gone or empty, but its log \"%1\" holds saved jokes").arg(log));
    return true;
}

bool isUnfinished(const QString& path)
{
    QFile journal(path + QLatin1StringView("-journal"));
    if (!journal.open(QIODevice::ReadOnly))
        return false;
    const QByteArray header = journal.read(JournalHeaderSize);
    return header.size() == JournalHeaderSize && QByteArrayView(header).startsWith(JournalMagic) &&
           qFromBigEndian<quint32>(header.constData() + InitialPagesOffset) == 0;
}

void checkFiles(const QString& path, bool logMayEndEarly)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw refusal(SQLITE_CANTOPEN, path, QStringLiteral("it cannot be read: %1").arg(file.errorString()));
    const QByteArray header = file.read(HeaderSize);
    if (!QByteArrayView(header).startsWith(Magic) || header.size() < HeaderSize)
        throw refusal(SQLITE_NOTADB, path, QStringLiteral("it is not a joke collection"));
    checkIdentity(qFromBigEndian<qint32>(header.constData() + ApplicationIdOffset),
                  qFromBigEndian<qint32>(header.constData() + UserVersionOffset), path);
    const int pageSize = pageSizeIn(header);
    if (!hasUnfinishedWrite(path))
        if (const QString finding = overlookedDamageOf(path, pageSize); !finding.isEmpty())
            throw damage(SQLITE_CORRUPT, path, finding);
    const QString log = path + QLatin1StringView("-wal");
    // Twice: another program may have been writing to it.
    if (!logMayEndEarly && losesCommits(log, pageSize) && losesCommits(log, pageSize))
        throw damage(SQLITE_CORRUPT, path,
                     QStringLiteral("its log \"%1\" cannot be read to its end").arg(log));
}

void migrate(sqlite::Database& database)
{
    for (auto version = database.integer("PRAGMA user_version"); version < CurrentVersion; ++version) {
        sqlite::Transaction transaction(database);
        database.execute(Migrations[static_cast<std::size_t>(version)]);
        transaction.commit();
    }
}

void checkContents(sqlite::Database& database, const QString& path)
{
    // Once more: what counts may stand in the write-ahead log.
    const std::int64_t version = database.integer("PRAGMA user_version");
    checkIdentity(database.integer("PRAGMA application_id"), version, path);
    if (const QString finding = damageOf(database); !finding.isEmpty())
        throw damage(SQLITE_CORRUPT, path, finding);
    checkColumns(database, version, path);
}

StoreError explained(const StoreError& error, const QString& path)
{
    return tellsOfDamage(error) ? damage(error.extendedCode(), path, error.localizedDescription()) : error;
}

} // namespace giggle::StoreSchema
