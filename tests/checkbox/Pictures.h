// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/CheckBoxPainting.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace giggle {

constexpr int PictureSide = 48;

/// The look of the application, at twice its size.
inline CheckBoxStyle pictureStyle(BoxShape shape = BoxShape::Square)
{
    return {.shape = shape, .cornerRadius = 12, .boxLineWidth = 4, .markLineWidth = 6};
}

inline QImage picture(const CheckBoxFrame& frame, const CheckBoxStyle& style = pictureStyle(),
                      int side = PictureSide)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintCheckBox(painter, frame, style, side);
    return image;
}

/// How much two pictures of one size differ on the average, 0 to 1.
inline double difference(const QImage& left, const QImage& right)
{
    double sum = 0;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QRgb a = left.pixel(x, y);
            const QRgb b = right.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b)) + std::abs(qAlpha(a) - qAlpha(b));
        }
    return sum / (4 * 255.0 * left.width() * left.height());
}

} // namespace giggle
