// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxStyle.h"

#include <QQuickPaintedItem>

#include <memory>
#include <type_traits>

class QVariantAnimation;

namespace giggle {

/// A box that is unchecked, checked or mixed, in the middle of the item; all of the item takes taps. A tap
/// and Space toggle it; it becomes a stop for the Tab key where `activeFocusOnTab` says so. Sizes are in
/// logical pixels, times in milliseconds.
///
/// The state is what was set last, from that moment on; an animation only catches up with it, and is cut
/// short where nobody sees it. A box whose look and state stay as they are is not drawn again.
class VaneCheckbox : public QQuickPaintedItem {
    Q_OBJECT
    Q_PROPERTY(CheckState checkState READ checkState WRITE setCheckState NOTIFY checkStateChanged)
    Q_PROPERTY(bool checked READ isChecked NOTIFY checkStateChanged)
    Q_PROPERTY(bool mixed READ isMixed NOTIFY checkStateChanged)
    Q_PROPERTY(QString stateName READ stateName NOTIFY checkStateChanged)
    Q_PROPERTY(Shape boxShape READ boxShape WRITE setBoxShape NOTIFY looksChanged)
    Q_PROPERTY(double boxSize READ boxSize WRITE setBoxSize NOTIFY looksChanged)
    Q_PROPERTY(double cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY looksChanged)
    Q_PROPERTY(double boxLineWidth READ boxLineWidth WRITE setBoxLineWidth NOTIFY looksChanged)
    Q_PROPERTY(double markLineWidth READ markLineWidth WRITE setMarkLineWidth NOTIFY looksChanged)
    Q_PROPERTY(QColor tintColor READ tintColor WRITE setTintColor NOTIFY looksChanged)
    Q_PROPERTY(
        QColor uncheckedFillColor READ uncheckedFillColor WRITE setUncheckedFillColor NOTIFY looksChanged)
    Q_PROPERTY(QColor secondaryColor READ secondaryColor WRITE setSecondaryColor NOTIFY looksChanged)
    Q_PROPERTY(QColor markColor READ markColor WRITE setMarkColor NOTIFY looksChanged)
    Q_PROPERTY(Animation animation READ animation WRITE setAnimation NOTIFY animationChanged)
    Q_PROPERTY(
        int animationDuration READ animationDuration WRITE setAnimationDuration NOTIFY animationChanged)
    Q_PROPERTY(bool animating READ isAnimating NOTIFY animatingChanged)

public:
    enum CheckState {
        Unchecked = int(BoxState::Unchecked),
        Checked = int(BoxState::Checked),
        Mixed = int(BoxState::Mixed)
    };
    Q_ENUM(CheckState)

    enum Shape { Square = int(BoxShape::Square), Circle = int(BoxShape::Circle) };
    Q_ENUM(Shape)

    enum Animation {
        Stroke = int(AnimationKind::Stroke),
        Fill = int(AnimationKind::Fill),
        Bounce = int(AnimationKind::Bounce),
        Expand = int(AnimationKind::Expand),
        Flat = int(AnimationKind::Flat),
        Spiral = int(AnimationKind::Spiral),
        Fade = int(AnimationKind::Fade),
        Dot = int(AnimationKind::Dot)
    };
    Q_ENUM(Animation)

    explicit VaneCheckbox(QQuickItem* parent = nullptr);
    ~VaneCheckbox() override;

    [[nodiscard]] CheckState checkState() const { return CheckState(m_state); }

    [[nodiscard]] bool isChecked() const { return m_state == BoxState::Checked; }

    [[nodiscard]] bool isMixed() const { return m_state == BoxState::Mixed; }

    /// "Unchecked", "Checked" or "Mixed".
    [[nodiscard]] QString stateName() const;

    /// Sends no `clicked`. What is not a state changes nothing. A running animation ends at once, or turns
    /// towards the new state where @p animated.
    Q_INVOKABLE void setCheckState(giggle::VaneCheckbox::CheckState state, bool animated = false);

    /// The same by name; false, and nothing changes, for a name that no state has.
    Q_INVOKABLE bool setStateName(const QString& name, bool animated = false);

    /// Does what a tap does: an unchecked or mixed box becomes checked, a checked one unchecked, animated,
    /// and `clicked` is sent. A disabled box does nothing.
    Q_INVOKABLE void toggle();

    [[nodiscard]] Shape boxShape() const { return Shape(m_style.shape); }

    void setBoxShape(Shape shape) { restyle(m_style.shape, BoxShape(shape)); }

    /// The side of the box. It does not grow with the item.
    [[nodiscard]] double boxSize() const { return m_boxSize; }

    void setBoxSize(double size) { restyle(m_boxSize, size); }

    /// Of the box's outer edge.
    [[nodiscard]] double cornerRadius() const { return m_style.cornerRadius; }

    void setCornerRadius(double radius) { restyle(m_style.cornerRadius, radius); }

    [[nodiscard]] double boxLineWidth() const { return m_style.boxLineWidth; }

    void setBoxLineWidth(double width) { restyle(m_style.boxLineWidth, width); }

    [[nodiscard]] double markLineWidth() const { return m_style.markLineWidth; }

    void setMarkLineWidth(double width) { restyle(m_style.markLineWidth, width); }

    /// The ground of a box that is checked or mixed.
    [[nodiscard]] QColor tintColor() const { return m_style.tint; }

    void setTintColor(const QColor& color) { restyle(m_style.tint, color); }

    [[nodiscard]] QColor uncheckedFillColor() const { return m_style.uncheckedFill; }

    void setUncheckedFillColor(const QColor& color) { restyle(m_style.uncheckedFill, color); }

    /// The line around the box.
    [[nodiscard]] QColor secondaryColor() const { return m_style.secondary; }

    void setSecondaryColor(const QColor& color) { restyle(m_style.secondary, color); }

    [[nodiscard]] QColor markColor() const { return m_style.mark; }

    void setMarkColor(const QColor& color) { restyle(m_style.mark, color); }

    [[nodiscard]] Animation animation() const { return Animation(m_animationKind); }

    /// Holds from the next change of the state on.
    void setAnimation(Animation animation);

    /// Of a whole way; 0 or less for none.
    [[nodiscard]] int animationDuration() const { return m_animationDuration; }

    /// Holds from the next change of the state on.
    void setAnimationDuration(int milliseconds);

    [[nodiscard]] bool isAnimating() const;

    void paint(QPainter* painter) override;

signals:
    void checkStateChanged();
    /// The user toggled the box; the state is the new one.
    void clicked();
    void looksChanged();
    void animationChanged();
    void animatingChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void itemChange(ItemChange change, const ItemChangeData& value) override;

private:
    template <typename Value>
    void restyle(Value& old, const std::type_identity_t<Value>& value)
    {
        if (old == value)
            return;
        old = value;
        update();
        emit looksChanged();
    }

    void animateTo(BoxState state);
    void startAnimation(double progress);
    void finishAnimation();

    CheckBoxStyle m_style;
    double m_boxSize = 24;
    BoxState m_state = BoxState::Unchecked;
    AnimationKind m_animationKind = AnimationKind::Stroke;
    int m_animationDuration = 250;

    // The animation that runs, and where it comes from; made when a change is first animated.
    std::unique_ptr<QVariantAnimation> m_driver;
    AnimationKind m_runningKind = AnimationKind::Stroke;
    BoxState m_from = BoxState::Unchecked;
    double m_progress = 1;
};

} // namespace giggle
