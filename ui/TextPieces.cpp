// SPDX-License-Identifier: MIT
#include "ui/TextPieces.h"

#include <QGuiApplication>

#include <algorithm>

namespace giggle {

namespace {

/// In code units. Longer paragraphs are laid out in parts, so that none takes all memory.
constexpr qsizetype LongestPiece = 4000;

constexpr qsizetype LongestKept = 64;
constexpr std::size_t KeptPieces = 4;

/// In points, where a text does not say.
constexpr int UsualFontSize = 12;

/// A larger letter would not fit on a page.
constexpr double LargestFontSize = 300;

constexpr bool endsParagraph(char16_t unit)
{
    return unit == u'\n' || unit == u'\r' || unit == u'\f' || unit == QChar::ParagraphSeparator;
}

/// Whether a font may draw such a unit, or the character that it is a part of, as a picture.
constexpr bool isPictureUnit(char16_t unit)
{
    return (unit >= 0xd83c && unit <= 0xd83e) || (unit >= 0x2300 && unit < 0x2400) ||
           (unit >= 0x2600 && unit < 0x27c0) || (unit >= 0x2b00 && unit < 0x2c00) || unit == 0x20e3 ||
           unit == 0xfe0f;
}

constexpr QChar printable(char16_t unit)
{
    return unit < 0x20 && unit != u'\t' ? QChar(u' ') : QChar(unit);
}

/// Left and right mean the side where lines begin and end, unless they are meant as they are.
Qt::Alignment sideOf(const TextAttributes& looks, bool isFromRight)
{
    const Qt::Alignment wanted = looks.alignment.value_or(Qt::AlignLeft);
    if (!isFromRight || wanted.testFlag(Qt::AlignAbsolute))
        return wanted & Qt::AlignHorizontal_Mask & ~Qt::AlignAbsolute;
    if (wanted.testAnyFlags(Qt::AlignHCenter | Qt::AlignJustify))
        return wanted & Qt::AlignHorizontal_Mask;
    return wanted.testFlag(Qt::AlignRight) ? Qt::AlignLeft : Qt::AlignRight;
}

} // namespace

/// The text of a piece, and where its parts come from.
struct TextPieces::Source {
    struct Part {
        qsizetype begin;
        TextPlace place;
    };

