// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
#include <QDir>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QMimeData>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ExchangePages : public InterfaceFixture {
protected:
    /// One joke, and a window that brings its own share sheet.
    void openWithAJoke()
    {
        skipSeeding();
        insertJoke(context(), {.category = "Puns", .rating = "Mild", .id = 1, .joke = "Pop"});
        context().save();
        system().platform.shareSheet = nullptr;
        openWindow();
    }

    void answer(const QString& title)
    {
        waitFor(QAccessible::Dialog, title);
        press(QAccessible::Button, u"OK"_qs);
        EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, title); }));
    }

    [[nodiscard]] bool isEnabled(const QString& button)
    {
        return waitFor(QAccessible::Button, button)->text(QAccessible::Description).isEmpty();
    }

    void waitForHeading(const QString& title) { waitFor(QAccessible::Heading, title); }

    void focus(QAccessible::Role role, const QString& name)
    {
        waitFor(role, name)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    }

    /// Has the file dialog's field hold this and nothing else.
    void typeName(const QString& name)
    {
        focus(QAccessible::EditableText, u"File Name"_qs);
        key(Qt::Key_A, Qt::ControlModifier);
        type(name);
    }

    void waitForName(const QString& name)
    {
        EXPECT_TRUE(waitUntil([&] {
            auto* const field = find(QAccessible::EditableText, u"File Name"_qs);
            return field && field->text(QAccessible::Value) == name;
        })) << name.toStdString();
    }

    QTemporaryDir files;
    QString file = files.filePath(u"other.csv"_qs);
};

TEST_F(ExchangePages, AnExportIsShownCopiedAndSavedByTheSheet)
{
    openWithAJoke();
    openArea(u"Import / Export"_qs);
    press(QAccessible::Button, u"Export Jokes"_qs);
    EXPECT_FALSE(isEnabled(u"Save To Files"_qs));
    EXPECT_FALSE(isEnabled(u"Copy"_qs));
    press(QAccessible::Button, u"Export"_qs);
    answer(u"Data Export"_qs);
    EXPECT_FALSE(isEnabled(u"Export"_qs));
    waitFor(QAccessible::ListItem, u"Puns^Mild^1^F^Pop"_qs);
    waitFor(QAccessible::List, u"File contents"_qs);
    EXPECT_NE(find(QAccessible::ProgressBar, u"Progress"_qs), nullptr);
    press(QAccessible::Button, u"Copy"_qs);
    const QString text = u"[GIGGLEARCHIVES]\nPuns^Mild^1^F^Pop\n\n[CATEGORY]\n\n[RATING]\n"_qs;
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);

    EXPECT_TRUE(
        waitUntil([&] { return bool(find(QAccessible::Button, u"Save To Files"_qs)->state().focused); }));
    key(Qt::Key_Return);
    waitFor(QAccessible::Dialog, u"Share"_qs);
    waitFor(QAccessible::Button, u"Open With"_qs);
    EXPECT_EQ(find(QAccessible::Button, u"Mail"_qs), nullptr);
    EXPECT_TRUE(
        waitUntil([&] { return bool(find(QAccessible::Button, u"Save to Files"_qs)->state().focused); }));
    key(Qt::Key_Return);
    EXPECT_EQ(system().documentPicker.suggestedNames, QStringList{u"GiggleArchives.csv"_qs});
    system().documentPicker.answer(QUrl::fromLocalFile(file));
    EXPECT_EQ(readBytes(file), text.toUtf8());
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Share"_qs); }));

    press(QAccessible::Button, u"Save To Files"_qs);
    waitFor(QAccessible::Button, u"Cancel"_qs);
    key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Share"_qs); }));
    waitForHeading(u"Export Jokes"_qs);
}

TEST_F(ExchangePages, AnImportLeadsBackToTheMenu)
{
    writeBytes(file, "[GIGGLEARCHIVES]\nDad^Mild^2^T^Two\n");
    openWithAJoke();
    openArea(u"Import / Export"_qs);
    press(QAccessible::Button, u"Import Jokes"_qs);
    EXPECT_FALSE(isEnabled(u"Import"_qs));
    press(QAccessible::Button, u"Load File"_qs);
    system().documentPicker.answer(QUrl::fromLocalFile(file));
    answer(u"Data Import"_qs);
    waitFor(QAccessible::ListItem, u"Dad^Mild^2^T^Two"_qs);
    EXPECT_FALSE(isEnabled(u"Load File"_qs));
    press(QAccessible::Button, u"Import"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    EXPECT_EQ(userInterface().navigation().depth(), 1);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 2U);
}

