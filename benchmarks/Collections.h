// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/JokeGenerator.h"
#include "store/PersistentContainer.h"

#include <QTemporaryDir>

namespace giggle {

/// Collections of made-up jokes in a temporary folder on a disk, which vanish with this object. Failures are
/// thrown as StoreError or std::runtime_error.
class Collections {
public:
    Collections();

    /// The folder of a collection that is made at the first call. Whoever changes it must not save.
    [[nodiscard]] QString folder(std::size_t size, ForeignShare share = ForeignShare::Usual);

    /// A copy of that collection, to be changed at will.
    [[nodiscard]] QString copy(std::size_t size);

    [[nodiscard]] QString emptyFolder();

    [[nodiscard]] static QString fileIn(const QString& folder);
    [[nodiscard]] static PersistentContainer open(const QString& folder);

    /// Every record of the three entities is read.
    static void materialise(const PersistentContainer& container);

private:
    QTemporaryDir m_root;
    int m_folders = 0;
};

} // namespace giggle
