// SPDX-License-Identifier: MIT
#include "tests/endurance/RandomUser.h"

#include "store/PreferenceKeys.h"

#include <algorithm>
#include <map>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

constexpr int SomeCategories = 12;
constexpr int MostJokes = 230; // with many more there would be more deletions than additions

std::string savedJoke(const std::string& category, const std::string& rating, int id, int favorite,
                      const std::string& text)
{
    return "joke|" + category + "|" + rating + "|" + std::to_string(id) + "|" + std::to_string(favorite) +
           "|" + text;
}

std::string savedJoke(const Jokes& joke)
{
    return savedJoke(std::string(joke.category().value_or("")), std::string(joke.rating().value_or("")),
                     joke.id().value_or(0), joke.favorite() ? int(*joke.favorite()) : -1,
                     std::string(joke.joke().value_or("")));
}

QString categoryNamed(int number)
{
    return u"Kind %1"_qs.arg(number);
}

QAccessibleInterface* boxIn(QAccessibleInterface* item)
{
    if (!item || item->role() == QAccessible::CheckBox)
        return item;
    for (int i = 0; i < item->childCount(); ++i)
        if (QAccessibleInterface* box = boxIn(item->child(i)))
            return box;
    return nullptr;
}

} // namespace

SavedRows savedRows(ManagedObjectContext& context)
{
    SavedRows rows;
    for (const Jokes* joke : context.fetch(Jokes::fetchRequest()))
        rows.push_back(savedJoke(*joke));
    for (const Category* category : context.fetch(Category::fetchRequest()))
        rows.push_back("category|" + std::string(category->category().value_or("")));
    for (const Rating* rating : context.fetch(Rating::fetchRequest()))
        rows.push_back("rating|" + std::string(rating->rating().value_or("")));
    std::ranges::sort(rows);
    return rows;
}

RandomUser::RandomUser(const QString& folder, unsigned seed) : InterfaceFixture(folder), m_random(seed)
{
    system().platform.printPanel = nullptr;
    system().platform.shareSheet = nullptr;
    system().platform.printers = &m_printers;
    system().resources.paths[u"overview.pdf"_qs] = u":/resources/overview.pdf"_qs;
}

void RandomUser::saveSomething()
{
    using Deed = void (RandomUser::*)();
    static constexpr Deed Deeds[]{
        &RandomUser::addJoke,     &RandomUser::addJoke,        &RandomUser::editJoke,
        &RandomUser::editJoke,    &RandomUser::deleteJoke,     &RandomUser::tickJoke,
        &RandomUser::importJokes, &RandomUser::changeFontSize, &RandomUser::changeNames};
    const bool isFull = context().count(Jokes::fetchRequest()) > MostJokes;
    const Deed deed = isFull ? &RandomUser::deleteJoke : Deeds[below(std::size(Deeds))];
    (this->*deed)();
    goHome();
}

QString RandomUser::newText()
{
    // What is typed loses everything but ASCII.
    static const QStringList words{u"elephant"_qs, u"knock"_qs, u"why"_qs, u"chicken"_qs};
    QString text = u"J%1"_qs.arg(std::uniform_int_distribution(0, 999'999'999)(m_random));
    for (int i = below(40); i > 0; --i)
        text += u' ' + words[below(int(words.size()))];
    return text;
}

void RandomUser::set(const QString& field, const QString& text)
{
    if (QAccessibleInterface* item = waitFor(QAccessible::EditableText, field))
        item->setText(QAccessible::Value, text);
}

void RandomUser::open(QAccessible::Role role, const QString& name)
{
    const int depth = userInterface().navigation().depth();
    press(role, name);
    // While one page slides over another there are two ways back.
    ASSERT_TRUE(waitUntil([&] {
        return userInterface().navigation().depth() > depth &&
               names(QAccessible::Button).count(u"Back"_qs) == 1;
    })) << name.toStdString()
        << " did not open";
}

void RandomUser::answer(const QString& dialog, const QString& button)
{
    waitFor(QAccessible::Dialog, dialog);
    press(QAccessible::Button, button);
    ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, dialog); })) << dialog.toStdString();
}

void RandomUser::back()
{
    const int depth = userInterface().navigation().depth();
    press(QAccessible::Button, u"Back"_qs);
    ASSERT_TRUE(waitUntil([&] {
        return userInterface().navigation().depth() < depth &&
               (depth == 2 ? find(QAccessible::Button, u"Menu"_qs) != nullptr
                           : names(QAccessible::Button).count(u"Back"_qs) == 1);
    })) << "there is no way back";
}

void RandomUser::goHome()
{
    while (!HasFatalFailure() && userInterface().navigation().depth() > 1)
        back();
    // The menu is folded again once it has come to rest.
    EXPECT_TRUE(waitUntil([&] {
        return find(QAccessible::Button, u"Menu"_qs) && !find(QAccessible::Button, u"Joke List"_qs);
    }));
}

void RandomUser::addJoke()
{
    openArea(u"Add Joke"_qs);
    const QString category = categoryNamed(below(SomeCategories));
    const QString text = newText();
    set(u"Category"_qs, category);
    set(u"Rating"_qs, u"Mild"_qs);
    set(u"Joke"_qs, text);
    const int id = context().highestJokeId().value_or(0) + 1;
    willChange({.added = {savedJoke(category.toStdString(), "Mild", id, -1, text.toStdString())}});
    press(QAccessible::Button, u"Save"_qs);
    EXPECT_TRUE(waitUntil([&] { return find(QAccessible::Button, u"Menu"_qs) != nullptr; }));
    didChange();
}

