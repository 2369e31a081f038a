// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace giggle {

/// Where the application keeps its files: one folder of its own in each of the user's XDG base folders. A
/// base folder that is unset, empty or relative falls back to the one under the home folder.
class StoragePlaces {
public:
    /// The text of an environment variable; empty when it is unset.
    using Environment = std::function<QString(const char* name)>;

    /// Reads the environment of the process.
    StoragePlaces();

    /// @p accountHome is the home folder that holds where `HOME` names none.
    StoragePlaces(const Environment& environment, const QString& accountHome);

    /// Makes the folders that are missing, readable by the user alone. Returns a message for the user when
    /// the collection's folder cannot be had. The other two are logged: without them the settings and the
    /// record of a fatal error are lost, not the collection.
    [[nodiscard]] std::optional<QString> prepare() const;

    /// The paths below are absolute; all are empty when there is no home folder (`prepare` says so).
    [[nodiscard]] QString collectionFolder() const { return m_dataFolder; }

    [[nodiscard]] QString preferenceFile() const;

    /// For documents that the application writes; not made by `prepare`.
    [[nodiscard]] QString documentsFolder() const;

    /// Locked by the one instance that works with the collection beside it.
    [[nodiscard]] QString instanceLock() const;

    /// Holds the message of a fatal error until the next start.
    [[nodiscard]] QString fatalErrorRecord() const;

    /// Holds what the window looked like when it was last closed.
    [[nodiscard]] QString windowMemory() const;

private:
    QString m_dataFolder;
    QString m_configFolder;
    QString m_stateFolder;
};

} // namespace giggle
