// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace giggle {

/// Files that another program is handed. They are readable by the user alone and stay after the application
/// has ended, because nobody knows when the other program reads them; those of earlier days go when a new
/// one is written.
class OutgoingFiles {
public:
    /// @p folder is absolute and used for nothing else; it is made when it is first needed.
    explicit OutgoingFiles(QString folder);

    /// A new folder for such files; empty when there can be none.
    [[nodiscard]] QString makeFolder() const;

    struct Written {
        QString path;    ///< empty when it failed
        QString failure; ///< why it failed, in words
    };

    /// The file gets the last component of @p name as its name, in a folder of its own.
    [[nodiscard]] Written write(const QString& name, const QByteArray& data) const;

private:
    void removeOld() const;

    QString m_folder;
};

} // namespace giggle
