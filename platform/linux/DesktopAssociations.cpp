// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAssociations.h"

#include "platform/linux/KeyFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <utility>

namespace giggle {

namespace {

constexpr const char* EntryGroup = "Desktop Entry";

/// The first word of a command line as desktop files quote it.
QString programOf(const QString& commandLine)
{
    const QString line = commandLine.trimmed();
    if (!line.startsWith(u'"'))
        return line.section(u' ', 0, 0);
    QString program;
    for (qsizetype i = 1; i < line.size() && line[i] != u'"'; ++i) {
        if (line[i] == u'\\' && i + 1 < line.size())
            ++i;
        program += line[i];
    }
    return program;
}

QStringList absolutePaths(const QString& value, const QString& fallback)
{
    QStringList paths = (value.isEmpty() ? fallback : value).split(u':', Qt::SkipEmptyParts);
    paths.removeIf([](const QString& path) { return !QDir::isAbsolutePath(path); });
    return paths;
}

/// A folder of the user's own, or none.
QStringList ownFolder(const QString& value, const QString& fallback)
{
    if (QDir::isAbsolutePath(value))
        return {value};
    return QDir::isAbsolutePath(fallback) ? QStringList(fallback) : QStringList();
}

/// The file of this id in one folder. A hyphen in an id may stand for a folder. Empty when there is none.
QString fileOfId(const QString& folder, const QString& id)
{
    const QString path = folder + u'/' + id;
    if (QFileInfo(path).isFile())
        return path;
    for (qsizetype hyphen = id.indexOf(u'-'); hyphen >= 0; hyphen = id.indexOf(u'-', hyphen + 1)) {
        const QString inner = folder + u'/' + id.first(hyphen);
        if (hyphen == 0 || !QFileInfo(inner).isDir())
            continue;
        if (const QString found = fileOfId(inner, id.sliced(hyphen + 1)); !found.isEmpty())
            return found;
    }
    return {};
}

/// One question: who opens this type?
class Lookup {
public:
    Lookup(const DesktopAssociations::Environment& environment, QByteArray mimeType);

    [[nodiscard]] QString handler();

private:
    void readLists(const QString& folder);
    void addDefaults(const KeyFile& list);
    void readList(const KeyFile& list);
    void readDesktopFiles(const QString& folder);
    void associate(const QStringList& ids);
    [[nodiscard]] QString firstUsable(const QStringList& ids) const;
    [[nodiscard]] bool isUsable(const QString& id) const;
    [[nodiscard]] bool isProgram(const QString& name) const;

    QByteArray m_mimeType;
    QStringList m_programFolders;
    QStringList m_desktops;
    QStringList m_configFolders;
    QStringList m_applicationFolders;
    QStringList m_defaults;   ///< by preference
    QStringList m_associated; ///< by preference
    QSet<QString> m_removed;  ///< what a list of higher rank has taken away
    QSet<QString> m_seen;     ///< ids whose desktop file is found already: further ones are hidden by it
};

Lookup::Lookup(const DesktopAssociations::Environment& environment, QByteArray mimeType)
    : m_mimeType(std::move(mimeType)),
      m_programFolders(absolutePaths(environment("PATH"), QStringLiteral("/usr/local/bin:/usr/bin:/bin"))),
      m_desktops(environment("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts))
{
    const QString home = environment("HOME");
    m_configFolders = ownFolder(environment("XDG_CONFIG_HOME"), home + QStringLiteral("/.config")) +
                      absolutePaths(environment("XDG_CONFIG_DIRS"), QStringLiteral("/etc/xdg"));
    m_applicationFolders =
        ownFolder(environment("XDG_DATA_HOME"), home + QStringLiteral("/.local/share")) +
        absolutePaths(environment("XDG_DATA_DIRS"), QStringLiteral("/usr/local/share:/usr/share"));
    for (QString& folder : m_applicationFolders)
        folder += QStringLiteral("/applications");
}

QString Lookup::handler()
{
    for (const QString& folder : std::as_const(m_configFolders))
        readLists(folder);
    for (const QString& folder : std::as_const(m_applicationFolders)) {
        readLists(folder);
        // What the user has chosen needs no look at the many files of the others.
        if (const QString chosen = firstUsable(m_defaults); !chosen.isEmpty())
            return chosen;
        readDesktopFiles(folder);
    }
    return firstUsable(m_associated);
}

void Lookup::readLists(const QString& folder)
{
    // The lists of a desktop name its defaults and nothing else.
    for (const QString& desktop : std::as_const(m_desktops))
        addDefaults(KeyFile(folder + u'/' + desktop + QStringLiteral("-mimeapps.list")));
    readList(KeyFile(folder + QStringLiteral("/mimeapps.list")));
}

void Lookup::addDefaults(const KeyFile& list)
{
    for (const QString& id : list.list("Default Applications", m_mimeType))
        if (!m_removed.contains(id))
            m_defaults.append(id);
}

void Lookup::readList(const KeyFile& list)
{
    addDefaults(list);
    associate(list.list("Added Associations", m_mimeType));
    for (const QString& id : list.list("Removed Associations", m_mimeType))
        m_removed.insert(id);
}

void Lookup::readDesktopFiles(const QString& folder)
{
    QStringList found;
    QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                       QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString id = path.mid(folder.size() + 1).replace(u'/', u'-');
        if (m_seen.contains(id))
            continue;
        m_seen.insert(id);
        const KeyFile entry(path);
        if (entry.contains(m_mimeType) &&
            entry.list(EntryGroup, "MimeType").contains(QString::fromUtf8(m_mimeType)))
            found.append(id);
    }
    found.sort();
    associate(found);
}

void Lookup::associate(const QStringList& ids)
{
    for (const QString& id : ids)
        if (!m_removed.contains(id) && !m_associated.contains(id))
            m_associated.append(id);
}

QString Lookup::firstUsable(const QStringList& ids) const
{
    for (const QString& id : ids)
        if (isUsable(id))
            return id;
    return {};
}

bool Lookup::isUsable(const QString& id) const
{
    if (id.contains(u'/'))
        return false;
    for (const QString& folder : m_applicationFolders) {
        const QString path = fileOfId(folder, id);
        if (path.isEmpty())
            continue;
        // The first one is the one that holds, also where it says that the program is gone.
        const KeyFile entry(path);
        const QString tried = entry.value(EntryGroup, "TryExec");
        return !entry.isTrue(EntryGroup, "Hidden") && (tried.isEmpty() || isProgram(tried)) &&
               isProgram(programOf(entry.value(EntryGroup, "Exec"))) &&
               (!entry.isTrue(EntryGroup, "Terminal") || isProgram(QStringLiteral("x-terminal-emulator")));
    }
    return false;
}

bool Lookup::isProgram(const QString& name) const
{
    return !name.isEmpty() && !QStandardPaths::findExecutable(name, m_programFolders).isEmpty();
}

} // namespace

DesktopAssociations::DesktopAssociations()
    : DesktopAssociations([](const char* name) { return QFile::decodeName(qgetenv(name)); })
{
}

DesktopAssociations::DesktopAssociations(Environment environment) : m_environment(std::move(environment)) {}

QString DesktopAssociations::handlerOfType(const QString& mimeType) const
{
    return Lookup(m_environment, mimeType.toUtf8()).handler();
}

QString DesktopAssociations::handlerOfScheme(const QString& scheme) const
{
    return handlerOfType(QStringLiteral("x-scheme-handler/") + scheme);
}

} // namespace giggle
