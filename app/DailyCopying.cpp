// SPDX-License-Identifier: MIT
#include "app/DailyCopying.h"

#include "store/AppDelegate.h"
#include "store/Console.h"
#include "store/StoreError.h"

#include <QThread>

#include <algorithm>
#include <exception>

namespace giggle {

namespace {

void makeCopy(const DailyCopies& copies)
{
    try {
        copies.make(QDate::currentDate());
    } catch (const StoreError& error) {
        printFailure(QStringLiteral("The copy of the day was not made. ") + error.localizedDescription());
    } catch (const std::exception& error) {
        printFailure(
            QStringLiteral("The copy of the day was not made: %1").arg(QLatin1StringView(error.what())));
    }
}

} // namespace

DailyCopying::DailyCopying(AppDelegate& appDelegate) : DailyCopying(appDelegate, Pace()) {}

DailyCopying::DailyCopying(AppDelegate& appDelegate, Pace pace)
    : m_appDelegate(appDelegate), m_pace(pace), m_copies(appDelegate.collectionFile())
{
    m_timer.setSingleShot(true);
    m_timer.callOnTimeout(this, &DailyCopying::copyIfQuiet);
    m_appDelegate.setSaveListener([this] { collectionSaved(); });
}

DailyCopying::~DailyCopying()
{
    m_appDelegate.setSaveListener({});
    if (m_thread)
        m_thread->wait();
    if (m_isDue)
        makeCopy(m_copies);
}

void DailyCopying::collectionSaved()
{
    m_isDue = true;
    m_untilQuiet.setRemainingTime(m_pace.quiet);
    // An import saves thousands of times: a timer that runs is left alone, and looks again when it ends.
    if (!m_timer.isActive())
        m_timer.start(m_pace.quiet);
}

void DailyCopying::copyIfQuiet()
{
    using Milliseconds = std::chrono::milliseconds;
    const Milliseconds wait(std::max(m_untilQuiet.remainingTime(), m_untilNext.remainingTime()));
    if (wait > Milliseconds(0)) {
        m_timer.start(wait);
        return;
    }
    if (m_thread)
        m_thread->wait();
    m_isDue = false;
    m_untilNext.setRemainingTime(m_pace.interval);
    m_thread.reset(QThread::create([copies = m_copies] { makeCopy(copies); }));
    m_thread->start(QThread::IdlePriority);
}

} // namespace giggle
