// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QObject>
#include <QPdfDocument>
#include <QPdfPageRenderer>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

namespace giggle {

/// A piece of a page that is read in one go, and where it stands on the page, in fractions of its size.
struct PdfParagraph {
    Q_GADGET
    QML_VALUE_TYPE(pdfParagraph)
    Q_PROPERTY(QString text MEMBER text CONSTANT)
    Q_PROPERTY(QRectF place MEMBER place CONSTANT)

public:
    QString text;
    QRectF place;

    bool operator==(const PdfParagraph&) const = default;
};

/// A PDF document for its page: how many pages there are, how large they are, and what stands on them. Main
/// thread only; the pages are drawn in another one.
class PdfContent : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen makes its documents.")
    Q_PROPERTY(int pageCount READ pageCount NOTIFY loaded)
    Q_PROPERTY(double widestPage READ widestPage NOTIFY loaded)

public:
    PdfContent();

    /// Reads the file or the resource @p path. Empty when that went well, otherwise the reason in words;
    /// there are no pages then.
    [[nodiscard]] QString load(const QString& path);

    [[nodiscard]] int pageCount() const { return m_document.pageCount(); }

    /// In points; 0 without a page.
    [[nodiscard]] double widestPage() const;

    /// In points, of the media box.
    [[nodiscard]] Q_INVOKABLE QSizeF pageSize(int page) const { return m_document.pagePointSize(page); }

    /// The text of a page from top to bottom, its lines put together to paragraphs.
    [[nodiscard]] Q_INVOKABLE QList<giggle::PdfParagraph> paragraphs(int page);

    /// Has a page drawn at that size. Some time later `pageDrawn` says so, with the number given here.
    quint64 requestPage(int page, QSize size) { return m_renderer.requestPage(page, size); }

signals:
    void loaded();
    void pageDrawn(quint64 request, const QImage& image);

private:
    QPdfDocument m_document;
    QPdfPageRenderer m_renderer; ///< ends before the document does
};

} // namespace giggle
