// SPDX-License-Identifier: MIT
#include "ui/PageBreaker.h"

#include "ui/PictureGlyphs.h"

#include <QPainter>

#include <algorithm>

namespace giggle {

namespace {

constexpr double UsualMargin = 56; // two centimetres
constexpr int NumberFontSize = 10;
constexpr int LeastLines = 2; // of a paragraph that is split, on either page

} // namespace

PageGeometry::PageGeometry(QSizeF paperSize)
    : paper(paperSize.toSize()), margin(std::min({UsualMargin, paper.width() / 8, paper.height() / 8}))
{
}

void TextPage::draw(QPainter& painter, const PageGeometry& geometry, int number) const
{
    for (const Part& part : parts) {
        const QPointF origin(geometry.margin,
                             geometry.margin + part.top - part.piece.lineTop(part.firstLine));
        painter.setPen(part.piece.color.value_or(Qt::black));
        for (int i = part.firstLine; i < part.endLine; ++i) {
            const QTextLine line = part.piece.layout->lineAt(i);
            if (part.piece.hasPictures)
                drawWithPictures(painter, *part.piece.layout, line, origin);
            else
                line.draw(&painter, origin);
        }
    }
    painter.setPen(Qt::black);
    QFont font = painter.font();
    font.setPixelSize(NumberFontSize);
    painter.setFont(font);
    painter.drawText(
        QRectF(0, geometry.paper.height() - geometry.margin, geometry.paper.width(), geometry.margin),
        Qt::AlignCenter, QString::number(number));
}

PageBreaker::PageBreaker(const AttributedText& text, const PageGeometry& geometry, PageStart start)
    : m_pieces(text, geometry.textWidth()), m_height(geometry.textHeight()), m_start(start),
      m_behind(start.piece)
{
}

/// The piece that follows so many others, or nullptr behind the end.
const TextPiece* PageBreaker::piece(std::size_t ahead)
{
    while (m_ahead.size() <= ahead) {
        if (m_pieces.isEnd(m_behind))
            return nullptr;
        m_ahead.push_back(m_pieces.at(m_behind));
        m_behind = m_ahead.back().end;
    }
    return &m_ahead[ahead];
}

/// Whether the paragraphs from here to the next empty line go to the next page as a whole.
bool PageBreaker::moves(double room)
{
    double height = 0;
    for (std::size_t i = 0;; ++i) {
        const TextPiece* each = piece(i);
        if (!each || each->isBlank)
            return height > room;
        height += each->lineBottom(each->lineCount - 1);
        if (height > m_height / 2)
            return false;
    }
}

int PageBreaker::linesThatFit(const TextPiece& piece, double room, bool isPageEmpty) const
{
    const int first = m_start.line;
    const double top = piece.lineTop(first);
    int end = first;
    while (end < piece.lineCount && piece.lineBottom(end) - top <= room)
        ++end;
    if (end == piece.lineCount)
        return end - first;
    if (piece.isLastOfParagraph)
        end = std::min(end, piece.lineCount - LeastLines);
    const bool isWhole = first == 0;
    if (end - first < (isWhole ? LeastLines : 1))
        end = first;
    // A line that is higher than the page must go somewhere.
    return isPageEmpty ? std::max(end - first, 1) : std::max(end - first, 0);
}

void PageBreaker::finishPiece()
{
    m_start = {.piece = m_ahead.front().end, .line = 0};
    m_ahead.pop_front();
}

void PageBreaker::skipBlankPieces()
{
    for (const TextPiece* first = piece(0); first && first->isBlank && m_start.line == 0; first = piece(0))
        finishPiece();
}

std::optional<TextPage> PageBreaker::next()
{
    if (m_isAtEnd)
        return std::nullopt;
    TextPage page;
    double y = 0;
    bool isInBlock = true; // paragraphs that began on an earlier page or begin at the top stay here
    while (const TextPiece* first = piece(0)) {
        if (!isInBlock && !first->isBlank && moves(m_height - y))
            break;
        isInBlock = !first->isBlank;
        const int count = linesThatFit(*first, m_height - y, page.parts.empty());
        if (count == 0)
            break;
        const int end = m_start.line + count;
        page.parts.push_back({*first, m_start.line, end, y});
        y += first->lineBottom(end - 1) - first->lineTop(m_start.line);
        if (end < first->lineCount) {
            m_start.line = end;
            break;
        }
        finishPiece();
    }
    skipBlankPieces();
    m_isAtEnd = !piece(0);
    return page;
}

} // namespace giggle
