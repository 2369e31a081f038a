// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class InterfaceStyle;

/// What the pages follow of the system's settings, live.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool dark READ dark NOTIFY styleChanged)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY styleChanged)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY styleChanged)
    Q_PROPERTY(double textScale READ textScale NOTIFY textScaleChanged)

public:
    /// @p interfaceStyle must outlive this object. Needs a QGuiApplication.
    explicit Appearance(InterfaceStyle& interfaceStyle);

    [[nodiscard]] bool dark() const;
    [[nodiscard]] bool highContrast() const;
    [[nodiscard]] bool reducesMotion() const;

    /// How large texts are drawn: 1 at the usual size of the system's font, at most 3. Smaller fonts do not
    /// shrink the texts.
    [[nodiscard]] double textScale() const { return m_textScale; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void styleChanged();
    void textScaleChanged();

private:
    void updateTextScale();

    InterfaceStyle& m_interfaceStyle;
    double m_textScale = 1;
};

} // namespace giggle
