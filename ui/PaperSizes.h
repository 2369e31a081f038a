// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"

#include <QLocale>

#include <vector>

namespace giggle {

/// The sizes of paper that are in use everywhere, for PDF files and for printers that do not tell theirs.
[[nodiscard]] std::vector<Paper> usualPapers();

/// The name for printers of the paper that is used where @p locale is spoken: letter in most of America, A4
/// elsewhere.
[[nodiscard]] QString usualMedia(const QLocale& locale);

} // namespace giggle
