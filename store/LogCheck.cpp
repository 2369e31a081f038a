// SPDX-License-Identifier: MIT
#include "store/LogCheck.h"

#include <QByteArray>
#include <QFile>
#include <QSysInfo>
#include <QtEndian>

#include <bit>

namespace giggle {

namespace {

// The log's published format: a header, then frames, each with a header of its own in front of a page.
constexpr qsizetype HeaderSize = 32;
constexpr qsizetype FrameHeaderSize = 24;
constexpr quint32 Magic = 0x377f0682; // its last bit tells the byte order that checksums are made with
constexpr qsizetype PageSizeOffset = 8;
constexpr qsizetype SaltsOffset = 16;
constexpr qsizetype HeaderChecksumOffset = 24;
constexpr qsizetype FrameSizeAfterCommitOffset = 4;
constexpr qsizetype FrameSaltsOffset = 8;
constexpr qsizetype FrameChecksumOffset = 16;

/// A sum over words that goes on from frame to frame.
struct Checksum {
    quint32 first = 0;
    quint32 second = 0;

    bool operator==(const Checksum&) const = default;

    template <bool IsBigEndian>
    void addWords(const char* bytes, qsizetype size)
    {
        const auto word = [&](qsizetype at) {
            return IsBigEndian ? qFromBigEndian<quint32>(bytes + at) : qFromLittleEndian<quint32>(bytes + at);
        };
        for (qsizetype at = 0; at < size; at += 8) {
            first += word(at) + second;
            second += word(at + 4) + first;
        }
    }

    void add(const char* bytes, qsizetype size, bool isBigEndian)
    {
        isBigEndian ? addWords<true>(bytes, size) : addWords<false>(bytes, size);
    }

    static Checksum storedAt(const char* bytes)
    {
        return {qFromBigEndian<quint32>(bytes), qFromBigEndian<quint32>(bytes + 4)};
    }
};

class Log {
public:
    Log(const QByteArray& bytes, int pageSize) : m_bytes(bytes), m_pageSize(pageSize)
    {
        const quint32 magic = qFromBigEndian<quint32>(m_bytes.constData());
        m_isBigEndian = (magic & 1) != 0;
        Checksum sum;
        sum.add(m_bytes.constData(), HeaderChecksumOffset, m_isBigEndian);
        const auto storedPageSize = qFromBigEndian<quint32>(m_bytes.constData() + PageSizeOffset);
        m_hasValidHeader =
            (magic & ~1U) == Magic && sum == Checksum::storedAt(m_bytes.constData() + HeaderChecksumOffset);
        if (m_hasValidHeader && std::has_single_bit(storedPageSize) && storedPageSize <= 65536)
            m_pageSize = storedPageSize;
        if (!m_hasValidHeader)
            m_isBigEndian = QSysInfo::ByteOrder == QSysInfo::BigEndian;
        m_frameCount = (m_bytes.size() - HeaderSize) / (FrameHeaderSize + m_pageSize);
    }

    [[nodiscard]] bool losesCommits() const
    {
        // Frames that SQLite does not come to. Of two commits in a row there the first was complete: the
        // second began only when it was on the disk. Remains of failed commits never are two in a row, since
        // each began at the same place.
        for (qsizetype frame = firstUnreadFrame(); frame + 1 < m_frameCount; ++frame)
            if (isCommit(frame) && follows(frame + 1, frame))
                return true;
        return false;
    }

private:
    [[nodiscard]] const char* frameAt(qsizetype frame) const
    {
        return m_bytes.constData() + HeaderSize + frame * (FrameHeaderSize + m_pageSize);
    }

    [[nodiscard]] QByteArrayView saltsOf(qsizetype frame) const
    {
        return {frameAt(frame) + FrameSaltsOffset, FrameChecksumOffset - FrameSaltsOffset};
    }

    [[nodiscard]] QByteArrayView salts() const
    {
        return {m_bytes.constData() + SaltsOffset, HeaderChecksumOffset - SaltsOffset};
    }

    [[nodiscard]] bool isCommit(qsizetype frame) const
    {
        return qFromBigEndian<quint32>(frameAt(frame) + FrameSizeAfterCommitOffset) != 0;
    }

    [[nodiscard]] Checksum storedChecksum(qsizetype frame) const
    {
        return Checksum::storedAt(frame < 0 ? m_bytes.constData() + HeaderChecksumOffset
                                            : frameAt(frame) + FrameChecksumOffset);
    }

    [[nodiscard]] bool hasChecksumAfter(qsizetype frame, Checksum sum) const
    {
        sum.add(frameAt(frame), FrameSaltsOffset, m_isBigEndian);
        sum.add(frameAt(frame) + FrameHeaderSize, m_pageSize, m_isBigEndian);
        return sum == storedChecksum(frame);
    }

    /// Whether @p frame was written behind @p previous, and both are of one kind.
    [[nodiscard]] bool follows(qsizetype frame, qsizetype previous) const
    {
        const QByteArrayView expected = m_hasValidHeader ? salts() : saltsOf(previous);
        return saltsOf(frame) == expected && hasChecksumAfter(frame, storedChecksum(previous));
    }

    [[nodiscard]] qsizetype firstUnreadFrame() const
    {
        qsizetype frame = 0;
        while (m_hasValidHeader && frame < m_frameCount && follows(frame, frame - 1))
            ++frame;
        return frame;
    }

    const QByteArray& m_bytes;
    qsizetype m_pageSize;
    qsizetype m_frameCount = 0;
    bool m_isBigEndian = false;
    bool m_hasValidHeader = false;
};

} // namespace

bool losesCommits(const QString& logPath, int pageSize)
{
    QFile file(logPath);
    // SQLite tells when a log cannot be read.
    if (!file.open(QIODevice::ReadOnly) || file.size() <= HeaderSize)
        return false;
    const QByteArray bytes = file.readAll();
    if (bytes.size() <= HeaderSize)
        return false;
    return Log(bytes, pageSize).losesCommits();
}

} // namespace giggle
