// SPDX-License-Identifier: MIT
#pragma once

#include "ui/PickerLooks.h"
#include "ui/Screen.h"

#include <QColor>
#include <QFont>
#include <QStringList>

#include <algorithm>

namespace giggle {

class Preferences;

/// The screen on which the user chooses the font, the size and the colour of listed jokes. The lists follow
/// when they are loaded the next time. Sizes are in points.
///
/// A font or a colour is chosen in a picker, which only shows it in its field; it is stored when editing of
/// the field ends. A size is stored at each step. The first visit ever stores the size it shows.
///
/// A font that the system no longer has is shown by its name in the default font, so that another one can be
/// chosen; a stored value of a wrong type ends the program.
class DefaultsViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString ListFontTextField READ listFontTextField NOTIFY listFontTextFieldChanged)
    Q_PROPERTY(QFont listFont READ listFont NOTIFY listFontTextFieldChanged)
    Q_PROPERTY(QColor listFontInk READ listFontInk NOTIFY listFontTextFieldChanged)
    Q_PROPERTY(QString FontColorTextField READ fontColorTextField NOTIFY fontColorTextFieldChanged)
    Q_PROPERTY(bool hasColorLook READ hasColorLook NOTIFY fontColorTextFieldChanged)
    Q_PROPERTY(QColor colorInk READ colorInk NOTIFY fontColorTextFieldChanged)
    Q_PROPERTY(QColor colorGround READ colorGround NOTIFY fontColorTextFieldChanged)
    Q_PROPERTY(QString ListFontTextSizeTextField READ listFontTextSizeTextField NOTIFY listSizeChanged)
    Q_PROPERTY(double sizePreview READ sizePreview NOTIFY listSizeChanged)
    Q_PROPERTY(double ListStepper READ listStepper NOTIFY listSizeChanged)
    Q_PROPERTY(double leastListStepper READ leastListStepper CONSTANT)
    Q_PROPERTY(double greatestListStepper READ greatestListStepper CONSTANT)
    Q_PROPERTY(QStringList fontList READ fontList NOTIFY listsLoaded)
    Q_PROPERTY(QStringList colorList READ colorList NOTIFY listsLoaded)
    Q_PROPERTY(giggle::PickerLooks* fontLooks READ fontLooks CONSTANT)
    Q_PROPERTY(giggle::PickerLooks* colorLooks READ colorLooks CONSTANT)

public:
    /// The pickers, by their tags.
    enum Picker { FontPicker = 1, ColorPicker = 2 };
    Q_ENUM(Picker)

    using Screen::Screen;

    [[nodiscard]] QString title() const override { return QStringLiteral("User Defaults"); }

    void viewDidLoad() override;

    /// Ends editing.
    void viewDidDisappear() override { endEditing(); }

    ~DefaultsViewController() override { endEditing(); }

    [[nodiscard]] const QString& listFontTextField() const { return m_listFontTextField; }

    /// What the font field is drawn in.
    [[nodiscard]] const QFont& listFont() const { return m_listFont; }

    [[nodiscard]] const QColor& listFontInk() const { return m_listFontInk; }

    [[nodiscard]] const QString& fontColorTextField() const { return m_fontColorTextField; }

    /// Whether the field's text names a colour. One that does not leaves the looks as they are.
    [[nodiscard]] bool hasColorLook() const { return m_colorInk.isValid(); }

    /// The colour itself, which is the text's and the swatch's, and what the text stands on.
    [[nodiscard]] const QColor& colorInk() const { return m_colorInk; }

    [[nodiscard]] const QColor& colorGround() const { return m_colorGround; }

    [[nodiscard]] const QString& listFontTextSizeTextField() const { return m_listFontTextSizeTextField; }

    /// The size that the size field itself is drawn in. It moves by one point at each step, but stays
    /// readable.
    [[nodiscard]] double sizePreview() const { return std::max(m_sizePreview, leastListStepper()); }

    [[nodiscard]] double listStepper() const { return m_listStepper; }

    [[nodiscard]] static double leastListStepper() { return 8; }

    [[nodiscard]] static double greatestListStepper() { return 72; }

    /// The rows of the pickers, in code-point order. Filled when the screen is loaded.
    [[nodiscard]] const QStringList& fontList() const { return m_fontList; }

    [[nodiscard]] const QStringList& colorList() const { return m_colorList; }

    /// How the rows are drawn: a font's name in the font, a colour's in the colour.
    [[nodiscard]] PickerRowLook viewForRow(int row, Picker picker) const;

    [[nodiscard]] PickerLooks* fontLooks() { return &m_fontLooks; }

    [[nodiscard]] PickerLooks* colorLooks() { return &m_colorLooks; }

public slots:
    /// A row was chosen in a picker: its field shows it, and its editing has begun. A row that the picker
    /// does not have is none.
    void didSelectRow(int row, giggle::DefaultsViewController::Picker picker);

    /// A field is being edited; any other one no longer is.
    void beginEditing(giggle::DefaultsViewController::Picker picker);

    /// Whatever field was being edited no longer is.
    void endEditing();

    /// @name The actions that store
    /// @{
    void ListFontSelected();
    void FontColorSelected();

    /// @p value is brought into the stepper's range.
    void ListStepperChanged(double value);

    /// Moves the stepper, if it is not at its end: a stored size beyond that stays as it is.
    void stepBy(int steps);
    /// @}

signals:
    void listFontTextFieldChanged();
    void fontColorTextFieldChanged();
    void listSizeChanged();
    void listsLoaded();

private:
    enum class Editing { Nothing, Font, Color };

    void loadSize(Preferences& userDefaults);
    void showColor();
    [[nodiscard]] QFont fontNamed(const QString& name, double pointSize) const;

    QString m_listFontTextField;
    QFont m_listFont;
    QColor m_listFontInk = Qt::black;
    QString m_fontColorTextField;
    QColor m_colorInk;
    QColor m_colorGround;
    QString m_listFontTextSizeTextField;
    double m_sizePreview = 17;
    double m_listStepper = 17;
    double m_listFontSize = 17;
    QStringList m_fontList;
    QStringList m_colorList;
    Editing m_editing = Editing::Nothing;
    PickerLooks m_fontLooks{[this](int row) { return viewForRow(row, FontPicker); }};
    PickerLooks m_colorLooks{[this](int row) { return viewForRow(row, ColorPicker); }};
};

} // namespace giggle
