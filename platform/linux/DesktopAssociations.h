// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace giggle {

/// Which programs the user opens addresses and files with: the association lists of the user, of the system
/// and of the running desktop in their order, then whatever a program's desktop file says that it opens. The
/// files are read anew each time, because programs come and go; caches beside them may be out of date and
/// are not looked at.
class DesktopAssociations {
public:
    /// The text of an environment variable; empty when it is unset.
    using Environment = std::function<QString(const char* name)>;

    /// Reads the environment of the process.
    DesktopAssociations();

    explicit DesktopAssociations(Environment environment);

    /// The id of the desktop file of the program preferred for @p mimeType; empty when none can be started.
    /// Programs that menus do not show count.
    [[nodiscard]] QString handlerOfType(const QString& mimeType) const;

    /// The same for addresses: @p scheme is what stands before their colon.
    [[nodiscard]] QString handlerOfScheme(const QString& scheme) const;

private:
    Environment m_environment;
};

} // namespace giggle
