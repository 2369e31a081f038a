// SPDX-License-Identifier: MIT
#pragma once

#include "store/AppDelegate.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <sqlite3.h>

namespace giggle {

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error(file.errorString().toStdString());
}

[[nodiscard]] inline QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(file.errorString().toStdString());
    return file.readAll();
}

/// A temporary folder for one collection; in memory where the system has a place for that, because the tests
/// force a great many saves to the disk.
class CollectionFolder {
public:
    [[nodiscard]] QString path() const { return m_folder.path(); }

    [[nodiscard]] QString filePath(const QString& name) const { return m_folder.filePath(name); }

    /// The collection's file.
    [[nodiscard]] QString file() const
    {
        return filePath(AppDelegate::ContainerName + QStringLiteral(".sqlite"));
    }

    /// Opens the collection, which is made when there is none. Throws StoreError.
    [[nodiscard]] PersistentContainer open() const
    {
        PersistentContainer container(AppDelegate::ContainerName, path());
        container.loadPersistentStores([](const StoreError* error) {
            if (error)
                throw StoreError(*error);
        });
        return container;
    }

    /// Copies the collection into another, empty folder as a program that is killed now would leave it: the
    /// file and its write-ahead log.
    void copyAsAfterACrash(const CollectionFolder& destination) const
    {
        for (const QString& suffix : {QString(), QStringLiteral("-wal")})
            writeBytes(destination.file() + suffix, readBytes(file() + suffix));
    }

    /// Every file in the folder with its bytes, and every folder. Only while nothing has the collection open:
    /// closing a file drops the locks that this process has on it.
    [[nodiscard]] std::map<QString, QByteArray> contents() const
    {
        std::map<QString, QByteArray> contents;
        for (const QFileInfo& entry : QDir(path()).entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                                 QDir::System | QDir::NoDotAndDotDot))
            contents[entry.fileName()] = entry.isDir() ? QByteArray("a folder") : readBytes(entry.filePath());
        return contents;
    }

private:
    QTemporaryDir m_folder{
        (QFileInfo(QStringLiteral("/dev/shm")).isWritable() ? QStringLiteral("/dev/shm") : QDir::tempPath()) +
        QStringLiteral("/giggle-XXXXXX")};
};

/// A plain SQLite connection, as another program has one: what it reads does not depend on the store's code.
/// Failures are thrown as std::runtime_error.
class RawDatabase {
public:
    /// Opens the file, and makes it when it is not there.
    explicit RawDatabase(const QString& path) : m_handle(nullptr, sqlite3_close_v2)
    {
        sqlite3* handle = nullptr;
        const int result = sqlite3_open(path.toUtf8().constData(), &handle);
        m_handle.reset(handle);
        check(result);
    }

    void execute(const std::string& sql)
    {
        check(sqlite3_exec(m_handle.get(), sql.c_str(), nullptr, nullptr, nullptr));
    }

    /// Each row as its columns joined by "|", unset ones as "NULL".
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql)
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

private:
    void check(int result) const
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_handle.get()));
    }

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> m_handle;
};

/// Lets go of the collection, which closes it when no other container has it.
inline void closeContainer(PersistentContainer& container)
{
    container = PersistentContainer(QString(), QString());
}

/// The values of a joke to be.
struct JokeValues {
    OptionalText category = {};
    OptionalText rating = {};
    std::optional<std::int16_t> id = {};
    std::optional<bool> favorite = {};
    OptionalText joke = {};
};

inline Jokes& insertJoke(ManagedObjectContext& context, const JokeValues& values)
{
    auto& joke = context.insert<Jokes>();
    joke.setCategory(values.category);
    joke.setRating(values.rating);
    joke.setId(values.id);
    joke.setFavorite(values.favorite);
    joke.setJoke(values.joke);
    return joke;
}

inline Category& insertCategory(ManagedObjectContext& context, OptionalText name)
{
    auto& category = context.insert<Category>();
    category.setCategory(name);
    return category;
}

inline Rating& insertRating(ManagedObjectContext& context, OptionalText name)
{
    auto& rating = context.insert<Rating>();
    rating.setRating(name);
    return rating;
}

/// @name All rows of a collection, as RawDatabase shows them: what is in memory, and what is stored
/// The jokes come first, each as "oid|category|favorite|id|joke|rating".
/// @{
[[nodiscard]] inline std::vector<std::string> liveRows(ManagedObjectContext& context)
{
    const auto shown = [](OptionalText text) { return "|" + std::string(text.value_or("NULL")); };
    const auto shownNumber = [](std::optional<int> number) {
        return number ? "|" + std::to_string(*number) : "|NULL";
    };
    std::vector<std::string> rows;
    for (const Jokes* joke : context.fetch(Jokes::fetchRequest()))
        rows.push_back(std::to_string(joke->oid()) + shown(joke->category()) + shownNumber(joke->favorite()) +
                       shownNumber(joke->id()) + shown(joke->joke()) + shown(joke->rating()));
    for (const Category* category : context.fetch(Category::fetchRequest()))
        rows.push_back(std::to_string(category->oid()) + shown(category->category()));
    for (const Rating* rating : context.fetch(Rating::fetchRequest()))
        rows.push_back(std::to_string(rating->oid()) + shown(rating->rating()));
    return rows;
}

[[nodiscard]] inline std::vector<std::string> storedRows(RawDatabase& database)
{
    std::vector<std::string> rows;
    for (const char* table : {"jokes", "category", "rating"})
        for (std::string& row : database.rows(std::string("SELECT * FROM ") + table + " ORDER BY oid"))
            rows.push_back(std::move(row));
    return rows;
}

[[nodiscard]] inline std::vector<std::string> storedRows(const QString& file)
{
    RawDatabase database(file);
    return storedRows(database);
}

/// @}

} // namespace giggle
