// SPDX-License-Identifier: MIT
#include "store/PersistentStore.h"

#include "store/Console.h"
#include "store/FolderSync.h"
#include "store/StoreSchema.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <utility>

#include <sqlite3.h>

namespace giggle {

namespace {

using sqlite::Database;

/// Also in a collection that stays with a rollback journal, whose removal is the commit: with FULL a power
/// cut could bring the journal back, and with it take back what was saved.
constexpr const char* Durable = "PRAGMA synchronous = EXTRA";

QString writeAheadLogOf(const QString& path)
{
    return path + QLatin1StringView("-wal");
}

/// Removes the companion files that only looking at a refused store has made.
class CompanionFiles {
public:
    explicit CompanionFiles(const QString& path)
    {
        for (const char* suffix : {"-wal", "-shm"})
            if (const QString file = path + QLatin1StringView(suffix); !QFile::exists(file))
                m_absentBefore << file;
    }

    void removeNewOnes() const
    {
        for (const QString& file : m_absentBefore)
            QFile::remove(file);
    }

private:
    QStringList m_absentBefore;
};

/// Whether @p error says that a database could not even be looked at with a mode of access, so that a mode
/// that asks less of the file system may still succeed.
bool isAccessFailure(const StoreError& error)
{
    switch (error.extendedCode() & 0xff) {
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_READONLY:
    case SQLITE_FULL:
        return true;
    default:
        return false;
    }
}

} // namespace

PersistentStore::PersistentStore(const QString& path) : m_path(path)
{
    if (StoreSchema::isAbsent(path))
        create();
    else
        openChecked();
    if (!m_database->isReadOnly())
        m_database->execute(Durable);
    m_dataVersionQuery.emplace(*m_database, "PRAGMA data_version");
    m_journalModeQuery.emplace(*m_database, "PRAGMA journal_mode");
    acceptContents();
    rememberLog();
}

PersistentStore::~PersistentStore() = default;

void PersistentStore::create()
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (const auto reason = makeFolder(folder))
        throw StoreError(
            SQLITE_CANTOPEN,
            QStringLiteral("The folder \"%1\" for the collection cannot be made. %2").arg(folder, *reason),
            {{QStringLiteral("path"), m_path}});
    m_database = std::make_unique<Database>(m_path, Database::Mode::Shared);
    makeTables();
}

void PersistentStore::makeTables()
{
    // They go in through a rollback journal: a crash leaves them whole, or a journal that takes them out
    // again.
    m_database->execute(Durable);
    StoreSchema::migrate(*m_database);
    m_database->execute("PRAGMA journal_mode = WAL");
}

void PersistentStore::openChecked()
{
    if (!StoreSchema::isUnfinished(m_path))
        StoreSchema::checkFiles(m_path, isBulkUnfinished());
    const CompanionFiles companions(m_path);
    try {
        m_database = openReadable();
        // Without a page it is what a crash while the tables were made has left.
        if (!m_database->isReadOnly() && m_database->integer("PRAGMA page_count") == 0)
            makeTables();
        StoreSchema::checkContents(*m_database, m_path);
    } catch (const StoreError&) {
        m_database.reset();
        companions.removeNewOnes();
        throw;
    }
    m_database->keepWriteAheadLog(false);
    if (m_database->isReadOnly())
        return;
    StoreSchema::migrate(*m_database);
    try {
        m_database->execute("PRAGMA journal_mode = WAL");
        // What a power cut has left of its log must not lie behind the saves to come.
        if (isBulkUnfinished() && m_database->emptyWriteAheadLog())
            QFile::remove(bulkMark());
    } catch (const StoreError& error) {
        // A store that cannot be converted now, for want of space, still shows what it holds.
        printFailure(error.localizedDescription());
    }
}

