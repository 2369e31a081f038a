// SPDX-License-Identifier: MIT
#pragma once

#include "platform/MailComposer.h"

#include <QUrl>

/// What a mail looks like in the forms that mail programs are asked in.
namespace giggle::MailText {

/// The body as plain text. NUL is left out: no mail can hold it, and programs would take it for the end.
[[nodiscard]] QString plainBody(const Mail& mail);

/// The subject on one line, with an ellipsis at the end where it had to be cut to @p longest code points.
[[nodiscard]] QString shortSubject(const QString& subject, int longest);

/// The `mailto:` address that stands for such a mail; empty parts are left out.
[[nodiscard]] QUrl address(const QStringList& recipients, const QString& subject, const QString& body);

/// Whether such a body can be part of an address, which is one argument of a program.
[[nodiscard]] bool fitsIntoAddress(const QString& body);

} // namespace giggle::MailText
