// SPDX-License-Identifier: MIT
#include "ui/PassingNotices.h"

#include <utility>

namespace giggle {

void PassingNotices::confirm(const QString& text)
{
    // Gone for a moment, so that the same words are said again.
    dismissConfirmation();
    m_confirmation = text;
    emit confirmationChanged();
}

void PassingNotices::offerUndo(const QString& text, std::function<void()> undo)
{
    clear();
    m_undoOffer = text;
    m_undo = std::move(undo);
    emit undoOfferChanged();
}

void PassingNotices::dismissConfirmation()
{
    if (m_confirmation.isEmpty())
        return;
    m_confirmation.clear();
    emit confirmationChanged();
}

void PassingNotices::undo()
{
    const auto undo = std::exchange(m_undo, {});
    withdrawUndoOffer();
    if (undo)
        undo();
}

void PassingNotices::withdrawUndoOffer()
{
    m_undo = {};
    if (m_undoOffer.isEmpty())
        return;
    m_undoOffer.clear();
    emit undoOfferChanged();
}

void PassingNotices::clear()
{
    dismissConfirmation();
    withdrawUndoOffer();
}

} // namespace giggle
