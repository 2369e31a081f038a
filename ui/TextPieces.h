// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"

#include <QFont>
#include <QList>
#include <QTextLayout>

#include <memory>
#include <optional>
#include <vector>

namespace giggle {

/// A place in a text: so many code units into one of its runs.
struct TextPlace {
    std::size_t run = 0;
    qsizetype offset = 0;

    bool operator==(const TextPlace&) const = default;
};

/// A paragraph that is laid out, or a part of one that is very long. Lengths are in points.
struct TextPiece {
    TextPlace begin;
    TextPlace end; ///< where the next piece begins
    std::shared_ptr<QTextLayout> layout;
    std::optional<QColor> color;
    bool isBlank = false;
    bool isLastOfParagraph = true;
    bool hasPictures = false; ///< may hold characters that fonts draw in colours
    int lineCount = 0;

    [[nodiscard]] double lineTop(int line) const { return layout->lineAt(line).y(); }

    [[nodiscard]] double lineBottom(int line) const { return lineTop(line) + layout->lineAt(line).height(); }
};

/// Lays out a text for lines of one width, one paragraph after the other, and keeps none of them.
///
/// What a font does not have is taken from another one that has it; paragraphs that begin with a script
/// written from the right are set from the right. For use in one thread; the text must outlive it.
class TextPieces {
public:
    TextPieces(const AttributedText& text, double width);

    /// The piece that begins at @p place, which is the text's beginning or some piece's end.
    [[nodiscard]] TextPiece at(TextPlace place);

    [[nodiscard]] bool isEnd(TextPlace place) const;

    /// How much of the text lies before @p place, from 0 to 1.
    [[nodiscard]] double share(TextPlace place) const;

private:
    struct Source;

    struct Kept {
        QString text;
        TextAttributes looks;
        TextPiece piece;
    };

    [[nodiscard]] Source read(TextPlace place) const;
    [[nodiscard]] TextPlace behindParagraphEnd(TextPlace place) const;
    void layOut(TextPiece& piece, const Source& source, const TextAttributes& looks);
    static void leaveLastLine(TextPiece& piece, const Source& source);
    [[nodiscard]] QList<QTextLayout::FormatRange> formatsOf(const Source& source) const;
    [[nodiscard]] QFont fontFor(const TextAttributes& looks) const;

    const std::vector<AttributedText::Run>& m_runs;
    double m_width;
    QFont m_usualFont;
    /// Texts are full of rules and empty lines that look the same.
    std::vector<Kept> m_kept;
};

} // namespace giggle
