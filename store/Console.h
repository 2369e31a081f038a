// SPDX-License-Identifier: MIT
#pragma once

class QString;

namespace giggle {

/// Writes @p line and a line break to standard output in UTF-8 and flushes it, so that a reader at the other
/// end of a pipe sees the line at once and a later abort cannot swallow it. Failures to write are ignored.
void printToConsole(const QString& line);

/// The same for standard error: what went wrong but does not end the program.
void printFailure(const QString& line);

} // namespace giggle
