// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace giggle {

/// Whether the user wants light or dark screens. Lives in the main thread.
class InterfaceStyle : public QObject {
    Q_OBJECT

public:
    enum class Style { Unspecified = 0, Light = 1, Dark = 2 };
    Q_ENUM(Style)

    /// The style of this moment, at once and without asking anybody.
    virtual Style current() const = 0;

signals:
    /// `current()` is another one than before. It may come shortly after the start, when the system answers.
    void changed();

protected:
    using QObject::QObject;
};

} // namespace giggle
