// SPDX-License-Identifier: MIT
#include "jokes/NewMainListTableViewCell.h"

#include "jokes/CheckBoxSelectionDelegate.h"
#include "ui/DisplayText.h"
#include "ui/ListDisplaySettings.h"
#include "ui/SharedSelection.h"

#include <QStringList>

namespace giggle {

void NewMainListTableViewCell::showJoke(OptionalText joke, const ListDisplaySettings& settings,
                                        const QFont& font)
{
    const AttributedText rowText = settings.rowText(joke, font);
    const TextAttributes& attributes = rowText.runs().front().attributes;
    JokeLabel = rowText.plainText();
    hasLongWord = holdsLongWord(JokeLabel);
    hasTextColor = attributes.foregroundColor.has_value();
    textColor = attributes.foregroundColor.value_or(QColor());
    fontFamily = font.family();
    fontPixelSize = font.pixelSize();
}

QString NewMainListTableViewCell::accessibleName() const
{
    QStringList parts;
    for (const QString& label : {JokeLabel, CategoryLabel, RatingLabel})
        if (const QString part = label.trimmed(); !part.isEmpty())
            parts.append(part);
    return parts.join(QStringLiteral(", "));
}

void NewMainListTableViewCell::CheckBoxClicked(bool isChecked, SharedSelection& selection) const
{
    selection.setFavorite(isChecked);
    if (checkBoxDelegate)
        checkBoxDelegate->checkBoxSelectionChanged(isChecked, cellIndexPath);
}

} // namespace giggle
