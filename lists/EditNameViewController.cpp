// SPDX-License-Identifier: MIT
#include "lists/EditNameViewController.h"

#include "ui/SharedSelection.h"
#include "ui/StoreCalls.h"

namespace giggle {

void EditNameViewController::viewDidLoad()
{
    setName(selectedName());
    markAsSaved();
}

void EditNameViewController::SaveGenre()
{
    loggingFailure([this] {
        const NameRecords::List results = side().records.named(viewContext(), selectedName().toStdString());
        if (!results.empty())
            store(*results.front());
    });
    goBack();
}

const QString& EditNameViewController::selectedName() const
{
    return environment().selection.*side().nameToRename;
}

} // namespace giggle
