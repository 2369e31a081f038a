// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace giggle {

/// Hands files over to the programs that the user opens them with. Lives in the main thread.
class FileOpener {
public:
    FileOpener() = default;
    FileOpener(const FileOpener&) = delete;
    FileOpener& operator=(const FileOpener&) = delete;
    virtual ~FileOpener() = default;

    /// Whether the user has a program for files such as @p path. Asked anew every time. The name decides for
    /// a file that is not there yet.
    [[nodiscard]] virtual bool canOpen(const QString& path) const = 0;

    /// Lets the user choose a program for the file where the desktop can ask, and otherwise opens it with the
    /// usual one. Calls @p finished once, later: with nothing when a program was started or the user chose
    /// none, or with the reason in words. The file must stay: how long the program reads it is not known.
    virtual void open(const QString& path, std::function<void(const QString& failure)> finished) = 0;
};

} // namespace giggle
