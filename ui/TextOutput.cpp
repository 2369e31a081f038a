// SPDX-License-Identifier: MIT
#include "ui/TextOutput.h"

#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "platform/ShareSheet.h"
#include "store/Console.h"
#include "ui/LargeTextModel.h"
#include "ui/MainQueue.h"
#include "ui/Navigator.h"
#include "ui/Screen.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>

#include <utility>

namespace giggle {

void presentLater(Screen& screen, ScreenEnvironment& environment, Alert alert)
{
    environment.mainQueue.async(
        [screen = QPointer(&screen), &navigator = environment.navigator, alert = std::move(alert)] {
            if (screen)
                navigator.present(alert);
        });
}

void shareText(Screen& screen, ScreenEnvironment& environment, const std::function<QString()>& compose)
{
    if (environment.platform.messageCapability.canSendText())
        environment.platform.shareSheet->present({SharedText{compose()}}, {});
    else
        presentLater(screen, environment,
                     information(QStringLiteral("Can't Send Text Message"),
                                 QStringLiteral("Your device is not able to send text messages.")));
}

void copyText(ScreenEnvironment& environment, const QString& text)
{
    if (!text.isEmpty())
        QGuiApplication::clipboard()->setText(text);
    environment.navigator.confirm(text.isEmpty() ? QStringLiteral("There is no text to copy.")
                                                 : QStringLiteral("Copied."));
}

void confirmCopies(const LargeTextModel& text, Navigator& navigator)
{
    QObject::connect(&text, &LargeTextModel::copied, &text,
                     [&navigator] { navigator.confirm(QStringLiteral("Copied.")); });
}

void logPrintFailure(const PrintOutcome& outcome)
{
    if (!outcome.failure.isEmpty())
        printFailure(outcome.failure);
}

void confirmSaved(Navigator& navigator, const QString& fileName)
{
    if (!fileName.isEmpty())
        navigator.confirm(QStringLiteral("Saved as \"%1\".").arg(fileName));
}

void printText(ScreenEnvironment& environment, AttributedText text,
               const std::function<void(const PrintOutcome&)>& finished)
{
    environment.platform.printPanel->present(
        std::move(text), QStringLiteral("Giggle Archives"),
        [&navigator = environment.navigator, finished](const PrintOutcome& outcome) {
            confirmSaved(navigator, outcome.savedAs);
            finished(outcome);
        });
}

void sendMail(ScreenEnvironment& environment, const std::function<Mail()>& compose)
{
    MailComposer& mailComposer = environment.platform.mailComposer;
    if (!mailComposer.canSendMail()) {
        environment.navigator.present(
            information(QStringLiteral("Sending Email"), QStringLiteral("Email not Setup or Unavailable")));
        return;
    }
    mailComposer.present(compose(), [&navigator = environment.navigator](const QString& failure) {
        if (failure.isEmpty())
            return;
        printFailure(failure);
        navigator.present(information(QStringLiteral("Sending Email"), failure));
    });
}

std::vector<MailAttachment> attachmentOf(const QString& path, const QString& mimeType,
                                         const QString& fileName)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return {{file.readAll(), mimeType, fileName}};
}

} // namespace giggle
