// SPDX-License-Identifier: MIT
#include "platform/linux/BundleResources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <utility>

namespace giggle {

QStringList BundleResources::standardFolders()
{
    const QDir executableFolder(QCoreApplication::applicationDirPath());
    return {QDir::cleanPath(executableFolder.filePath(QStringLiteral("../share/giggle-archives"))),
            QStringLiteral(":/resources")};
}

BundleResources::BundleResources(QStringList folders) : m_folders(std::move(folders)) {}

std::optional<QString> BundleResources::pathForResource(const QString& name, const QString& type) const
{
    for (const QString& folder : m_folders) {
        const QString path = QStringLiteral("%1/%2.%3").arg(folder, name, type);
        if (QFileInfo(path).isFile())
            return path;
    }
    return std::nullopt;
}

} // namespace giggle
