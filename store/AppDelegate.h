// SPDX-License-Identifier: MIT
#pragma once

#include "store/PersistentContainer.h"

#include <QString>

#include <functional>
#include <optional>

namespace giggle {

/// Owns the application's one container, which is made when something first asks for it.
class AppDelegate {
public:
    /// The name of the collection, from which its file takes its own.
    static constexpr QLatin1StringView ContainerName{"Giggle_Archives"};

    /// @param collectionFolder where the collection's file lies or will lie
    explicit AppDelegate(const QString& collectionFolder) : m_collectionFolder(collectionFolder) {}

    /// Nothing is done at launch: the collection is opened by the first screen that needs it.
    bool applicationDidFinishLaunching() { return true; }

    /// The container, loaded at the first call. A collection that cannot be loaded ends the program.
    [[nodiscard]] PersistentContainer& persistentContainer();

    /// Saves what has changed, if anything. A failure ends the program; what was saved before is whole.
    void saveContext();

    /// Loads a further container of the same collection and drops it. A collection that cannot be loaded ends
    /// the program in the name of @p sourceFile.
    void loadSecondContainer(const char* sourceFile, int line) const;

    /// Where the collection lies or will lie.
    [[nodiscard]] QString collectionFile() const;

    /// Whether @p path, by whatever name, is one of the collection's own files. No other code may open them:
    /// closing one lets go of the locks that keep other programs from taking the log away.
    [[nodiscard]] bool isPartOfCollection(const QString& path) const;

    /// Hears of every save of the collection that has written something. An empty one hears nothing.
    void setSaveListener(std::function<void()> listener);

private:
    QString m_collectionFolder;
    std::function<void()> m_saveListener;
    std::optional<PersistentContainer> m_persistentContainer;
};

} // namespace giggle
