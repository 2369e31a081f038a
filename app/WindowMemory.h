// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ListPlace.h"

#include <QPointer>
#include <QSize>
#include <QTimer>
#include <QVariantMap>

class QJsonObject;
class QQuickWindow;

namespace giggle {

/// What is carried from one run of the application to the next for comfort: the window's size, whether it was
/// maximised, and where the lists were left. One small JSON file holds it, read once and written once at the
/// end. Nothing depends on it: a file that is missing, damaged or somebody else's counts as none, value by
/// value, and one that cannot be written is only logged.
class WindowMemory {
public:
    /// @p listPlaces outlives the memory. It is filled by open() and read by save().
    explicit WindowMemory(ListPlaces& listPlaces);

    WindowMemory(const WindowMemory&) = delete;
    WindowMemory& operator=(const WindowMemory&) = delete;

    /// Reads @p file. An empty path keeps nothing.
    void open(const QString& file);

    /// What the window is to be made with: a size that fits the screen, in device-independent pixels, and
    /// whether it is maximised. Empty when nothing is known.
    [[nodiscard]] QVariantMap windowProperties() const;

    /// Watches the window, which may go before the memory does. The size that counts is the one that the user
    /// has given it: not that of a maximised or full-screen window, nor of one that a window manager has made
    /// as large as the screen.
    void follow(QQuickWindow& window);

    /// Writes the file if there is something new to be kept.
    void save();

private:
    void readWindow(const QJsonObject& window);
    void readLists(const QJsonObject& lists);
    void look();
    [[nodiscard]] QByteArray content() const;

    ListPlaces& m_listPlaces;
    QString m_file;
    QByteArray m_contentOnDisk;
    QPointer<QQuickWindow> m_window;
    QTimer m_untilSettled;
    QSize m_size;
    bool m_isMaximized = false;
};

} // namespace giggle
