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

/// A collection with one joke, a file with another, and a window that brings its own share sheet.
class ExchangePages : public InterfaceFixture {
protected:
    ExchangePages()
    {
        writeBytes(file, "[GIGGLEARCHIVES]\nDad^Mild^2^T^Two\n");
        system().platform.shareSheet = nullptr;
    }

    void open(const QString& area = {})
    {
        openWith({{.category = "Puns", .rating = "Mild", .id = 1, .joke = "Pop"}}, area);
    }

    void answer(const QString& title)
    {
        waitFor(QAccessible::Dialog, title);
        press(QAccessible::Button, u"OK"_qs);
        waitUntilGone(QAccessible::Dialog, title);
    }

    [[nodiscard]] bool isEnabled(const QString& button)
    {
        return waitFor(QAccessible::Button, button)->text(QAccessible::Description).isEmpty();
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
        EXPECT_TRUE(waitUntil([&] { return fieldText(u"File Name"_qs) == name; })) << name.toStdString();
    }

    QTemporaryDir files;
    QString file = files.filePath(u"other.csv"_qs);
};

TEST_F(ExchangePages, AnExportIsShownCopiedAndOfferedByTheSheet)
{
    open(u"Import / Export"_qs);
    press(QAccessible::Button, u"Export Jokes"_qs);
    EXPECT_FALSE(isEnabled(u"Save To Files"_qs));
    press(QAccessible::Button, u"Export"_qs);
    answer(u"Data Export"_qs);
    waitFor(QAccessible::ListItem, u"Puns^Mild^1^F^Pop"_qs);
    press(QAccessible::Button, u"Copy"_qs);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(u"\nPuns^Mild^1^F^Pop\n"_qs));

    waitForFocus(QAccessible::Button, u"Save To Files"_qs);
    key(Qt::Key_Return);
    waitForFocus(QAccessible::Button, u"Save to Files"_qs);
    key(Qt::Key_Escape);
    waitForFocus(QAccessible::Button, u"Save To Files"_qs);
}

TEST_F(ExchangePages, AFileIsLoadedByTheWindowsOwnDialogAndImported)
{
    system().platform.documentPicker = nullptr;
    open(u"Import / Export"_qs);
    press(QAccessible::Button, u"Import Jokes"_qs);
    waitForFocus(QAccessible::Button, u"Load File"_qs);
    EXPECT_FALSE(isEnabled(u"Import"_qs));
    key(Qt::Key_Return);
    waitForFocus(QAccessible::List, u"Files"_qs);
    typeName(files.filePath(u"missing.csv"_qs));
    press(QAccessible::Button, u"Open"_qs);
    EXPECT_TRUE(waitUntil([&] { return !names(QAccessible::AlertMessage).isEmpty(); }));
    QDir(files.path()).mkdir(u"sub"_qs);
    typeName(files.path());
    key(Qt::Key_Return);
    waitForRows({u"sub"_qs, u"other.csv"_qs});
    EXPECT_EQ(names(QAccessible::AlertMessage), QStringList());
    focus(QAccessible::List, u"Files"_qs);
    key(Qt::Key_Return);
    waitFor(QAccessible::StaticText, u"This folder is empty."_qs);
    press(QAccessible::Button, u"Parent Folder"_qs);
    press(QAccessible::ListItem, u"other.csv"_qs);
    waitForName(u"other.csv"_qs);
    press(QAccessible::ListItem, u"other.csv"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::ListItem, u"Dad^Mild^2^T^Two"_qs);
    EXPECT_FALSE(isEnabled(u"Load File"_qs));
    press(QAccessible::Button, u"Import"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::Button, u"Menu"_qs);
    EXPECT_EQ(context().count(Jokes::fetchRequest()), 2U);
}

TEST_F(ExchangePages, AFileIsSavedByTheWindowsOwnDialog)
{
    writeBytes(files.filePath(u"Jokes.txt"_qs), "mine");
    system().platform.documentPicker = nullptr;
    open(u"Joke List"_qs);
    press(QAccessible::Button, u"Share"_qs);
    press(QAccessible::Button, u"Save to Files"_qs);
    waitForFocus(QAccessible::EditableText, u"File Name"_qs);
    typeName(files.path());
    key(Qt::Key_Return);
    // Of the free name that is suggested there the stem is selected.
    waitForName(u"Jokes 2.txt"_qs);
    type(u"Jokes"_qs);
    waitForName(u"Jokes.txt"_qs);
    key(Qt::Key_Return);
    press(QAccessible::Button, u"Keep"_qs);
    waitFor(QAccessible::Dialog, u"Save to Files"_qs);
    waitForName(u"Jokes.txt"_qs);
    EXPECT_EQ(readBytes(files.filePath(u"Jokes.txt"_qs)), "mine");
    press(QAccessible::Button, u"Save"_qs);
    press(QAccessible::Button, u"Replace"_qs);
    waitUntilGone(QAccessible::Dialog, u"Save to Files"_qs);
    EXPECT_TRUE(readBytes(files.filePath(u"Jokes.txt"_qs)).startsWith("Pop\n"));
    key(Qt::Key_Escape); // the page has the keyboard again
    waitFor(QAccessible::Button, u"Menu"_qs);
}

TEST_F(ExchangePages, AFileFromOutsideWaitsForAlertsAndKeepsWhatIsTypedAndSoDoesOneThatIsDropped)
{
    open(u"Add Joke"_qs);
    focus(QAccessible::EditableText, u"Joke"_qs);
    type(u"half"_qs);
    key(Qt::Key_Escape);
    waitFor(QAccessible::Dialog, u"Discard Changes?"_qs);
    emit system().windowActivation.documentOpened(QUrl::fromLocalFile(file));
    press(QAccessible::Button, u"Keep Editing"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::Heading, u"Import Jokes"_qs);
    press(QAccessible::Button, u"Import"_qs);
    answer(u"Data Import"_qs);
    waitFor(QAccessible::Heading, u"Add Joke"_qs);
    EXPECT_EQ(fieldText(u"Joke"_qs), u"half"_qs);

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

} // namespace

} // namespace giggle
