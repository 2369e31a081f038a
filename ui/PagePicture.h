// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace giggle {

/// Shows a picture in the item's whole area; nothing while it is null.
class PagePicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image READ image WRITE setImage NOTIFY imageChanged)

public:
    [[nodiscard]] const QImage& image() const { return m_image; }

    void setImage(const QImage& image)
    {
        if (std::exchange(m_image, image).cacheKey() == image.cacheKey())
            return;
        emit imageChanged();
        update();
    }

    void paint(QPainter* painter) override
    {
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(boundingRect(), m_image);
    }

signals:
    void imageChanged();

private:
    QImage m_image;
};

} // namespace giggle
