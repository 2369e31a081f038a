// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"

#include <QProcess>
#include <QStringList>

namespace giggle {

/// So many jokes as they are printed: "Joke <number>.", some more words, a rule and empty lines.
inline AttributedText manyJokes(int count)
{
    QFont bold;
    bold.setPixelSize(18);
    bold.setBold(true);
    AttributedText text;
    for (int i = 1; i <= count; ++i) {
        const QString words = QStringLiteral(" and so on").repeated(i * 7919 % 40);
        text.append(QStringLiteral("Joke %1.").arg(i) + words, {Qt::black, bold, Qt::AlignHCenter});
        text.append(QStringLiteral("\n----------"), {{}, {}, Qt::AlignHCenter});
        text.append(QStringLiteral("\n\n\n"));
    }
    return text;
}

inline QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// What another program reads on each page of a PDF file.
inline QStringList pagesOf(const QString& path)
{
    QStringList pages =
        outputOf(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), path, QStringLiteral("-")})
            .split(u'\f');
    pages.removeLast(); // each page ends with a form feed
    return pages;
}

} // namespace giggle
