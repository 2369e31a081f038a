// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

namespace giggle {

/// The address of a text message to nobody yet that says @p text, to be opened with AddressOpener. Opening it
/// can fail for texts beyond some ten thousand characters: an address is one argument of a program.
[[nodiscard]] inline QUrl messageAddress(const QString& text)
{
    return QUrl::fromEncoded("sms:?body=" + QUrl::toPercentEncoding(text), QUrl::StrictMode);
}

} // namespace giggle
