// SPDX-License-Identifier: MIT
#include "platform/linux/OutgoingFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <utility>

namespace giggle {

namespace {

constexpr qint64 DaysKept = 2;

QString safeName(const QString& name)
{
    QString last = name.section(u'/', -1).section(u'\\', -1);
    for (QChar& letter : last)
        if (letter.category() == QChar::Other_Control)
            letter = u'_';
    return last.isEmpty() || last == u"." || last == u".." ? QStringLiteral("attachment") : last;
}

/// A new folder that only the user can look into; empty when there can be none.
QString newFolder(const QString& parent)
{
    QTemporaryDir folder(parent + QStringLiteral("/XXXXXX"));
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() : QString();
}

} // namespace

OutgoingFiles::OutgoingFiles(QString folder) : m_folder(std::move(folder)) {}

QString OutgoingFiles::makeFolder() const
{
    removeOld();
    QDir().mkpath(m_folder);
    const QString folder = newFolder(m_folder);
    return folder.isEmpty() ? newFolder(QDir::tempPath()) : folder;
}

OutgoingFiles::Written OutgoingFiles::write(const QString& name, const QByteArray& data) const
{
    const QString folder = makeFolder();
    const QString path = folder + u'/' + safeName(name);
    QFile file(path);
    if (!folder.isEmpty() &&
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner) &&
        file.write(data) == data.size() && file.flush())
        return {path, {}};
    const QString reason =
        folder.isEmpty() ? QStringLiteral("there is no folder for it") : file.errorString();
    QDir(folder).removeRecursively();
    return {{}, reason};
}

void OutgoingFiles::removeOld() const
{
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-DaysKept);
    for (const QFileInfo& info :
         QDir(m_folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks))
        if (info.lastModified() < oldest)
            QDir(info.filePath()).removeRecursively();
}

} // namespace giggle