Jokes* RandomUser::someShownJoke(QString& row)
{
    const QStringList rows = names(QAccessible::ListItem);
    if (rows.isEmpty())
        return nullptr;
    row = rows[below(int(rows.size()))];
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.predicate =
        Predicate<Jokes>("joke == %@", row.left(row.lastIndexOf(u", Category: "_qs)).toStdString());
    const std::vector<Jokes*> jokes = context().fetch(request);
    return jokes.size() == 1 ? jokes.front() : nullptr; // some of the starter collection are there twice
}

void RandomUser::editJoke()
{
    openArea(u"Joke List"_qs);
    QString row;
    const Jokes* joke = someShownJoke(row);
    if (!joke)
        return;
    open(QAccessible::ListItem, row);
    const QString text = newText();
    set(u"Joke"_qs, text);
    if (below(2))
        press(QAccessible::CheckBox, u"Favorite"_qs);
    const bool isFavorite = waitFor(QAccessible::CheckBox, u"Favorite"_qs)->state().checked;
    willChange({.removed = {savedJoke(*joke)},
                .added = {savedJoke(std::string(joke->category().value_or("")),
                                    std::string(joke->rating().value_or("")), *joke->id(), isFavorite,
                                    text.toStdString())}});
    press(QAccessible::Button, u"Save"_qs);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Button, u"Larger text"_qs); }));
    didChange();
}

void RandomUser::deleteJoke()
{
    openArea(u"Joke List"_qs);
    QString row;
    const Jokes* joke = someShownJoke(row);
    if (!joke)
        return;
    waitFor(QAccessible::ListItem, row)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    willChange({.removed = {savedJoke(*joke)}});
    key(Qt::Key_Delete);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::ListItem, row); })) << row.toStdString();
    didChange();
}

void RandomUser::tickJoke()
{
    openArea(u"Jokes by Category"_qs);
    const QStringList groups = names(QAccessible::ListItem);
    if (groups.isEmpty())
        return;
    open(QAccessible::ListItem, groups[below(int(groups.size()))]);
    QString row;
    const Jokes* joke = someShownJoke(row);
    if (!joke)
        return;
    const std::string before = savedJoke(*joke);
    const bool isFavorite = joke->favorite().value_or(false);
    willChange({.removed = {before},
                .added = {savedJoke(std::string(joke->category().value_or("")),
                                    std::string(joke->rating().value_or("")), *joke->id(), !isFavorite,
                                    std::string(joke->joke().value_or("")))}});
    QAccessibleInterface* box = boxIn(waitFor(QAccessible::ListItem, row));
    ASSERT_NE(box, nullptr);
    box->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    didChange();
}

void RandomUser::importJokes()
{
    const int id = context().highestJokeId().value_or(0);
    Change change{.comesRowByRow = true};
    QByteArray text = "[GIGGLEARCHIVES]\n";
    for (int i = 1; i <= 12; ++i) {
        const QString category = categoryNamed(below(SomeCategories));
        const QString joke = newText() + u" \u0441\u043b\u043e\u043d \U0001F600"_qs;
        text += u"%1^Mild^%2^%3^%4\n"_qs.arg(category)
                    .arg(id + i)
                    .arg(i % 2 ? u"T"_qs : u"F"_qs)
                    .arg(joke)
                    .toUtf8();
        change.added.push_back(savedJoke(category.toStdString(), "Mild", id + i, i % 2, joke.toStdString()));
    }
    const QString file = m_files.filePath(u"import.csv"_qs);
    writeBytes(file, text);
    openArea(u"Import / Export"_qs);
    open(QAccessible::Button, u"Import Jokes"_qs);
    press(QAccessible::Button, u"Load File"_qs);
    system().documentPicker.answer(QUrl::fromLocalFile(file));
    answer(u"Data Import"_qs, u"OK"_qs);
    willChange(change);
    press(QAccessible::Button, u"Import"_qs);
    waitFor(QAccessible::Dialog, u"Data Import"_qs);
    didChange();
    answer(u"Data Import"_qs, u"OK"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
}

void RandomUser::changeFontSize()
{
    openArea(u"Default Settings"_qs);
    const double size = userDefaults().real(PreferenceKeys::ListFontSize);
    const bool isLarger = size < 14 || (size < 20 && below(2));
    willChange({.fontSize = size + (isLarger ? 1 : -1)});
    press(QAccessible::Button, isLarger ? u"Larger"_qs : u"Smaller"_qs);
    back();
    didChange();
}

void RandomUser::changeNames()
{
    const bool isCategory = below(2);
    const QString field = isCategory ? u"Category"_qs : u"Rating"_qs;
    const std::string kind = isCategory ? "category|" : "rating|";
    openArea(u"Reference Lists"_qs);
    open(QAccessible::Button, isCategory ? u"Categories"_qs : u"Ratings"_qs);
    QStringList rows = names(QAccessible::ListItem);
    rows.removeAll(u"No name"_qs); // the starter collection brings some
    const QString name = u"Name %1"_qs.arg(std::uniform_int_distribution(0, 999'999'999)(m_random));
    const int what = rows.size() < 5 ? 0 : rows.size() > 12 ? 2 : below(3);
    if (what == 2) {
        const QString row = rows[below(int(rows.size()))];
        waitFor(QAccessible::ListItem, row)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::setFocusAction());
        willChange({.removed = {kind + row.toStdString()}});
        key(Qt::Key_Delete);
        EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::ListItem, row); }));
        didChange();
        return;
    }
    Change change{.added = {kind + name.toStdString()}};
    if (what == 0) {
        open(QAccessible::Button, u"Add"_qs);
    } else {
        const QString row = rows[below(int(rows.size()))];
        change.removed = {kind + row.toStdString()};
        open(QAccessible::ListItem, row);
    }
    set(field, name);
    willChange(change);
    press(QAccessible::Button, u"Save"_qs);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::EditableText, field); }));
    didChange();
}

} // namespace giggle
