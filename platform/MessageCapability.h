// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

/// Whether this device can send text messages.
class MessageCapability {
public:
    MessageCapability() = default;
    MessageCapability(const MessageCapability&) = delete;
    MessageCapability& operator=(const MessageCapability&) = delete;
    virtual ~MessageCapability() = default;

    /// Asked anew every time: the user may install or remove a program meanwhile.
    [[nodiscard]] virtual bool canSendText() const = 0;
};

} // namespace giggle
