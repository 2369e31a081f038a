// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace giggle {

/// Lets the user choose a file, or a place for one. Lives in the main thread; one dialog at a time: a second
/// request is dropped while the window's own dialog is open, and puts another one away.
class DocumentPicker {
public:
    DocumentPicker() = default;
    DocumentPicker(const DocumentPicker&) = delete;
    DocumentPicker& operator=(const DocumentPicker&) = delete;
    virtual ~DocumentPicker() = default;

    /// What becomes of the dialog: the chosen place, or nothing when it was cancelled.
    using Answer = std::function<void(const QUrl& chosen)>;

    /// Any file that exists. @p answer must not outlive what it refers to: capture weakly.
    virtual void pickDocument(Answer answer) = 0;

    /// A place for a file to be; the dialog has asked before an existing one is named.
    virtual void pickPlace(const QString& suggestedName, Answer answer) = 0;
};

} // namespace giggle
