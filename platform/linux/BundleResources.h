// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Resources.h"

#include <QStringList>

namespace giggle {

/// Finds resources in folders. An installed file stands before the same one compiled into the program, so
/// that a distribution can replace a resource; the compiled-in ones make the program whole when it runs from
/// its build folder.
class BundleResources : public Resources {
public:
    /// `../share/giggle-archives` seen from the executable, then `:/resources`. Needs the application object.
    static QStringList standardFolders();

    /// Looks through @p folders in their order. Folders that do not exist are fine.
    explicit BundleResources(QStringList folders = standardFolders());

    [[nodiscard]] std::optional<QString> pathForResource(const QString& name,
                                                         const QString& type) const override;

private:
    QStringList m_folders;
};

} // namespace giggle
