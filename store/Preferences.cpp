// SPDX-License-Identifier: MIT
#include "store/Preferences.h"

#include "store/Console.h"
#include "store/FatalError.h"
#include "store/FolderSync.h"
#include "store/PreferenceKeys.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cmath>
#include <limits>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace giggle {

namespace {

constexpr int MostDamagedFiles = 1000;

QString damagedPath(const QString& path, int number)
{
    const QString first = path + QStringLiteral(".damaged");
    return number == 1 ? first : first + QStringLiteral(".%1").arg(number);
}

// Only a certain "no" frees a name: a dangling link and an unsearchable folder count as taken.
bool isTaken(const QString& path)
{
    struct stat status = {};
    return ::lstat(QFile::encodeName(path).constData(), &status) == 0 || errno != ENOENT;
}

} // namespace

Preferences::Preferences(QString path) : m_path(std::move(path))
{
    load();
    const bool hadFile = !m_mayWrite || isTaken(damagedPath(m_path, 1));
    if (hadFile && !isPresent(PreferenceKeys::HasBeenLaunchedBeforeFlag))
        setBoolean(PreferenceKeys::HasBeenLaunchedBeforeFlag, true);
}

void Preferences::load()
{
    QFile file(m_path);
    if (!isTaken(m_path))
        return;
    if (!file.open(QIODevice::ReadOnly)) {
        printFailure(QStringLiteral("Cannot read %1: %2").arg(m_path, file.errorString()));
        m_mayWrite = false;
        return;
    }
    const QByteArray json = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        printFailure(QStringLiteral("Cannot read %1: %2").arg(m_path, file.errorString()));
        m_mayWrite = false;
        return;
    }
    file.close();
    ParsedPreferences parsed = parsePreferences(json);
    if (!parsed.damage.isEmpty()) {
        m_mayWrite = setAside(parsed.damage);
        return;
    }
    m_values = std::move(parsed.values);
    m_storedValues = m_values;
}

bool Preferences::setAside(const QString& damage)
{
    int number = 1;
    while (number < MostDamagedFiles && isTaken(damagedPath(m_path, number)))
        ++number;
    const QString target = damagedPath(m_path, number);
    QFile file(m_path);
    if (!file.rename(target)) {
        printFailure(QStringLiteral("%1 is damaged (%2) and cannot be set aside: %3")
                         .arg(m_path, damage, file.errorString()));
        return false;
    }
    synchronizeFolder(QFileInfo(m_path).path());
    printFailure(QStringLiteral("%1 was damaged (%2) and is now %3").arg(m_path, damage, target));
    return true;
}

const PreferenceValue* Preferences::value(QStringView key) const
{
    const auto entry = m_values.find(key);
    return entry == m_values.end() ? nullptr : &entry->second;
}

void Preferences::stopForWrongType(QStringView key, const QString& expected) const
{
    const PreferenceValue* stored = value(key);
    fatalError(QStringLiteral("The preference \"%1\" in %2 must be of type %3, but is %4")
                   .arg(key, m_path, expected,
                        stored ? QStringLiteral("of type ") + typeName(*stored) : QStringLiteral("absent")),
               __FILE__, __LINE__);
}

bool Preferences::isPresent(QStringView key) const
{
    return value(key) != nullptr;
}

QString Preferences::text(QStringView key) const
{
    const PreferenceValue* stored = value(key);
    if (const auto* text = stored ? std::get_if<QString>(stored) : nullptr)
        return *text;
    stopForWrongType(key, QStringLiteral("text"));
}

double Preferences::real(QStringView key) const
{
    const PreferenceValue* stored = value(key);
    if (const auto* number = stored ? std::get_if<double>(stored) : nullptr)
        return *number;
    if (const auto* number = stored ? std::get_if<qint64>(stored) : nullptr)
        return static_cast<double>(*number);
    stopForWrongType(key, QStringLiteral("real"));
}

qint64 Preferences::integer(QStringView key) const
{
    const PreferenceValue* stored = value(key);
    if (const auto* number = stored ? std::get_if<qint64>(stored) : nullptr)
        return *number;
    const auto* number = stored ? std::get_if<double>(stored) : nullptr;
    if (!number)
        stopForWrongType(key, QStringLiteral("integer"));
    constexpr double limit = 9223372036854775808.0; // 2^63, the first value past the range
    if (*number >= limit)
        return std::numeric_limits<qint64>::max();
    if (*number < -limit)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(*number);
}

bool Preferences::boolean(QStringView key) const
{
    const PreferenceValue* stored = value(key);
    const auto* flag = stored ? std::get_if<bool>(stored) : nullptr;
    return flag && *flag;
}

std::optional<QDateTime> Preferences::date(QStringView key) const
{
    const PreferenceValue* stored = value(key);
    const auto* date = stored ? std::get_if<PreferenceDate>(stored) : nullptr;
    if (!date)
        return std::nullopt;
    const QDateTime moment = QDateTime::fromString(date->isoText, Qt::ISODate);
    if (!moment.isValid())
        return std::nullopt;
    return moment.toUTC();
}

void Preferences::setText(QStringView key, const QString& value)
{
    m_values.insert_or_assign(key.toString(), value);
}

void Preferences::setReal(QStringView key, double value)
{
    if (!std::isfinite(value)) {
        printFailure(QStringLiteral("The preference \"%1\" cannot hold %2").arg(key).arg(value));
        return;
    }
    m_values.insert_or_assign(key.toString(), value);
}

void Preferences::setInteger(QStringView key, qint64 value)
{
    m_values.insert_or_assign(key.toString(), value);
}

void Preferences::setBoolean(QStringView key, bool value)
{
    m_values.insert_or_assign(key.toString(), value);
}

void Preferences::setDate(QStringView key, const std::optional<QDateTime>& value)
{
    if (!value || !value->isValid()) {
        remove(key);
        return;
    }
    m_values.insert_or_assign(key.toString(), PreferenceDate{value->toUTC().toString(Qt::ISODate)});
}

void Preferences::remove(QStringView key)
{
    const auto entry = m_values.find(key);
    if (entry != m_values.end())
        m_values.erase(entry);
}

bool Preferences::synchronize()
{
    if (m_values == m_storedValues)
        return true;
    if (!m_mayWrite) {
        printFailure(
            QStringLiteral("%1 could not be read and is left as it is: settings are not saved").arg(m_path));
        return false;
    }
    if (!write(serializePreferences(m_values)))
        return false;
    m_storedValues = m_values;
    return true;
}

bool Preferences::write(const QByteArray& json)
{
    QSaveFile file(m_path);
    const bool written = file.open(QIODevice::WriteOnly) && file.write(json) == json.size() && file.flush();
    if (!written) {
        printFailure(QStringLiteral("Cannot write %1: %2").arg(m_path, file.errorString()));
        return false;
    }
    // QSaveFile syncs as well, but does not tell when that fails.
    if (::fsync(file.handle()) != 0 && errno != EINVAL) {
        printFailure(QStringLiteral("Cannot write %1: %2").arg(m_path, qt_error_string(errno)));
        return false;
    }
    if (!file.commit()) {
        printFailure(QStringLiteral("Cannot write %1: %2").arg(m_path, file.errorString()));
        return false;
    }
    // The file may be a symbolic link; what was replaced is its target.
    if (!synchronizeFolder(QFileInfo(QFileInfo(m_path).canonicalFilePath()).path())) {
        printFailure(QStringLiteral("Cannot write %1: %2").arg(m_path, qt_error_string(errno)));
        return false;
    }
    return true;
}

} // namespace giggle