TEST_F(ExchangePages, AFileIsLoadedByTheWindowsOwnDialog)
{
    QDir(files.path()).mkdir(u"sub"_qs);
    writeBytes(file, "[GIGGLEARCHIVES]\nDad^Mild^2^T^Two\n");
    system().platform.documentPicker = nullptr;
    openWithAJoke();
    openArea(u"Import / Export"_qs);
    press(QAccessible::Button, u"Import Jokes"_qs);
    waitForHeading(u"Import Jokes"_qs);
    EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::Button, u"Load File"_qs)->state().focused); }));
    key(Qt::Key_Return);
    waitFor(QAccessible::Dialog, u"Load File"_qs);
    waitForHeading(u"Load File"_qs);
    EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::List, u"Files"_qs)->state().focused); }));
    key(Qt::Key_Escape);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Load File"_qs); }));
    EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::Button, u"Load File"_qs)->state().focused); }));

    key(Qt::Key_Return);
    typeName(files.filePath(u"missing.csv"_qs));
    press(QAccessible::Button, u"Open"_qs);
    EXPECT_TRUE(waitUntil([&] { return !names(QAccessible::AlertMessage).isEmpty(); }));
    typeName(files.path());
    key(Qt::Key_Return);
    waitFor(QAccessible::ListItem, u"sub"_qs);
    EXPECT_EQ(names(QAccessible::AlertMessage), QStringList());
    EXPECT_EQ(names(QAccessible::ListItem), (QStringList{u"sub"_qs, u"other.csv"_qs}));
    focus(QAccessible::List, u"Files"_qs);
    key(Qt::Key_Return);
    waitFor(QAccessible::StaticText, u"This folder is empty."_qs);
    press(QAccessible::Button, u"Parent Folder"_qs);
    press(QAccessible::ListItem, u"other.csv"_qs);
    EXPECT_EQ(find(QAccessible::EditableText, u"File Name"_qs)->text(QAccessible::Value), u"other.csv"_qs);
    press(QAccessible::Button, u"Open"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::ListItem, u"Dad^Mild^2^T^Two"_qs);
}

TEST_F(ExchangePages, AFileIsSavedByTheWindowsOwnDialog)
{
    writeBytes(files.filePath(u"Jokes.txt"_qs), "mine");
    system().platform.documentPicker = nullptr;
    openWithAJoke();
    openArea(u"Joke List"_qs);
    press(QAccessible::Button, u"Share"_qs);
    press(QAccessible::Button, u"Save to Files"_qs);
    waitFor(QAccessible::Dialog, u"Save to Files"_qs);
    EXPECT_TRUE(
        waitUntil([&] { return bool(find(QAccessible::EditableText, u"File Name"_qs)->state().focused); }));
    typeName(files.path());
    key(Qt::Key_Return);
    // Of the free name that is suggested there the stem is selected.
    waitForName(u"Jokes 2.txt"_qs);
    type(u"Jokes"_qs);
    waitForName(u"Jokes.txt"_qs);
    key(Qt::Key_Return);
    waitFor(QAccessible::Dialog, u"Replace File?"_qs);
    press(QAccessible::Button, u"Keep"_qs);
    waitFor(QAccessible::Dialog, u"Save to Files"_qs);
    waitForName(u"Jokes.txt"_qs);
    typeName(u"new.txt"_qs);
    press(QAccessible::Button, u"Save"_qs);
    EXPECT_TRUE(waitUntil([&] { return !find(QAccessible::Dialog, u"Save to Files"_qs); }));
    EXPECT_TRUE(readBytes(files.filePath(u"new.txt"_qs)).startsWith("Pop\n"));
    EXPECT_EQ(readBytes(files.filePath(u"Jokes.txt"_qs)), "mine");
    key(Qt::Key_Escape); // the page has the keyboard again
    waitFor(QAccessible::Button, u"Menu"_qs);
}

TEST_F(ExchangePages, AFileFromOutsideWaitsForAlertsAndKeepsWhatIsTyped)
{
    writeBytes(file, "[GIGGLEARCHIVES]\nDad^Mild^2^T^Two\n");
    openWithAJoke();
    openArea(u"Add Joke"_qs);
    focus(QAccessible::EditableText, u"Joke"_qs);
    type(u"half"_qs);
    key(Qt::Key_Escape);
    waitFor(QAccessible::Dialog, u"Discard Changes?"_qs);
    emit system().windowActivation.documentOpened(QUrl::fromLocalFile(file));
    press(QAccessible::Button, u"Keep Editing"_qs);
    answer(u"Data Import"_qs);
    waitForHeading(u"Import Jokes"_qs);
    press(QAccessible::Button, u"Import"_qs);
    answer(u"Data Import"_qs);
    waitForHeading(u"Add Joke"_qs);
    EXPECT_EQ(waitFor(QAccessible::EditableText, u"Joke"_qs)->text(QAccessible::Value), u"half"_qs);
    EXPECT_EQ(context().fetch(Jokes::fetchRequest()).size(), 2U);
}

TEST_F(ExchangePages, AFileThatIsDroppedIsLoaded)
{
    writeBytes(file, "[GIGGLEARCHIVES]\nDad^Mild^2^T^Two\n");
    openWithAJoke();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter({100, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({100, 300}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &drop);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::ListItem, u"Dad^Mild^2^T^Two"_qs);
}

TEST_F(ExchangePages, TheJokeListIsShared)
{
    openWithAJoke();
    openArea(u"Joke List"_qs);
    press(QAccessible::Button, u"Share"_qs);
    waitFor(QAccessible::Dialog, u"Share"_qs);
    press(QAccessible::Button, u"Mail"_qs);
    EXPECT_TRUE(system().mailComposer.presented.at(0).body.startsWith(u"Pop\n---"_qs));
}

} // namespace

} // namespace giggle
