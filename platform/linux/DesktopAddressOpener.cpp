// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAddressOpener.h"

#include <QDesktopServices>

namespace giggle {

bool DesktopAddressOpener::open(const QUrl& address)
{
    return address.isValid() && QDesktopServices::openUrl(address);
}

} // namespace giggle
