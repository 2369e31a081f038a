// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Where the desktop's portal is found on the session bus.
namespace giggle::DesktopPortal {

inline const QString Service = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString Path = QStringLiteral("/org/freedesktop/portal/desktop");

/// The full name of one of its interfaces: "Email" and its like.
[[nodiscard]] inline QString interfaceName(const QString& lastPart)
{
    return QStringLiteral("org.freedesktop.portal.") + lastPart;
}

} // namespace giggle::DesktopPortal
