// SPDX-License-Identifier: MIT
#include "ui/PdfContent.h"

#include <QPdfSelection>

#include <algorithm>
#include <cmath>

namespace giggle {

namespace {

QString reasonFor(QPdfDocument::Error error)
{
    switch (error) {
    case QPdfDocument::Error::FileNotFound:
        return QStringLiteral("there is no such file");
    case QPdfDocument::Error::InvalidFileFormat:
        return QStringLiteral("it is no PDF document");
    case QPdfDocument::Error::IncorrectPassword:
    case QPdfDocument::Error::UnsupportedSecurityScheme:
        return QStringLiteral("it is locked");
    default:
        return QStringLiteral("it cannot be read");
    }
}

/// Whether a line goes on with what the one above it began: right below it, and as high.
bool continues(const QRectF& above, const QRectF& line)
{
    const double height = std::max(above.height(), line.height());
    return line.top() - above.bottom() < height * 0.45 && line.top() > above.top() &&
           std::abs(above.height() - line.height()) < height * 0.35;
}

} // namespace

PdfContent::PdfContent()
{
    m_renderer.setDocument(&m_document);
    m_renderer.setRenderMode(QPdfPageRenderer::RenderMode::MultiThreaded);
    connect(&m_renderer, &QPdfPageRenderer::pageRendered, this,
            [this](int, QSize, const QImage& image, const QPdfDocumentRenderOptions&, quint64 request) {
                emit pageDrawn(request, image);
            });
}

QString PdfContent::load(const QString& path)
{
    const QPdfDocument::Error error = m_document.load(path);
    emit loaded();
    return error == QPdfDocument::Error::None
               ? QString()
               : QStringLiteral("%1 cannot be shown: %2.").arg(path, reasonFor(error));
}

double PdfContent::widestPage() const
{
    double widest = 0;
    for (int page = 0; page < pageCount(); ++page)
        widest = std::max(widest, pageSize(page).width());
    return widest;
}

QList<PdfParagraph> PdfContent::paragraphs(int page)
{
    const QSizeF size = pageSize(page);
    const QString text = m_document.getAllText(page).text();
    QList<PdfParagraph> paragraphs;
    QRectF lastLine;
    qsizetype start = 0;
    while (start < text.size()) {
        qsizetype end = text.indexOf(u'\n', start);
        end = end < 0 ? text.size() : end;
        const QString line = text.sliced(start, end - start).simplified();
        const QRectF place =
            m_document.getSelectionAtIndex(page, static_cast<int>(start), static_cast<int>(end - start))
                .boundingRectangle();
        start = end + 1;
        if (line.isEmpty())
            continue;
        if (!paragraphs.isEmpty() && continues(lastLine, place)) {
            paragraphs.last().text += u' ' + line;
            paragraphs.last().place |= place;
        } else
            paragraphs.append({line, place});
        lastLine = place;
    }
    for (PdfParagraph& paragraph : paragraphs)
        paragraph.place =
            QRectF(paragraph.place.x() / size.width(), paragraph.place.y() / size.height(),
                   paragraph.place.width() / size.width(), paragraph.place.height() / size.height());
    return paragraphs;
}

} // namespace giggle
