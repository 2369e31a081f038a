// SPDX-License-Identifier: MIT
#pragma once

#include "tests/interface/InterfaceFixture.h"
#include "tests/support/FakePrinters.h"

#include <QStringList>

#include <random>

namespace giggle {

/// All saved jokes and names, and the font size, in a form that can be compared, sorted. Without row numbers,
/// which a user's change does not tell.
using SavedRows = QStringList;
[[nodiscard]] SavedRows savedRows(ManagedObjectContext& context, const Preferences& userDefaults);

/// Somebody who uses the application at random, from the menu and back to it, by the names of what is on the
/// screen. The same seed does the same things. All jokes have texts of their own.
class RandomUser : public InterfaceFixture {
protected:
    RandomUser(const QString& folder, unsigned seed);

    /// Opens the window, on a first launch with the starter collection.
    void begin();

    /// One deed of those that save: what is saved is told before, and once the screen has acknowledged it.
    void saveSomething();

    /// Wanders about in one of the areas.
    void readSomething();

    /// What a start now may find: what the screens have acknowledged last, and what was tried since then.
    [[nodiscard]] const QList<SavedRows>& possible() const { return m_possible; }

    /// Called whenever that changes.
    virtual void possibleChanged() {}

    [[nodiscard]] int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_random); }

private:
    /// Does something that saves, and waits until the screen has acknowledged it.
    void change(const SavedRows& removed, const SavedRows& added, const std::function<void()>& act,
                const std::function<bool()>& isAcknowledged);

    void addJoke();
    void editJoke();
    void deleteJoke();
    void tickJoke();
    void changeFontSize();
    void addName();

    void pressSomething();
    void set(const QString& field, const QString& text);
    void open(QAccessible::Role role, const QString& name);

    auto pressing(const QString& button)
    {
        return [=, this] { press(QAccessible::Button, button); };
    }

    void goHome();

    /// The joke behind a row that is on show, if there is just one of that text.
    const Jokes* jokeOf(const QString& row);
    const Jokes* someJoke();
    [[nodiscard]] QString someRow();
    [[nodiscard]] QString newText();

    std::mt19937 m_random;
    FakePrinters m_printers;
    QString m_row; ///< of someJoke()
    QList<SavedRows> m_possible;
};

} // namespace giggle
