// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace giggle {

namespace sqlite {
class Database;
}

class StoreError;

/// What makes a database file a collection: its header, its tables, and the steps that lead from one version
/// of them to the next.
namespace StoreSchema {

/// Stands in every collection's header: "GigA" in ASCII.
inline constexpr std::int64_t ApplicationId = 0x47696741;

/// The version that this program writes.
inline constexpr std::int64_t CurrentVersion = 1;

/// Whether there is nothing at @p path yet: no file, or an empty one. Throws StoreError when a write-ahead
/// log lies beside it all the same: SQLite would throw away what was saved there.
[[nodiscard]] bool isAbsent(const QString& path);

/// Whether the file at @p path is what a crash has left of a collection that was being made: a rollback
/// journal beside it leads back to a file without a page. SQLite takes it back when it opens the file,
/// however little of a collection the file looks like by then.
[[nodiscard]] bool isUnfinished(const QString& path);

/// Looks at the file at @p path and its write-ahead log without SQLite, so that nothing on disk is touched.
/// Throws StoreError when the file is no collection, one of a newer version or cut off, and when its log is
/// damaged in front of saves that were complete, unless @p logMayEndEarly.
void checkFiles(const QString& path, bool logMayEndEarly);

/// Brings the database to the current version, each step in a transaction of its own.
void migrate(sqlite::Database& database);

/// Throws StoreError when the database is damaged, is no collection, is one of a newer version, or has other
/// tables than those of its own version.
void checkContents(sqlite::Database& database, const QString& path);

/// @p error as it is, or in words for people when it tells that the file is damaged.
[[nodiscard]] StoreError explained(const StoreError& error, const QString& path);

} // namespace StoreSchema

} // namespace giggle
