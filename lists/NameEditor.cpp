// SPDX-License-Identifier: MIT
#include "lists/NameEditor.h"

#include "store/ManagedObjectContext.h"
#include "ui/DisplayText.h"

namespace giggle {

void NameEditor::setName(const QString& name)
{
    if (name == m_name)
        return;
    m_name = name;
    emit nameChanged();
}

void NameEditor::store(NamedRecord& record)
{
    m_side.records.setName(record, trimmedOfBlanks(m_name).toStdString());
    viewContext().save();
}

void NameEditor::goBack()
{
    markAsSaved();
    environment().navigator.unwind(m_side.unwindRoute);
}

} // namespace giggle
