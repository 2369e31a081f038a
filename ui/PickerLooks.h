// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PickerRowLook.h"

#include <QObject>

#include <functional>
#include <utility>

namespace giggle {

/// The looks of a picker's rows, asked for when a row comes into sight.
class PickerLooks : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen makes the looks of its pickers.")

public:
    explicit PickerLooks(std::function<PickerRowLook(int row)> lookOf) : m_lookOf(std::move(lookOf)) {}

    [[nodiscard]] Q_INVOKABLE giggle::PickerRowLook lookOf(int row) const { return m_lookOf(row); }

private:
    std::function<PickerRowLook(int row)> m_lookOf;
};

} // namespace giggle
