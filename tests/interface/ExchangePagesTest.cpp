// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QClipboard>
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

TEST_F(ExchangePages, TheWindowsOwnFileDialogOpensAndGivesTheKeyboardBack)
{
    system().platform.documentPicker = nullptr;
    openWithAJoke();
    openArea(u"Import / Export"_qs);
    press(QAccessible::Button, u"Import Jokes"_qs);
    waitForHeading(u"Import Jokes"_qs);
    EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::Button, u"Load File"_qs)->state().focused); }));
    key(Qt::Key_Return);
    EXPECT_FALSE(isEnabled(u"Load File"_qs));
    EXPECT_TRUE(waitUntil([&] {
        key(Qt::Key_Escape); // nothing takes it before the dialog is there
        return isEnabled(u"Load File"_qs);
    }));
    EXPECT_TRUE(waitUntil([&] { return bool(find(QAccessible::Button, u"Load File"_qs)->state().focused); }));
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
