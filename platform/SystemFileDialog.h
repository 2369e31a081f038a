// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

namespace giggle {

/// The desktop's own file dialog, for sessions that have one. Lives in the main thread.
class SystemFileDialog {
public:
    SystemFileDialog() = default;
    SystemFileDialog(const SystemFileDialog&) = delete;
    SystemFileDialog& operator=(const SystemFileDialog&) = delete;
    virtual ~SystemFileDialog() = default;

    struct Request {
        QString title;
        QUrl folder;           ///< where the dialog begins, if it can be told
        QString suggestedName; ///< of a file to be saved; without one a file is chosen that exists
    };

    /// The chosen local file, an empty address when the user chose none, or nothing when there was no dialog.
    using Answer = std::function<void(const std::optional<QUrl>& chosen)>;

    /// Whether there is one, as far as is known now: nothing waits for the desktop.
    [[nodiscard]] virtual bool isOffered() const = 0;

    /// Calls @p answer once, later, unless the dialog is closed first. One at a time. The dialog has asked
    /// before it names an existing file for saving.
    virtual void open(const Request& request, Answer answer) = 0;

    /// Puts the dialog away; nobody waits for its answer any more.
    virtual void close() = 0;
};

} // namespace giggle
