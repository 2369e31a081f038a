// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

/// Turns the signal by which the system ends a program whose file grows past a limit into an ordinary failed
/// write. Called once, at the start.
void ignoreFileSizeSignal();

} // namespace giggle
