// SPDX-License-Identifier: MIT
#include "ui/DisplayText.h"

namespace giggle {

namespace {

// All allowed characters are ASCII, so that filtering bytes of UTF-8, or the code units of a QString, filters
// code points.
using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet setOf(std::string_view characters)
{
    CharacterSet set{};
    for (const char c : characters)
        set[static_cast<unsigned char>(c)] = true;
    return set;
}

constexpr CharacterSet IsDisplayed = setOf(AllowedDisplayCharacters);
constexpr CharacterSet IsTyped = setOf({AllowedEditCharacters.data(), AllowedEditCharacters.size()});

bool isIn(const CharacterSet& set, QChar character)
{
    return character.unicode() < set.size() && set[character.unicode()];
}

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/// No-break spaces hold words together.
bool breaksLine(QChar c)
{
    return c.isSpace() && c != QChar::Nbsp && c != u'\u2007' && c != u'\u202f';
}

} // namespace

QString filteredForDisplay(std::string_view utf8)
{
    QByteArray kept;
    kept.reserve(static_cast<qsizetype>(utf8.size()));
    for (const char c : utf8)
        if (IsDisplayed[static_cast<unsigned char>(c)])
            kept.append(c);
    return QString::fromLatin1(kept);
}

QString filteredForDisplay(const QString& text)
{
    QString kept = text;
    kept.removeIf([](QChar c) { return !isIn(IsDisplayed, c); });
    return kept;
}

bool isAllowedInEditing(const QString& text)
{
    return std::ranges::all_of(text, [](QChar c) { return isIn(IsTyped, c); });
}

QString trimmedOfBlanks(const QString& text)
{
    const auto begin = std::ranges::find_if_not(text, isBlank);
    const auto end = std::find_if_not(text.rbegin(), text.rend(), isBlank).base();
    return begin < end ? QString(begin, end - begin) : QString();
}

QString textOrEmpty(OptionalText utf8)
{
    constexpr std::string_view ByteOrderMark = "\xef\xbb\xbf";
    if (!utf8)
        return {};
    // Qt takes a mark at the beginning for none of the text, and a record would not be found again without
    // it.
    const QString text = QString::fromUtf8(*utf8);
    return utf8->starts_with(ByteOrderMark) ? QChar(QChar::ByteOrderMark) + text : text;
}

bool holdsLongWord(const QString& text)
{
    constexpr qsizetype LongestUsual = 2000;
    qsizetype wordStart = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (breaksLine(text[i]))
            wordStart = i + 1;
        else if (i - wordStart >= LongestUsual)
            return true;
    }
    return false;
}

} // namespace giggle
