// SPDX-License-Identifier: MIT
#include "store/AppDelegate.h"

#include "store/FatalError.h"
#include "store/FileIdentity.h"

#include <utility>

namespace giggle {

namespace {

// By these two stops are known in reports. They are fixed names, not lines of this file.
constexpr const char* SourceFile = "AppDelegate";
constexpr int LoadLine = 45;
constexpr int SaveLine = 62;

PersistentContainer::CompletionHandler endProgramOnError(const char* sourceFile, int line)
{
    return [=](const StoreError* error) {
        if (error)
            fatalError(error->unresolvedErrorMessage(), sourceFile, line);
    };
}

} // namespace

PersistentContainer& AppDelegate::persistentContainer()
{
    if (!m_persistentContainer) {
        m_persistentContainer.emplace(ContainerName, m_collectionFolder);
        m_persistentContainer->loadPersistentStores(endProgramOnError(SourceFile, LoadLine));
        m_persistentContainer->viewContext().setSaveListener(m_saveListener);
    }
    return *m_persistentContainer;
}

void AppDelegate::saveContext()
{
    ManagedObjectContext& context = persistentContainer().viewContext();
    if (!context.hasChanges())
        return;
    try {
        context.save();
    } catch (const StoreError& error) {
        fatalError(error.unresolvedErrorMessage(), SourceFile, SaveLine);
    }
}

QString AppDelegate::collectionFile() const
{
    return PersistentContainer(ContainerName, m_collectionFolder).path();
}

bool AppDelegate::isPartOfCollection(const QString& path) const
{
    const std::optional<FileIdentity> asked = identityOfFile(path);
    const QString file = collectionFile();
    return asked &&
           (asked == identityOfFile(file) || asked == identityOfFile(file + QStringLiteral("-wal")) ||
            asked == identityOfFile(file + QStringLiteral("-shm")));
}

void AppDelegate::setSaveListener(std::function<void()> listener)
{
    m_saveListener = std::move(listener);
    if (m_persistentContainer)
        m_persistentContainer->viewContext().setSaveListener(m_saveListener);
}

void AppDelegate::loadSecondContainer(const char* sourceFile, int line) const
{
    PersistentContainer(ContainerName, m_collectionFolder)
        .loadPersistentStores(endProgramOnError(sourceFile, line));
}

} // namespace giggle
