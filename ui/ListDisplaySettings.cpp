// SPDX-License-Identifier: MIT
#include "ui/ListDisplaySettings.h"

#include "platform/Fonts.h"
#include "store/FatalError.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"
#include "ui/DisplayText.h"

#include <array>

namespace giggle {

namespace {

struct NamedColor {
    QStringView name;
    Qt::GlobalColor color;
};

constexpr std::array NamedColors{
    NamedColor{u"black", Qt::black}, NamedColor{u"blue", Qt::blue},       NamedColor{u"red", Qt::red},
    NamedColor{u"green", Qt::green}, NamedColor{u"magenta", Qt::magenta}, NamedColor{u"white", Qt::white},
};

ListDisplaySettings readSettings(const Preferences& userDefaults, QStringView sizeKey, double defaultSize)
{
    ListDisplaySettings settings{PreferenceDefaults::ListFontName.toString(), defaultSize,
                                 PreferenceDefaults::ListFontColor.toString()};
    if (userDefaults.isPresent(PreferenceKeys::ListFontName))
        settings.ListFontName = userDefaults.text(PreferenceKeys::ListFontName);
    if (userDefaults.isPresent(sizeKey))
        settings.ListFontSize = userDefaults.real(sizeKey);
    if (userDefaults.isPresent(PreferenceKeys::ListFontColor))
        settings.ListFontColor = userDefaults.text(PreferenceKeys::ListFontColor);
    return settings;
}

} // namespace

std::optional<QColor> colorNamed(const QString& name)
{
    for (const NamedColor& candidate : NamedColors)
        if (name == candidate.name)
            return candidate.color;
    return std::nullopt;
}

QStringList colorNames()
{
    QStringList names;
    for (const NamedColor& each : NamedColors)
        names.append(each.name.toString());
    return names;
}

ListDisplaySettings ListDisplaySettings::read(const Preferences& userDefaults)
{
    return readSettings(userDefaults, PreferenceKeys::ListFontSize, PreferenceDefaults::ListFontSize);
}

ListDisplaySettings ListDisplaySettings::readForViewer(const Preferences& userDefaults)
{
    return readSettings(userDefaults, PreferenceKeys::ViewerFontSize, PreferenceDefaults::ViewerFontSize);
}

QFont ListDisplaySettings::requiredFont(Fonts& fonts) const
{
    std::optional<QFont> font = fonts.font(ListFontName, ListFontSize);
    if (!font)
        fatalError(QStringLiteral("The list font \"%1\" is not installed.").arg(ListFontName), __FILE__,
                   __LINE__);
    return *font;
}

QFont ListDisplaySettings::fontOrDefault(Fonts& fonts) const
{
    if (const auto font = fonts.font(ListFontName, ListFontSize))
        return *font;
    if (const auto font = fonts.font(PreferenceDefaults::ListFontName.toString(), ListFontSize))
        return *font;
    return drawnInListSize(QFont());
}

QFont ListDisplaySettings::drawnInListSize(QFont font) const
{
    font.setPixelSize(qMax(1, qRound(ListFontSize)));
    return font;
}

AttributedText ListDisplaySettings::rowText(OptionalText joke, const QFont& font) const
{
    AttributedText text;
    text.append(filteredForDisplay(joke.value_or("")) + u'\n',
                {colorNamed(ListFontColor), font, Qt::AlignHCenter});
    return text;
}

} // namespace giggle
