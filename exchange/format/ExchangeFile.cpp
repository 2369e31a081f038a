// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeFile.h"

#include "store/ByteScan.h"

#include <QFile>
#include <QFileInfo>

namespace giggle {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

FileText failure(const QString& path, const QString& reason)
{
    return {std::nullopt, QStringLiteral("The file \"%1\" cannot be read: %2").arg(path, reason)};
}

FileText readFile(const QString& path)
{
    if (QFileInfo(path).isDir())
        return failure(path, QStringLiteral("it is a folder"));
    QFile file(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
        return failure(path, QStringLiteral("it is not a file"));
    if (!file.open(QIODevice::ReadOnly))
        return failure(path, file.errorString());
    if (file.size() > MaximumExchangeFileSize)
        return failure(path,
                       QStringLiteral("it is larger than %1 MB").arg(MaximumExchangeFileSize / 1'000'000));
    std::string text(static_cast<std::size_t>(file.size()), '\0');
    if (file.read(text.data(), file.size()) != file.size())
        return failure(path, file.errorString());
    return {std::move(text), {}};
}

} // namespace

FileText readUtf8File(const QString& path)
{
    FileText file = readFile(path);
    if (!file.text)
        return file;
    if (!QByteArrayView(file.text->data(), static_cast<qsizetype>(file.text->size())).isValidUtf8())
        return failure(path, QStringLiteral("it is not a text in UTF-8"));
    if (file.text->starts_with(ByteOrderMark))
        file.text->erase(0, ByteOrderMark.size());
    return file;
}

FileText readAsciiFile(const QString& path)
{
    FileText file = readFile(path);
    if (file.text && !isAscii(*file.text))
        return failure(path, QStringLiteral("it is not a text in ASCII"));
    return file;
}

} // namespace giggle
