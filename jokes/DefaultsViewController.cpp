// SPDX-License-Identifier: MIT
#include "jokes/DefaultsViewController.h"

#include "platform/Fonts.h"
#include "platform/InterfaceStyle.h"
#include "platform/Platform.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"
#include "ui/DisplayText.h"
#include "ui/ListDisplaySettings.h"

#include <QLocale>

#include <algorithm>
#include <utility>

namespace giggle {

namespace {

constexpr double PickerFontSize = 15;

/// The shortest text that reads back as the number.
QString plainText(double value)
{
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

/// The same, but a whole number keeps one digit behind the point.
QString plainDecimalText(double value)
{
    const QString text = plainText(value);
    return text.contains(u'.') || text.contains(u'e') ? text : text + QStringLiteral(".0");
}

/// What a text of that colour can be read on.
QColor groundFor(const QColor& ink)
{
    return ink == Qt::white ? Qt::blue : Qt::white;
}

QStringList inCodePointOrder(QStringList names)
{
    std::ranges::sort(names, {}, [](const QString& name) { return name.toUtf8(); });
    return names;
}

} // namespace

void DefaultsViewController::viewDidLoad()
{
    Preferences& userDefaults = environment().userDefaults;
    ListDisplaySettings settings = ListDisplaySettings::read(userDefaults);
    m_fontColorTextField = settings.ListFontColor;
    showColor();
    loadSize(userDefaults);
    m_listFontTextField = settings.ListFontName;
    m_listFont = fontNamed(m_listFontTextField, m_listFontSize);
    Platform& platform = environment().platform;
    m_fontList = inCodePointOrder(platform.fonts.families());
    m_colorList = inCodePointOrder(colorNames());
    if (platform.interfaceStyle.current() == InterfaceStyle::Style::Dark)
        m_listFontInk = Qt::white;
    emit listFontTextFieldChanged();
    emit listsLoaded();
}

void DefaultsViewController::loadSize(Preferences& userDefaults)
{
    if (userDefaults.isPresent(PreferenceKeys::ListFontSize)) {
        m_listFontSize = static_cast<double>(userDefaults.integer(PreferenceKeys::ListFontSize));
        const double stored = userDefaults.real(PreferenceKeys::ListFontSize);
        m_listFontTextSizeTextField = plainText(stored);
        m_listStepper = std::clamp(stored, leastListStepper(), greatestListStepper());
    } else {
        constexpr qint64 first = PreferenceDefaults::SettingsScreenFontSize;
        m_listFontSize = m_listStepper = static_cast<double>(first);
        m_listFontTextSizeTextField = QString::number(first);
        userDefaults.setInteger(PreferenceKeys::ListFontSize, first);
        userDefaults.synchronize();
    }
    emit listSizeChanged();
}

QFont DefaultsViewController::fontNamed(const QString& name, double pointSize) const
{
    return ListDisplaySettings{name, pointSize, {}}.fontOrDefault(environment().platform.fonts);
}

/// A name that is no colour's leaves the looks as they are.
void DefaultsViewController::showColor()
{
    if (const std::optional<QColor> color = colorNamed(m_fontColorTextField)) {
        m_colorInk = *color;
        m_colorGround = groundFor(*color);
    }
    emit fontColorTextFieldChanged();
}

PickerRowLook DefaultsViewController::viewForRow(int row, Picker picker) const
{
    const QString name = (picker == FontPicker ? m_fontList : m_colorList).value(row);
    if (picker == FontPicker)
        return {fontNamed(name, PickerFontSize)};
    const QColor color = colorNamed(name).value_or(Qt::black);
    return {fontNamed(PreferenceDefaults::ListFontName.toString(), PickerFontSize), color, groundFor(color)};
}

void DefaultsViewController::didSelectRow(int row, Picker picker)
{
    const QStringList& names = picker == FontPicker ? m_fontList : m_colorList;
    if (row < 0 || row >= names.size())
        return;
    beginEditing(picker);
    if (picker == FontPicker) {
        m_listFontTextField = names[row];
        emit listFontTextFieldChanged();
    } else {
        m_fontColorTextField = names[row];
        showColor();
    }
}

void DefaultsViewController::beginEditing(Picker picker)
{
    const Editing field = picker == FontPicker ? Editing::Font : Editing::Color;
    if (field != m_editing)
        endEditing();
    m_editing = field;
}

void DefaultsViewController::endEditing()
{
    switch (std::exchange(m_editing, Editing::Nothing)) {
    case Editing::Font:
        ListFontSelected();
        break;
    case Editing::Color:
        FontColorSelected();
        break;
    case Editing::Nothing:
        break;
    }
}

void DefaultsViewController::ListFontSelected()
{
    Preferences& userDefaults = environment().userDefaults;
    if (m_listFontTextField.isEmpty())
        userDefaults.remove(PreferenceKeys::ListFontName);
    else
        userDefaults.setText(PreferenceKeys::ListFontName, m_listFontTextField);
    userDefaults.synchronize();
    m_listFont = fontNamed(m_listFontTextField, m_listFontSize);
    m_listFontInk = Qt::black;
    emit listFontTextFieldChanged();
}

void DefaultsViewController::FontColorSelected()
{
    Preferences& userDefaults = environment().userDefaults;
    userDefaults.setText(PreferenceKeys::ListFontColor, m_fontColorTextField);
    userDefaults.synchronize();
}

void DefaultsViewController::stepBy(int steps)
{
    const double value = std::clamp(m_listStepper + steps, leastListStepper(), greatestListStepper());
    if (value != m_listStepper)
        ListStepperChanged(value);
}

void DefaultsViewController::ListStepperChanged(double value)
{
    m_listStepper = std::clamp(value, leastListStepper(), greatestListStepper());
    m_listFontTextSizeTextField = plainDecimalText(m_listStepper);
    Preferences& userDefaults = environment().userDefaults;
    userDefaults.setReal(PreferenceKeys::ListFontSize, m_listStepper);
    userDefaults.synchronize();
    if (m_listStepper > m_listFontSize)
        m_sizePreview += 1;
    else if (m_listStepper < m_listFontSize)
        m_sizePreview -= 1;
    m_listFontSize = m_listStepper;
    emit listSizeChanged();
}

} // namespace giggle
