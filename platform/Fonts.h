// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

#include <optional>

namespace giggle {

/// Finds fonts by the names that the user's settings hold.
class Fonts {
public:
    Fonts() = default;
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;
    virtual ~Fonts() = default;

    /// The font of family @p name, or nothing when the system has no such family. One point is one logical
    /// pixel: the pixel size is @p pointSize rounded, where anything that is not at least 1 counts as 1.
    /// Cheap enough to be asked for every row.
    [[nodiscard]] virtual std::optional<QFont> font(const QString& name, double pointSize) = 0;

    /// The names of all families, each once, in no particular order. Each of them has a font.
    [[nodiscard]] virtual QStringList families() = 0;
};

} // namespace giggle
