// SPDX-License-Identifier: MIT
#include "store/FolderSync.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace giggle {

std::optional<QString> makeFolder(const QString& folder)
{
    const QFileInfo info(folder);
    if (info.isDir())
        return std::nullopt;
    const QString parent = info.path();
    if (parent != folder) {
        if (auto reason = makeFolder(parent))
            return reason;
    }
    if (::mkdir(QFile::encodeName(folder).constData(), 0700) != 0) {
        const int error = errno;
        if (error != EEXIST || !QFileInfo(folder).isDir())
            return QStringLiteral("%1: %2").arg(folder, qt_error_string(error));
    }
    synchronizeFolder(parent);
    return std::nullopt;
}

bool synchronizeFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    errno = error;
    return error == 0 || error == EINVAL;
}

} // namespace giggle
