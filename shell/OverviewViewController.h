// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PdfContent.h"
#include "ui/Screen.h"

namespace giggle {

/// The application's guide. A program that was installed without it ends here.
class OverviewViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::PdfContent* document READ document CONSTANT)

public:
    using Screen::Screen;

    /// The title that users know the guide by; it is not the application's name.
    [[nodiscard]] QString title() const override { return QStringLiteral("Parchment Trove Overview"); }

    /// A guide that cannot be read is written to the console; the document is then empty.
    void viewDidLoad() override;

    [[nodiscard]] PdfContent* document() { return &m_document; }

private:
    PdfContent m_document;
};

} // namespace giggle
