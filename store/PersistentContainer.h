// SPDX-License-Identifier: MIT
#pragma once

#include "store/ManagedObjectContext.h"

#include <QString>

#include <functional>
#include <memory>

namespace giggle {

/// Opens the collection of a name and hands out the view context over it. Containers of the same name and
/// folder share what the first of them has opened for as long as one of them lives: looking at the file a
/// second time would let go of the locks that the first holds on it. Main thread only.
class PersistentContainer {
public:
    /// Told the outcome of loading: nullptr when all went well.
    using CompletionHandler = std::function<void(const StoreError* error)>;

    /// @param folder where the file "<name>.sqlite" lies or will lie. Nothing is opened yet.
    PersistentContainer(const QString& name, const QString& folder);

    /// Opens the file and calls the handler before it returns. Loading again does nothing.
    void loadPersistentStores(const CompletionHandler& completionHandler);

    /// The context; only after loading went well.
    [[nodiscard]] ManagedObjectContext& viewContext() const { return *m_viewContext; }

    [[nodiscard]] const QString& path() const { return m_path; }

private:
    QString m_path;
    std::shared_ptr<ManagedObjectContext> m_viewContext;
};

} // namespace giggle
