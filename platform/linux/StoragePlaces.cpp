// SPDX-License-Identifier: MIT
#include "platform/linux/StoragePlaces.h"

#include "store/Console.h"
#include "store/FolderSync.h"

#include <QDir>
#include <QFile>

#include <pwd.h>
#include <unistd.h>

namespace giggle {

namespace {

QString ownFolder(const QString& xdgValue, const QString& home, const QString& fallback)
{
    const QString own = QStringLiteral("/giggle-archives");
    if (QDir::isAbsolutePath(xdgValue))
        return QDir::cleanPath(xdgValue + own);
    return QDir::isAbsolutePath(home) ? QDir::cleanPath(home + fallback + own) : QString();
}

QString homeOfAccount()
{
    const passwd* account = ::getpwuid(::getuid());
    return account && account->pw_dir ? QFile::decodeName(account->pw_dir) : QString();
}

QString fileIn(const QString& folder, const QString& name)
{
    return folder.isEmpty() ? QString() : folder + u'/' + name;
}

} // namespace

StoragePlaces::StoragePlaces()
    : StoragePlaces([](const char* name) { return QFile::decodeName(qgetenv(name)); }, homeOfAccount())
{
}

StoragePlaces::StoragePlaces(const Environment& environment, const QString& accountHome)
{
    const QString homeValue = environment("HOME");
    const QString home = QDir::isAbsolutePath(homeValue) ? homeValue : accountHome;
    m_dataFolder = ownFolder(environment("XDG_DATA_HOME"), home, QStringLiteral("/.local/share"));
    m_configFolder = ownFolder(environment("XDG_CONFIG_HOME"), home, QStringLiteral("/.config"));
    m_stateFolder = ownFolder(environment("XDG_STATE_HOME"), home, QStringLiteral("/.local/state"));
}

std::optional<QString> StoragePlaces::prepare() const
{
    if (m_dataFolder.isEmpty())
        return QStringLiteral("There is no home folder to keep the collection in. Set HOME to one.");
    for (const QString& folder : {m_configFolder, m_stateFolder}) {
        const auto reason = folder.isEmpty() ? QStringLiteral("there is no home folder") : makeFolder(folder);
        if (reason)
            printFailure(QStringLiteral("Cannot make a folder for settings: %1").arg(*reason));
    }
    if (const auto reason = makeFolder(m_dataFolder))
        return QStringLiteral("The folder of the collection cannot be made. %1").arg(*reason);
    return std::nullopt;
}

QString StoragePlaces::preferenceFile() const
{
    return fileIn(m_configFolder, QStringLiteral("preferences.json"));
}

QString StoragePlaces::documentsFolder() const
{
    return fileIn(m_dataFolder, QStringLiteral("documents"));
}

QString StoragePlaces::instanceLock() const
{
    return fileIn(m_dataFolder, QStringLiteral("giggle-archives.lock"));
}

QString StoragePlaces::fatalErrorRecord() const
{
    return fileIn(m_stateFolder, QStringLiteral("fatal-error"));
}

QString StoragePlaces::windowMemory() const
{
    return fileIn(m_stateFolder, QStringLiteral("window.json"));
}

} // namespace giggle
