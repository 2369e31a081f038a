// SPDX-License-Identifier: MIT
#include "store/PageCheck.h"

#include <QByteArray>
#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace giggle {

namespace {

// The file's published format: a page of rows has a header, then the places of its rows.
constexpr char RowPage = 0x0d;
constexpr int FileHeaderSize = 100;
constexpr int RowCountOffset = 3;
constexpr int PlacesOffset = 8;
constexpr int LongestNumber = 9;

/// The place behind a number of one to nine bytes, of which all but the last begin with a set bit.
const uchar* behindNumber(const uchar* at, const uchar* end)
{
    const uchar* last = std::min(at + LongestNumber, end);
    while (at < last && (*at++ & 0x80) != 0)
        ;
    return at;
}

/// @param start of the page's own header: in the first page it lies behind the file's
bool holdsHollowRow(const uchar* page, int pageSize, int start)
{
    if (page[start] != RowPage)
        return false;
    const uchar* end = page + pageSize;
    const uchar* places = page + start + PlacesOffset;
    const auto rows =
        std::min<qsizetype>(qFromBigEndian<quint16>(page + start + RowCountOffset), (end - places) / 2);
    for (qsizetype row = 0; row < rows; ++row) {
        // The row's size, its oid, and then the size of the list of its values' types, itself included.
        const uchar* at = page + qFromBigEndian<quint16>(places + 2 * row);
        if (at >= end)
            continue; // SQLite's check tells
        at = behindNumber(behindNumber(at, end), end);
        if (at < end && *at == 0)
            return true;
    }
    return false;
}

} // namespace

bool holdsHollowRow(const QString& path, int pageSize)
{
    constexpr qint64 ChunkSize = 1 << 20; // whole pages of every size
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false; // SQLite tells why
    int start = FileHeaderSize;
    QByteArray chunk(ChunkSize, Qt::Uninitialized);
    for (qint64 size = 0; (size = file.read(chunk.data(), ChunkSize)) > 0;)
        for (qint64 at = 0; at + pageSize <= size; at += pageSize) {
            if (holdsHollowRow(reinterpret_cast<const uchar*>(chunk.constData()) + at, pageSize, start))
                return true;
            start = 0;
        }
    return false;
}

} // namespace giggle