    QString text;
    std::vector<Part> parts;
    TextPlace end;
    bool isLastOfParagraph = false;
    bool hasPictures = false;
};

TextPieces::TextPieces(const AttributedText& text, double width)
    : m_runs(text.runs()), m_width(width), m_usualFont(QGuiApplication::font().family())
{
    m_usualFont.setPixelSize(UsualFontSize);
}

bool TextPieces::isEnd(TextPlace place) const
{
    return place.run >= m_runs.size();
}

double TextPieces::share(TextPlace place) const
{
    if (isEnd(place))
        return 1;
    const double inRun = double(place.offset) / double(m_runs[place.run].text.size());
    return (double(place.run) + inRun) / double(m_runs.size());
}

TextPieces::Source TextPieces::read(TextPlace place) const
{
    Source source;
    for (; !isEnd(place); place = {.run = place.run + 1, .offset = 0}) {
        const QString& text = m_runs[place.run].text;
        source.parts.push_back({.begin = source.text.size(), .place = place});
        qsizetype end = place.offset;
        for (; end < text.size() && !endsParagraph(text[end].unicode()); ++end) {
            const char16_t unit = text[end].unicode();
            const bool isPairsSecond = QChar::isLowSurrogate(unit);
            if (source.text.size() >= LongestPiece && !isPairsSecond) {
                source.end = {.run = place.run, .offset = end};
                return source;
            }
            source.text += printable(unit);
            source.hasPictures |= isPictureUnit(unit);
        }
        if (end < text.size()) {
            source.isLastOfParagraph = true;
            source.end = behindParagraphEnd({.run = place.run, .offset = end});
            return source;
        }
    }
    source.isLastOfParagraph = true;
    source.end = place;
    return source;
}

TextPlace TextPieces::behindParagraphEnd(TextPlace place) const
{
    const bool isReturn = m_runs[place.run].text[place.offset] == u'\r';
    const auto step = [this](TextPlace from) {
        return ++from.offset < m_runs[from.run].text.size() ? from
                                                            : TextPlace{.run = from.run + 1, .offset = 0};
    };
    place = step(place);
    return isReturn && !isEnd(place) && m_runs[place.run].text[place.offset] == u'\n' ? step(place) : place;
}

TextPiece TextPieces::at(TextPlace place)
{
    const Source source = read(place);
    TextPiece piece;
    const TextAttributes& looks = m_runs[place.run].attributes;
    const bool isKept = source.text.size() <= LongestKept &&
                        (source.parts.size() == 1 || source.text.isEmpty()) && source.isLastOfParagraph;
    const auto known = std::ranges::find_if(
        m_kept, [&](const Kept& kept) { return isKept && kept.text == source.text && kept.looks == looks; });
    if (known != m_kept.end()) {
        piece = known->piece;
    } else {
        layOut(piece, source, looks);
        if (isKept) {
            if (m_kept.size() == KeptPieces)
                m_kept.erase(m_kept.begin());
            m_kept.push_back({source.text, looks, piece});
        }
    }
    piece.begin = place;
    piece.end = source.end;
    if (!source.isLastOfParagraph)
        leaveLastLine(piece, source);
    return piece;
}

/// The last line is not full yet: it opens the next piece.
void TextPieces::leaveLastLine(TextPiece& piece, const Source& source)
{
    if (piece.lineCount < 2)
        return;
    --piece.lineCount;
    const qsizetype offset = piece.layout->lineAt(piece.lineCount).textStart();
    const auto part = std::ranges::find_if(source.parts.rbegin(), source.parts.rend(),
                                           [&](const Source::Part& each) { return each.begin <= offset; });
    piece.end = {.run = part->place.run, .offset = part->place.offset + offset - part->begin};
}

void TextPieces::layOut(TextPiece& piece, const Source& source, const TextAttributes& looks)
{
    piece.layout = std::make_shared<QTextLayout>(source.text, fontFor(looks));
    piece.color = looks.foregroundColor;
    piece.isLastOfParagraph = source.isLastOfParagraph;
    piece.hasPictures = source.hasPictures;
    piece.isBlank = QStringView(source.text).trimmed().isEmpty();
    QTextLayout& layout = *piece.layout;

    const bool isFromRight = source.text.isRightToLeft();
    QTextOption option(sideOf(looks, isFromRight));
    option.setTextDirection(isFromRight ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    if (source.parts.size() > 1)
        layout.setFormats(formatsOf(source));

    double y = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(m_width);
        line.setPosition({0, y});
        y += line.height();
    }
    layout.endLayout();
    piece.lineCount = layout.lineCount();
}

QList<QTextLayout::FormatRange> TextPieces::formatsOf(const Source& source) const
{
    QList<QTextLayout::FormatRange> formats;
    for (std::size_t i = 0; i < source.parts.size(); ++i) {
        const qsizetype begin = source.parts[i].begin;
        const qsizetype end = i + 1 < source.parts.size() ? source.parts[i + 1].begin : source.text.size();
        if (begin == end)
            continue;
        const TextAttributes& looks = m_runs[source.parts[i].place.run].attributes;
        QTextCharFormat format;
        format.setFont(fontFor(looks));
        format.setForeground(looks.foregroundColor.value_or(Qt::black));
        formats.push_back({static_cast<int>(begin), static_cast<int>(end - begin), format});
    }
    return formats;
}

QFont TextPieces::fontFor(const TextAttributes& looks) const
{
    if (!looks.font)
        return m_usualFont;
    QFont font = looks.font->resolve(m_usualFont);
    const double size = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF();
    font.setPixelSize(qRound(std::clamp(size, 1.0, LargestFontSize)));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace giggle
