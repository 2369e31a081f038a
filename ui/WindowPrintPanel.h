// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PrintPanel.h"
#include "ui/PrintChoices.h"
#include "ui/PrintWorker.h"
#include "ui/PrinterQuestions.h"

#include <QImage>
#include <QObject>
#include <QThread>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <memory>
#include <stop_token>

namespace giggle {

struct Platform;

/// The window's own print panel. The window shows it while `isShown`, and reports what is chosen. Pages are
/// made in a second thread, and the printers are asked in others: the window never waits for any of them.
/// Printers that never answer keep neither the panel from being left nor, for longer than a second, the panel
/// from being destroyed.
class WindowPrintPanel : public QObject, public PrintPanel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool isShown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(QString title READ title NOTIFY shownChanged)
    Q_PROPERTY(bool isForPdfOnly READ isForPdfOnly NOTIFY shownChanged)
    Q_PROPERTY(QStringList printers READ printers NOTIFY choicesChanged)
    Q_PROPERTY(QString printer READ printer NOTIFY choicesChanged)
    Q_PROPERTY(bool canPrint READ canPrint NOTIFY choicesChanged)
    Q_PROPERTY(QString hint READ hint NOTIFY choicesChanged)
    Q_PROPERTY(QStringList papers READ papers NOTIFY choicesChanged)
    Q_PROPERTY(QString paper READ paper NOTIFY choicesChanged)
    Q_PROPERTY(QSizeF paperSize READ paperSize NOTIFY choicesChanged)
    Q_PROPERTY(int copies READ copies WRITE setCopies NOTIFY copiesChanged)
    Q_PROPERTY(int mostCopies MEMBER MostCopies CONSTANT)
    Q_PROPERTY(int page READ page WRITE setPage NOTIFY pagesChanged)
    Q_PROPERTY(int pageCount READ pageCount NOTIFY pagesChanged)
    Q_PROPERTY(QString pageText READ pageText NOTIFY pagesChanged)
    Q_PROPERTY(bool isWorking READ isWorking NOTIFY workChanged)
    Q_PROPERTY(double progress READ progress NOTIFY workChanged)
    Q_PROPERTY(QString workText READ workText NOTIFY workChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY workChanged)

public:
    /// @p platform must outlive the panel; what it holds is asked for each time.
    explicit WindowPrintPanel(const Platform& platform);
    ~WindowPrintPanel() override;

    void present(AttributedText text, const QString& jobName,
                 std::function<void(const PrintOutcome&)> finished) override;
    void makePdf(AttributedText text, const QString& jobName,
                 std::function<void(const PrintOutcome&)> finished) override;

    [[nodiscard]] bool isShown() const { return m_isShown; }

    [[nodiscard]] QString title() const;

    [[nodiscard]] bool isForPdfOnly() const { return m_isForPdfOnly; }

    /// @name What can be chosen, by what the user knows it by, and what is
    /// @{
    [[nodiscard]] QStringList printers() const { return m_choices.printerNames(); }

    [[nodiscard]] QString printer() const;

    [[nodiscard]] bool canPrint() const { return m_choices.printer() != nullptr; }

    /// What to say where there is no printer.
    [[nodiscard]] QString hint() const;

    [[nodiscard]] QStringList papers() const { return m_choices.paperNames(); }

    [[nodiscard]] QString paper() const { return m_choices.paper().name; }

    [[nodiscard]] QSizeF paperSize() const { return m_choices.paper().size; }

    Q_INVOKABLE void choosePrinter(int row);
    Q_INVOKABLE void choosePaper(int row);

    [[nodiscard]] int copies() const { return m_copies; }

    void setCopies(int copies);

    /// @}

    /// @name The pages
    /// @{
    /// The page on show, from 1. It can be turned to those that are counted.
    [[nodiscard]] int page() const { return m_page; }

    void setPage(int page);

    [[nodiscard]] int pageCount() const { return m_pageCount; }

    [[nodiscard]] QString pageText() const;

    /// The page on show, as wide as was wished for; null until it is drawn.
    [[nodiscard]] const QImage& picture() const { return m_picture; }

    void setPictureWidth(int pixels);

    /// @}

    /// @name The work that the user waits for
    /// @{
    [[nodiscard]] bool isWorking() const { return m_work != Work::None; }

    [[nodiscard]] double progress() const { return m_progress.share; }

    [[nodiscard]] QString workText() const;

    /// Why the last work failed, in words, or nothing.
    [[nodiscard]] const QString& failure() const { return m_failure; }

    /// @}

    Q_INVOKABLE void print();
    Q_INVOKABLE void saveAsPdf();

    /// Stops making a file where one is being made; otherwise puts the panel away. A job that a printer has
    /// not taken yet is given up.
    Q_INVOKABLE void cancel();

signals:
    void shownChanged();
    void choicesChanged();
    void copiesChanged();
    void pagesChanged();
    void pictureChanged();
    void workChanged();

private:
    enum class Work { None, Saving, PreparingPrint, Sending };

    static constexpr int MostCopies = 999;

    [[nodiscard]] bool takeText(AttributedText text, const QString& jobName,
                                std::function<void(const PrintOutcome&)> finished);
    void show();
    void close(bool isCompleted, const QString& savedAs = {});
    void lookForPrinters();
    void reopenText();
    void followPaper();
    void askForPicture();
    template <class Request>
    void askWorker(Request request);
    void beginWork(Work work, const QString& path);
    void fail(const QString& failure);
    void send();
    void sent(const QString& description, const QString& failure);
    void countedPages(int number, int pages, bool isAll);
    void workFinished(const PdfOutcome& outcome);

    const Platform& m_platform;
    std::function<void(const PrintOutcome&)> m_finished;
    PrintWorker::Text m_text; ///< null while the panel is away
    QString m_jobName;
    bool m_isShown = false;
    bool m_isForPdfOnly = false;
    bool m_isLooking = false;

    PrintChoices m_choices;
    int m_copies = 1;
    PrintJob m_job;

    int m_number = 0; ///< of the text that the worker has
    Paper m_openPaper;
    int m_page = 1;
    int m_pageCount = 0;
    bool m_isCounted = false;
    QImage m_picture;
    int m_pictureWidth = 0;

    Work m_work = Work::None;
    QString m_workPath;
    PdfProgress m_progress;
    QString m_failure;
    int m_jobNumber = 0;

    PrintWorker m_worker;
    QThread m_thread;
    std::stop_source m_looking;
    std::stop_source m_sending;
    PrinterQuestions m_printerQuestions;
};

} // namespace giggle
