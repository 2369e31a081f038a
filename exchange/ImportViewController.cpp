// SPDX-License-Identifier: MIT
#include "exchange/ImportViewController.h"

#include "exchange/format/ExchangeFile.h"
#include "exchange/format/ExchangeReader.h"
#include "platform/DocumentPicker.h"
#include "platform/Platform.h"
#include "store/Console.h"
#include "store/FatalError.h"
#include "ui/SharedSelection.h"
#include "ui/TextOutput.h"

#include <QPointer>

#include <utility>

namespace giggle {

namespace {

// In whose name an import ends the program.
constexpr const char* SourceFile = "Giggle_Archives/ImportViewController";

const QString AlertTitle = QStringLiteral("Data Import");

} // namespace

ImportViewController::ImportViewController(ScreenEnvironment& environment) : Screen(environment)
{
    confirmCopies(m_importTextView, environment.navigator);
}

QString ImportViewController::helpTextView()
{
    return QStringLiteral("YOU CAN ONLY IMPORT THE FILE CREATED BY THIS APP.\n"
                          "1: Select the file you saved to your iCloud drive\n"
                          "2: Import the file into your device");
}

void ImportViewController::viewDidLoad()
{
    loadWaitingDocument();
}

void ImportViewController::viewWillAppear()
{
    // It may be opened from outside, over a screen that has hidden it.
    environment().navigator.setNavigationBarHidden(false);
}

void ImportViewController::viewDidAppear()
{
    loadWaitingDocument(); // it may have come while the page slid in
}

bool ImportViewController::answersSegue(SegueId)
{
    if (m_isFileLoaded)
        return false;
    loadWaitingDocument();
    return true;
}

void ImportViewController::loadWaitingDocument()
{
    if (m_isFileLoaded)
        return;
    const QUrl waiting = std::exchange(environment().selection.DocumentToImport, {});
    if (!waiting.isEmpty())
        didPickDocument(waiting);
}

void ImportViewController::LoadFile()
{
    environment().platform.documentPicker->pickDocument([self = QPointer(this)](const QUrl& chosen) {
        if (self && !chosen.isEmpty())
            self->didPickDocument(chosen);
    });
}

void ImportViewController::didPickDocument(const QUrl& url)
{
    if (m_isFileLoaded) // while the picker was open
        return;
    loadDocument(url);
    m_isFileLoaded = true;
    emit buttonsChanged();
    environment().navigator.present(
        information(AlertTitle, QStringLiteral("File Loaded and Ready to Import")));
}

void ImportViewController::loadDocument(const QUrl& url)
{
    const QString path = url.isLocalFile() ? url.toLocalFile() : url.toString();
    m_filename = url.fileName();
    FileText file = environment().appDelegate.isPartOfCollection(path)
                        ? FileText{{}, QStringLiteral("\"%1\" is the collection itself.").arg(path)}
                        : readUtf8File(path);
    if (file.text) {
        m_document = std::make_shared<const std::string>(std::move(*file.text));
        m_importTextView.setText(m_document);
        return;
    }
    m_failure = file.failure;
    printFailure(m_failure);
    m_importTextView.setText(m_failure.toStdString());
}

void ImportViewController::ImportTextFile()
{
    if (!m_document)
        fatalError(m_failure.isEmpty() ? QStringLiteral("No file has been loaded that could be imported.")
                                       : m_failure,
                   SourceFile, __LINE__);
    ExchangeReader reader(environment().appDelegate, m_filename, SourceFile, __LINE__);
    reader.readJokes(*m_document);
    presentOutcome(reader.wrongFile());
    // Names travel with their jokes. The sections are only looked for, which ends the program where the
    // collection cannot be opened any more.
    reader.readCategories(*m_document, ExchangeReader::NamesFilter::KeepsNothing);
    reader.readRatings(*m_document, ExchangeReader::NamesFilter::KeepsNothing);
}

void ImportViewController::presentOutcome(bool isWrongFile)
{
    const QString message = isWrongFile ? m_filename + QStringLiteral(" Is The Incorrect Import File")
                                        : QStringLiteral("Data Import Completed");
    const auto goToMenu = [self = QPointer(this)] {
        if (self)
            self->environment().navigator.unwind(UnwindRoute::ToMenu);
    };
    environment().navigator.present(information(AlertTitle, message, goToMenu));
}

} // namespace giggle
