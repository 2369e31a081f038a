// SPDX-License-Identifier: MIT
#pragma once

#include "jokes/JokeEditor.h"
#include "shell/ReviewService.h"
#include "ui/ListDisplaySettings.h"

#include <QColor>
#include <QFont>

#include <vector>

namespace giggle {

/// The screen that shows the joke chosen in a list and changes it. The record is found again by its text.
/// After a save it goes back to the joke list or to a breakdown, whichever opened it; opened from elsewhere
/// it stays.
///
/// The text view shows the joke less the characters that are not displayed, and a line feed behind it that a
/// save takes off again, unless the user has typed on behind it.
class EditJokeViewController : public giggle::JokeEditor {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString CheckBox READ checkBox NOTIFY checkBoxChanged)
    Q_PROPERTY(QFont textFont READ textFont NOTIFY textFontChanged)
    Q_PROPERTY(bool hasTextColor READ hasTextColor NOTIFY textFontChanged)
    Q_PROPERTY(QColor textColor READ textColor NOTIFY textFontChanged)

public:
    explicit EditJokeViewController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Edit Joke"); }

    [[nodiscard]] bool hasUnsavedChanges() const override;

    void viewDidLoad() override;

    /// Refuses whatever holds a character that cannot be typed here, a line feed included.
    bool shouldChangeText(const QString& replacement) const override;

    /// The name of the check box's state: "Checked" for a favourite.
    [[nodiscard]] const QString& checkBox() const { return m_checkBox; }

    /// The font of the joke, and the colour where the user's choice names one. A joke with a text ends the
    /// program where the system has no font of the chosen name.
    [[nodiscard]] const QFont& textFont() const { return m_textFont; }

    [[nodiscard]] bool hasTextColor() const;
    [[nodiscard]] QColor textColor() const;

public slots:
    /// The check box was tapped, and is in the state of that name now.
    void CheckBoxChecked(const QString& stateName);

    /// One point larger or smaller, without limits; stored at once. A size below 1 is drawn as 1.
    void IncreaseFontSize();
    void DecreaseFontSize();

    /// Offers what the text view holds; on a device that cannot send text messages it only says so.
    void shareButtonClicked();

    /// Prints what the text view holds under a line that says where it comes from. The text view holds the
    /// printed text from then on, and a save stores all of it.
    void PrintJoke();

    /// Changes the first joke that has the chosen text. Without a category or a text it says so instead;
    /// where no joke has the text any more nothing happens. A failed save is logged, and the change waits for
    /// the next save.
    void SaveButtonClicked() override;

signals:
    void checkBoxChanged();
    void textFontChanged();

protected:
    void markAsSaved() override;

private:
    void showSelection();
    void requestReviewLater();
    void changeFontSize(double difference);

    /// Keeps in mind where the line feed stands that was put behind the joke for display, while the user
    /// types in front of it and behind it; -1 once it is deleted.
    void followDisplayLineFeed();

    /// The text view's text, without that line feed where nothing follows it.
    [[nodiscard]] QString enteredJoke() const;

    ReviewService m_reviewService;
    ListDisplaySettings m_displaySettings;
    QFont m_textFont;
    QString m_checkBox;
    QString m_savedCheckBox;
    QString m_selectedJoke; // by it a save finds the record
    QString m_followedJoke; // what the text view held when the line feed was looked for last
    qsizetype m_displayLineFeed = -1;
    std::vector<Jokes*> m_results; // what the last save found
};

} // namespace giggle
