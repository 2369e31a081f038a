// SPDX-License-Identifier: MIT
#pragma once

#include "app/UserInterface.h"
#include "store/AppDelegate.h"
#include "store/Preferences.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FakePlatform.h"

#include <QAccessible>
#include <QQuickWindow>

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>

#include <gtest/gtest.h>

namespace giggle {

/// The real window with its real pages, offscreen, over a collection in a folder of its own. Controls are
/// found and pressed as a screen reader does it: by role and name. Any warning of the script engine is a
/// failure.
class InterfaceFixture : public ::testing::Test {
protected:
    /// Over what lies in @p folder, which stays, or over a folder of its own.
    explicit InterfaceFixture(const QString& folder = {});

    ~InterfaceFixture() override;

    /// The collection, to be filled before the screens look at it.
    [[nodiscard]] ManagedObjectContext& context()
    {
        return m_appDelegate->persistentContainer().viewContext();
    }

    [[nodiscard]] Preferences& userDefaults() { return *m_userDefaults; }

    /// Marks the first launch as done, so that the starter collection stays out.
    void skipSeeding();

    /// Without a size the window has the one that it makes itself.
    void openWindow(QSize size = {360, 640});

    /// Opens the window over these jokes and what is stored already, without the starter collection, and in
    /// it an area.
    void openWith(std::initializer_list<JokeValues> jokes, const QString& area = {});

    /// Ends the window and the collection, and starts both again.
    void restart();

    /// What outlives the window besides collection and settings.
    [[nodiscard]] QString windowMemory() const { return m_folder + QStringLiteral("/window.json"); }

    [[nodiscard]] QQuickWindow& window() { return *m_window; }

    [[nodiscard]] FakePlatform& system() { return m_system; }

    [[nodiscard]] UserInterface& userInterface() { return *m_interface; }

    /// The first visible thing of this role and name, or nullptr.
    [[nodiscard]] QAccessibleInterface* find(QAccessible::Role role, const QString& name);

    /// The names of all visible things of a role, in the tree's order.
    [[nodiscard]] QStringList names(QAccessible::Role role);

    /// Waits until something of this role and name is there, and returns it; fails when it does not come.
    QAccessibleInterface* waitFor(QAccessible::Role role, const QString& name);

    bool waitUntil(const std::function<bool()>& condition);

    /// @name Wait, and fail when it does not happen
    /// @{
    void waitUntilGone(QAccessible::Role role, const QString& name);
    void waitForFocus(QAccessible::Role role, const QString& name);
    void waitForRows(const QStringList& expected);

    /// @}

    /// The rows of all lists that show.
    [[nodiscard]] QStringList rows() { return names(QAccessible::ListItem); }

    [[nodiscard]] QString fieldText(const QString& name);

    void press(QAccessible::Role role, const QString& name);

    void pressIfThere(QAccessible::Role role, const QString& name);
    void focus(QAccessible::Role role, const QString& name);
    void type(const QString& text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// The middle of something, in the window.
    [[nodiscard]] QPoint centerOf(QAccessibleInterface* item) const;

    /// Opens an area from the menu, and waits until its page has come to rest.
    void openArea(const QString& button);

    /// The same for a page above that of an area, which the press of something opens.
    void openPage(QAccessible::Role role, const QString& name);
    void waitForRest();

    [[nodiscard]] AppDelegate& appDelegate() { return *m_appDelegate; }

private:
    void openCollection();
    void closeWindow();

    CollectionFolder m_ownFolder;
    QString m_folder;
    FakePlatform m_system;
    std::optional<Preferences> m_userDefaults;
    std::optional<AppDelegate> m_appDelegate;
    std::unique_ptr<UserInterface> m_interface;
    QQuickWindow* m_window = nullptr;
    QSize m_size;
};

} // namespace giggle
