// SPDX-License-Identifier: MIT
#pragma once

#include "lists/NameEditor.h"

namespace giggle {

/// The screen that renames the name chosen in the list. It checks nothing: the new name may be empty, or one
/// that another record has. Of several records with the chosen name the first is renamed; when there is none
/// any more, a save stores nothing and goes back all the same.
class EditNameViewController : public giggle::NameEditor {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using NameEditor::NameEditor;

    [[nodiscard]] QString title() const override { return side().editTitle.toString(); }

    void viewDidLoad() override;

public slots:
    void SaveGenre() override;

private:
    [[nodiscard]] const QString& selectedName() const;
};

} // namespace giggle
