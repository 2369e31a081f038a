// SPDX-License-Identifier: MIT
#include "platform/linux/ApplicationAdaptor.h"

#include <utility>

namespace giggle {

ApplicationAdaptor::ApplicationAdaptor(QObject* object, Handler activate)
    : QDBusAbstractAdaptor(object), m_activate(std::move(activate))
{
}

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    m_activate({}, platformData);
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& platformData)
{
    m_activate(uris, platformData);
}

} // namespace giggle
