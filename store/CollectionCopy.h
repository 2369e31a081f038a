// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

/// Writes what @p collection holds at this moment to @p copy, which then holds all of it or is what it was
/// before; it is on the disk when the call returns. The copy is checked before it takes an older one's place,
/// so a damaged collection never replaces a good copy. Programs that have the collection open go on reading
/// and writing. Any thread. Throws StoreError.
void copyCollection(const QString& collection, const QString& copy);

} // namespace giggle
