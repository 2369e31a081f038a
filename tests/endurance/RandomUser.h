// SPDX-License-Identifier: MIT
#pragma once

#include "tests/interface/InterfaceFixture.h"
#include "tests/support/FakePrinters.h"

#include <random>
#include <string>
#include <vector>

namespace giggle {

/// All saved jokes and names in a form that can be compared, sorted. Without row numbers, which a user's
/// change does not tell.
using SavedRows = std::vector<std::string>;
[[nodiscard]] SavedRows savedRows(ManagedObjectContext& context);

/// What a deed is about to do to what is saved.
struct Change {
    SavedRows removed = {};
    SavedRows added = {};
    double fontSize = 0;        ///< 0 when it stays
    bool comesRowByRow = false; ///< the rows are added in that order, each by a save of its own
};

/// Somebody who uses the application at random, from the menu and back to it, by the names of what is on the
/// screen. The same seed does the same things. All jokes have texts of their own.
class RandomUser : public InterfaceFixture {
protected:
    RandomUser(const QString& folder, unsigned seed);

    /// One deed of those that save; each is announced by willChange(), and acknowledged by didChange() once
    /// the screen shows it.
    void saveSomething();

    /// One deed of all the others.
    void readSomething();

    virtual void willChange(const Change& change) { (void)change; }

    virtual void didChange() {}

    [[nodiscard]] int below(int limit) { return std::uniform_int_distribution(0, limit - 1)(m_random); }

private:
    void addJoke();
    void editJoke();
    void deleteJoke();
    void tickJoke();
    void importJokes();
    void changeFontSize();
    void changeNames();

    void lookThroughList();
    void lookThroughGroups();
    void readLargeText();
    void shuffle();
    void printToFile();
    void exportToFile();
    void shareAndCancel();
    void readAround();
    void abandonEdit();
    void resizeOrRestart();

    void set(const QString& field, const QString& text);
    void open(QAccessible::Role role, const QString& name);
    void answer(const QString& dialog, const QString& button);
    void back();
    void goHome();
    void search(const QString& text);
    bool openSomeJoke();
    /// The joke behind a row that is on show, if there is any row.
    Jokes* someShownJoke(QString& row);
    [[nodiscard]] QString newText();
    [[nodiscard]] std::string savedRow(const Jokes& joke) const;

    std::mt19937 m_random;
    FakePrinters m_printers;
    QTemporaryDir m_files;
};

} // namespace giggle
