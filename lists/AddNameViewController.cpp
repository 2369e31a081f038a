// SPDX-License-Identifier: MIT
#include "lists/AddNameViewController.h"

#include "store/NamedRecord.h"
#include "ui/DisplayText.h"
#include "ui/StoreCalls.h"

namespace giggle {

void AddNameViewController::viewDidLoad()
{
    loggingFailure([this] {
        for (const NamedRecord* record : side().records.all(viewContext()))
            if (const OptionalText name = side().nameOf(*record))
                m_storedNames.append(textOrEmpty(name));
    });
}

void AddNameViewController::SaveGenre()
{
    // Ratings say "Category", too.
    if (name().isEmpty())
        return refuse(QStringLiteral("Category not Entered"));
    if (m_storedNames.contains(name()))
        return refuse(QStringLiteral("Duplicates not allowed"));
    loggingFailure([this] { store(side().records.insert(viewContext())); });
    goBack();
}

void AddNameViewController::refuse(const QString& message)
{
    environment().navigator.present(information(QStringLiteral("Record not Saved!"), message));
}

} // namespace giggle
