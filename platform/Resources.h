// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace giggle {

/// The files that ship with the application.
class Resources {
public:
    Resources() = default;
    Resources(const Resources&) = delete;
    Resources& operator=(const Resources&) = delete;
    virtual ~Resources() = default;

    /// Where the resource "<name>.<type>" can be read with QFile: a file, or, with a leading colon, data
    /// compiled into the program. Nothing when there is no such resource.
    [[nodiscard]] virtual std::optional<QString> pathForResource(const QString& name,
                                                                 const QString& type) const = 0;
};

} // namespace giggle
