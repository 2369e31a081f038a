// SPDX-License-Identifier: MIT
#include "tools/guide/GuidePages.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextDocument>

namespace giggle {

namespace {

// Pages of a pocket book: as wide as a phone they can still be read. In pixels of which 96 are an inch.
constexpr QSizeF PageSize(420, 750);
constexpr double Margin = 26;
constexpr double FooterHeight = 22;
constexpr int PixelsPerInch = 96;
constexpr int Resolution = 600;
constexpr int PictureWidth = 400;

QString withoutMissingPictures(QString html, const QDir& pictures)
{
    static const QRegularExpression picture(QStringLiteral("<img src=\"([^\"]+)\"[^>]*>"));
    qsizetype from = 0;
    for (QRegularExpressionMatch match; (match = picture.match(html, from)).hasMatch();) {
        if (pictures.exists(match.captured(1)))
            from = match.capturedEnd();
        else
            html.remove(match.capturedStart(), match.capturedLength());
    }
    return html;
}

/// Sharp at more than twice the size it has on the page, in a frame. Without transparency it takes far less
/// room.
QImage pictureFrom(const QString& path)
{
    QImage picture = QImage(path)
                         .scaledToWidth(PictureWidth, Qt::SmoothTransformation)
                         .convertToFormat(QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::gray, 6));
    painter.drawRect(picture.rect());
    return picture;
}

void addPictures(QTextDocument& document, const QDir& pictures)
{
    const QStringList names = pictures.entryList({QStringLiteral("*.png")}, QDir::Files);
    for (const QString& name : names)
        document.addResource(QTextDocument::ImageResource, QUrl(name), pictureFrom(pictures.filePath(name)));
}

void paintPage(QPainter& painter, QTextDocument& document, int page, const QSizeF& area)
{
    painter.save();
    painter.translate(Margin, Margin);
    const QRectF part(0, page * area.height(), area.width(), area.height());
    painter.translate(0, -part.top());
    painter.setClipRect(part);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part;
    context.palette.setColor(QPalette::Text, Qt::black);
    document.documentLayout()->draw(&painter, context);
    painter.restore();

    QFont small = document.defaultFont();
    small.setPixelSize(10);
    painter.setFont(small);
    painter.setPen(QColor(0x55, 0x55, 0x55));
    painter.drawText(QRectF(Margin, PageSize.height() - Margin - 4, area.width(), FooterHeight),
                     Qt::AlignHCenter | Qt::AlignTop, QString::number(page + 1));
}

} // namespace

QString setGuide(const QString& source, const QDir& pictures, const QString& target)
{
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("%1 cannot be read: %2").arg(source, file.errorString());
    QTextDocument document;
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(13);
    document.setDefaultFont(font);
    document.setUseDesignMetrics(true);
    document.setDocumentMargin(0);
    addPictures(document, pictures);
    document.setHtml(withoutMissingPictures(QString::fromUtf8(file.readAll()), pictures));
    const QSizeF area(PageSize.width() - 2 * Margin, PageSize.height() - 2 * Margin - FooterHeight / 2);
    document.setPageSize(area);

    QPdfWriter writer(target);
    writer.setResolution(Resolution);
    writer.setPageSize(QPageSize(PageSize * 72.0 / PixelsPerInch, QPageSize::Point));
    writer.setPageMargins({});
    writer.setTitle(QStringLiteral("Giggle Archives: the guide"));
    QPainter painter;
    if (!painter.begin(&writer))
        return QStringLiteral("%1 cannot be written.").arg(target);
    painter.scale(double(Resolution) / PixelsPerInch, double(Resolution) / PixelsPerInch);
    for (int page = 0; page < document.pageCount(); ++page) {
        if (page > 0)
            writer.newPage();
        paintPage(painter, document, page, area);
    }
    return painter.end() ? QString() : QStringLiteral("%1 cannot be written.").arg(target);
}

} // namespace giggle
