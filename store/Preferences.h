// SPDX-License-Identifier: MIT
#pragma once

#include "store/PreferenceValue.h"

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

namespace giggle {

/// The user's settings: typed values by key, resident in memory, durable in one JSON file. Main thread only.
///
/// Reading goes in two steps: `isPresent` first, then the value. Setters change memory; `synchronize` writes.
/// Keys that the application does not know are kept. A damaged file is renamed to `<file>.damaged` (or
/// `.damaged.2`, `.damaged.3`, ...: an earlier one is never overwritten), which is logged and counts as an
/// absent file. A file that cannot be read or set aside is logged, counts as absent and is never written.
///
/// The launch flag is the exception to that: a file that was set aside, now or by an earlier run, or that
/// cannot be read proves an earlier launch. Where the file itself has no flag, it is then present and true.
class Preferences {
public:
    /// Reads the file @p path; a missing one is empty. Nothing is written.
    explicit Preferences(QString path);

    Preferences(const Preferences&) = delete;
    Preferences& operator=(const Preferences&) = delete;

    /// True when a value of any type is stored under @p key.
    [[nodiscard]] bool isPresent(QStringView key) const;

    /// The value under @p key whatever its type, null when absent. Valid until the next change.
    [[nodiscard]] const PreferenceValue* value(QStringView key) const;

    /// The text under @p key. An absent value or one of another type is a fatal stop.
    [[nodiscard]] QString text(QStringView key) const;

    /// The number under @p key, stored as a real or as an integer. Anything else is a fatal stop.
    [[nodiscard]] double real(QStringView key) const;

    /// The same number, a real cut towards zero and brought into range.
    [[nodiscard]] qint64 integer(QStringView key) const;

    /// The boolean under @p key; false when there is none.
    [[nodiscard]] bool boolean(QStringView key) const;

    /// The date under @p key, in UTC. Absent when there is none or what is stored is no date.
    [[nodiscard]] std::optional<QDateTime> date(QStringView key) const;

    void setText(QStringView key, const QString& value);

    /// An infinite value or one that is no number cannot be stored: it is logged and changes nothing.
    void setReal(QStringView key, double value);

    void setInteger(QStringView key, qint64 value);

    void setBoolean(QStringView key, bool value);

    /// Dates are kept in UTC to the second. An absent or invalid one removes the value.
    void setDate(QStringView key, const std::optional<QDateTime>& value);

    void remove(QStringView key);

    /// Makes every change durable: the file is replaced in one step and reaches the disk before this returns
    /// true. Without changes nothing is written. On failure the reason is logged, the file is as it was, the
    /// values stay, and a later call tries again.
    bool synchronize();

private:
    [[noreturn]] void stopForWrongType(QStringView key, const QString& expected) const;
    void load();
    [[nodiscard]] bool setAside(const QString& damage);
    [[nodiscard]] bool write(const QByteArray& json);

    QString m_path;
    PreferenceValues m_values;
    PreferenceValues m_storedValues; ///< What the file holds.
    bool m_mayWrite = true;
};

} // namespace giggle
