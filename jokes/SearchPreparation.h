// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace giggle {

class MainQueue;
class ManagedObjectContext;

/// Does in advance, a little at a time, what the first search among the jokes' texts would take long for. It
/// ends with @p screen; @p mainQueue and @p context must outlive that.
void prepareSearchLater(QObject& screen, MainQueue& mainQueue, ManagedObjectContext& context);

} // namespace giggle
