// SPDX-License-Identifier: MIT
#include "ui/PdfPageItem.h"

#include <QPainter>
#include <QQuickWindow>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace giggle {

namespace {

using namespace std::chrono_literals;

// A page that is drawn at every step of a pinch would lag behind the fingers.
constexpr auto RestTime = 80ms;

// 64 megabytes a page. A larger one is shown enlarged, on a screen that has the room for it.
constexpr double MostPixels = 16e6;

} // namespace

PdfPageItem::PdfPageItem(QQuickItem* parent) : QQuickPaintedItem(parent)
{
    setOpaquePainting(true);
    m_rest.setSingleShot(true);
    m_rest.setInterval(RestTime);
    connect(&m_rest, &QTimer::timeout, this, &PdfPageItem::requestPage);
}

void PdfPageItem::paint(QPainter* painter)
{
    const QRectF area(0, 0, width(), height());
    painter->fillRect(area, Qt::white); // a document only brings its ink
    painter->setRenderHint(QPainter::SmoothPixmapTransform, !isDrawn());
    painter->drawImage(area, m_image);
}

void PdfPageItem::setContent(PdfContent* content)
{
    if (content == m_content)
        return;
    if (m_content)
        m_content->disconnect(this);
    m_content = content;
    if (content)
        connect(content, &PdfContent::pageDrawn, this, &PdfPageItem::takePage);
    emit contentChanged();
    startAgain();
}

void PdfPageItem::setPage(int page)
{
    if (page == m_page)
        return;
    m_page = page;
    emit pageChanged();
    startAgain();
}

void PdfPageItem::setInSight(bool isInSight)
{
    if (isInSight == m_isInSight)
        return;
    m_isInSight = isInSight;
    emit inSightChanged();
    startAgain();
}

void PdfPageItem::startAgain()
{
    m_request = 0;
    m_image = QImage();
    emit isDrawnChanged();
    requestPage();
    update();
}

void PdfPageItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() == oldGeometry.size())
        return;
    emit isDrawnChanged();
    m_rest.start();
}

QSize PdfPageItem::wantedSize() const
{
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    const double wantedWidth = width() * ratio;
    const double wantedHeight = height() * ratio;
    const double excess = std::max(1.0, std::sqrt(wantedWidth * wantedHeight / MostPixels));
    return {qRound(wantedWidth / excess), qRound(wantedHeight / excess)};
}

void PdfPageItem::requestPage()
{
    const QSize size = wantedSize();
    if (!m_content || !m_isInSight || size.isEmpty() || m_image.size() == size)
        return;
    m_request = m_content->requestPage(m_page, size);
}

void PdfPageItem::takePage(quint64 request, const QImage& image)
{
    if (request != m_request || request == 0)
        return;
    m_request = 0;
    m_image = image;
    emit isDrawnChanged();
    update();
}

} // namespace giggle
