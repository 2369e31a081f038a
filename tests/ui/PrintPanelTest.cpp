// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/FakePrinters.h"
#include "ui/WindowPrintPanel.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

bool until(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

class PrintPanelTest : public testing::Test {
protected:
    PrintPanelTest()
    {
        system.platform.printers = &printers;
        printers.set(
            {{u"attic"_qs, u"In the Attic"_qs, false, {}, {}},
             {u"cellar"_qs,
              u"In the Cellar"_qs,
              true,
              {{u"jis"_qs, u"iso_a5_148x210mm"_qs, {420, 595}}, {u"Roll"_qs, u"roll"_qs, {300, 900}}},
              u"roll"_qs}});
    }

    void present(int jokes)
    {
        panel.present(manyJokes(jokes), u"My Jokes"_qs,
                      [this](const PrintOutcome& left) { outcomes.push_back(left); });
        EXPECT_TRUE(until([&] { return panel.canPrint() && panel.pageText().contains(u" of "_qs); }));
    }

    FakePlatform system;
    FakePrinters printers;
    std::vector<PrintOutcome> outcomes;
    std::optional<WindowPrintPanel> ownPanel{std::in_place, system.platform};
    WindowPrintPanel& panel = *ownPanel;
    CollectionFolder folder;
};

TEST_F(PrintPanelTest, WhatIsChosenReachesThePrinter)
{
    const struct {
        int printer;
        int paper;
        int copies;
        QString name;
        QString media;
        int sentCopies;
        QString size;
    } cases[] = {
        {-1, -1, 1, u"cellar"_qs, u"roll"_qs, 1, u"300 x 900"_qs},           // what the default printer holds
        {0, -1, 0, u"attic"_qs, u"iso_a4_210x297mm"_qs, 1, u"595 x 842"_qs}, // which has no roll
        {0, 2, 5000, u"attic"_qs, u"iso_a3_297x420mm"_qs, 999, u"842 x 1191"_qs},
    };

    for (const auto& one : cases) {
        present(5);
        panel.choosePrinter(one.printer);
        panel.choosePaper(one.paper);
        panel.setCopies(one.copies);
        panel.print();
        const std::size_t count = outcomes.size() + 1;
        ASSERT_TRUE(until([&] { return outcomes.size() == count; }));
        EXPECT_TRUE(outcomes.back().isCompleted);
        const FakePrinters::Printed printed = printers.printed().back();
        EXPECT_EQ(printed.job.printer, one.name);
        EXPECT_EQ(printed.job.media, one.media);
        EXPECT_EQ(printed.job.copies, one.sentCopies);
        EXPECT_EQ(printed.job.title, u"My Jokes"_qs);
        EXPECT_TRUE(printed.information.contains(one.size)) << printed.information.toStdString();
        EXPECT_FALSE(panel.isShown());
    }
    EXPECT_TRUE(QDir(system.temporaryFolder.path()).isEmpty()) << "a file was left";
}

TEST_F(PrintPanelTest, APlaceThatIsNamedTooLateIsForNoOtherText)
{
    // In a dialog of the desktop, which leaves the window usable and may be lost.
    panel.makePdf(manyJokes(1), u"First"_qs, [this](const PrintOutcome& left) { outcomes.push_back(left); });
    const DocumentPicker::Answer late = system.documentPicker.answer;
    present(2);
    EXPECT_EQ(outcomes.size(), 1U) << "who waits for the first text is not told";
    late(QUrl::fromLocalFile(folder.filePath(u"first.pdf"_qs)));
    EXPECT_FALSE(panel.isWorking());
    panel.saveAsPdf();
    panel.print();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"second.pdf"_qs)));
    ASSERT_TRUE(until([&] { return outcomes.size() == 2; }));
    EXPECT_EQ(printers.printed().size(), 1U);
    EXPECT_TRUE(QDir(folder.path()).entryList({u"*.pdf"_qs}).isEmpty());
}

TEST_F(PrintPanelTest, AFailureIsSaidAndAnotherWayCanBeChosen)
{
    present(5);
    printers.set({}, u"The printer is not there any more."_qs);
    panel.print();
    ASSERT_TRUE(until([&] { return !panel.failure().isEmpty(); }));
    EXPECT_EQ(panel.failure(), u"\"In the Cellar\" cannot print: The printer is not there any more."_qs);
    EXPECT_TRUE(until([&] { return !panel.canPrint(); })) << "the printer is still offered";

    panel.saveAsPdf();
    EXPECT_EQ(system.documentPicker.suggestedNames, QStringList{u"My Jokes.pdf"_qs});
    const QString missing = folder.filePath(u"missing/a.pdf"_qs);
    system.documentPicker.answer(QUrl::fromLocalFile(missing));
    ASSERT_TRUE(until([&] { return panel.failure().contains(missing); }));
    EXPECT_TRUE(panel.isShown());
    EXPECT_TRUE(outcomes.empty());

    panel.saveAsPdf();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"a.pdf"_qs)));
    ASSERT_TRUE(until([&] { return !outcomes.empty(); }));
    EXPECT_TRUE(outcomes[0].isCompleted);
    EXPECT_EQ(outcomes[0].failure, QString());
    EXPECT_TRUE(pagesOf(folder.filePath(u"a.pdf"_qs)).join(u' ').contains(u"Joke 5."_qs));
}

TEST_F(PrintPanelTest, CancelStopsTheWorkFirstAndThenThePanel)
{
    present(30'000);
    panel.setPage(4000);
    EXPECT_EQ(panel.page(), 4000);
    panel.saveAsPdf();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"a.pdf"_qs)));
    ASSERT_TRUE(until([&] { return panel.progress() > 0; }));
    EXPECT_LT(panel.progress(), 1);
    panel.cancel();
    ASSERT_TRUE(until([&] { return !panel.isWorking(); }));
    EXPECT_TRUE(panel.isShown());
    EXPECT_EQ(panel.failure(), QString());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    panel.cancel();
    ASSERT_TRUE(until([&] { return !outcomes.empty(); }));
    EXPECT_FALSE(outcomes[0].isCompleted);
}

TEST_F(PrintPanelTest, APrinterThatNeverAnswersHoldsNothingUp)
{
    present(5);
    printers.setSilent(true);
    panel.print();
    ASSERT_TRUE(until([&] { return printers.begun() == 1; }));
    EXPECT_EQ(panel.workText(), u"Sending the pages to the printer\u2026"_qs);
    panel.cancel();
    EXPECT_FALSE(panel.isShown());
    ASSERT_TRUE(until([&] { return outcomes.size() == 1; }));
    EXPECT_FALSE(outcomes[0].isCompleted);

    // The printers are asked anew, which takes as long, but the last ones are still known.
    present(5);
    panel.print();
    ASSERT_TRUE(until([&] { return printers.begun() == 2; }));
    printers.setSilent(false);
    ASSERT_TRUE(until([&] { return outcomes.size() == 2 && printers.printed().size() == 2; }));
    EXPECT_TRUE(outcomes[1].isCompleted);
    QTest::qWait(50);
    EXPECT_EQ(outcomes.size(), 2U) << "the first job's late answer was taken";
    EXPECT_TRUE(QDir(system.temporaryFolder.path()).isEmpty()) << "a file was left";

    printers.setSilent(true);
    present(5);
    QElapsedTimer time;
    time.start();
    ownPanel.reset();
    EXPECT_LT(time.elapsed(), 2000);
    printers.setSilent(false); // the answer finds no panel
    QTest::qWait(50);
}

} // namespace

} // namespace giggle
