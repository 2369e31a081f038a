// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DocumentPicker.h"

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace giggle {

struct DocumentChoice;
class Navigator;
class SystemFileDialog;

/// Lets files and places for them be chosen: in the desktop's file dialog where it has one, else in the
/// window's own, which the window shows while `isShown`. Before an existing file is named for saving the user
/// is asked; who keeps the file is back in the dialog.
class WindowDocumentPicker : public QObject, public DocumentPicker {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(bool isShown READ isShown NOTIFY openChanged)
    Q_PROPERTY(bool isForSaving READ isForSaving NOTIFY openChanged)
    Q_PROPERTY(QString title READ title NOTIFY openChanged)
    Q_PROPERTY(QUrl folder READ folder NOTIFY folderChanged)
    Q_PROPERTY(QString folderPath READ folderPath NOTIFY folderChanged)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY folderChanged)
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)
    Q_PROPERTY(int stemLength READ stemLength NOTIFY fileNameChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
    Q_PROPERTY(QStringList places READ places NOTIFY openChanged)

public:
    /// @p navigator asks before an existing file is replaced, and outlives the picker.
    explicit WindowDocumentPicker(Navigator& navigator);

    /// The desktop's dialog, which outlives the picker, or none.
    void setSystemDialog(SystemFileDialog* dialog) { m_systemDialog = dialog; }

    void pickDocument(Answer answer) override;
    void pickPlace(const QString& suggestedName, Answer answer) override;

    /// Whether the window's own dialog, or its question before replacing, waits for the user. The desktop's
    /// dialog leaves the window usable: who asks for a file once more gets the window's dialog instead.
    [[nodiscard]] bool isOpen() const { return m_answer && !m_isWithSystem; }

    /// Whether the window's own dialog is wanted.
    [[nodiscard]] bool isShown() const { return m_isShown; }

    /// Whether a place for a file is wanted rather than a file. Stays, like the title, while the dialog
    /// fades.
    [[nodiscard]] bool isForSaving() const { return !m_suggestedName.isEmpty(); }

    [[nodiscard]] QString title() const;

    /// The folder that is looked into: at first the user's documents, then the one of the last time.
    /// @{
    [[nodiscard]] QUrl folder() const { return QUrl::fromLocalFile(m_folder); }

    [[nodiscard]] const QString& folderPath() const { return m_folder; }

    /// @}

    [[nodiscard]] bool canGoUp() const { return m_folder != QLatin1StringView("/"); }

    /// What the name field holds. DocumentChoice says what it may be.
    /// @{
    [[nodiscard]] const QString& fileName() const { return m_fileName; }

    void setFileName(const QString& name);
    /// @}

    /// How much of the name stands before its suffix.
    [[nodiscard]] int stemLength() const;

    /// Why the last wish could not be fulfilled, or nothing.
    [[nodiscard]] const QString& problem() const { return m_problem; }

    /// "Home" and its like, those that the user has.
    [[nodiscard]] QStringList places() const;

    Q_INVOKABLE void goToPlace(const QString& name);

    Q_INVOKABLE void goUp();

    /// A row was pressed: enters a folder. A file's name goes into the field; at the second press a file to
    /// be loaded is chosen.
    Q_INVOKABLE void press(const QString& name);

    /// A row was meant as it is: enters a folder, chooses a file to be loaded. A file that could be replaced
    /// only lends its name.
    Q_INVOKABLE void activate(const QString& name);

    /// Takes what the name field holds, or says what is wrong with it.
    Q_INVOKABLE void accept();

    Q_INVOKABLE void cancel();

signals:
    void openChanged();
    void folderChanged();
    void fileNameChanged();
    /// The field holds a name that was not the user's idea.
    void nameOffered();
    void problemChanged();

private:
    void open(const QString& suggestedName, Answer answer);
    void askSystem();
    void setShown(bool isShown);
    void take(const DocumentChoice& choice);
    void enter(const QString& folder);
    void offerName();
    void setProblem(const QString& problem);
    void askToReplace(const QString& path);
    void finish(const QUrl& chosen);

    Navigator& m_navigator;
    SystemFileDialog* m_systemDialog = nullptr;
    Answer m_answer;
    bool m_isShown = false;
    bool m_isWithSystem = false;
    QString m_suggestedName;
    QString m_folder;
    QString m_fileName;
    QString m_offeredName;
    QString m_problem;
};

} // namespace giggle
