// SPDX-License-Identifier: MIT
#include "store/FatalError.h"

#include "store/Console.h"

#include <QFile>

#include <atomic>
#include <cstdlib>
#include <utility>

namespace giggle {

namespace {

// Far above any message, far below what would hurt: the record is a text for one notice.
constexpr qint64 LargestRecord = 65536;

struct FatalErrorSettings {
    QString recordPath;
    std::function<void(const QString&)> notifier;
};

FatalErrorSettings& settings()
{
    // Never destroyed: a fatal error may happen while static objects go away.
    static auto* const instance = new FatalErrorSettings;
    return *instance;
}

void writeRecord(const QString& message)
{
    const QString& path = settings().recordPath;
    if (path.isEmpty())
        return;
    QFile file(path);
    const auto mode = QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
    if (!file.open(mode, QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        printFailure(QStringLiteral("Cannot open %1: %2").arg(path, file.errorString()));
        return;
    }
    const QByteArray bytes = message.toUtf8().left(LargestRecord);
    if (file.write(bytes) != bytes.size())
        printFailure(QStringLiteral("Cannot write %1: %2").arg(path, file.errorString()));
}

} // namespace

void fatalError(const QString& message, const char* sourceFile, int line)
{
    static std::atomic_flag entered = ATOMIC_FLAG_INIT;
    try {
        printFailure(QStringLiteral("Fatal error: %1: file %2, line %3")
                         .arg(message, QString::fromUtf8(sourceFile), QString::number(line)));
        if (!entered.test_and_set()) {
            writeRecord(message);
            if (settings().notifier)
                settings().notifier(message);
        }
    } catch (...) {
        // Whatever went wrong on the way, the program ends in the same way.
    }
    std::abort();
}

void setFatalErrorRecord(const QString& path)
{
    settings().recordPath = path;
}

void setFatalErrorNotifier(std::function<void(const QString&)> notifier)
{
    settings().notifier = std::move(notifier);
}

std::optional<QString> takeFatalErrorRecord(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QString message = QString::fromUtf8(file.read(LargestRecord)).trimmed();
    file.close();
    if (!file.remove())
        printFailure(QStringLiteral("Cannot remove %1: %2").arg(path, file.errorString()));
    if (message.isEmpty())
        return std::nullopt;
    return message;
}

} // namespace giggle
