// SPDX-License-Identifier: MIT
#include "ui/PrintWorker.h"

#include <QElapsedTimer>
#include <QPainter>

#include <utility>

namespace giggle {

namespace {

constexpr int CountingMilliseconds = 20;
constexpr int ReportMilliseconds = 100;

} // namespace

void PrintWorker::open(int number, const Text& text, QSizeF paper)
{
    m_number = number;
    m_pages.clear();
    m_breaker.reset();
    m_text = text;
    if (!m_text)
        return;
    m_geometry = PageGeometry(paper);
    m_breaker.emplace(*m_text, m_geometry);
    countOnePage();
    tellCount();
    countLater();
}

void PrintWorker::countOnePage()
{
    m_pages.push_back(m_breaker->start());
    (void)m_breaker->next();
}

void PrintWorker::tellCount()
{
    emit counted(m_number, static_cast<int>(m_pages.size()), m_breaker->isAtEnd());
}

void PrintWorker::countLater()
{
    QMetaObject::invokeMethod(
        this, [this, number = m_number] { count(number); }, Qt::QueuedConnection);
}

void PrintWorker::count(int number)
{
    if (number != m_number || !m_breaker || m_breaker->isAtEnd())
        return;
    QElapsedTimer time;
    time.start();
    while (!m_breaker->isAtEnd() && time.elapsed() < CountingMilliseconds)
        countOnePage();
    tellCount();
    countLater();
}

void PrintWorker::draw(int page, int width)
{
    if (!m_text || page < 0 || std::cmp_greater_equal(page, m_pages.size()) || width < 1)
        return;
    const double scale = width / m_geometry.paper.width();
    QImage image(width, qMax(1, qRound(m_geometry.paper.height() * scale)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    PageBreaker breaker(*m_text, m_geometry, m_pages[static_cast<std::size_t>(page)]);
    if (const std::optional<TextPage> drawing = breaker.next())
        drawing->draw(painter, m_geometry, page + 1);
    painter.end();
    emit drawn(m_number, page, image);
}

void PrintWorker::makePdf(const QString& title, const QString& path)
{
    QElapsedTimer sinceReport;
    sinceReport.start();
    const auto mayGoOn = [&](PdfProgress progress) {
        if (sinceReport.elapsed() >= ReportMilliseconds) {
            emit advanced(progress);
            sinceReport.restart();
        }
        return m_mayGoOn.load();
    };
    emit finished(m_text ? makePdfFile(*m_text, m_geometry.paper, title, path, mayGoOn) : PdfOutcome());
}

} // namespace giggle
