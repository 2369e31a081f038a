// SPDX-License-Identifier: MIT
#pragma once

#include "lists/NameEditor.h"

#include <QStringList>

namespace giggle {

/// The screen that takes a new name. It refuses an empty field and a name that a record already has, as they
/// were typed: blanks at the ends count there, although they are not stored.
class AddNameViewController : public giggle::NameEditor {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using NameEditor::NameEditor;

    [[nodiscard]] QString title() const override { return side().addTitle.toString(); }

    void viewDidLoad() override;

public slots:
    void SaveGenre() override;

private:
    void refuse(const QString& message);

    QStringList m_storedNames;
};

} // namespace giggle
