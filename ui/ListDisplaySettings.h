// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "store/Attribute.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

namespace giggle {

class Fonts;
class Preferences;

/// The colour behind a stored colour name; nothing for a name that is not known (case counts).
[[nodiscard]] std::optional<QColor> colorNamed(const QString& name);

/// The names that have a colour, in their fixed order.
[[nodiscard]] QStringList colorNames();

/// How the user wants jokes to look.
struct ListDisplaySettings {
    QString ListFontName;
    double ListFontSize = 0;
    QString ListFontColor;

    /// What is stored, where something is, otherwise the defaults. A value of a wrong type ends the program.
    [[nodiscard]] static ListDisplaySettings read(const Preferences& userDefaults);

    /// The same for a single joke on a page of its own, which has a text size of its own.
    [[nodiscard]] static ListDisplaySettings readForViewer(const Preferences& userDefaults);

    /// The font of jokes. A name that the system has no font for ends the program.
    [[nodiscard]] QFont requiredFont(Fonts& fonts) const;

    /// The same, but a name that the system has no font for gives the default font instead.
    [[nodiscard]] QFont fontOrDefault(Fonts& fonts) const;

    /// @p font in the size of jokes; one below 1 is drawn as 1.
    [[nodiscard]] QFont drawnInListSize(QFont font) const;

    /// A joke as its row shows it: filtered, followed by a line feed, centred, in @p font and the chosen
    /// colour.
    [[nodiscard]] AttributedText rowText(OptionalText joke, const QFont& font) const;
};

} // namespace giggle
