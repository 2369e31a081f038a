// SPDX-License-Identifier: MIT
#include "store/PreferenceValue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

#include <array>
#include <limits>
#include <optional>

namespace giggle {

namespace {

// In the order of the alternatives of PreferenceValue.
constexpr std::array<QStringView, std::variant_size_v<PreferenceValue>> TypeNames{
    u"text", u"real", u"integer", u"boolean", u"date"};

std::optional<PreferenceValue> integerValue(const QJsonValue& value)
{
    // A fraction or a number past 64 bits comes back as the fallback, whichever that is.
    constexpr qint64 lowest = std::numeric_limits<qint64>::min();
    const qint64 number = value.toInteger(lowest);
    if (number == lowest && value.toInteger(0) != lowest)
        return std::nullopt;
    return PreferenceValue(number);
}

std::optional<PreferenceValue> parseValue(const QString& type, const QJsonValue& value)
{
    if (type == TypeNames[0] && value.isString())
        return PreferenceValue(value.toString());
    if (type == TypeNames[1] && value.isDouble())
        return PreferenceValue(value.toDouble());
    if (type == TypeNames[2] && value.isDouble())
        return integerValue(value);
    if (type == TypeNames[3] && value.isBool())
        return PreferenceValue(value.toBool());
    if (type == TypeNames[4] && value.isString())
        return PreferenceValue(PreferenceDate{value.toString()});
    return std::nullopt;
}

ParsedPreferences damaged(const QString& reason)
{
    return {{}, reason};
}

QByteArray quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}

QByteArray serializeReal(double number)
{
    QByteArray text = QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
    if (!text.contains('.') && !text.contains('e'))
        text += ".0";
    return text;
}

struct ValueSerializer {
    QByteArray operator()(const QString& text) const { return quoted(text); }

    QByteArray operator()(double number) const { return serializeReal(number); }

    QByteArray operator()(qint64 number) const { return QByteArray::number(number); }

    QByteArray operator()(bool flag) const { return flag ? "true" : "false"; }

    QByteArray operator()(const PreferenceDate& date) const { return quoted(date.isoText); }
};

} // namespace

QString typeName(const PreferenceValue& value)
{
    return TypeNames.at(value.index()).toString();
}

ParsedPreferences parsePreferences(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return damaged(QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    if (!document.isObject())
        return damaged(QStringLiteral("the file is no JSON object"));
    ParsedPreferences result;
    const QJsonObject entries = document.object();
    for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
        const QJsonObject typed = entry.value().toObject();
        std::optional<PreferenceValue> value;
        if (typed.size() == 1)
            value = parseValue(typed.begin().key(), typed.begin().value());
        if (!value)
            return damaged(QStringLiteral("the value of \"%1\" is none of a known type").arg(entry.key()));
        result.values.emplace(entry.key(), std::move(*value));
    }
    return result;
}

QByteArray serializePreferences(const PreferenceValues& values)
{
    QByteArray json = "{";
    const char* separator = "\n";
    for (const auto& [key, value] : values) {
        json += separator + quoted(key) + ": {\"" + typeName(value).toUtf8() +
                "\": " + std::visit(ValueSerializer{}, value) + '}';
        separator = ",\n";
    }
    return json + "\n}\n";
}

} // namespace giggle
