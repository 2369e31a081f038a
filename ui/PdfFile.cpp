// SPDX-License-Identifier: MIT
#include "ui/PdfFile.h"

#include "ui/PageBreaker.h"

#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace giggle {

namespace {

constexpr int PointsPerInch = 72;

void prepare(QPdfWriter& writer, QSizeF paper, const QString& title)
{
    writer.setResolution(PointsPerInch);
    writer.setTitle(title);
    // A size that has a name would be made exactly as large as the name says.
    writer.setPageLayout(QPageLayout(QPageSize(paper, QPageSize::Point, {}, QPageSize::ExactMatch),
                                     QPageLayout::Portrait, {}, QPageLayout::Point));
}

/// Draws all pages, as long as the file takes them and nobody says stop.
PdfOutcome drawPages(QPdfWriter& writer, const QFileDevice& file, const AttributedText& text,
                     const PageGeometry& geometry, const std::function<bool(PdfProgress)>& mayGoOn)
{
    PdfOutcome outcome;
    PageBreaker breaker(text, geometry);
    QPainter painter(&writer);
    while (!breaker.isAtEnd() && file.error() == QFileDevice::NoError) {
        if (mayGoOn && !mayGoOn({.pages = outcome.pages, .share = breaker.share()})) {
            outcome.isCancelled = true;
            break;
        }
        if (outcome.pages > 0)
            writer.newPage();
        if (const std::optional<TextPage> page = breaker.next())
            page->draw(painter, geometry, ++outcome.pages);
    }
    return outcome;
}

} // namespace

PdfOutcome makePdfFile(const AttributedText& text, QSizeF paper, const QString& title, const QString& path,
                       const std::function<bool(PdfProgress)>& mayGoOn)
{
    QSaveFile file(path);
    PdfOutcome outcome;
    if (file.open(QIODevice::WriteOnly)) {
        {
            const PageGeometry geometry(paper);
            QPdfWriter writer(&file);
            prepare(writer, geometry.paper, title);
            outcome = drawPages(writer, file, text, geometry, mayGoOn);
        }
        if (outcome.isCancelled || file.commit())
            return outcome;
    }
    outcome.failure = QStringLiteral("The file \"%1\" cannot be written: %2").arg(path, file.errorString());
    return outcome;
}

} // namespace giggle
