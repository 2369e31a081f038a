// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class InterfaceStyle;

/// What the pages follow of the system's settings, and of what the user works with; live.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool dark READ dark NOTIFY styleChanged)
    Q_PROPERTY(bool highContrast READ highContrast NOTIFY styleChanged)
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY styleChanged)
    Q_PROPERTY(bool isWithKeys READ isWithKeys NOTIFY isWithKeysChanged)
    Q_PROPERTY(double textScale READ textScale NOTIFY textScaleChanged)

public:
    /// @p interfaceStyle must outlive this object. Needs a QGuiApplication.
    explicit Appearance(InterfaceStyle& interfaceStyle);

    [[nodiscard]] bool dark() const;
    [[nodiscard]] bool highContrast() const;
    [[nodiscard]] bool reducesMotion() const;

    /// Whether the user works with keys rather than with a pointer or a finger, and has to see where they
    /// act.
    [[nodiscard]] bool isWithKeys() const { return m_isWithKeys; }

    /// How large texts are drawn: 1 at the usual size of the system's font, at most 3. Smaller fonts do not
    /// shrink the texts.
    [[nodiscard]] double textScale() const { return m_textScale; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void styleChanged();
    void isWithKeysChanged();
    void textScaleChanged();

private:
    void updateTextScale();
    void setWithKeys(bool isWithKeys);

    InterfaceStyle& m_interfaceStyle;
    double m_textScale = 1;
    bool m_isWithKeys = false;
};

} // namespace giggle
