// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Fonts.h"

#include <QHash>
#include <QObject>

namespace giggle {

/// Fonts from the system's font database. Three names that every collection may hold stand for the families
/// that free systems ship in their place: Arial for Liberation Sans, Times New Roman for Liberation Serif and
/// Courier New for Liberation Mono. Where that family is missing, one of the name itself will do.
///
/// Needs a QGuiApplication. Answers are remembered until the set of fonts changes. Main thread only.
class LinuxFonts : public Fonts {
public:
    LinuxFonts();

    [[nodiscard]] std::optional<QFont> font(const QString& name, double pointSize) override;

    /// Also the names that stand for another family which is installed.
    [[nodiscard]] QStringList families() override;

private:
    void ensureFamilies();
    std::optional<QString> installedFamily(const QString& name);

    QHash<QString, QString> m_families; ///< Installed families by their case-folded name; empty until asked.
    QObject m_lifetime;                 ///< Ends the connection to the application object.
};

} // namespace giggle
