// SPDX-License-Identifier: MIT
#include "ui/WindowPrintPanel.h"

#include "platform/DocumentPicker.h"
#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace giggle {

WindowPrintPanel::WindowPrintPanel(const Platform& platform) : m_platform(platform)
{
    m_worker.moveToThread(&m_thread);
    connect(&m_worker, &PrintWorker::counted, this, &WindowPrintPanel::countedPages);
    connect(&m_worker, &PrintWorker::drawn, this, [this](int number, int page, const QImage& image) {
        if (number != m_number || page != m_page - 1)
            return;
        m_picture = image;
        emit pictureChanged();
    });
    connect(&m_worker, &PrintWorker::advanced, this, [this](const PdfProgress& progress) {
        m_progress = progress;
        emit workChanged();
    });
    connect(&m_worker, &PrintWorker::finished, this, &WindowPrintPanel::workFinished);
}

WindowPrintPanel::~WindowPrintPanel()
{
    m_worker.stop();
    m_looking.request_stop();
    m_sending.request_stop();
    m_thread.quit();
    m_thread.wait();
}

void WindowPrintPanel::present(AttributedText text, const QString& jobName,
                               std::function<void(const PrintOutcome&)> finished)
{
    if (!takeText(std::move(text), jobName, std::move(finished)))
        return;
    m_isForPdfOnly = false;
    show();
    lookForPrinters();
}

void WindowPrintPanel::makePdf(AttributedText text, const QString& jobName,
                               std::function<void(const PrintOutcome&)> finished)
{
    if (!takeText(std::move(text), jobName, std::move(finished)))
        return;
    m_isForPdfOnly = true;
    saveAsPdf();
}

bool WindowPrintPanel::takeText(AttributedText text, const QString& jobName,
                                std::function<void(const PrintOutcome&)> finished)
{
    if (m_text) {
        if (m_isShown || isWorking())
            return false;
        close(false); // it waits for a file dialog of the desktop that nobody may find any more
    }
    m_text = std::make_shared<const AttributedText>(std::move(text));
    m_jobName = jobName;
    m_finished = std::move(finished);
    m_copies = 1;
    m_failure.clear();
    if (!m_thread.isRunning())
        m_thread.start();
    reopenText();
    return true;
}

void WindowPrintPanel::show()
{
    if (m_isShown)
        return;
    m_isShown = true;
    emit shownChanged();
    emit choicesChanged();
    emit copiesChanged();
    emit workChanged();
}

void WindowPrintPanel::close(bool isCompleted, const QString& savedAs)
{
    m_text.reset();
    reopenText();
    m_isShown = false;
    emit shownChanged();
    const auto finished = std::exchange(m_finished, {});
    const PrintOutcome outcome{
        .isCompleted = isCompleted, .failure = isCompleted ? QString() : m_failure, .savedAs = savedAs};
    // A caller may present the panel anew.
    if (finished)
        QMetaObject::invokeMethod(
            this, [finished, outcome] { finished(outcome); }, Qt::QueuedConnection);
}

QString WindowPrintPanel::title() const
{
    return m_isForPdfOnly ? QStringLiteral("Save as PDF") : QStringLiteral("Print");
}

template <class Request>
void WindowPrintPanel::askWorker(Request request)
{
    QMetaObject::invokeMethod(&m_worker, std::move(request), Qt::QueuedConnection);
}

void WindowPrintPanel::lookForPrinters()
{
    if (!m_platform.printers || std::exchange(m_isLooking, true))
        return;
    emit choicesChanged();
    const auto look = [stop = m_looking.get_token()](Printers& printers) { return printers.available(stop); };
    m_printerQuestions.ask(m_platform.printers->share(), look, [this](const std::vector<Printer>& found) {
        m_isLooking = false;
        m_choices.setPrinters(found);
        emit choicesChanged();
        followPaper();
    });
}

QString WindowPrintPanel::printer() const
{
    const Printer* chosen = m_choices.printer();
    return chosen ? chosen->description : QStringLiteral("No printer");
}

QString WindowPrintPanel::hint() const
{
    if (canPrint())
        return {};
    return m_isLooking ? QStringLiteral("Looking for printers\u2026")
                       : QStringLiteral("There is no printer. The pages can be saved as a PDF file.");
}

void WindowPrintPanel::choosePrinter(int row)
{
    m_choices.choosePrinter(row);
    emit choicesChanged();
    followPaper();
}

void WindowPrintPanel::choosePaper(int row)
{
    m_choices.choosePaper(row);
    emit choicesChanged();
    followPaper();
}

void WindowPrintPanel::setCopies(int copies)
{
    const int possible = std::clamp(copies, 1, MostCopies);
    if (std::exchange(m_copies, possible) != possible || possible != copies)
        emit copiesChanged();
}

/// Has the text, or none, broken into pages anew.
void WindowPrintPanel::reopenText()
{
    ++m_number;
    m_page = 1;
    m_pageCount = 0;
    m_isCounted = false;
    m_openPaper = m_choices.paper();
    askWorker([worker = &m_worker, number = m_number, text = m_text, size = m_openPaper.size] {
        worker->open(number, text, size);
    });
    if (m_text && !m_isForPdfOnly)
        askForPicture();
    emit pagesChanged();
}

