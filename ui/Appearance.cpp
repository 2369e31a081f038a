// SPDX-License-Identifier: MIT
#include "ui/Appearance.h"

#include "platform/InterfaceStyle.h"

#include <QEvent>
#include <QFont>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace giggle {

namespace {

// The largest font that a desktop has unless its user enlarges it, and the resolution to which it relates.
constexpr double UsualPointSize = 11;
constexpr double UsualDotsPerInch = 96;
constexpr double PointsPerInch = 72;

constexpr double LargestScale = 3;

// Scaling a whole screen does not show here; scaling its texts alone raises the resolution or the font.
double systemTextScale()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double resolution = screen ? screen->logicalDotsPerInch() / UsualDotsPerInch : 1;
    const QFont font = QGuiApplication::font();
    const double pointSize =
        font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * PointsPerInch / UsualDotsPerInch;
    return std::clamp(resolution * std::max(1.0, pointSize / UsualPointSize), 1.0, LargestScale);
}

} // namespace

Appearance::Appearance(InterfaceStyle& interfaceStyle)
    : m_interfaceStyle(interfaceStyle), m_textScale(systemTextScale())
{
    connect(&interfaceStyle, &InterfaceStyle::changed, this, &Appearance::styleChanged);
    qGuiApp->installEventFilter(this);
    if (QScreen* screen = QGuiApplication::primaryScreen())
        connect(screen, &QScreen::logicalDotsPerInchChanged, this, &Appearance::updateTextScale);
}

bool Appearance::dark() const
{
    return m_interfaceStyle.current() == InterfaceStyle::Style::Dark;
}

bool Appearance::highContrast() const
{
    return m_interfaceStyle.hasHighContrast();
}

bool Appearance::reducesMotion() const
{
    return m_interfaceStyle.reducesMotion();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ApplicationFontChange:
        if (watched == qGuiApp)
            updateTextScale();
        break;
    case QEvent::KeyPress:
        setWithKeys(true);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        setWithKeys(false);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void Appearance::setWithKeys(bool isWithKeys)
{
    if (std::exchange(m_isWithKeys, isWithKeys) != isWithKeys)
        emit isWithKeysChanged();
}

void Appearance::updateTextScale()
{
    const double scale = systemTextScale();
    if (qFuzzyCompare(scale, m_textScale))
        return;
    m_textScale = scale;
    emit textScaleChanged();
}

} // namespace giggle
