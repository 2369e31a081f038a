// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace giggle {

/// The address of a text message to nobody yet that says @p text, to be opened with AddressOpener. Opening it
/// fails for a text that makes it longer than AddressOpener::LongestAddress.
[[nodiscard]] inline QUrl messageAddress(const QString& text)
{
    return QUrl::fromEncoded("sms:?body=" + QUrl::toPercentEncoding(text), QUrl::StrictMode);
}

} // namespace giggle
