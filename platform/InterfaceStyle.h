// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace giggle {

/// Whether the user wants light or dark screens, strong colours, and things that stay still. Lives in the
/// main thread.
class InterfaceStyle : public QObject {
    Q_OBJECT

public:
    enum class Style { Unspecified = 0, Light = 1, Dark = 2 };
    Q_ENUM(Style)

    /// The style of this moment, at once and without asking anybody.
    [[nodiscard]] virtual Style current() const = 0;

    /// Whether texts and outlines are to stand out as much as they can. At once, as `current()`.
    [[nodiscard]] virtual bool hasHighContrast() const = 0;

    /// Whether nothing is to slide or fade. At once, as `current()`.
    [[nodiscard]] virtual bool reducesMotion() const = 0;

signals:
    /// One of these is another one than before. It may come shortly after the start, when the system answers.
    void changed();

protected:
    using QObject::QObject;
};

} // namespace giggle
