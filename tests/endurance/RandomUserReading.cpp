// SPDX-License-Identifier: MIT
#include "tests/endurance/RandomUser.h"

#include <QClipboard>
#include <QGuiApplication>

namespace giggle {

using namespace Qt::StringLiterals;

void RandomUser::readSomething()
{
    using Deed = void (RandomUser::*)();
    static constexpr Deed Deeds[]{&RandomUser::lookThroughList, &RandomUser::lookThroughGroups,
                                  &RandomUser::readLargeText,   &RandomUser::shuffle,
                                  &RandomUser::printToFile,     &RandomUser::exportToFile,
                                  &RandomUser::shareAndCancel,  &RandomUser::readAround,
                                  &RandomUser::abandonEdit,     &RandomUser::resizeOrRestart};
    (this->*Deeds[below(std::size(Deeds))])();
    goHome();
}

void RandomUser::search(const QString& text)
{
    key(Qt::Key_F, Qt::ControlModifier);
    key(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

void RandomUser::lookThroughList()
{
    openArea(u"Joke List"_qs);
    const QStringList segments = names(QAccessible::RadioButton);
    for (int i = below(6); i >= 0; --i) {
        press(QAccessible::RadioButton, segments[below(int(segments.size()))]);
        if (below(2))
            press(QAccessible::Button, u"Sort"_qs);
        search(below(3) ? u"WHY"_qs : u"zzz"_qs);
        key(Qt::Key_End);
        key(Qt::Key_Backspace);
        if (const QStringList rows = names(QAccessible::ListItem); !rows.isEmpty() && below(2)) {
            QAccessibleInterface* row = waitFor(QAccessible::ListItem, rows[below(int(rows.size()))]);
            row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
            for (const Qt::Key way : {Qt::Key_End, Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Home})
                key(way);
        }
    }
}

void RandomUser::lookThroughGroups()
{
    openArea(u"Jokes by Category"_qs);
    press(QAccessible::PageTab, below(2) ? u"Ratings"_qs : u"Categories"_qs);
    press(QAccessible::Button, u"Sort"_qs);
    search(below(2) ? u"i"_qs : u"zzz"_qs);
    if (below(2))
        key(Qt::Key_Backspace);
    const QStringList rows = names(QAccessible::ListItem);
    if (!rows.isEmpty())
        open(QAccessible::ListItem, rows[below(int(rows.size()))]);
}

bool RandomUser::openSomeJoke()
{
    openArea(u"Joke List"_qs);
    const QStringList rows = names(QAccessible::ListItem);
    if (!rows.isEmpty())
        open(QAccessible::ListItem, rows[below(int(rows.size()))]);
    return !rows.isEmpty();
}

void RandomUser::readLargeText()
{
    if (!openSomeJoke())
        return;
    press(QAccessible::Button, u"Larger text"_qs);
    press(QAccessible::Button, u"Smaller text"_qs);
}

void RandomUser::abandonEdit()
{
    if (!openSomeJoke())
        return;
    press(QAccessible::EditableText, u"Category"_qs);
    waitFor(QAccessible::List, u"Category choices"_qs);
    set(u"Joke"_qs, newText());
    press(QAccessible::Button, u"Back"_qs);
    answer(u"Discard Changes?"_qs, u"Discard"_qs);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Button, u"Larger text"_qs); }));
}

void RandomUser::shuffle()
{
    openArea(u"Joke of the Day"_qs);
    for (int i = below(5); i >= 0; --i)
        press(QAccessible::Button, u"Shuffle"_qs);
}

void RandomUser::printToFile()
{
    openArea(u"Print"_qs);
    search(below(2) ? u"kind 1"_qs : u"i"_qs);
    press(QAccessible::Button, u"Print"_qs);
    waitFor(QAccessible::Dialog, u"Print"_qs);
    waitFor(QAccessible::StaticText, u"There is no printer. The pages can be saved as a PDF file."_qs);
    if (below(4) == 0) {
        answer(u"Print"_qs, u"Cancel"_qs);
        return;
    }
    const QString file = m_files.filePath(u"jokes.pdf"_qs);
    const qsizetype asked = system().documentPicker.suggestedNames.size();
    press(QAccessible::Button, u"Save as PDF"_qs);
    ASSERT_TRUE(waitUntil([&] { return system().documentPicker.suggestedNames.size() > asked; }));
    system().documentPicker.answer(QUrl::fromLocalFile(file));
    ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Print"_qs); }));
    EXPECT_TRUE(readBytes(file).startsWith("%PDF-"));
    system().documentPicker.suggestedNames.clear();
}

void RandomUser::exportToFile()
{
    openArea(u"Import / Export"_qs);
    open(QAccessible::Button, u"Export Jokes"_qs);
    press(QAccessible::Button, u"Export"_qs);
    answer(u"Data Export"_qs, u"OK"_qs);
    press(QAccessible::Button, u"Copy"_qs);
    press(QAccessible::Button, u"Save To Files"_qs);
    waitFor(QAccessible::Dialog, u"Share"_qs);
    const QString file = m_files.filePath(u"export.csv"_qs);
    press(QAccessible::Button, u"Save to Files"_qs);
    system().documentPicker.answer(QUrl::fromLocalFile(file));
    ASSERT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Share"_qs); }));
    EXPECT_EQ(QString::fromUtf8(readBytes(file)), QGuiApplication::clipboard()->text());
    system().documentPicker.suggestedNames.clear();
}

void RandomUser::shareAndCancel()
{
    openArea(u"Joke List"_qs);
    press(QAccessible::Button, u"Share"_qs);
    waitFor(QAccessible::Dialog, u"Share"_qs);
    waitFor(QAccessible::Button, u"Cancel"_qs);
    answer(u"Share"_qs, below(2) ? u"Cancel"_qs : u"Mail"_qs);
    system().mailComposer.presented.clear();
}

void RandomUser::readAround()
{
    if (below(2)) {
        openArea(u"Overview"_qs);
        for (const Qt::Key way : {Qt::Key_PageDown, Qt::Key_End, Qt::Key_Plus, Qt::Key_Home})
            key(way, way == Qt::Key_Plus ? Qt::ControlModifier : Qt::NoModifier);
        return;
    }
    openArea(u"Rate / Share"_qs);
    press(QAccessible::ListItem, u"Visit the Website"_qs);
    system().addressOpener.opened.clear();
}

void RandomUser::resizeOrRestart()
{
    static constexpr QSize Sizes[]{{360, 640}, {720, 360}, {1280, 800}, {320, 568}};
    if (below(10) == 0) {
        restart();
        return;
    }
    window().resize(Sizes[below(std::size(Sizes))]);
    system().interfaceStyle.change(below(2) ? InterfaceStyle::Style::Dark : InterfaceStyle::Style::Light);
}

} // namespace giggle
