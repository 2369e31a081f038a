// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Screen.h"

namespace giggle {

/// The main menu, the root of the navigation stack: one button that folds out a column of ten, one for each
/// area of the application. Loading it for the first time ever seeds the collection; every other time the
/// collection is left unopened.
class ViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(bool areaButtonsHidden READ areaButtonsHidden NOTIFY areaButtonsHiddenChanged)

public:
    using Screen::Screen;

    [[nodiscard]] QString title() const override { return QStringLiteral("Giggle Archives"); }

    [[nodiscard]] bool isTargetOf(UnwindRoute route) const override;
    void viewDidLoad() override;
    void viewWillAppear() override;
    void prepareForSegue(SegueId segue) override;

    /// Whether the ten area buttons are folded away.
    [[nodiscard]] bool areaButtonsHidden() const { return m_areaButtonsHidden; }

    Q_INVOKABLE bool canPerform(giggle::Segues::Id segue) const;
    Q_INVOKABLE void performSegue(giggle::Segues::Id segue);

public slots:
    /// The menu button: folds the area buttons out or in.
    void HandleSelection();

signals:
    void areaButtonsHiddenChanged();

private:
    void checkLaunch();
    void setAreaButtonsHidden(bool hidden);

    bool m_areaButtonsHidden = true;
};

} // namespace giggle
