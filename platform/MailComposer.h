// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace giggle {

/// A file that goes with a mail.
struct MailAttachment {
    QByteArray data;
    QString mimeType; ///< left out where it is none that the mail program takes
    QString fileName; ///< its last component is what the mail program shows

    bool operator==(const MailAttachment&) const = default;
};

/// A mail to be, for the user to look at, change and send.
struct Mail {
    QStringList recipients;
    QString subject;
    QString body;            ///< one that is too long for mail programs goes along as a file
    bool isBodyHtml = false; ///< becomes plain text where the mail program takes no other
    std::vector<MailAttachment> attachments;

    bool operator==(const Mail&) const = default;
};

/// The user's mail program. Lives in the main thread.
class MailComposer {
public:
    MailComposer() = default;
    MailComposer(const MailComposer&) = delete;
    MailComposer& operator=(const MailComposer&) = delete;
    virtual ~MailComposer() = default;

    /// Whether the user has a program for mails.
    [[nodiscard]] virtual bool canSendMail() const = 0;

    /// Opens a window of the mail program with @p mail. Calls @p finished once, later: with nothing when the
    /// mail program has taken everything over or the user has turned away, otherwise with what to tell the
    /// user in words: that no mail program could be opened, or which file the mail had to go without.
    virtual void present(const Mail& mail, std::function<void(const QString& failure)> finished) = 0;
};

} // namespace giggle
