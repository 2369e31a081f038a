// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include "store/AppDelegate.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

namespace giggle {

namespace {

const QString MemoryFolder = QStringLiteral("/dev/shm");

std::string shown(OptionalText text)
{
    return std::string(text.value_or("NULL"));
}

std::string shown(std::optional<int> number)
{
    return number ? std::to_string(*number) : "NULL";
}

} // namespace

CollectionFolder::CollectionFolder()
    : m_folder((QFileInfo(MemoryFolder).isWritable() ? MemoryFolder : QDir::tempPath()) +
               QStringLiteral("/giggle-XXXXXX"))
{
}

QString CollectionFolder::file() const
{
    return filePath(AppDelegate::ContainerName + QStringLiteral(".sqlite"));
}

PersistentContainer CollectionFolder::open() const
{
    PersistentContainer container(AppDelegate::ContainerName, path());
    container.loadPersistentStores([](const StoreError* error) {
        if (error)
            throw StoreError(*error);
    });
    return container;
}

void CollectionFolder::copyAsAfterACrash(const CollectionFolder& destination) const
{
    for (const QString& suffix : {QString(), QStringLiteral("-wal")})
        writeBytes(destination.file() + suffix, readBytes(file() + suffix));
}

std::map<QString, QByteArray> CollectionFolder::contents() const
{
    std::map<QString, QByteArray> contents;
    for (const QFileInfo& entry :
         QDir(path()).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        contents[entry.fileName()] = entry.isDir() ? QByteArray("a folder") : readBytes(entry.filePath());
    return contents;
}

void closeContainer(PersistentContainer& container)
{
    container = PersistentContainer(QString(), QString());
}

Jokes& insertJoke(ManagedObjectContext& context, const JokeValues& values)
{
    auto& joke = context.insert<Jokes>();
    joke.setCategory(values.category);
    joke.setRating(values.rating);
    joke.setId(values.id);
    joke.setFavorite(values.favorite);
    joke.setJoke(values.joke);
    return joke;
}

Category& insertCategory(ManagedObjectContext& context, OptionalText name)
{
    auto& category = context.insert<Category>();
    category.setCategory(name);
    return category;
}

Rating& insertRating(ManagedObjectContext& context, OptionalText name)
{
    auto& rating = context.insert<Rating>();
    rating.setRating(name);
    return rating;
}

std::vector<std::string> liveRows(ManagedObjectContext& context)
{
    std::vector<std::string> rows;
    for (const Jokes* joke : context.fetch(Jokes::fetchRequest()))
        rows.push_back(std::to_string(joke->oid()) + "|" + shown(joke->category()) + "|" +
                       shown(joke->favorite()) + "|" + shown(joke->id()) + "|" + shown(joke->joke()) + "|" +
                       shown(joke->rating()));
    for (const Category* category : context.fetch(Category::fetchRequest()))
        rows.push_back(std::to_string(category->oid()) + "|" + shown(category->category()));
    for (const Rating* rating : context.fetch(Rating::fetchRequest()))
        rows.push_back(std::to_string(rating->oid()) + "|" + shown(rating->rating()));
    return rows;
}

std::vector<std::string> storedRows(RawDatabase& database)
{
    std::vector<std::string> rows;
    for (const char* table : {"jokes", "category", "rating"})
        for (std::string& row : database.rows(std::string("SELECT * FROM ") + table + " ORDER BY oid"))
            rows.push_back(std::move(row));
    return rows;
}

std::vector<std::string> storedRows(const QString& file)
{
    RawDatabase database(file);
    return storedRows(database);
}

void writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error(file.errorString().toStdString());
}

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(file.errorString().toStdString());
    return file.readAll();
}

} // namespace giggle
