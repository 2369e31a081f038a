// SPDX-License-Identifier: MIT
#include "store/DailyCopies.h"

#include "store/CollectionCopy.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

namespace giggle {

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
    const QFileInfo collection(m_collectionFile);
    const QDir folder(m_folder);
    const QString pattern =
        QStringLiteral("%1 *-*-*.%2").arg(collection.completeBaseName(), collection.suffix());
    QFileInfoList copies = folder.entryInfoList({pattern}, QDir::Files, QDir::Name | QDir::Reversed);
    // With a clock that was set back, copies of later days are there; the one just made stays all the same.
    const QFileInfo made(folder.filePath(newest));
    copies.removeOne(made);
    copies.prepend(made);
    int kept = 0;
    qint64 bytes = 0;
    for (const QFileInfo& copy : copies) {
        bytes += copy.size();
        if (++kept > m_limits.copies || (kept > 1 && bytes > m_limits.totalBytes))
            QFile::remove(copy.filePath());
    }
}

} // namespace giggle
