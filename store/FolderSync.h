// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QString>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace giggle {

/// Waits until the entries of @p folder (files made, renamed or removed in it) are on the disk. File systems
/// that cannot sync a folder count as done. False, with the reason in `errno`, when it fails.
inline bool synchronizeFolder(const QString& folder)
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
