// SPDX-License-Identifier: MIT
#include "ui/PictureGlyphs.h"

#include <QGlyphRun>
#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace giggle {

namespace {

/// Pixels of a picture for each point on paper.
constexpr double PictureScale = 4;

bool drawsInColors(const QRawFont& font)
{
    return !font.fontTable("CBDT").isEmpty() || !font.fontTable("sbix").isEmpty() ||
           !font.fontTable("COLR").isEmpty();
}

void drawAsPicture(QPainter& painter, const QGlyphRun& run, QPointF origin)
{
    // Glyphs may reach a little out of the box that is kept for them.
    const QRectF box = run.boundingRect().adjusted(-1, -1, 1, 1);
    const QSize size(int(std::ceil(box.width() * PictureScale)), int(std::ceil(box.height() * PictureScale)));
    if (size.isEmpty())
        return;
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter picture(&image);
    picture.setRenderHint(QPainter::SmoothPixmapTransform);
    picture.scale(PictureScale, PictureScale);
    picture.drawGlyphRun(-box.topLeft(), run);
    picture.end();
    painter.drawImage(QRectF(box.topLeft() + origin, QSizeF(size) / PictureScale), image);
}

/// The part of a line from @p begin to @p end that looks the same.
void drawPart(QPainter& painter, const QTextLine& line, int begin, int end, QPointF origin)
{
    if (begin >= end)
        return;
    const QList<QGlyphRun> runs = line.glyphRuns(begin, end - begin);
    for (const QGlyphRun& run : runs) {
        if (drawsInColors(run.rawFont()))
            drawAsPicture(painter, run, origin);
        else
            painter.drawGlyphRun(origin, run);
    }
}

} // namespace

void drawWithPictures(QPainter& painter, const QTextLayout& layout, const QTextLine& line, QPointF origin)
{
    if (painter.paintEngine()->type() != QPaintEngine::Pdf) {
        line.draw(&painter, origin);
        return;
    }
    const int begin = line.textStart();
    const int end = begin + line.textLength();
    const QList<QTextLayout::FormatRange> formats = layout.formats();
    if (formats.isEmpty())
        drawPart(painter, line, begin, end, origin);
    for (const QTextLayout::FormatRange& range : formats) {
        painter.setPen(range.format.foreground().color());
        drawPart(painter, line, std::max(begin, range.start), std::min(end, range.start + range.length),
                 origin);
    }
}

} // namespace giggle
