// SPDX-License-Identifier: MIT
#pragma once

#include "lists/CategoryGroupTableViewController.h"
#include "lists/RatingGroupTableViewController.h"

#include <QStringList>

#include <array>

namespace giggle {

/// The jokes by category and by rating: two group screens in tabs, each with its own way back in place of the
/// navigation bar. A group screen is loaded when its tab is first chosen; it appears and disappears with its
/// tab.
class TabBarController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(giggle::GroupTableViewController* CategoryGroups READ categoryGroups CONSTANT)
    Q_PROPERTY(giggle::GroupTableViewController* RatingGroups READ ratingGroups CONSTANT)
    Q_PROPERTY(QStringList tabTitles READ tabTitles CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex WRITE setSelectedIndex NOTIFY selectedIndexChanged)

public:
    explicit TabBarController(ScreenEnvironment& environment);

    [[nodiscard]] QString title() const override { return QStringLiteral("Jokes by Category"); }

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewDidAppear() override;
    void viewDidDisappear() override;

    [[nodiscard]] GroupTableViewController* categoryGroups() { return &m_categoryGroups; }

    [[nodiscard]] GroupTableViewController* ratingGroups() { return &m_ratingGroups; }

    [[nodiscard]] QStringList tabTitles() const;

    [[nodiscard]] int selectedIndex() const { return static_cast<int>(m_selectedIndex); }

    /// Shows the group screen of a tab. A tab that is not there changes nothing.
    void setSelectedIndex(int index);

signals:
    void selectedIndexChanged();

private:
    [[nodiscard]] GroupTableViewController& selected() { return *m_groups[m_selectedIndex]; }

    void loadSelected();

    CategoryGroupTableViewController m_categoryGroups;
    RatingGroupTableViewController m_ratingGroups;
    std::array<GroupTableViewController*, 2> m_groups{&m_categoryGroups, &m_ratingGroups};
    std::array<bool, 2> m_isLoaded{};
    std::size_t m_selectedIndex = 0;
};

} // namespace giggle
