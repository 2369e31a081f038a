// SPDX-License-Identifier: MIT
#include "tests/endurance/RandomUser.h"

#include "store/PreferenceKeys.h"
#include "ui/DisplayText.h"

#include <QTest>

namespace giggle {

using namespace Qt::StringLiterals;

namespace {

constexpr int SomeCategories = 12;
constexpr int MostJokes = 230; // with many more there would be more deletions than additions

/// A joke as it is saved; a favourite of -1 is unset.
QString savedJoke(const QString& category, const QString& rating, int id, int favorite, const QString& text)
{
    return QStringList{category, rating, QString::number(id), QString::number(favorite), text}.join(u'|');
}

QString savedJoke(const Jokes& joke, int favorite, const QString& text)
{
    return savedJoke(textOrEmpty(joke.category()), textOrEmpty(joke.rating()), joke.id().value_or(0),
                     favorite, text);
}

QString savedJoke(const Jokes& joke)
{
    return savedJoke(joke, joke.favorite() ? int(*joke.favorite()) : -1, textOrEmpty(joke.joke()));
}

QString savedFontSize(double size)
{
    return u"font size|"_qs + QString::number(size);
}

} // namespace

SavedRows savedRows(ManagedObjectContext& context, const Preferences& userDefaults)
{
    SavedRows rows;
    for (const Jokes* joke : context.fetch(Jokes::fetchRequest()))
        rows << savedJoke(*joke);
    for (const Category* category : context.fetch(Category::fetchRequest()))
        rows << u"category|"_qs + textOrEmpty(category->category());
    for (const Rating* rating : context.fetch(Rating::fetchRequest()))
        rows << u"rating|"_qs + textOrEmpty(rating->rating());
    if (userDefaults.isPresent(PreferenceKeys::ListFontSize))
        rows << savedFontSize(userDefaults.real(PreferenceKeys::ListFontSize));
    rows.sort();
    return rows;
}

RandomUser::RandomUser(const QString& folder, unsigned seed) : InterfaceFixture(folder), m_random(seed)
{
    system().platform.printPanel = nullptr;
    system().platform.shareSheet = nullptr;
    system().platform.printers = &m_printers;
}

void RandomUser::begin()
{
    const bool isFirstLaunch = !userDefaults().boolean(PreferenceKeys::HasBeenLaunchedBeforeFlag);
    openWindow();
    if (isFirstLaunch)
        press(QAccessible::Button, u"Ok"_qs);
    goHome();
    if (!userDefaults().isPresent(PreferenceKeys::ListFontSize)) {
        userDefaults().setReal(PreferenceKeys::ListFontSize, 15);
        userDefaults().synchronize();
    }
    m_possible = {savedRows(context(), userDefaults())};
    possibleChanged();
}

void RandomUser::change(const SavedRows& removed, const SavedRows& added, const std::function<void()>& act,
                        const std::function<bool()>& isAcknowledged)
{
    SavedRows rows = m_possible.constLast();
    for (const QString& row : removed)
        EXPECT_TRUE(rows.removeOne(row)) << "not saved before: " << row.toStdString();
    rows += added;
    rows.sort();
    m_possible << rows;
    possibleChanged();
    act();
    EXPECT_TRUE(waitUntil(isAcknowledged)) << (removed + added).join(u'\n').toStdString();
    m_possible = {rows};
    possibleChanged();
}

void RandomUser::saveSomething()
{
    using Deed = void (RandomUser::*)();
    static constexpr Deed Deeds[]{&RandomUser::addJoke,        &RandomUser::addJoke,    &RandomUser::editJoke,
                                  &RandomUser::editJoke,       &RandomUser::deleteJoke, &RandomUser::tickJoke,
                                  &RandomUser::changeFontSize, &RandomUser::addName};
    const bool isFull = context().count(Jokes::fetchRequest()) > MostJokes;
    const Deed deed = isFull ? &RandomUser::deleteJoke : Deeds[below(std::size(Deeds))];
    (this->*deed)();
    goHome();
}

QString RandomUser::newText()
{
    // What is typed loses everything but ASCII.
    return u"J%1"_qs.arg(below(1'000'000'000)) + u" why elephant"_qs.repeated(below(15));
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

void RandomUser::goHome()
{
    EXPECT_TRUE(waitUntil([&] {
        for (const QString& way : {u"Discard"_qs, u"Cancel"_qs, u"OK"_qs, u"Ok"_qs})
            pressIfThere(QAccessible::Button, way);
        const bool isAsked = !names(QAccessible::Dialog).isEmpty();
        const bool isAway = userInterface().navigation().depth() > 1;
        if (isAway && !isAsked)
            pressIfThere(QAccessible::Button, u"Back"_qs);
        // The menu is folded again once it has come to rest.
        return !isAway && !isAsked && find(QAccessible::Button, u"Menu"_qs) &&
               !find(QAccessible::Button, u"Joke List"_qs);
    })) << "there is no way back";
}

QString RandomUser::someRow()
{
    const QStringList rows = names(QAccessible::ListItem);
    return rows.isEmpty() ? QString() : rows[below(int(rows.size()))];
}

const Jokes* RandomUser::jokeOf(const QString& row)
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.predicate =
        Predicate<Jokes>("joke == %@", row.left(row.lastIndexOf(u", Category: "_qs)).toStdString());
    const std::vector<Jokes*> jokes = context().fetch(request);
    return jokes.size() == 1 ? jokes.front() : nullptr; // some of the starter collection are there twice
}

const Jokes* RandomUser::someJoke()
{
    openArea(u"Joke List"_qs);
    m_row = someRow();
    return jokeOf(m_row);
}

void RandomUser::addJoke()
{
    openArea(u"Add Joke"_qs);
    const QString category = u"Kind %1"_qs.arg(below(SomeCategories));
    const QString text = newText();
    set(u"Category"_qs, category);
    set(u"Rating"_qs, u"Mild"_qs);
    set(u"Joke"_qs, text);
    const int id = context().highestJokeId().value_or(0) + 1;
    change({}, {savedJoke(category, u"Mild"_qs, id, -1, text)}, pressing(u"Save"_qs),
           [&] { return find(QAccessible::Button, u"Menu"_qs); });
}

void RandomUser::editJoke()
{
    const Jokes* joke = someJoke();
    if (!joke)
        return;
    open(QAccessible::ListItem, m_row);
    const QString text = newText();
    set(u"Joke"_qs, text);
    if (below(2))
        press(QAccessible::CheckBox, u"Favorite"_qs);
    const bool isFavorite = waitFor(QAccessible::CheckBox, u"Favorite"_qs)->state().checked;
    change({savedJoke(*joke)}, {savedJoke(*joke, isFavorite, text)}, pressing(u"Save"_qs),
           [&] { return !find(QAccessible::Button, u"Larger text"_qs); });
}

void RandomUser::deleteJoke()
{
    const Jokes* joke = someJoke();
    if (!joke)
        return;
    const QString saved = savedJoke(*joke);
    focus(QAccessible::ListItem, m_row);
    change(
        {saved}, {}, [&] { key(Qt::Key_Delete); }, [&] { return !find(QAccessible::ListItem, m_row); });
    if (below(3) == 0)
        change({}, {saved}, pressing(u"Undo"_qs), [&] { return find(QAccessible::ListItem, m_row); });
}

void RandomUser::tickJoke()
{
    openArea(u"Jokes by Category"_qs);
    const QString group = someRow();
    if (group.isEmpty())
        return;
    open(QAccessible::ListItem, group);
    const Jokes* joke = jokeOf(names(QAccessible::ListItem).value(0));
    if (!joke)
        return;
    const bool isFavorite = joke->favorite().value_or(false);
    change(
        {savedJoke(*joke)}, {savedJoke(*joke, !isFavorite, textOrEmpty(joke->joke()))},
        [&] { press(QAccessible::CheckBox, u"Favorite"_qs); }, [] { return true; });
}

void RandomUser::changeFontSize()
{
    openArea(u"Default Settings"_qs);
    const double size = userDefaults().real(PreferenceKeys::ListFontSize);
    const bool isLarger = size < 14 || (size < 20 && below(2));
    change({savedFontSize(size)}, {savedFontSize(size + (isLarger ? 1 : -1))},
           pressing(isLarger ? u"Larger"_qs : u"Smaller"_qs), [&] {
               goHome();
               return true;
           });
}

void RandomUser::addName()
{
    const bool isCategory = below(2);
    const QString kind = isCategory ? u"category|"_qs : u"rating|"_qs;
    openArea(u"Reference Lists"_qs);
    open(QAccessible::Button, isCategory ? u"Categories"_qs : u"Ratings"_qs);
    const QString name = u"Name %1"_qs.arg(below(1'000'000'000));
    const QString field = isCategory ? u"Category"_qs : u"Rating"_qs;
    open(QAccessible::Button, u"Add"_qs);
    set(field, name);
    change({}, {kind + name}, pressing(u"Save"_qs), [&] { return !find(QAccessible::EditableText, field); });
}

void RandomUser::pressSomething()
{
    // What saves, in a field by arrow keys, and what readSomething() does itself.
    static const QStringList Left{u"Save"_qs, u"Larger"_qs, u"Smaller"_qs,
                                  u"Size"_qs, u"Import"_qs, u"Back"_qs};
    static constexpr QAccessible::Role Roles[]{QAccessible::Button, QAccessible::RadioButton,
                                               QAccessible::PageTab, QAccessible::ListItem,
                                               QAccessible::EditableText};
    const QAccessible::Role role = Roles[below(std::size(Roles))];
    QStringList things = names(role);
    things.removeIf([](const QString& name) { return Left.contains(name); });
    if (!things.isEmpty())
        pressIfThere(role, things[below(int(things.size()))]);
    QTest::qWait(20);
}

void RandomUser::readSomething()
{
    static const QStringList Areas{u"Joke List"_qs,        u"Add Joke"_qs,        u"Jokes by Category"_qs,
                                   u"Joke of the Day"_qs,  u"Print"_qs,           u"Reference Lists"_qs,
                                   u"Default Settings"_qs, u"Import / Export"_qs, u"Rate / Share"_qs};
    static constexpr QSize Sizes[]{{360, 640}, {720, 360}, {1280, 800}, {320, 568}};
    window().resize(Sizes[below(std::size(Sizes))]);
    system().interfaceStyle.change(below(2) ? InterfaceStyle::Style::Dark : InterfaceStyle::Style::Light);
    openArea(Areas[below(int(Areas.size()))]);
    for (int i = below(12); i >= 0 && !HasFailure(); --i)
        pressSomething();
    if (below(3) == 0) {
        key(Qt::Key_F, Qt::ControlModifier);
        type(u"why"_qs);
    }
    for (const Qt::Key way : {Qt::Key_End, Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Home})
        key(way);
    goHome();
    if (below(20) == 0)
        restart();
    system().mailComposer.presented.clear();
    system().addressOpener.opened.clear();
    system().documentPicker.suggestedNames.clear();
    system().fileOpener.opened.clear();
}

} // namespace giggle
