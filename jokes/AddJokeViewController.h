// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/JokeEditor.h"

namespace giggle {

/// The screen that takes a new joke. After a save it goes back to the joke list or the menu, whichever opened
/// it.
class AddJokeViewController : public giggle::JokeEditor {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    using JokeEditor::JokeEditor;

    [[nodiscard]] QString title() const override { return QStringLiteral("Add Joke"); }

    void viewDidLoad() override;

public slots:
    /// Stores the joke under the next id, less the characters that are not displayed. Without a category or a
    /// text it says so instead. A failed save is logged, and the joke waits for the next save. An id past the
    /// 16-bit range ends the program.
    void SaveButtonClicked() override;
};

} // namespace giggle
