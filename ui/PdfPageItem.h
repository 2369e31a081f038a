// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PdfContent.h"

#include <QImage>
#include <QPointer>
#include <QQuickPaintedItem>
#include <QTimer>

namespace giggle {

/// One page of a document, as large as the item. While another size is being drawn, what there is is shown
/// smaller or larger. Only a page `inSight` is drawn, and gives its picture back when it no longer is.
class PdfPageItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(giggle::PdfContent* content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(int page READ page WRITE setPage NOTIFY pageChanged)
    Q_PROPERTY(bool inSight READ isInSight WRITE setInSight NOTIFY inSightChanged)
    Q_PROPERTY(bool isDrawn READ isDrawn NOTIFY isDrawnChanged)

public:
    explicit PdfPageItem(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    [[nodiscard]] PdfContent* content() const { return m_content; }

    [[nodiscard]] int page() const { return m_page; }

    [[nodiscard]] bool isInSight() const { return m_isInSight; }

    /// Whether the page is shown as it is drawn for this size.
    [[nodiscard]] bool isDrawn() const { return m_image.size() == wantedSize(); }

    void setContent(PdfContent* content);
    void setPage(int page);
    void setInSight(bool isInSight);

signals:
    void contentChanged();
    void pageChanged();
    void inSightChanged();
    void isDrawnChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private:
    [[nodiscard]] QSize wantedSize() const;
    void requestPage();
    void takePage(quint64 request, const QImage& image);
    void startAgain();

    QPointer<PdfContent> m_content;
    int m_page = 0;
    bool m_isInSight = false;
    quint64 m_request = 0;
    QImage m_image;
    QTimer m_rest; ///< until the size has stayed the same for a moment
};

} // namespace giggle
