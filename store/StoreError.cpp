// SPDX-License-Identifier: MIT
#include "store/StoreError.h"

#include <QStringList>

namespace giggle {

StoreError::StoreError(int extendedCode, const QString& localizedDescription, UserInfo userInfo)
    : m_extendedCode(extendedCode), m_localizedDescription(localizedDescription),
      m_userInfo(std::move(userInfo)), m_what(localizedDescription.toUtf8())
{
}

QString StoreError::unresolvedErrorMessage() const
{
    QStringList details;
    for (auto it = m_userInfo.cbegin(); it != m_userInfo.cend(); ++it)
        details << QStringLiteral("%1 = %2").arg(it.key(), it.value());
    return QStringLiteral("Unresolved error %1, {%2}").arg(m_localizedDescription, details.join(u"; "));
}

} // namespace giggle
