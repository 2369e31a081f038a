// SPDX-License-Identifier: MIT
#include "ui/Screen.h"

#include "store/AppDelegate.h"

namespace giggle {

ManagedObjectContext& Screen::viewContext() const
{
    return m_environment.appDelegate.persistentContainer().viewContext();
}

} // namespace giggle
