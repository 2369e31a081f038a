// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"
#include "tests/support/FakePrinters.h"

#include <QQuickItem>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class PrintPages : public InterfaceFixture {
protected:
    void present(int jokes)
    {
        system().platform.printPanel = nullptr;
        system().platform.printers = &m_printers;
        openWith({});
        userInterface().platform().printPanel->present(
            manyJokes(jokes), u"Jokes"_qs, [this](const PrintOutcome& outcome) { m_outcome = outcome; });
        waitFor(QAccessible::Dialog, u"Print"_qs);
    }

    [[nodiscard]] QString focusedName()
    {
        QAccessibleInterface* item = QAccessible::queryAccessibleInterface(window().activeFocusItem());
        return item ? item->text(QAccessible::Name) : QString();
    }

    FakePrinters m_printers;
    std::optional<PrintOutcome> m_outcome;
};

TEST_F(PrintPages, ThePrintedDocumentFollowsSegmentsAndSearch)
{
    openWith({{.category = "Puns", .id = 1, .joke = "Pop"},
              {.category = "Animal", .rating = "Mild", .id = 2, .favorite = true, .joke = "Moo"}},
             u"Print"_qs);
    waitFor(QAccessible::ListItem, u"Moo, Category: Animal, Rating: Mild"_qs);
    key(Qt::Key_F, Qt::ControlModifier);
    type(u"PUN"_qs);
    waitUntilGone(QAccessible::ListItem, u"Moo"_qs); // a line of the document
    EXPECT_TRUE(find(QAccessible::ListItem, u"Pop"_qs));
    EXPECT_TRUE(find(QAccessible::ListItem, u"Pop, Category: Puns, Rating: N/A"_qs));
    key(Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(system().printPanel.presented.at(0).text.contains(u"\n\nPop\n-"_qs));
    press(QAccessible::RadioButton, u"Favorites"_qs);
    waitUntilGone(QAccessible::ListItem, u"Pop"_qs);
    EXPECT_TRUE(find(QAccessible::ListItem, u"Moo"_qs));
}

TEST_F(PrintPages, KeysReadALongTextLineByLineAndAHighRowToItsEnd)
{
    QString high;
    for (int line = 1; line <= 60; ++line)
        high += u"\nLine %1"_qs.arg(line);
    openWith({{.category = "A", .joke = "Short"}, {.category = "B", .joke = high.toStdString()}},
             u"Print"_qs);
    waitFor(QAccessible::ListItem, u"Short"_qs);

    focus(QAccessible::List, u"Document"_qs);
    for (const auto& [pressed, line] : {std::pair(Qt::Key_End, u""_qs),
                                        {Qt::Key_Up, u""_qs},
                                        {Qt::Key_Up, u"-"_qs.repeated(34)},
                                        {Qt::Key_Up, u"Line 60"_qs},
                                        {Qt::Key_Up, u"Line 59"_qs},
                                        {Qt::Key_Home, u"From: "_qs},
                                        {Qt::Key_Down, u""_qs},
                                        {Qt::Key_Down, u"Short"_qs}}) {
        key(pressed);
        EXPECT_TRUE(focusedName().startsWith(line.isEmpty() ? u"Empty line"_qs : line))
            << focusedName().toStdString();
    }

    focus(QAccessible::List, u"Print"_qs);
    const QAccessibleInterface* list = find(QAccessible::List, u"Print"_qs);
    const QString name = rows().filter(u"Category: B"_qs).value(0);
    for (int i = 0; i < 20; ++i) {
        key(Qt::Key_PageDown);
        EXPECT_EQ(focusedName(), name);
    }
    EXPECT_LE(find(QAccessible::ListItem, name)->rect().bottom(), list->rect().bottom());
    for (int i = 0; i < 20; ++i)
        key(Qt::Key_PageUp);
    EXPECT_EQ(focusedName(), u"Short, Category: A, Rating: N/A"_qs);
}

TEST_F(PrintPages, PrintersThatAreFoundLateAreOfferedAndPrintWhatIsChosen)
{
    m_printers.set({{u"attic"_qs, u"In the Attic"_qs, false, {}, {}},
                    {u"cellar"_qs, u"In the Cellar"_qs, true, {}, {}}});
    m_printers.setSilent(true);
    present(40);
    waitForFocus(QAccessible::Button, u"Save as PDF"_qs);
    m_printers.setSilent(false);
    waitForFocus(QAccessible::Button, u"Print"_qs);
    EXPECT_EQ(find(QAccessible::EditableText, u"Printer"_qs)->text(QAccessible::Value), u"In the Cellar"_qs);
    press(QAccessible::EditableText, u"Printer"_qs);
    press(QAccessible::ListItem, u"In the Attic"_qs);
    press(QAccessible::Button, u"Done"_qs);
    QAccessibleValueInterface* copies = find(QAccessible::SpinBox, u"Copies"_qs)->valueInterface();
    EXPECT_EQ(copies->maximumValue().toInt(), 999);
    copies->setCurrentValue(2000);
    EXPECT_EQ(copies->currentValue().toInt(), 999);
    copies->setCurrentValue(3);

    press(QAccessible::Button, u"Next Page"_qs);
    const auto texts = [&] { return names(QAccessible::StaticText); };
    EXPECT_TRUE(waitUntil([&] { return texts().filter(u"Page 2 of "_qs).size() == 1; }));

    press(QAccessible::Button, u"Print"_qs);
    ASSERT_TRUE(waitUntil([&] { return m_outcome.has_value(); }));
    EXPECT_TRUE(m_outcome->isCompleted);
    const PrintJob job = m_printers.printed().at(0).job;
    EXPECT_EQ(job.printer, u"attic"_qs);
    EXPECT_EQ(job.copies, 3);
    waitUntilGone(QAccessible::Dialog, u"Print"_qs);
    key(Qt::Key_Return); // the page has the keyboard again
    waitFor(QAccessible::Button, u"Joke List"_qs);
}

TEST_F(PrintPages, TheFileDialogCoversThePanelAndGivesItBack)
{
    system().platform.documentPicker = nullptr;
    present(1);
    waitForFocus(QAccessible::Button, u"Save as PDF"_qs);
    key(Qt::Key_Return);
    waitForFocus(QAccessible::EditableText, u"File Name"_qs);
    EXPECT_EQ(names(QAccessible::Button).count(u"Cancel"_qs), 1);
    key(Qt::Key_Escape);
    waitForFocus(QAccessible::Button, u"Save as PDF"_qs);
    EXPECT_FALSE(m_outcome.has_value());
    key(Qt::Key_Escape);
    ASSERT_TRUE(waitUntil([&] { return m_outcome.has_value(); }));
    EXPECT_FALSE(m_outcome->isCompleted);
}

} // namespace

} // namespace giggle
