// SPDX-License-Identifier: MIT
#include "store/BulkSaving.h"

#include "store/Console.h"
#include "store/ManagedObjectContext.h"

#include <algorithm>

namespace giggle {

BulkSaving::BulkSaving(ManagedObjectContext& context) : m_context(context)
{
    try {
        context.store().relaxDurability();
    } catch (const StoreError& error) {
        printFailure(error.localizedDescription()); // then every save is durable at once
    }
}

BulkSaving::~BulkSaving()
{
    try {
        finish();
    } catch (const StoreError& error) {
        printFailure(error.localizedDescription());
    }
}

void BulkSaving::save()
{
    constexpr int MostJoined = 1024;
    if (++m_savesWaiting < m_savesJoined)
        return;
    m_savesWaiting = 0;
    try {
        m_context.save();
        m_savesJoined = UsuallyJoined;
    } catch (const StoreError&) {
        m_savesJoined = std::min(2 * m_savesJoined, MostJoined);
        throw;
    }
}

void BulkSaving::finish()
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    try {
        m_context.save();
    } catch (const StoreError&) {
        // It is tried again below.
    }
    m_context.store().restoreDurability();
    m_context.save();
}

} // namespace giggle
