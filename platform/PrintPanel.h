// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"

#include <QString>

#include <functional>

namespace giggle {

/// How a print panel was left.
struct PrintOutcome {
    bool isCompleted = false; ///< false where the user has cancelled
    QString failure;          ///< in words; empty where there was none
    QString savedAs{};        ///< the name of the PDF file; empty where none was made
};

/// The panel in which the user chooses a printer, the number of copies and the paper, looks at the pages and
/// prints them or makes a PDF file of them. Lives in the main thread; one panel at a time: a second request
/// while one is open is dropped.
class PrintPanel {
public:
    PrintPanel() = default;
    PrintPanel(const PrintPanel&) = delete;
    PrintPanel& operator=(const PrintPanel&) = delete;
    virtual ~PrintPanel() = default;

    /// Shows the panel for @p text under @p jobName. Calls @p finished once, later, when the panel is left
    /// and the work that it began is done; @p finished must not outlive what it refers to: capture weakly.
    virtual void present(AttributedText text, const QString& jobName,
                         std::function<void(const PrintOutcome&)> finished) = 0;

    /// Makes a PDF file of @p text: asks for the place at once, and shows the panel only while there is
    /// something to wait for or to be said. Otherwise as `present`.
    virtual void makePdf(AttributedText text, const QString& jobName,
                         std::function<void(const PrintOutcome&)> finished) = 0;
};

} // namespace giggle
