// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxMailComposer.h"

#include "platform/AddressOpener.h"
#include "platform/linux/MailText.h"
#include "platform/linux/PortalRequest.h"
#include "platform/linux/ProgramStart.h"

#include <QDBusMetaType>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QStandardPaths>

#include <utility>

namespace giggle {

namespace {

using namespace std::chrono_literals;

constexpr int LongestPortalSubject = 200;

// The tool may stay until the mail program is closed; its own errors come sooner.
constexpr auto ToolPatience = 5s;

/// Programs that lose what is attached through a portal, without a word: it hands files on as "attachment",
/// these know "attach", which is what the tool writes.
const QStringList LosersOfPortalFiles{QStringLiteral("claws-mail.desktop")};

/// Empty when one of the files cannot be opened.
QList<QDBusUnixFileDescriptor> openedFiles(const QStringList& paths)
{
    QList<QDBusUnixFileDescriptor> files;
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        files.append(QDBusUnixFileDescriptor(file.handle())); // keeps a duplicate
    }
    return files;
}

QVariantMap portalOptions(const QString& recipient, const QString& subject, const QString& body)
{
    QVariantMap options;
    const auto add = [&options](const char* name, const QString& value) {
        if (!value.isEmpty())
            options.insert(QString::fromLatin1(name), value);
    };
    add("address", recipient);
    add("subject", MailText::shortSubject(subject, LongestPortalSubject));
    add("body", body);
    return options;
}

} // namespace

struct LinuxMailComposer::Handover {
    QStringList recipients;
    QString subject;
    QString body;
    QStringList files;
    QStringList failures; ///< what the user must be told, sentence by sentence
    std::function<void(const QString& failure)> finished;
};

LinuxMailComposer::LinuxMailComposer(AddressOpener& addressOpener, const QString& outgoingFolder,
                                     QDBusConnection bus)
    : m_addressOpener(addressOpener), m_outgoingFiles(outgoingFolder), m_bus(std::move(bus))
{
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
}

bool LinuxMailComposer::canSendMail() const
{
    return !mailProgram().isEmpty();
}

QString LinuxMailComposer::mailProgram() const
{
    return m_associations.handlerOfScheme(QStringLiteral("mailto"));
}

void LinuxMailComposer::present(const Mail& mail, std::function<void(const QString& failure)> finished)
{
    const HandoverPointer handover = prepared(mail);
    handover->finished = std::move(finished);
    tryPortal(handover);
}

LinuxMailComposer::HandoverPointer LinuxMailComposer::prepared(const Mail& mail) const
{
    auto handover = std::make_shared<Handover>();
    handover->recipients = mail.recipients;
    handover->subject = mail.subject;
    handover->body = MailText::plainBody(mail);
    // Behind every portal and tool the mail program is started with an address.
    if (!MailText::fitsIntoAddress(handover->body))
        attach(*handover, {std::exchange(handover->body, {}).toUtf8(), {}, QStringLiteral("Mail.txt")});
    for (const MailAttachment& attachment : mail.attachments)
        attach(*handover, attachment);
    return handover;
}

void LinuxMailComposer::attach(Handover& handover, const MailAttachment& attachment) const
{
    const OutgoingFiles::Written written = m_outgoingFiles.write(attachment.fileName, attachment.data);
    if (written.failure.isEmpty())
        handover.files.append(written.path);
    else
        handover.failures.append(QStringLiteral("The file \"%1\" could not be attached: %2.")
                                     .arg(attachment.fileName.section(u'/', -1), written.failure));
}

void LinuxMailComposer::tryPortal(const HandoverPointer& handover)
{
    QVariantMap options = portalOptions(handover->recipients.value(0), handover->subject, handover->body);
    // Old portals drop further recipients without a word.
    bool isPossible = m_bus.isConnected() && handover->recipients.size() <= 1;
    if (!handover->files.isEmpty()) {
        const QList<QDBusUnixFileDescriptor> files = openedFiles(handover->files);
        isPossible = isPossible && PortalRequest::takesFiles(m_bus) && !files.isEmpty() &&
                     !LosersOfPortalFiles.contains(mailProgram());
        options.insert(QStringLiteral("attachment_fds"), QVariant::fromValue(files));
    }
    if (!isPossible) {
        tryTool(handover);
        return;
    }
    PortalRequest::send(m_bus, {QStringLiteral("Email"), QStringLiteral("ComposeEmail"), {}, options}, this,
                        [this, handover](PortalRequest::Outcome outcome, const QVariantMap&) {
                            if (outcome == PortalRequest::Outcome::Failed)
                                tryTool(handover);
                            else
                                finish(handover);
                        });
}

void LinuxMailComposer::tryTool(const HandoverPointer& handover)
{
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (tool.isEmpty()) {
        tryAddress(handover);
        return;
    }
    QStringList arguments{QStringLiteral("--utf8")};
    for (const QString& path : std::as_const(handover->files))
        arguments << QStringLiteral("--attach") << path;
    // The tool would take backslashes in a plain subject or body for escapes.
    arguments << QString::fromLatin1(
        MailText::address(handover->recipients, handover->subject, handover->body).toEncoded());
    startProgram(tool, arguments, ToolPatience, this, [this, handover](bool isWell) {
        if (isWell)
            finish(handover);
        else
            tryAddress(handover);
    });
}

void LinuxMailComposer::tryAddress(const HandoverPointer& handover)
{
    const QUrl address = MailText::address(handover->recipients, handover->subject, handover->body);
    // The desktop says that it has opened an address as soon as it starts to look for a program.
    if (!canSendMail() || !m_addressOpener.open(address))
        handover->failures = {QStringLiteral("No mail program could be opened.")};
    else
        for (const QString& path : std::as_const(handover->files))
            handover->failures.append(
                QStringLiteral("The mail program took no file. Please attach \"%1\" yourself.").arg(path));
    finish(handover);
}

void LinuxMailComposer::finish(const HandoverPointer& handover)
{
    QMetaObject::invokeMethod(
        this,
        [handover] {
            if (handover->finished)
                handover->finished(handover->failures.join(u' '));
        },
        Qt::QueuedConnection);
}

} // namespace giggle
