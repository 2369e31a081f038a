// SPDX-License-Identifier: MIT
#include "ui/DocumentChoice.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

namespace giggle {

namespace {

// What the usual file systems take, in bytes.
constexpr qsizetype LongestName = 255;

DocumentChoice refused(const QString& problem, const QString& subject = {})
{
    return {DocumentChoice::Kind::Refused, {}, subject.isEmpty() ? problem : problem.arg(subject)};
}

DocumentChoice file(const QFileInfo& info)
{
    return {DocumentChoice::Kind::File, info.absoluteFilePath(), {}};
}

/// A link that leads nowhere takes its name, too.
bool isTaken(const QFileInfo& info)
{
    return info.exists() || info.isSymLink();
}

QString pathOf(const QString& text, const QString& folder)
{
    const QDir here(folder);
    // A file's name may look like something else.
    if (!text.contains(u'/') && isTaken(QFileInfo(here.filePath(text))))
        return here.filePath(text);
    const QString trimmed = text.trimmed();
    if (trimmed.startsWith(QLatin1StringView("file:"), Qt::CaseInsensitive)) {
        const QString path = QUrl(trimmed).toLocalFile();
        return here.filePath(path.isEmpty() ? trimmed : path);
    }
    if (trimmed == u'~' || trimmed.startsWith(QLatin1StringView("~/")))
        return QDir::homePath() + trimmed.mid(1);
    return here.filePath(trimmed);
}

/// As the user wrote it, unless it was a whole address.
QString shown(const QString& text, const QFileInfo& info)
{
    return text.contains(u'/') ? info.absoluteFilePath() : text.trimmed();
}

DocumentChoice fileToLoad(const QString& text, const QFileInfo& info)
{
    if (!info.exists())
        return refused(QStringLiteral("There is no file \"%1\"."), shown(text, info));
    // Reading from a pipe or a device would never end.
    if (!info.isFile() || !info.isReadable())
        return refused(QStringLiteral("The file \"%1\" cannot be read."), shown(text, info));
    return file(info);
}

DocumentChoice fileToSave(const QString& text, const QFileInfo& info)
{
    const QFileInfo folder(info.absolutePath());
    if (!folder.isDir())
        return refused(QStringLiteral("There is no folder \"%1\"."), folder.absoluteFilePath());
    if (QFile::encodeName(info.fileName()).size() > LongestName)
        return refused(QStringLiteral("The name is too long."));
    // The new file is made beside an old one, which it then replaces.
    if (!folder.isWritable())
        return refused(QStringLiteral("Nothing can be saved in the folder \"%1\"."),
                       folder.absoluteFilePath());
    if (info.exists() && (!info.isFile() || !info.isWritable()))
        return refused(QStringLiteral("The file \"%1\" cannot be replaced."), shown(text, info));
    return file(info);
}

DocumentChoice choose(const QString& text, const QString& folder, const QString& whatToDo,
                      DocumentChoice (*fileChoice)(const QString&, const QFileInfo&))
{
    if (text.trimmed().isEmpty())
        return refused(whatToDo);
    const QString path = pathOf(text, folder);
    const QFileInfo info(QDir::cleanPath(path));
    if (info.isDir() || path.endsWith(u'/'))
        return DocumentChoice::toEnter(info.filePath());
    return fileChoice(text, info);
}

} // namespace

DocumentChoice DocumentChoice::toLoad(const QString& text, const QString& folder)
{
    return choose(text, folder, QStringLiteral("Choose a file, or type its name."), fileToLoad);
}

DocumentChoice DocumentChoice::toSave(const QString& text, const QString& folder)
{
    return choose(text, folder, QStringLiteral("Type a name for the file."), fileToSave);
}

DocumentChoice DocumentChoice::toEnter(const QString& path)
{
    const QFileInfo info(QDir::cleanPath(path));
    if (!info.isDir())
        return refused(QStringLiteral("There is no folder \"%1\"."), info.absoluteFilePath());
    if (!info.isReadable() || !info.isExecutable())
        return refused(QStringLiteral("The folder \"%1\" cannot be opened."), info.absoluteFilePath());
    return {Kind::Folder, info.absoluteFilePath(), {}};
}

QString freeName(const QString& name, const QString& folder)
{
    const qsizetype stem = stemLength(name);
    QString candidate = name;
    for (int number = 2; isTaken(QFileInfo(QDir(folder).filePath(candidate))); ++number)
        candidate = name.left(stem) + u' ' + QString::number(number) + name.mid(stem);
    return candidate;
}

qsizetype stemLength(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? dot : name.size();
}

} // namespace giggle
