// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TableModel.h"

#include <QString>

#include <algorithm>
#include <functional>
#include <vector>

namespace giggle {

struct ScreenEnvironment;

/// Offers to take a deletion back that was saved: @p restore does so in the collection, which is saved, and
/// @p putBack then in what the screen shows. A failed save is logged, and the change waits for the next one.
/// The offer is gone before the screen is left, so that both may refer to it.
void offerToTakeBackDeletion(ScreenEnvironment& environment, const QString& text,
                             std::function<void()> restore, std::function<void()> putBack);

/// Puts a record back into a list that is in the order of @p isBefore, unless it is there already, and its
/// row into @p table if that shows the list. Whether a row was put in.
template <class Record, class IsBefore>
bool putBackInOrder(std::vector<Record*>& list, Record& record, const IsBefore& isBefore, TableModel* table)
{
    if (std::ranges::find(list, &record) != list.end())
        return false;
    const auto place = std::ranges::upper_bound(list, &record, isBefore);
    const auto row = static_cast<int>(place - list.begin());
    const auto insert = [&] { list.insert(place, &record); };
    if (table)
        table->insertRow(row, insert);
    else
        insert();
    return table != nullptr;
}

} // namespace giggle
