// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AddressOpener.h"

namespace giggle {

/// Opens addresses with the desktop's applications. Needs a QGuiApplication; without a display there is no
/// desktop, and nothing can be opened.
class DesktopAddressOpener : public AddressOpener {
public:
    [[nodiscard]] bool open(const QUrl& address) override;
};

} // namespace giggle
