// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

/// Turns the signals by which the system ends a program whose file grows past a limit, or whose console is
/// gone, into ordinary failed writes. Called once, at the start.
void ignoreWriteSignals();

} // namespace giggle
