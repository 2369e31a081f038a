// SPDX-License-Identifier: MIT
#include "ui/LargeTextModel.h"

#include <QClipboard>
#include <QGuiApplication>

#include <algorithm>
#include <cstring>
#include <limits>

namespace giggle {

namespace {

constexpr std::size_t RowsPerAnchor = 64;

/// The part of a text that is one row, and where the next one begins.
struct Piece {
    std::size_t end;
    std::size_t next;
};

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Where a line that is too long is cut: behind a blank near @p end if there is one, else between characters.
std::size_t cutBefore(std::string_view text, std::size_t end)
{
    constexpr std::size_t LongestWord = LargeTextModel::LongestPiece / 4;
    const std::string_view tail = text.substr(end - LongestWord, LongestWord);
    if (const std::size_t blank = tail.rfind(' '); blank != std::string_view::npos)
        return end - LongestWord + blank + 1;
    constexpr int MostContinuations = 3;
    std::size_t cut = end;
    for (int i = 0; i < MostContinuations && continuesCharacter(text[cut]); ++i)
        --cut;
    return cut;
}

Piece pieceAt(std::string_view text, std::size_t start)
{
    const std::size_t longest = std::min(text.size() - start, LargeTextModel::LongestPiece + 1);
    if (const void* found = std::memchr(text.data() + start, '\n', longest)) {
        const auto end = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        return {end, end + 1};
    }
    if (longest <= LargeTextModel::LongestPiece)
        return {text.size(), text.size()};
    const std::size_t cut = cutBefore(text, start + LargeTextModel::LongestPiece);
    return {cut, cut};
}

} // namespace

void LargeTextModel::setText(Text text)
{
    beginResetModel();
    m_text = std::move(text);
    m_anchors.clear();
    std::size_t count = 0;
    for (std::size_t start = 0; start < m_text->size(); start = pieceAt(*m_text, start).next)
        if (count++ % RowsPerAnchor == 0)
            m_anchors.push_back(start);
    m_count = static_cast<int>(std::min<std::size_t>(count, std::numeric_limits<int>::max()));
    endResetModel();
    emit textChanged();
}

int LargeTextModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_count;
}

std::string_view LargeTextModel::line(std::size_t row) const
{
    std::size_t start = m_anchors[row / RowsPerAnchor];
    for (std::size_t i = row % RowsPerAnchor; i > 0; --i)
        start = pieceAt(*m_text, start).next;
    return std::string_view(*m_text).substr(start, pieceAt(*m_text, start).end - start);
}

QVariant LargeTextModel::data(const QModelIndex& index, int role) const
{
    if (role != LineRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    QString shown = QString::fromUtf8(line(static_cast<std::size_t>(index.row())));
    if (shown.endsWith(u'\r')) // half of a line end, which would be drawn as an empty line
        shown.chop(1);
    return shown;
}

QHash<int, QByteArray> LargeTextModel::roleNames() const
{
    return {{LineRole, "line"}};
}

void LargeTextModel::copy()
{
    if (isEmpty())
        return;
    QGuiApplication::clipboard()->setText(QString::fromStdString(*m_text));
    emit copied();
}

} // namespace giggle
