// SPDX-License-Identifier: MIT
#include "checkbox/VaneCheckbox.h"

#include "checkbox/CheckBoxPainting.h"

#include <QKeyEvent>
#include <QMetaEnum>
#include <QMouseEvent>
#include <QPainter>
#include <QVariantAnimation>

#include <algorithm>
#include <cmath>

namespace giggle {

namespace {

bool isState(int value)
{
    return QMetaEnum::fromType<VaneCheckbox::CheckState>().valueToKey(value) != nullptr;
}

/// A line of at least one pixel, and of whole pixels: anything else would be blurred.
double wholePixels(double width, double scale)
{
    return width > 0 ? std::max(1.0, std::round(width * scale)) : 0;
}

} // namespace

VaneCheckbox::VaneCheckbox(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setImplicitSize(m_boxSize, m_boxSize);
    setAcceptedMouseButtons(Qt::LeftButton);
}

VaneCheckbox::~VaneCheckbox() = default;

QString VaneCheckbox::stateName() const
{
    return QLatin1StringView(QMetaEnum::fromType<CheckState>().valueToKey(checkState()));
}

void VaneCheckbox::setCheckState(CheckState state, bool animated)
{
    if (!isState(state))
        return;
    const BoxState newState = BoxState(state);
    const bool isChange = newState != m_state;
    if (!animated || m_animationDuration <= 0 || !isVisible() || !window())
        finishAnimation();
    else if (isChange)
        animateTo(newState);
    if (!isChange)
        return;
    m_state = newState;
    update();
    emit checkStateChanged();
}

bool VaneCheckbox::setStateName(const QString& name, bool animated)
{
    bool isKnown = false;
    const int value = QMetaEnum::fromType<CheckState>().keyToValue(name.toLatin1().constData(), &isKnown);
    if (isKnown)
        setCheckState(CheckState(value), animated);
    return isKnown;
}

void VaneCheckbox::toggle()
{
    if (!isEnabled())
        return;
    setCheckState(isChecked() ? Unchecked : Checked, true);
    emit clicked();
}

void VaneCheckbox::setAnimation(Animation animation)
{
    if (m_animationKind == AnimationKind(animation))
        return;
    m_animationKind = AnimationKind(animation);
    emit animationChanged();
}

void VaneCheckbox::setAnimationDuration(int milliseconds)
{
    if (m_animationDuration == milliseconds)
        return;
    m_animationDuration = milliseconds;
    emit animationChanged();
}

bool VaneCheckbox::isAnimating() const
{
    return m_driver && m_driver->state() == QAbstractAnimation::Running;
}

void VaneCheckbox::animateTo(BoxState state)
{
    if (isAnimating() && state == m_from) {
        // Turns round: the way back is the same in reverse.
        m_from = m_state;
        startAnimation(1 - m_progress);
    } else if (isAnimating() && m_from == BoxState::Unchecked) {
        startAnimation(m_progress); // goes on, to another mark
    } else {
        m_from = m_state;
        m_runningKind = m_animationKind;
        startAnimation(0);
    }
}

void VaneCheckbox::startAnimation(double progress)
{
    if (!m_driver) {
        m_driver = std::make_unique<QVariantAnimation>();
        connect(m_driver.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
            m_progress = value.toDouble();
            update();
        });
        connect(m_driver.get(), &QVariantAnimation::stateChanged, this, &VaneCheckbox::animatingChanged);
    }
    m_driver->stop();
    m_progress = progress;
    m_driver->setStartValue(progress);
    m_driver->setEndValue(1.0);
    m_driver->setDuration(std::max(1, int(std::lround((1 - progress) * m_animationDuration))));
    m_driver->start();
}

void VaneCheckbox::finishAnimation()
{
    if (!isAnimating())
        return;
    m_driver->stop();
    m_progress = 1;
    update();
}

void VaneCheckbox::paint(QPainter* painter)
{
    // In pixels of the device, so that edges fall between them.
    const double scale = painter->deviceTransform().m11();
    const int side = int(std::floor(m_boxSize * scale));
    if (side <= 0)
        return;
    CheckBoxStyle style = m_style;
    style.cornerRadius *= scale;
    style.markLineWidth *= scale;
    style.boxLineWidth = wholePixels(style.boxLineWidth, scale);
    painter->scale(1 / scale, 1 / scale);
    painter->translate(std::round((width() * scale - side) / 2), std::round((height() * scale - side) / 2));
    paintCheckBox(*painter, checkBoxAnimation(m_runningKind).frame(m_from, m_state, m_progress), style, side);
}

void VaneCheckbox::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space) {
        QQuickPaintedItem::keyPressEvent(event);
        return;
    }
    // A key that is held down counts once.
    if (!event->isAutoRepeat())
        toggle();
    event->accept();
}

void VaneCheckbox::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void VaneCheckbox::mouseReleaseEvent(QMouseEvent* event)
{
    if (contains(event->position()))
        toggle();
}

void VaneCheckbox::itemChange(ItemChange change, const ItemChangeData& value)
{
    const bool isUnseen =
        (change == ItemVisibleHasChanged && !value.boolValue) || (change == ItemSceneChange && !value.window);
    if (isUnseen)
        finishAnimation();
    QQuickPaintedItem::itemChange(change, value);
}

} // namespace giggle
