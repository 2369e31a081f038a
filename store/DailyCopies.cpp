// SPDX-License-Identifier: MIT
#include "store/DailyCopies.h"

#include "store/CollectionCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <utility>

namespace giggle {

namespace {

constexpr QLatin1StringView Unfinished{".part"};

} // namespace

DailyCopies::DailyCopies(const QString& collectionFile) : DailyCopies(collectionFile, Limits()) {}

DailyCopies::DailyCopies(const QString& collectionFile, Limits limits)
    : m_collectionFile(collectionFile),
      m_folder(QFileInfo(collectionFile).dir().filePath(QStringLiteral("copies"))), m_limits(limits)
{
}

void DailyCopies::make(QDate day) const
{
    if (!hasRoom())
        return;
    QDir().mkpath(m_folder);
    QFile::setPermissions(m_folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QFileInfo collection(m_collectionFile);
    const QString name =
        QStringLiteral("%1 %2.%3")
            .arg(collection.completeBaseName(), day.toString(Qt::ISODate), collection.suffix());
    copyCollection(m_collectionFile, QDir(m_folder).filePath(name));
    removeOldest(name);
}

bool DailyCopies::hasRoom() const
{
    // What the log holds may make the file grow by as much.
    const qint64 size =
        QFileInfo(m_collectionFile).size() + QFileInfo(m_collectionFile + QStringLiteral("-wal")).size();
    return size <= m_limits.totalBytes &&
           QStorageInfo(QFileInfo(m_collectionFile).path()).bytesAvailable() - size >= m_limits.freeBytes;
}

void DailyCopies::removeOldest(const QString& newest) const
{
    const QDir folder(m_folder);
    // By their times: with a clock that was ahead once, the names of later days would stay for ever.
    QFileInfoList copies;
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files, QDir::Time)) {
        if (isOfOurs(file.fileName()))
            copies.append(file);
        else if (const QString name = file.fileName();
                 name.endsWith(Unfinished) && isOfOurs(name.chopped(Unfinished.size())))
            QFile::remove(file.filePath()); // by a program that was killed
    }
    const QFileInfo made(folder.filePath(newest));
    copies.removeOne(made);
    copies.prepend(made);
    int kept = 0;
    qint64 bytes = 0;
    for (const QFileInfo& copy : std::as_const(copies)) {
        bytes += copy.size();
        if (++kept > m_limits.copies || (kept > 1 && bytes > m_limits.totalBytes))
            QFile::remove(copy.filePath());
    }
}

bool DailyCopies::isOfOurs(const QString& fileName) const
{
    const QFileInfo collection(m_collectionFile);
    const QString start = collection.completeBaseName() + u' ';
    const QString end = u'.' + collection.suffix();
    return fileName.startsWith(start) && fileName.endsWith(end) &&
           QDate::fromString(fileName.mid(start.size()).chopped(end.size()), Qt::ISODate).isValid();
}

} // namespace giggle
