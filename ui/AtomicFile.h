// SPDX-License-Identifier: MIT
#pragma once

#include <QSaveFile>
#include <QString>

#include <string_view>

namespace giggle {

/// Makes a file of these bytes, or leaves what was there. Why it failed, in words, or nothing.
[[nodiscard]] inline QString writeAtomically(const QString& path, std::string_view bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        if (file.commit())
            return {};
    }
    return QStringLiteral("The file \"%1\" cannot be written: %2").arg(path, file.errorString());
}

} // namespace giggle
