// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QString>

namespace giggle {

/// Sets the guide: the HTML file @p source, with pictures from @p pictures, becomes the PDF file @p target. A
/// picture that is not there leaves no trace. Empty when that went well, otherwise the reason in words.
[[nodiscard]] QString setGuide(const QString& source, const QDir& pictures, const QString& target);

} // namespace giggle
