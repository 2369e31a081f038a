// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace giggle {

/// The one way to end the program on purpose. In this order it
/// - writes "Fatal error: <message>: file <sourceFile>, line <line>" to standard error,
/// - leaves @p message in the record file, if one is set,
/// - calls the notifier, if one is set,
/// and then aborts. A record that cannot be written (a full disk), a notifier that throws and a fatal error
/// inside the notifier do not keep the program from aborting. Call it as `fatalError(text, __FILE__,
/// __LINE__)`, unless reports know the place by a name and a line of its own.
[[noreturn]] void fatalError(const QString& message, const char* sourceFile, int line);

/// Chooses the file that receives the message of a fatal error; an empty path means none. Its folder must
/// exist. Not thread-safe: call it once at the start.
void setFatalErrorRecord(const QString& path);

/// Installs what tells the user at the moment of the fatal error. It receives the bare message, must return
/// within a few seconds and cannot rely on an event loop. Not thread-safe: call it once at the start.
void setFatalErrorNotifier(std::function<void(const QString& message)> notifier);

/// The message that an earlier fatal error left in the record @p path, and removes the record, so that it is
/// told once. Absent when there is no record or when it is empty.
std::optional<QString> takeFatalErrorRecord(const QString& path);

} // namespace giggle
