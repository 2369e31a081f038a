// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TextPieces.h"

#include <QSizeF>

#include <deque>
#include <optional>
#include <vector>

class QPainter;

namespace giggle {

/// Where on a sheet of paper text stands. All lengths are points.
struct PageGeometry {
    explicit PageGeometry(QSizeF paperSize);

    QSizeF paper;  ///< in whole points, as PDF files have it
    double margin; ///< the same on all sides

    [[nodiscard]] double textWidth() const { return paper.width() - 2 * margin; }

    [[nodiscard]] double textHeight() const { return paper.height() - 2 * margin; }
};

/// Where a page begins: at a line of a piece.
struct PageStart {
    TextPlace piece;
    int line = 0;
};

/// What stands on a page: lines of pieces, one below the other.
struct TextPage {
    struct Part {
        TextPiece piece;
        int firstLine;
        int endLine;
        double top; ///< from the text's upper edge
    };

    std::vector<Part> parts;

    /// Draws the text, and @p number at the foot, in points from the paper's upper left corner.
    void draw(QPainter& painter, const PageGeometry& geometry, int number) const;
};

/// Breaks a text into pages, one after the other, in memory that does not grow with the text.
///
/// Paragraphs that follow each other without an empty line, such as a joke and the rule below it, stay on one
/// page where they fill half a page at most. Of longer paragraphs no single line is left alone on a page. No
/// page but the first begins with empty lines. A page that is made again from its start is the same.
class PageBreaker {
public:
    /// @p text must outlive it.
    PageBreaker(const AttributedText& text, const PageGeometry& geometry, PageStart start = {});

    /// The next page; none after the last one. An empty text has one page.
    [[nodiscard]] std::optional<TextPage> next();

    /// Where the page begins that comes next.
    [[nodiscard]] PageStart start() const { return m_start; }

    /// Whether there is no further page.
    [[nodiscard]] bool isAtEnd() const { return m_isAtEnd; }

    /// How much of the text the pages hold so far, from 0 to 1.
    [[nodiscard]] double share() const { return m_pieces.share(m_start.piece); }

private:
    [[nodiscard]] const TextPiece* piece(std::size_t ahead);
    [[nodiscard]] bool moves(double room);
    [[nodiscard]] int linesThatFit(const TextPiece& piece, double room, bool isPageEmpty) const;
    void finishPiece();
    void skipBlankPieces();

    TextPieces m_pieces;
    double m_height;
    PageStart m_start;
    TextPlace m_behind; ///< where the piece begins that follows those ahead
    std::deque<TextPiece> m_ahead;
    bool m_isAtEnd = false;
};

} // namespace giggle
