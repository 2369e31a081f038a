// SPDX-License-Identifier: MIT
#include "lists/GroupTableViewCell.h"

namespace giggle {

QString GroupTableViewCell::accessibleName() const
{
    const QString name = NameLabel.trimmed().isEmpty() ? QStringLiteral("No name") : NameLabel;
    return name + QStringLiteral(", ") + CountLabel;
}

} // namespace giggle
