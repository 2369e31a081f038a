// SPDX-License-Identifier: MIT
#include "store/FileIdentity.h"

#include <QFile>

#include <sys/stat.h>

namespace giggle {

std::optional<FileIdentity> identityOfFile(const QString& path)
{
    struct stat status {};

    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

} // namespace giggle
