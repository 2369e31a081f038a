// SPDX-License-Identifier: MIT
#pragma once

#include "platform/FileOpener.h"
#include "platform/MailComposer.h"
#include "platform/MessageCapability.h"

namespace giggle {

/// A device without a mail program.
class NoMailComposer : public MailComposer {
public:
    [[nodiscard]] bool canSendMail() const override { return false; }

    void present(const Mail&, std::function<void(const QString&)> finished) override
    {
        finished(QStringLiteral("There is no mail program."));
    }
};

/// A device without programs for files.
class NoFileOpener : public FileOpener {
public:
    [[nodiscard]] bool canOpen(const QString&) const override { return false; }

    void open(const QString&, std::function<void(const QString&)> finished) override
    {
        finished(QStringLiteral("There is no program for the file."));
    }
};

/// A device without text messages.
class NoMessageCapability : public MessageCapability {
public:
    [[nodiscard]] bool canSendText() const override { return false; }
};

} // namespace giggle
