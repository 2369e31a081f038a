// SPDX-License-Identifier: MIT
#pragma once

#include "ui/LargeTextModel.h"
#include "ui/Screen.h"

#include <QUrl>

namespace giggle {

/// Loads an exchange file, shows its text, and reads its jokes into the collection. One file is loaded per
/// visit: the user picks it, or it waits in the shared selection when the screen is loaded. The way out of a
/// finished import is the menu.
class ImportViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(bool isImportButtonEnabled READ isImportButtonEnabled NOTIFY buttonsChanged)
    Q_PROPERTY(bool isLoadFileButtonEnabled READ isLoadFileButtonEnabled NOTIFY buttonsChanged)
    Q_PROPERTY(giggle::LargeTextModel* ImportTextView READ importTextView CONSTANT)
    Q_PROPERTY(QString HelpTextView READ helpTextView CONSTANT)

public:
    explicit ImportViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Import Jokes"); }

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;

    /// A file that waits is loaded here if none has been.
    bool answersSegue(SegueId segue) override;

    [[nodiscard]] bool isImportButtonEnabled() const { return m_isFileLoaded; }

    [[nodiscard]] bool isLoadFileButtonEnabled() const { return !m_isFileLoaded; }

    /// The file's text, or why it cannot be read.
    [[nodiscard]] LargeTextModel* importTextView() { return &m_importTextView; }

    [[nodiscard]] static QString helpTextView();

public slots:
    /// The load button: lets the user pick a file.
    void LoadFile();

    /// The import button. A file that could not be read ends the program, and so does a joke line whose id is
    /// none; what stands above that line is saved.
    void ImportTextFile();

signals:
    void buttonsChanged();

private:
    void loadWaitingDocument();
    void didPickDocument(const QUrl& url);
    void loadDocument(const QUrl& url);
    void presentOutcome(bool isWrongFile);

    LargeTextModel::Text m_document; ///< null until a file has been read
    QString m_filename;
    QString m_failure; ///< why there is no document
    LargeTextModel m_importTextView;
    bool m_isFileLoaded = false;
};

} // namespace giggle
