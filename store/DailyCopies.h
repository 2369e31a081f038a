// SPDX-License-Identifier: MIT
#pragma once

#include <QDate>
#include <QString>

namespace giggle {

/// Copies of a collection in the folder "copies" beside it, one for each of the last days on which it was
/// changed. A copy is a collection itself; docs/recovery.md says how people put one back.
class DailyCopies {
public:
    struct Limits {
        int copies = 3;
        qint64 totalBytes = 64LL << 20; ///< of all copies together
        qint64 freeBytes = 200'000'000; ///< left to others on the disk, once the copy is made
    };

    explicit DailyCopies(const QString& collectionFile);
    DailyCopies(const QString& collectionFile, Limits limits);

    [[nodiscard]] const QString& folder() const { return m_folder; }

    /// Copies the collection as the copy of @p day, in place of an earlier one of that day, and then removes
    /// the oldest copies that are too many. Does nothing where a copy would break the limits. Any thread, one
    /// at a time. Throws StoreError; all older copies are then still there.
    void make(QDate day) const;

private:
    [[nodiscard]] bool hasRoom() const;
    void removeOldest(const QString& newest) const;
    /// Whether a file of that name is the copy of a day, and not one that somebody has put there.
    [[nodiscard]] bool isOfOurs(const QString& fileName) const;

    QString m_collectionFile;
    QString m_folder;
    Limits m_limits;
};

} // namespace giggle
