// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"

#include <QSizeF>
#include <QString>

#include <functional>

namespace giggle {

/// How far the making of a PDF file has come.
struct PdfProgress {
    int pages = 0;
    double share = 0; ///< of the text, from 0 to 1
};

struct PdfOutcome {
    bool isCancelled = false;
    QString failure; ///< in words; empty where there was none
    int pages = 0;
};

/// Makes a PDF file of @p text, on paper of that size in points, at @p path. A file that was there is
/// replaced when the new one is whole; on failure, or when @p mayGoOn returns false, it stays and nothing
/// else is left.
///
/// Calls @p mayGoOn in this thread before each page. May run in any thread; needs a QGuiApplication. The
/// memory that it takes does not grow with the number of pages; docs/performance.md says how fast it is.
[[nodiscard]] PdfOutcome makePdfFile(const AttributedText& text, QSizeF paper, const QString& title,
                                     const QString& path,
                                     const std::function<bool(PdfProgress)>& mayGoOn = {});

} // namespace giggle
