// SPDX-License-Identifier: MIT
#include "exchange/DocumentOpening.h"

#include "ui/NavigationController.h"
#include "ui/SharedSelection.h"

#include <utility>

namespace giggle {

DocumentOpening::DocumentOpening(NavigationController& navigation, SharedSelection& selection)
    : m_navigation(navigation), m_selection(selection)
{
    // Queued: the controller is in the middle of something when it says so.
    for (const auto signal : {&NavigationController::alertChanged, &NavigationController::depthChanged})
        connect(&m_navigation, signal, this, &DocumentOpening::proceed, Qt::QueuedConnection);
}

void DocumentOpening::open(const QUrl& document)
{
    m_waiting = document;
    proceed();
}

void DocumentOpening::setBlocked(bool isBlocked)
{
    if (isBlocked == m_isBlocked)
        return;
    m_isBlocked = isBlocked;
    emit blockedChanged();
    // Queued: what was on show is just being taken away.
    QMetaObject::invokeMethod(this, &DocumentOpening::proceed, Qt::QueuedConnection);
}

void DocumentOpening::proceed()
{
    if (m_waiting.isEmpty() || m_isBlocked || m_navigation.depth() == 0 || m_navigation.alert().shown)
        return;
    m_selection.DocumentToImport = std::exchange(m_waiting, {});
    m_navigation.performSegue(SegueId::ImportJokes);
}

} // namespace giggle
