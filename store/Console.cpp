// SPDX-License-Identifier: MIT
#include "store/Console.h"

#include <QByteArray>
#include <QString>

#include <cstdio>

namespace giggle {

namespace {

void writeLine(std::FILE* stream, const QString& line)
{
    // One call with the line break included: lines of two threads never mix.
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

} // namespace

void printToConsole(const QString& line)
{
    writeLine(stdout, line);
}

void printFailure(const QString& line)
{
    writeLine(stderr, line);
}

} // namespace giggle
