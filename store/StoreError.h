// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <exception>

namespace giggle {

/// Why the store could not be opened, read or written.
class StoreError : public std::exception {
public:
    using UserInfo = QMap<QString, QString>;

    /// @param extendedCode SQLite's extended result code; SQLITE_OK when the refusal is our own.
    StoreError(int extendedCode, const QString& localizedDescription, UserInfo userInfo = {});

    [[nodiscard]] int extendedCode() const { return m_extendedCode; }

    /// One sentence for people: what failed, and why.
    [[nodiscard]] const QString& localizedDescription() const { return m_localizedDescription; }

    /// Details such as the file's path, by name.
    [[nodiscard]] const UserInfo& userInfo() const { return m_userInfo; }

    /// "Unresolved error ", the description, ", " and the user information: the text of the fatal stops.
    [[nodiscard]] QString unresolvedErrorMessage() const;

    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_extendedCode;
    QString m_localizedDescription;
    UserInfo m_userInfo;
    QByteArray m_what;
};

} // namespace giggle
