// SPDX-License-Identifier: MIT
#include "platform/linux/ProgramStart.h"

#include <QProcess>
#include <QTimer>

#include <csignal>
#include <memory>
#include <utility>

#include <unistd.h>

namespace giggle {

void startProgram(const QString& program, const QStringList& arguments, std::chrono::milliseconds patience,
                  QObject* context, std::function<void(bool isWell)> done)
{
    // It belongs to nobody: deleting it would kill a mail program that is still open.
    auto* const process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    // Pipes would break with the application.
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->setChildProcessModifier([] {
        ::setsid();
        // Ignored signals would stay ignored in the program.
        ::signal(SIGPIPE, SIG_DFL);
        ::signal(SIGXFSZ, SIG_DFL);
    });

    // Whichever comes first answers; the others find nothing left.
    auto answer = [once = std::make_shared<std::function<void(bool)>>(std::move(done))](bool isWell) {
        if (const auto answerOnce = std::exchange(*once, {}))
            answerOnce(isWell);
    };
    QObject::connect(process, &QProcess::finished, context, [answer](int code, QProcess::ExitStatus status) {
        answer(status == QProcess::NormalExit && code == 0);
    });
    QObject::connect(
        process, &QProcess::errorOccurred, context,
        [answer](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                answer(false);
        },
        Qt::QueuedConnection);
    QTimer::singleShot(patience, context, [answer] { answer(true); });
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            process->deleteLater();
    });
    process->start(program, arguments);
}

} // namespace giggle
