// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The names under which the desktop knows the application.
namespace giggle::ApplicationIdentity {

inline QString displayName()
{
    return QStringLiteral("Giggle Archives");
}

/// Also the name of the desktop file and of the application on the session bus.
inline QString applicationId()
{
    return QStringLiteral("org.gigglearchives.GiggleArchives");
}

/// Where the application object lies on the session bus: the id with slashes, by the rule for
/// desktop entries.
inline QString objectPath()
{
    return QStringLiteral("/org/gigglearchives/GiggleArchives");
}

} // namespace giggle::ApplicationIdentity
