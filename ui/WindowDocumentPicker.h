// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DocumentPicker.h"

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class Navigator;

/// Asks the window for the file dialog, which opens as long as `isOpen` says so, and reports back.
class WindowDocumentPicker : public QObject, public DocumentPicker {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(bool isForSaving READ isForSaving NOTIFY openChanged)
    Q_PROPERTY(QUrl folder READ folder NOTIFY openChanged)
    Q_PROPERTY(QUrl suggestedFile READ suggestedFile NOTIFY openChanged)

public:
    /// @p navigator asks before an existing file is replaced, and outlives the picker.
    explicit WindowDocumentPicker(Navigator& navigator);

    void pickDocument(Answer answer) override;
    void pickPlace(const QString& suggestedName, Answer answer) override;

    [[nodiscard]] bool isOpen() const { return m_answer != nullptr; }

    /// Whether a place for a file is wanted rather than a file.
    [[nodiscard]] bool isForSaving() const { return !m_suggestedName.isEmpty(); }

    /// Where the dialog begins: in the folder of the last choice, at first in the user's documents.
    [[nodiscard]] const QUrl& folder() const { return m_folder; }

    [[nodiscard]] QUrl suggestedFile() const;

    /// The dialog was closed with this choice, or without one. A name that was typed may come as a plain
    /// path.
    Q_INVOKABLE void close(const QUrl& chosen = {});

signals:
    void openChanged();

private:
    void open(const QString& suggestedName, Answer answer);
    void askToReplace(const QUrl& place, Answer answer);

    Navigator& m_navigator;
    Answer m_answer;
    QString m_suggestedName;
    QUrl m_folder;
};

} // namespace giggle
