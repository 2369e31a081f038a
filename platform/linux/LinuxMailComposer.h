// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MailComposer.h"
#include "platform/linux/DesktopAssociations.h"
#include "platform/linux/OutgoingFiles.h"

#include <QDBusConnection>
#include <QObject>

#include <memory>

namespace giggle {

class AddressOpener;

/// Hands mails to the user's mail program: through the desktop's portal, else by `xdg-email`, else as a
/// `mailto:` address, which takes no files. All of them take plain text only, and no MIME types. Needs a
/// QGuiApplication.
class LinuxMailComposer : public QObject, public MailComposer {
public:
    /// @p addressOpener outlives the composer. Attached files are put into @p outgoingFolder, see
    /// OutgoingFiles.
    LinuxMailComposer(AddressOpener& addressOpener, const QString& outgoingFolder,
                      QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] bool canSendMail() const override;

    void present(const Mail& mail, std::function<void(const QString& failure)> finished) override;

private:
    struct Handover;
    using HandoverPointer = std::shared_ptr<Handover>;

    /// The desktop file of the preferred one; empty when there is none.
    [[nodiscard]] QString mailProgram() const;
    [[nodiscard]] HandoverPointer prepared(const Mail& mail) const;
    void attach(Handover& handover, const MailAttachment& attachment) const;

    /// @name The ways, each followed by the next one when it fails
    /// @{
    void tryPortal(const HandoverPointer& handover);
    void tryTool(const HandoverPointer& handover);
    void tryAddress(const HandoverPointer& handover);
    /// @}

    /// Answers once the event loop is reached.
    void finish(const HandoverPointer& handover);

    AddressOpener& m_addressOpener;
    DesktopAssociations m_associations;
    OutgoingFiles m_outgoingFiles;
    QDBusConnection m_bus;
};

} // namespace giggle
