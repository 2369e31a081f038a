// SPDX-License-Identifier: MIT
#pragma once

#include "store/PersistentContainer.h"
#include "tests/support/RawDatabase.h"

#include <QByteArray>
#include <QTemporaryDir>

#include <map>
#include <string>
#include <vector>

namespace giggle {

/// A temporary folder for one collection; in memory where the system has a place for that, because the tests
/// force a great many saves to the disk.
class CollectionFolder {
public:
    CollectionFolder();

    [[nodiscard]] QString path() const { return m_folder.path(); }

    [[nodiscard]] QString filePath(const QString& name) const { return m_folder.filePath(name); }

    /// The collection's file.
    [[nodiscard]] QString file() const;

    /// Opens the collection, which is made when there is none. Throws StoreError.
    [[nodiscard]] PersistentContainer open() const;

    /// Copies the collection into another, empty folder as a program that is killed now would leave it: the
    /// file and its write-ahead log.
    void copyAsAfterACrash(const CollectionFolder& destination) const;

    /// Every file in the folder with its bytes, and every folder. Only while nothing has the collection open:
    /// closing a file drops the locks that this process has on it.
    [[nodiscard]] std::map<QString, QByteArray> contents() const;

private:
    QTemporaryDir m_folder;
};

/// Lets go of the collection, which closes it when no other container has it.
void closeContainer(PersistentContainer& container);

/// The values of a joke to be.
struct JokeValues {
    OptionalText category = {};
    OptionalText rating = {};
    std::optional<std::int16_t> id = {};
    std::optional<bool> favorite = {};
    OptionalText joke = {};
};

Jokes& insertJoke(ManagedObjectContext& context, const JokeValues& values);
Category& insertCategory(ManagedObjectContext& context, OptionalText name);
Rating& insertRating(ManagedObjectContext& context, OptionalText name);

/// @name All rows of a collection, as RawDatabase shows them: what is in memory, and what is stored
/// The jokes come first, each as "oid|category|favorite|id|joke|rating".
/// @{
[[nodiscard]] std::vector<std::string> liveRows(ManagedObjectContext& context);
[[nodiscard]] std::vector<std::string> storedRows(RawDatabase& database);
[[nodiscard]] std::vector<std::string> storedRows(const QString& file);
/// @}

void writeBytes(const QString& path, const QByteArray& bytes);
[[nodiscard]] QByteArray readBytes(const QString& path);

} // namespace giggle
