// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <variant>

namespace giggle {

/// A date as the preference file spells it: ISO 8601, in UTC when written here. The text may be no date at
/// all; it is kept as it is and told apart only when it is read.
struct PreferenceDate {
    QString isoText;

    bool operator==(const PreferenceDate&) const = default;
};

/// One stored preference.
using PreferenceValue = std::variant<QString, double, qint64, bool, PreferenceDate>;

/// All stored preferences by key, in an order that depends on the keys alone.
using PreferenceValues = std::map<QString, PreferenceValue, std::less<>>;

/// "text", "real", "integer", "boolean" or "date": the member that names the type in the file.
[[nodiscard]] QString typeName(const PreferenceValue& value);

/// The contents of a preference file, or why they are damaged.
struct ParsedPreferences {
    PreferenceValues values;
    QString damage; ///< Empty when the file is whole; `values` is empty otherwise.
};

/// Reads a whole preference file. It is damaged when it is no JSON object, or when any value of it is not an
/// object whose one member names a type and holds a JSON value of that type.
[[nodiscard]] ParsedPreferences parsePreferences(const QByteArray& json);

/// The file's contents for @p values: the same values give the same bytes, and parsing them gives the values
/// back with their types, reals to the last bit. Reals must be finite.
[[nodiscard]] QByteArray serializePreferences(const PreferenceValues& values);

} // namespace giggle
