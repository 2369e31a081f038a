// SPDX-License-Identifier: MIT
#pragma once

#include "checkbox/VaneCheckbox.h"

#include <QtQml/qqmlregistration.h>

namespace giggle {

/// Makes the check box, which knows no QML module, a type of ours.
struct CheckBoxType {
    Q_GADGET
    QML_FOREIGN(giggle::VaneCheckbox)
    QML_NAMED_ELEMENT(VaneCheckbox)
};

} // namespace giggle
