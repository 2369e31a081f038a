// SPDX-License-Identifier: MIT
#include "ui/DeletionUndo.h"

#include "store/AppDelegate.h"
#include "ui/Navigator.h"
#include "ui/ScreenEnvironment.h"
#include "ui/StoreCalls.h"

#include <utility>

namespace giggle {

void offerToTakeBackDeletion(ScreenEnvironment& environment, const QString& text,
                             std::function<void()> restore, std::function<void()> putBack)
{
    environment.navigator.offerUndo(
        text, [&environment, restore = std::move(restore), putBack = std::move(putBack)] {
            restore();
            loggingFailure([&] { environment.appDelegate.persistentContainer().viewContext().save(); });
            putBack();
        });
}

} // namespace giggle
