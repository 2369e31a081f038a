// SPDX-License-Identifier: MIT
#pragma once

#include "ui/WindowPrintPanel.h"

#include <QPainter>
#include <QQuickPaintedItem>
#include <QQuickWindow>
#include <QtQml/qqmlregistration.h>

#include <utility>

namespace giggle {

/// Shows the page that a print panel has on show, in the item's whole area and as sharp as the screen is.
class PagePicture : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(giggle::WindowPrintPanel* panel READ panel WRITE setPanel NOTIFY panelChanged REQUIRED)

public:
    [[nodiscard]] WindowPrintPanel* panel() const { return m_panel; }

    void setPanel(WindowPrintPanel* panel)
    {
        if (std::exchange(m_panel, panel) == panel)
            return;
        connect(panel, &WindowPrintPanel::pictureChanged, this, [this] { update(); });
        emit panelChanged();
        wishForWidth();
    }

    void paint(QPainter* painter) override
    {
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->drawImage(boundingRect(), m_panel->picture());
    }

signals:
    void panelChanged();

protected:
    void geometryChange(const QRectF& now, const QRectF& before) override
    {
        QQuickPaintedItem::geometryChange(now, before);
        wishForWidth();
    }

    void itemChange(ItemChange change, const ItemChangeData& data) override
    {
        QQuickPaintedItem::itemChange(change, data);
        if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
            wishForWidth();
    }

private:
    void wishForWidth()
    {
        if (m_panel && window() && width() > 0)
            m_panel->setPictureWidth(qRound(width() * window()->effectiveDevicePixelRatio()));
    }

    WindowPrintPanel* m_panel = nullptr; // lives as long as the window
};

} // namespace giggle