/// Breaks the text into pages of the chosen paper. Work that has begun is done on the paper it began with.
void WindowPrintPanel::followPaper()
{
    if (m_text && !isWorking() && m_openPaper != m_choices.paper())
        reopenText();
}

void WindowPrintPanel::countedPages(int number, int pages, bool isAll)
{
    if (number != m_number)
        return;
    m_pageCount = pages;
    m_isCounted = isAll;
    emit pagesChanged();
}

void WindowPrintPanel::setPage(int page)
{
    const int possible = std::clamp(page, 1, qMax(1, m_pageCount));
    if (std::exchange(m_page, possible) == possible)
        return;
    askForPicture();
    emit pagesChanged();
}

QString WindowPrintPanel::pageText() const
{
    const QLocale locale;
    if (!m_isCounted)
        return QStringLiteral("Page %1").arg(locale.toString(m_page));
    return QStringLiteral("Page %1 of %2").arg(locale.toString(m_page), locale.toString(m_pageCount));
}

void WindowPrintPanel::setPictureWidth(int pixels)
{
    if (std::exchange(m_pictureWidth, pixels) != pixels)
        askForPicture();
}

void WindowPrintPanel::askForPicture()
{
    if (m_text && m_pictureWidth > 0)
        askWorker(
            [worker = &m_worker, page = m_page - 1, width = m_pictureWidth] { worker->draw(page, width); });
}

QString WindowPrintPanel::workText() const
{
    switch (m_work) {
    case Work::None:
        return {};
    case Work::Sending:
        return QStringLiteral("Sending the pages to the printer\u2026");
    case Work::Saving:
    case Work::PreparingPrint:
        break;
    }
    return QStringLiteral("Page %1").arg(QLocale().toString(m_progress.pages));
}

void WindowPrintPanel::print()
{
    if (!m_text || isWorking() || !canPrint())
        return;
    // A job that was given up may still have its file open.
    const QString file = QStringLiteral("print-%1.pdf").arg(++m_jobNumber);
    m_job = {.printer = m_choices.printer()->name,
             .file = QDir(m_platform.temporaryFolder).filePath(file),
             .title = m_jobName,
             .copies = m_copies,
             .media = m_choices.paper().media};
    beginWork(Work::PreparingPrint, m_job.file);
}

void WindowPrintPanel::saveAsPdf()
{
    if (!m_text || isWorking())
        return;
    const QString name = QString(m_jobName).replace(u'/', u'-') + QStringLiteral(".pdf");
    m_platform.documentPicker->pickPlace(name, [self = QPointer(this), text = m_text](const QUrl& place) {
        // The desktop's dialog leaves the panel usable: it may have another text by now, or be at work.
        if (!self || self->m_text != text || self->isWorking())
            return;
        if (place.isLocalFile())
            self->beginWork(Work::Saving, place.toLocalFile());
        else if (!place.isEmpty())
            self->fail(QStringLiteral("\"%1\" is no place on this device.").arg(place.toDisplayString()));
        else if (!self->m_isShown)
            self->close(false);
    });
}

void WindowPrintPanel::beginWork(Work work, const QString& path)
{
    m_work = work;
    m_workPath = path;
    m_progress = {};
    m_failure.clear();
    m_worker.goOn();
    askWorker([worker = &m_worker, title = m_jobName, path] { worker->makePdf(title, path); });
    show();
    emit workChanged();
}

void WindowPrintPanel::fail(const QString& failure)
{
    m_work = Work::None;
    m_failure = failure;
    show();
    emit workChanged();
    followPaper();
}

void WindowPrintPanel::workFinished(const PdfOutcome& outcome)
{
    const Work work = m_work;
    if (outcome.isCancelled || !outcome.failure.isEmpty()) {
        fail(outcome.failure);
        if (outcome.isCancelled && m_isForPdfOnly)
            close(false);
    } else if (work == Work::PreparingPrint) {
        send();
    } else {
        m_work = Work::None;
        close(true, QFileInfo(m_workPath).fileName());
    }
}

void WindowPrintPanel::send()
{
    m_work = Work::Sending;
    m_progress.share = 1;
    emit workChanged();
    m_sending = std::stop_source();
    const auto hand = [job = m_job, stop = m_sending.get_token()](Printers& printers) {
        const QString failure = printers.print(job, stop);
        QFile::remove(job.file);
        return failure;
    };
    m_printerQuestions.ask(m_platform.printers->share(), hand,
                           [this, number = m_jobNumber, description = printer()](const QString& failure) {
                               if (number == m_jobNumber)
                                   sent(description, failure);
                           });
}

void WindowPrintPanel::sent(const QString& description, const QString& failure)
{
    m_work = Work::None;
    if (failure.isEmpty()) {
        close(true);
        return;
    }
    fail(QStringLiteral("\"%1\" cannot print: %2").arg(description, failure));
    lookForPrinters(); // it may be gone
}

void WindowPrintPanel::cancel()
{
    if (!m_text)
        return;
    if (m_work == Work::Saving || m_work == Work::PreparingPrint) {
        m_worker.stop();
        return;
    }
    if (std::exchange(m_work, Work::None) == Work::Sending) {
        m_sending.request_stop();
        ++m_jobNumber; // its answer is nobody's any more
    }
    close(false);
}

} // namespace giggle