std::unique_ptr<Database> PersistentStore::openReadable()
{
    std::optional<StoreError> firstError;
    for (const auto mode : {Database::Mode::Shared, Database::Mode::Exclusive, Database::Mode::Immutable}) {
        // This mode would not show the saved jokes that lie in the log.
        if (mode == Database::Mode::Immutable && QFileInfo(writeAheadLogOf(m_path)).size() > 0)
            throw StoreError(
                firstError->extendedCode(),
                QStringLiteral("%1. Saved jokes lie in \"%2\", which can be read only in a folder "
                               "that can be written")
                    .arg(firstError->localizedDescription(), writeAheadLogOf(m_path)),
                firstError->userInfo());
        try {
            auto database = std::make_unique<Database>(m_path, mode);
            database->keepWriteAheadLog(true);
            database->integer("SELECT count(*) FROM sqlite_schema");
            return database;
        } catch (const StoreError& error) {
            if (!isAccessFailure(error))
                throw StoreSchema::explained(error, m_path);
            if (!firstError)
                firstError = error;
        }
    }
    throw *firstError;
}

bool PersistentStore::mayHaveBeenChangedElsewhere()
{
    return dataVersion() != m_acceptedDataVersion;
}

void PersistentStore::willSave()
{
    if (!m_isRelaxed)
        requireFileInPlace();
}

void PersistentStore::didSave()
{
    // A log that was just made, or a journal whose removal is the commit: SQLite passes over a folder that
    // cannot be synced, and a save after one that got as far as the removal has nothing to write or sync.
    if (m_isRelaxed || (m_logEntryIsCertain && usesWriteAheadLog()))
        return;
    synchronizeEntries();
    m_logEntryIsCertain = true;
    rememberLog();
}

void PersistentStore::rememberLog()
{
    if (usesWriteAheadLog())
        m_logIdentity = identityOfFile(writeAheadLogOf(m_path));
}

void PersistentStore::requireFileInPlace()
{
    const bool isLogGone = m_logIdentity && identityOfFile(writeAheadLogOf(m_path)) != m_logIdentity;
    if (!m_database->isStillInPlace() || (isLogGone && usesWriteAheadLog()))
        throw StoreError(
            SQLITE_READONLY_DBMOVED,
            QStringLiteral(
                "\"%1\" or its log was removed, renamed or replaced while it was open. Nothing was saved; "
                "put it back under its name, or close and open Giggle Archives again")
                .arg(m_path),
            {{QStringLiteral("path"), m_path}});
}

void PersistentStore::acceptContents()
{
    m_acceptedDataVersion = dataVersion();
}

std::int64_t PersistentStore::dataVersion()
{
    m_dataVersionQuery->step();
    const std::int64_t version = m_dataVersionQuery->integer(0);
    m_dataVersionQuery->reset();
    return version;
}

bool PersistentStore::usesWriteAheadLog()
{
    m_journalModeQuery->step();
    const bool isLog = m_journalModeQuery->text(0) == "wal";
    m_journalModeQuery->reset();
    return isLog;
}

void PersistentStore::relaxDurability()
{
    // With a rollback journal a relaxed commit may be taken back after the ones that follow it.
    if (m_database->isReadOnly() || !usesWriteAheadLog())
        return;
    QFile mark(bulkMark());
    if (!mark.open(QIODevice::WriteOnly))
        throw StoreError(SQLITE_CANTOPEN,
                         QStringLiteral("\"%1\" cannot be made: %2").arg(mark.fileName(), mark.errorString()),
                         {{QStringLiteral("path"), m_path}});
    synchronizeEntries();
    m_database->execute("PRAGMA synchronous = NORMAL");
    m_isRelaxed = true;
}

void PersistentStore::synchronizeEntries()
{
    if (!synchronizeFolder(QFileInfo(m_path).absolutePath()))
        throw StoreError(
            SQLITE_IOERR_DIR_FSYNC,
            QStringLiteral("What was saved could not be forced to the disk: %1").arg(qt_error_string(errno)),
            {{QStringLiteral("path"), m_path}});
}

void PersistentStore::restoreDurability()
{
    if (!std::exchange(m_isRelaxed, false))
        return;
    m_database->execute(Durable);
    m_database->syncWriteAheadLog();
    requireFileInPlace();
    synchronizeEntries();
    QFile::remove(bulkMark());
}

QString PersistentStore::bulkMark() const
{
    return m_path + QLatin1StringView("-bulk");
}

bool PersistentStore::isBulkUnfinished() const
{
    return QFile::exists(bulkMark());
}

} // namespace giggle
