// SPDX-License-Identifier: MIT
#include "store/PersistentContainer.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace giggle {

namespace {

std::weak_ptr<ManagedObjectContext>& openContext(const QString& path)
{
    static QHash<QString, std::weak_ptr<ManagedObjectContext>> contexts;
    return contexts[path];
}

/// The file behind a link: the database's log lies beside that.
QString resolved(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() ? file.canonicalFilePath() : path;
}

} // namespace

PersistentContainer::PersistentContainer(const QString& name, const QString& folder)
    : m_path(resolved(QDir(folder).absoluteFilePath(name + QLatin1StringView(".sqlite"))))
{
}

void PersistentContainer::loadPersistentStores(const CompletionHandler& completionHandler)
{
    try {
        // The file may lie behind a link, and may have been made since.
        for (const QString& path : {m_path, resolved(m_path)})
            if (!m_viewContext)
                m_viewContext = openContext(path).lock();
        if (!m_viewContext) {
            m_viewContext = std::make_shared<ManagedObjectContext>(std::make_unique<PersistentStore>(m_path));
            openContext(m_path) = m_viewContext;
            openContext(resolved(m_path)) = m_viewContext;
        }
    } catch (const StoreError& error) {
        completionHandler(&error);
        return;
    }
    completionHandler(nullptr);
}

} // namespace giggle
