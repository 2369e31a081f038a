// SPDX-License-Identifier: MIT
#include "store/PersistentContainer.h"

#include <QDir>
#include <QHash>

namespace giggle {

namespace {

std::weak_ptr<ManagedObjectContext>& openContext(const QString& path)
{
    static QHash<QString, std::weak_ptr<ManagedObjectContext>> contexts;
    return contexts[path];
}

} // namespace

PersistentContainer::PersistentContainer(const QString& name, const QString& folder)
    : m_path(QDir(folder).absoluteFilePath(name + QLatin1StringView(".sqlite")))
{
}

void PersistentContainer::loadPersistentStores(const CompletionHandler& completionHandler)
{
    try {
        std::weak_ptr<ManagedObjectContext>& shared = openContext(m_path);
        if (!m_viewContext)
            m_viewContext = shared.lock();
        if (!m_viewContext) {
            m_viewContext = std::make_shared<ManagedObjectContext>(std::make_unique<PersistentStore>(m_path));
            shared = m_viewContext;
        }
    } catch (const StoreError& error) {
        completionHandler(&error);
        return;
    }
    completionHandler(nullptr);
}

} // namespace giggle
