// SPDX-License-Identifier: MIT
#include "benchmarks/Collections.h"

#include "store/AppDelegate.h"

#include <QDir>
#include <QFile>

#include <limits>
#include <stdexcept>

namespace giggle {

namespace {

/// Where files survive a restart, so that they lie on a disk: the temporary folder may lie in memory.
QString diskFolder()
{
    return qEnvironmentVariable("TMPDIR", QStringLiteral("/var/tmp"));
}

std::int16_t idAt(std::size_t index, std::size_t size)
{
    constexpr int Highest = std::numeric_limits<std::int16_t>::max();
    const int lowest = static_cast<int>(size) > Highest ? std::numeric_limits<std::int16_t>::min() : 1;
    return static_cast<std::int16_t>(lowest + static_cast<int>(index));
}

void fill(ManagedObjectContext& context, std::size_t size, ForeignShare share)
{
    JokeGenerator generator(share);
    for (std::size_t i = 0; i < size; ++i) {
        const GeneratedJoke generated = generator.next();
        auto& joke = context.insert<Jokes>();
        joke.setCategory(generated.category);
        joke.setRating(generated.rating);
        joke.setFavorite(generated.favorite);
        joke.setId(idAt(i, size));
        joke.setJoke(generated.text);
    }
    for (const std::string_view name : JokeGenerator::Categories)
        context.insert<Category>().setCategory(name);
    for (const std::string_view name : JokeGenerator::Ratings)
        context.insert<Rating>().setRating(name);
    context.save();
}

} // namespace

Collections::Collections() : m_root(diskFolder() + QStringLiteral("/giggle-benchmarks-XXXXXX"))
{
    if (!m_root.isValid())
        throw std::runtime_error(m_root.errorString().toStdString());
}

QString Collections::folder(std::size_t size, ForeignShare share)
{
    const QString folder = m_root.filePath(QStringLiteral("%1-%2").arg(size).arg(static_cast<int>(share)));
    if (!QFile::exists(fileIn(folder)))
        fill(open(folder).viewContext(), size, share);
    return folder;
}

QString Collections::copy(std::size_t size)
{
    const QString source = fileIn(folder(size));
    const QString target = emptyFolder();
    if (!QFile::copy(source, fileIn(target)))
        throw std::runtime_error("the collection cannot be copied");
    return target;
}

QString Collections::emptyFolder()
{
    const QString folder = m_root.filePath(QString::number(++m_folders));
    if (!QDir().mkpath(folder))
        throw std::runtime_error("no folder can be made");
    return folder;
}

QString Collections::fileIn(const QString& folder)
{
    return folder + QLatin1Char('/') + AppDelegate::ContainerName + QLatin1StringView(".sqlite");
}

PersistentContainer Collections::open(const QString& folder)
{
    PersistentContainer container(AppDelegate::ContainerName, folder);
    container.loadPersistentStores([](const StoreError* error) {
        if (error)
            throw StoreError(*error);
    });
    return container;
}

void Collections::materialise(const PersistentContainer& container)
{
    (void)container.viewContext().fetch(Jokes::fetchRequest());
    (void)container.viewContext().fetch(Category::fetchRequest());
    (void)container.viewContext().fetch(Rating::fetchRequest());
}

} // namespace giggle
