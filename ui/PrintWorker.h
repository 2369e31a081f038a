// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PageBreaker.h"
#include "ui/PdfFile.h"

#include <QImage>
#include <QObject>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace giggle {

/// Breaks a text into pages and draws them, in a thread of its own with an event loop: its functions are
/// called there, and only `stop` and `goOn` anywhere. Counting pages never keeps another request waiting for
/// long.
///
/// What it reports carries the number of the text that it is about, as `open` was given it.
class PrintWorker : public QObject {
    Q_OBJECT

public:
    using Text = std::shared_ptr<const AttributedText>;

    PrintWorker() : m_geometry({}) {}

    /// Begins with another text or another paper, and counts its pages. No text frees what the last one took.
    void open(int number, const Text& text, QSizeF paper);

    /// Draws the page, from 0, that many pixels wide. A page that is not counted yet is left out.
    void draw(int page, int width);

    /// Makes a PDF file of the text. `stop` ends it.
    void makePdf(const QString& title, const QString& path);

    void stop() { m_mayGoOn = false; }

    /// Takes back a `stop`. Comes before the request that may be stopped.
    void goOn() { m_mayGoOn = true; }

signals:
    void counted(int number, int pages, bool isAll);
    void drawn(int number, int page, const QImage& image);
    void advanced(const giggle::PdfProgress& progress);
    void finished(const giggle::PdfOutcome& outcome);

private:
    void count(int number);
    void countOnePage();
    void tellCount();
    void countLater();

    int m_number = 0;
    Text m_text;
    PageGeometry m_geometry;
    std::optional<PageBreaker> m_breaker;
    std::vector<PageStart> m_pages;
    std::atomic<bool> m_mayGoOn = true;
};

} // namespace giggle
