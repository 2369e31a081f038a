// SPDX-License-Identifier: MIT
#include "store/CollectionCopy.h"

#include "store/FolderSync.h"
#include "store/StoreError.h"
#include "store/StoreSchema.h"
#include "store/sqlite/Database.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <cerrno>
#include <cstdio>

#include <sqlite3.h>

namespace giggle {

namespace {

/// Pages between two looks at whether somebody else wants the collection.
constexpr int PagesPerStep = 1024;

void backUp(sqlite::Database& source, sqlite::Database& destination)
{
    sqlite3_backup* backup = sqlite3_backup_init(destination.handle(), "main", source.handle(), "main");
    if (!backup)
        throw destination.lastError(QStringLiteral("The copy could not be begun"));
    int result = SQLITE_OK;
    while (result == SQLITE_OK)
        result = sqlite3_backup_step(backup, PagesPerStep);
    if (sqlite3_backup_finish(backup); result != SQLITE_DONE)
        throw destination.lastError(QStringLiteral("The collection could not be copied"));
}

[[noreturn]] void throwSystemError(const QString& whatFailed)
{
    throw StoreError(SQLITE_IOERR, QStringLiteral("%1: %2").arg(whatFailed, qt_error_string(errno)));
}

} // namespace

void copyCollection(const QString& collection, const QString& copy)
{
    const QString unfinished = copy + QStringLiteral(".part");
    QFile::remove(unfinished);
    const auto removeUnfinished = qScopeGuard([&] { QFile::remove(unfinished); });
    {
        sqlite::Database source(collection, sqlite::Database::Mode::Existing);
        sqlite::Database destination(unfinished, sqlite::Database::Mode::Exclusive);
        // What is half done at a crash is thrown away: only the end has to reach the disk.
        destination.execute("PRAGMA journal_mode = OFF");
        destination.execute("PRAGMA synchronous = FULL");
        backUp(source, destination);
        // One file, whole by itself, that can be looked at without making others beside it.
        destination.execute("PRAGMA journal_mode = DELETE");
        StoreSchema::checkContents(destination, collection);
    }
    if (std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(copy).constData()) != 0)
        throwSystemError(QStringLiteral("The copy could not be put in place"));
    if (!synchronizeFolder(QFileInfo(copy).path()))
        throwSystemError(QStringLiteral("The copy's folder could not be synced"));
}

} // namespace giggle
