// SPDX-License-Identifier: MIT
#include "exchange/ExportViewController.h"

#include "exchange/format/ExchangeFile.h"
#include "exchange/format/ExchangeWriter.h"
#include "platform/Platform.h"
#include "platform/ShareSheet.h"
#include "store/Console.h"
#include "store/FatalError.h"
#include "store/ManagedObjectContext.h"
#include "store/StoreError.h"
#include "ui/AtomicFile.h"
#include "ui/MainQueue.h"
#include "ui/StoreCalls.h"
#include "ui/TextOutput.h"

#include <QDir>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <set>
#include <utility>

namespace giggle {

namespace {

using namespace std::chrono_literals;

const QString FileName = QStringLiteral("GiggleArchives.csv");

// The bar is full after ten jokes, however many there are.
constexpr std::int64_t TotalUnitCount = 10;

/// Everything but Save to Files and Open With: mail has a button of its own.
const std::set ExcludedActivities = {ShareActivity::Copy, ShareActivity::Mail, ShareActivity::Message,
                                     ShareActivity::Print, ShareActivity::SaveAsPdf};

template <class Record>
std::vector<Record*> required(ManagedObjectContext& context, const FetchRequest<Record>& request)
{
    try {
        return context.fetch(request);
    } catch (const StoreError& error) {
        fatalError(QStringLiteral("The collection cannot be exported: %1").arg(error.localizedDescription()),
                   __FILE__, __LINE__);
    }
}

} // namespace

ExportViewController::ExportViewController(ScreenEnvironment& environment) : Screen(environment)
{
    confirmCopies(m_exportTextView, environment.navigator);
}

QString ExportViewController::helpTextView()
{
    return QStringLiteral("Step 1: Create the Export File\n"
                          "Step 2: Option 1: Click 'Save To Files' button\n"
                          "             Option 2: Click the Email File button to email the file to yourself "
                          "and then from your email save the file to your iCloud Drive. There are size "
                          "limits to email attachments for most carriers.");
}

void ExportViewController::viewDidAppear()
{
    environment().mainQueue.async([self = QPointer(this)] {
        if (self)
            loggingFailure([&] { (void)self->viewContext().fetch(ExchangeWriter::jokesRequest()); });
    });
}

void ExportViewController::CreateUpdateFile()
{
    setActivityIndicatorAnimating(true);
    m_isExportButtonEnabled = false;
    emit buttonsChanged();

    ExchangeWriter writer;
    writeJokes(writer);
    writeCategories(writer);
    writeRatings(writer);
    m_dataString = std::make_shared<const std::string>(std::move(writer).text());
    m_exportTextView.setText(m_dataString);
    m_areHandOnButtonsEnabled = true;
    emit buttonsChanged();
    presentCompletion();

    environment().mainQueue.asyncAfter(1ms, [self = QPointer(this)] {
        if (self)
            self->setActivityIndicatorAnimating(false);
    });
}

void ExportViewController::writeJokes(ExchangeWriter& writer)
{
    m_theEntryList = required(viewContext(), ExchangeWriter::jokesRequest());
    beginStep();
    writer.writeJokes(m_theEntryList);
    // One by one as far as the bar can tell them apart, the others together.
    const auto jokes = static_cast<std::int64_t>(m_theEntryList.size());
    for (std::int64_t i = 0; i < std::min(jokes, TotalUnitCount); ++i)
        queueProgress(1);
    if (jokes > TotalUnitCount)
        queueProgress(jokes - TotalUnitCount);
}

void ExportViewController::writeCategories(ExchangeWriter& writer)
{
    m_theCategoryList = required(viewContext(), ExchangeWriter::categoriesRequest());
    beginStep();
    writer.writeCategories(m_theCategoryList);
    // Categories do not count; they only have the bar drawn again.
    if (!m_theCategoryList.empty())
        queueProgress(0);
}

void ExportViewController::writeRatings(ExchangeWriter& writer)
{
    m_theRatingList = required(viewContext(), ExchangeWriter::ratingsRequest());
    beginStep();
    writer.writeRatings(m_theRatingList);
}

void ExportViewController::beginStep()
{
    m_exportTextView.setText(std::string());
    m_completedUnitCount = 0;
    showProgress();
}

void ExportViewController::queueProgress(std::int64_t completedUnits)
{
    environment().mainQueue.async([self = QPointer(this), completedUnits] {
        if (!self)
            return;
        self->m_completedUnitCount += completedUnits;
        self->showProgress();
    });
}

void ExportViewController::showProgress()
{
    const double fractionCompleted =
        static_cast<double>(m_completedUnitCount) / static_cast<double>(TotalUnitCount);
    const double shown = std::min(fractionCompleted, 1.0);
    if (std::exchange(m_progressView, shown) != shown)
        emit progressViewChanged();
}

void ExportViewController::setActivityIndicatorAnimating(bool animating)
{
    if (std::exchange(m_isActivityIndicatorAnimating, animating) != animating)
        emit activityIndicatorChanged();
}

void ExportViewController::presentCompletion()
{
    environment().mainQueue.asyncAfter(1s, [self = QPointer(this)] {
        if (self)
            self->environment().navigator.present(
                information(QStringLiteral("Data Export"),
                            QStringLiteral("Process Complete - File Ready to Save to Files or Email")));
    });
}

QString ExportViewController::filePath() const
{
    return QDir(environment().platform.temporaryFolder).filePath(FileName);
}

void ExportViewController::SaveToFiles()
{
    if (!m_dataString)
        fatalError(QStringLiteral("There is no exported text that could be saved."), __FILE__, __LINE__);
    const QString path = filePath();
    if (const QString failure = writeAtomically(path, *m_dataString); !failure.isEmpty())
        printFailure(failure);
    environment().platform.shareSheet->present({SharedFile{path}}, ExcludedActivities);
}

void ExportViewController::WriteTextFile()
{
    const QString path = filePath();
    (void)writeAtomically(path, *m_exportTextView.text()); // the mail shows what came of it
    showWritten(path);
    sendMail(environment(), [path] {
        Mail mail;
        mail.subject = QStringLiteral("Giggle Archives Update Text File");
        mail.body = QStringLiteral("Attachment: Giggle Archives Text File");
        mail.attachments = attachmentOf(path, QStringLiteral("csv"), FileName);
        return mail;
    });
}

void ExportViewController::showWritten(const QString& path)
{
    FileText written = readUtf8File(path);
    // The same text keeps its place in the view.
    if (written.text && *written.text != *m_exportTextView.text())
        m_exportTextView.setText(std::move(*written.text));
}

} // namespace giggle
