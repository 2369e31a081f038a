// SPDX-License-Identifier: MIT
#pragma once

#include "store/ManagedObjectContext.h"
#include "ui/Screen.h"

#include <QStringList>

#include <span>

namespace giggle {

/// What the screens that add and edit a joke share: the three fields, the names that the pickers of two of
/// them offer, the check before a save, and the question whether typed changes may be lost. The fields also
/// take names that no picker offers.
class JokeEditor : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString CategoryTextField READ categoryTextField WRITE setCategoryTextField NOTIFY
                   categoryTextFieldChanged)
    Q_PROPERTY(QString JokeTextView READ jokeTextView WRITE setJokeTextView NOTIFY jokeTextViewChanged)
    Q_PROPERTY(
        QString RatingTextField READ ratingTextField WRITE setRatingTextField NOTIFY ratingTextFieldChanged)
    // Spelled as it is known by.
    Q_PROPERTY(QStringList ListOfCatagories READ listOfCatagories NOTIFY listsLoaded)
    Q_PROPERTY(QStringList ListOfRatings READ listOfRatings NOTIFY listsLoaded)

public:
    /// The pickers, by their tags.
    enum Picker { CategoryPicker = 1, RatingPicker = 2 };
    Q_ENUM(Picker)

    using Screen::Screen;

    [[nodiscard]] bool hasUnsavedChanges() const override;

    [[nodiscard]] const QString& categoryTextField() const { return m_categoryTextField; }

    [[nodiscard]] const QString& jokeTextView() const { return m_jokeTextView; }

    [[nodiscard]] const QString& ratingTextField() const { return m_ratingTextField; }

    void setCategoryTextField(const QString& text);
    void setJokeTextView(const QString& text);
    void setRatingTextField(const QString& text);

    /// The names that the pickers offer, in code-point order. Filled when the screen is loaded.
    [[nodiscard]] const QStringList& listOfCatagories() const { return m_listOfCatagories; }

    [[nodiscard]] const QStringList& listOfRatings() const { return m_listOfRatings; }

    /// Whether a replacement for a piece of the joke may be typed or pasted.
    [[nodiscard]] Q_INVOKABLE virtual bool shouldChangeText([[maybe_unused]] const QString& replacement) const
    {
        return true;
    }

public slots:
    /// A name was chosen in a picker: its field takes it. A row that the picker does not have is none.
    void didSelectRow(int row, giggle::JokeEditor::Picker picker);

    /// Saves what the fields hold and goes back to the calling screen, or says what is missing.
    virtual void SaveButtonClicked() = 0;

signals:
    void categoryTextFieldChanged();
    void jokeTextViewChanged();
    void ratingTextFieldChanged();
    void listsLoaded();

protected:
    enum class Duplicates { Kept, Dropped };

    /// Where an editor goes after a save, by the screen that opened it.
    struct WayBack {
        QStringView callingScreen; ///< one of CallingScreens
        UnwindRoute route;
    };

    /// Fills both lists. Categories without a name are left out; a rating without one ends the program. The
    /// ratings never hold a name twice.
    void loadLists(Duplicates categoryDuplicates);

    /// The fields as they are now hold nothing that could be lost.
    virtual void markAsSaved();

    /// Whether a category and @p joke are there; if not, an alert of that title and message says so.
    [[nodiscard]] bool validate(const QString& joke, const QString& title, const QString& message);

    /// Gives @p record what the fields hold: the category without blanks around it, @p joke less what is not
    /// displayed, and the rating, if there is one.
    void writeFields(Jokes& record, const QString& joke) const;

    /// Saves the context, and goes back if there is a way for the calling screen. A failure is logged; the
    /// changes wait for the next save.
    void saveAndGoBack(std::span<const WayBack> waysBack);

private:
    QString m_categoryTextField;
    QString m_jokeTextView;
    QString m_ratingTextField;
    QString m_savedCategory;
    QString m_savedJoke;
    QString m_savedRating;
    QStringList m_listOfCatagories;
    QStringList m_listOfRatings;
};

} // namespace giggle
