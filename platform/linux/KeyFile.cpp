// SPDX-License-Identifier: MIT
#include "platform/linux/KeyFile.h"

#include <QFile>
#include <QFileInfo>

namespace giggle {

namespace {

constexpr qint64 LargestFile = 4 << 20;

QByteArrayView nextLine(QByteArrayView& rest)
{
    const qsizetype end = rest.indexOf('\n');
    const QByteArrayView line = end < 0 ? rest : rest.first(end);
    rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
    return line.trimmed();
}

QChar unescaped(QChar letter)
{
    switch (letter.unicode()) {
    case u's':
        return u' ';
    case u'n':
        return u'\n';
    case u't':
        return u'\t';
    case u'r':
        return u'\r';
    default:
        return letter;
    }
}

QString withEscapesResolved(const QString& value)
{
    QString text;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == u'\\' && i + 1 < value.size();
        text += isEscape ? unescaped(value[++i]) : value[i];
    }
    return text;
}

} // namespace

KeyFile::KeyFile(const QString& path)
{
    // Opening a pipe would wait for somebody to write into it.
    QFile file(path);
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly))
        m_bytes = file.read(LargestFile);
}

QString KeyFile::value(const char* group, const QByteArray& key) const
{
    const QByteArray header = '[' + QByteArray(group) + ']';
    bool isInGroup = false;
    for (QByteArrayView rest = m_bytes; !rest.isEmpty();) {
        const QByteArrayView line = nextLine(rest);
        if (line.startsWith('['))
            isInGroup = line == header;
        if (!isInGroup || !line.startsWith(key))
            continue;
        const QByteArrayView remainder = line.sliced(key.size()).trimmed();
        if (remainder.startsWith('='))
            return withEscapesResolved(QString::fromUtf8(remainder.sliced(1).trimmed()));
    }
    return {};
}

bool KeyFile::isTrue(const char* group, const QByteArray& key) const
{
    return value(group, key) == u"true";
}

QStringList KeyFile::list(const char* group, const QByteArray& key) const
{
    QStringList items;
    for (const QString& item : value(group, key).split(u';', Qt::SkipEmptyParts))
        items.append(item.trimmed());
    return items;
}

} // namespace giggle
