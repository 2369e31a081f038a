// SPDX-License-Identifier: MIT
#pragma once

#include "lists/ListSide.h"
#include "ui/Screen.h"

namespace giggle {

/// What the screens that add and rename a name share: the field, the way back to the list, and the question
/// whether a typed change may be lost. The field takes every text.
class NameEditor : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString fieldName READ fieldName CONSTANT)

public:
    /// @p side must outlive the screen.
    NameEditor(ScreenEnvironment& environment, const ListSide& side) : Screen(environment), m_side(side) {}

    [[nodiscard]] bool hasUnsavedChanges() const override { return m_name != m_savedName; }

    [[nodiscard]] QString fieldName() const { return m_side.fieldName.toString(); }

    /// What the field holds.
    [[nodiscard]] const QString& name() const { return m_name; }

    void setName(const QString& name);

public slots:
    /// The save button: stores the name less the blanks at its ends and goes back to the list. A failed save
    /// is logged, and the name waits for the next save. It is called so on both sides.
    virtual void SaveGenre() = 0;

signals:
    void nameChanged();

protected:
    [[nodiscard]] const ListSide& side() const { return m_side; }

    /// Gives @p record the name that a save stores, and saves. Throws StoreError.
    void store(NamedRecord& record);

    /// The field as it is now holds nothing that could be lost.
    void markAsSaved() { m_savedName = m_name; }

    void goBack();

private:
    const ListSide& m_side;
    QString m_name;
    QString m_savedName;
};

} // namespace giggle
