// SPDX-License-Identifier: MIT
#pragma once

#include "store/Attribute.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class CheckBoxSelectionDelegate;
struct ListDisplaySettings;
struct SharedSelection;

/// One joke as a row, as it is drawn: in the joke list, and in the lists of one category's or rating's jokes.
class NewMainListTableViewCell {
    Q_GADGET
    QML_VALUE_TYPE(newMainListTableViewCell)
    Q_PROPERTY(QString CategoryLabel MEMBER CategoryLabel CONSTANT)
    Q_PROPERTY(QString JokeLabel MEMBER JokeLabel CONSTANT)
    Q_PROPERTY(QString RatingLabel MEMBER RatingLabel CONSTANT)
    Q_PROPERTY(bool hasContent MEMBER hasContent CONSTANT)
    Q_PROPERTY(bool favorite MEMBER favorite CONSTANT)
    Q_PROPERTY(bool hasLongWord MEMBER hasLongWord CONSTANT)
    Q_PROPERTY(bool hasTextColor MEMBER hasTextColor CONSTANT)
    Q_PROPERTY(QColor textColor MEMBER textColor CONSTANT)
    Q_PROPERTY(QString fontFamily MEMBER fontFamily CONSTANT)
    Q_PROPERTY(double fontPixelSize MEMBER fontPixelSize CONSTANT)
    Q_PROPERTY(QString accessibleName READ accessibleName CONSTANT)

public:
    /// False for a row that is drawn without anything in it; nothing else then has a value.
    bool hasContent = false;

    QString CategoryLabel;
    QString JokeLabel;        ///< ends with a line feed
    bool hasLongWord = false; ///< the joke has to be wrapped anywhere
    QString RatingLabel;      ///< empty where there is no such label
    bool favorite = false;

    /// How the joke's text is drawn. Without a colour of its own it takes the label's.
    bool hasTextColor = false;
    QColor textColor;
    QString fontFamily;
    double fontPixelSize = 0;

    int cellIndexPath = -1;
    CheckBoxSelectionDelegate* checkBoxDelegate = nullptr;

    /// Fills the joke's label, and says how it is drawn.
    void showJoke(OptionalText joke, const ListDisplaySettings& settings, const QFont& font);

    /// The labels as they are shown, for a screen reader: joke, category, rating.
    [[nodiscard]] QString accessibleName() const;

    /// The row's check box was ticked or cleared: the selection takes its state, and the delegate hears of
    /// it.
    void CheckBoxClicked(bool isChecked, SharedSelection& selection) const;
};

} // namespace giggle
