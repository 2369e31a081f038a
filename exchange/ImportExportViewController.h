// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Screen.h"

namespace giggle {

/// Leads to the export and to the import.
class ImportExportViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    using Screen::Screen;

    [[nodiscard]] QString title() const override { return QStringLiteral("Import / Export"); }

    Q_INVOKABLE void performSegue(giggle::Segues::Id segue) { environment().navigator.performSegue(segue); }
};

} // namespace giggle
