// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

/// Where the application is found on the net. The names are reserved ones that lead nowhere: whoever
/// publishes the application puts its own here, and in `packaging/` and `.reuse/dep5`.
namespace giggle::DeploymentAddresses {

/// The page in the store, where the application can be had and rated.
inline QUrl storePage()
{
    return QUrl(QStringLiteral("https://gigglearchives.example/app"));
}

inline QUrl website()
{
    return QUrl(QStringLiteral("http://gigglearchives.example/"));
}

/// The mailbox for what users have to say.
inline QString feedbackMailbox()
{
    return QStringLiteral("feedback@gigglearchives.example");
}

} // namespace giggle::DeploymentAddresses
