// SPDX-License-Identifier: MIT
#include "app/WindowMemory.h"

#include "store/Console.h"
#include "ui/AtomicFile.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string_view>

namespace giggle {

namespace {

constexpr QLatin1StringView WindowKey("window");
constexpr QLatin1StringView WidthKey("width");
constexpr QLatin1StringView HeightKey("height");
constexpr QLatin1StringView MaximizedKey("maximized");
constexpr QLatin1StringView ListsKey("lists");
constexpr QLatin1StringView RowKey("row");
constexpr QLatin1StringView IdentityKey("identity");
constexpr QLatin1StringView OffsetKey("offset");

constexpr qint64 MostBytes = 100'000; // of a file that is ours
constexpr int LeastSide = 320;        // the page's least size
// Of a window that nobody has sized yet; a desktop's title bar has to have room above it.
constexpr int FirstHeight = 800;
constexpr int TitleBarHeight = 64;

constexpr double MostOffset = 1'000'000; // no row is as high

QByteArray readFile(const QString& path)
{
    // Opening anything else could wait for ever.
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > MostBytes)
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(MostBytes) : QByteArray();
}

QSize roomOn(const QScreen* screen)
{
    return screen ? screen->availableSize() : QSize();
}

} // namespace

WindowMemory::WindowMemory(ListPlaces& listPlaces) : m_listPlaces(listPlaces)
{
    // Size and state of a window that is maximised arrive one after the other.
    m_untilSettled.setSingleShot(true);
    m_untilSettled.setInterval(std::chrono::milliseconds(300));
    m_untilSettled.callOnTimeout([this] { look(); });
}

void WindowMemory::open(const QString& file)
{
    m_file = file;
    if (m_file.isEmpty())
        return;
    m_contentOnDisk = readFile(m_file);
    const QJsonObject content = QJsonDocument::fromJson(m_contentOnDisk).object();
    readWindow(content[WindowKey].toObject());
    readLists(content[ListsKey].toObject());
}

void WindowMemory::readWindow(const QJsonObject& window)
{
    m_size = QSize(window[WidthKey].toInt(), window[HeightKey].toInt());
    m_isMaximized = window[MaximizedKey].toBool();
}

void WindowMemory::readLists(const QJsonObject& lists)
{
    for (auto list = lists.begin(); list != lists.end(); ++list) {
        const QJsonObject content = list->toObject();
        ListPlace place;
        place.top = {content[IdentityKey].toInteger(NoIdentity), content[RowKey].toInt(-1)};
        place.offset = content[OffsetKey].toDouble();
        if (place.top.row >= 0 && std::abs(place.offset) < MostOffset)
            m_listPlaces[list.key()] = place;
    }
}

QVariantMap WindowMemory::windowProperties() const
{
    QVariantMap properties;
    const QSize room = roomOn(QGuiApplication::primaryScreen());
    if (m_size.width() > 0 && m_size.height() > 0) {
        QSize size = m_size.expandedTo({LeastSide, LeastSide});
        if (!room.isEmpty())
            size = size.boundedTo(room);
        properties.insert(WidthKey, size.width());
        properties.insert(HeightKey, size.height());
    } else if (!room.isEmpty() && room.height() < FirstHeight + TitleBarHeight) {
        properties.insert(HeightKey, std::max(LeastSide, room.height() - TitleBarHeight));
    }
    if (m_isMaximized)
        properties.insert(QStringLiteral("visibility"), QWindow::Maximized);
    return properties;
}

void WindowMemory::follow(QQuickWindow& window)
{
    m_window = &window;
    const auto lookSoon = [this] { m_untilSettled.start(); };
    QObject::connect(&window, &QWindow::widthChanged, &m_untilSettled, lookSoon);
    QObject::connect(&window, &QWindow::heightChanged, &m_untilSettled, lookSoon);
    QObject::connect(&window, &QWindow::windowStateChanged, &m_untilSettled, lookSoon);
}

void WindowMemory::look()
{
    // One that is closed has lost its state.
    if (!m_window || !m_window->isVisible())
        return;
    const Qt::WindowStates states = m_window->windowStates();
    if (states.testFlag(Qt::WindowMinimized))
        return;
    m_isMaximized = states.testFlag(Qt::WindowMaximized);
    const QSize room = roomOn(m_window->screen());
    const bool fillsScreen = m_window->width() >= room.width() && m_window->height() >= room.height();
    if (states == Qt::WindowNoState && !fillsScreen)
        m_size = m_window->size();
}

QByteArray WindowMemory::content() const
{
    QJsonObject window{{MaximizedKey, m_isMaximized}};
    if (!m_size.isEmpty()) {
        window.insert(WidthKey, m_size.width());
        window.insert(HeightKey, m_size.height());
    }
    QJsonObject lists;
    for (const auto& [name, place] : m_listPlaces) {
        if (place.top.row < 0)
            continue;
        QJsonObject list{{RowKey, place.top.row}, {OffsetKey, place.offset}};
        if (place.top.identity != NoIdentity)
            list.insert(IdentityKey, static_cast<qint64>(place.top.identity));
        lists.insert(name, list);
    }
    return QJsonDocument(QJsonObject{{WindowKey, window}, {ListsKey, lists}}).toJson();
}

void WindowMemory::save()
{
    look();
    const QByteArray bytes = content();
    if (m_file.isEmpty() || bytes == m_contentOnDisk)
        return;
    const QString failure = writeAtomically(m_file, std::string_view(bytes.constData(), bytes.size()));
    if (failure.isEmpty())
        m_contentOnDisk = bytes;
    else
        printFailure(failure);
}

} // namespace giggle
