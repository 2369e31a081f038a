// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <chrono>
#include <functional>

class QObject;

namespace giggle {

/// Starts @p program, which goes on when the application ends. Calls @p done once, later: with false when it
/// cannot be started or ends with an error within @p patience, otherwise with true. Never when @p context is
/// gone by then.
void startProgram(const QString& program, const QStringList& arguments, std::chrono::milliseconds patience,
                  QObject* context, std::function<void(bool isWell)> done);

} // namespace giggle
