// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace giggle {

/// A file in the format of desktop entries: groups of keys and values. A file that is missing, is none or
/// cannot be read counts as empty. Nothing is looked at before it is asked for: most of such a file are
/// translations.
class KeyFile {
public:
    explicit KeyFile(const QString& path);

    /// Whether these bytes occur anywhere: a quick way to leave a file alone.
    [[nodiscard]] bool contains(const QByteArray& bytes) const { return m_bytes.contains(bytes); }

    /// The text of the first such key with its escapes resolved; null when there is none.
    [[nodiscard]] QString value(const char* group, const QByteArray& key) const;

    [[nodiscard]] bool isTrue(const char* group, const QByteArray& key) const;

    /// A value that is a list with semicolons.
    [[nodiscard]] QStringList list(const char* group, const QByteArray& key) const;

private:
    QByteArray m_bytes;
};

} // namespace giggle
