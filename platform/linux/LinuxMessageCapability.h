// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MessageCapability.h"
#include "platform/linux/DesktopAssociations.h"

#include <utility>

namespace giggle {

/// A device can send text messages when the user has a program for `sms:` addresses.
class LinuxMessageCapability : public MessageCapability {
public:
    explicit LinuxMessageCapability(DesktopAssociations associations = {})
        : m_associations(std::move(associations))
    {
    }

    [[nodiscard]] bool canSendText() const override
    {
        return !m_associations.handlerOfScheme(QStringLiteral("sms")).isEmpty();
    }

private:
    DesktopAssociations m_associations;
};

} // namespace giggle
