// SPDX-License-Identifier: MIT
#include "tests/support/FakePrinters.h"
#include "tests/support/ScreenFixture.h"
#include "ui/WindowPrintPanel.h"

#include <QDir>
#include <QTest>

#include <chrono>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

bool until(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

class PrintPanelTest : public ScreenFixture {
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

    /// Waits for an outcome, which is no longer there afterwards.
    void waitForOutcome(bool isCompleted, const QString& savedAs = {})
    {
        ASSERT_TRUE(until([&] { return !outcomes.empty(); }));
        EXPECT_EQ(outcomes.size(), 1U);
        EXPECT_EQ(outcomes[0].isCompleted, isCompleted);
        EXPECT_EQ(std::exchange(outcomes, {})[0].savedAs, savedAs);
    }

    FakePrinters printers;
    std::vector<PrintOutcome> outcomes;
    std::optional<WindowPrintPanel> ownPanel{std::in_place, system.platform};
    WindowPrintPanel& panel = *ownPanel;
};

TEST_F(PrintPanelTest, WhatIsChosenReachesThePrinter)
{
    const struct {
        int printer;
        int paper;
        int copies;
        QString sent;
        QString size;
    } cases[] = {
        {-1, -1, 1, u"1 My Jokes: cellar, roll"_qs, u"300 x 900"_qs}, // what the default printer holds
        {0, -1, 0, u"1 My Jokes: attic, iso_a4_210x297mm"_qs, u"595 x 842"_qs}, // which has no roll
        {0, 2, 5000, u"999 My Jokes: attic, iso_a3_297x420mm"_qs, u"842 x 1191"_qs},
    };

    for (const auto& one : cases) {
        present(5);
        panel.choosePrinter(one.printer);
        panel.choosePaper(one.paper);
        panel.setCopies(one.copies);
        panel.print();
        waitForOutcome(true);
        const auto [job, information] = printers.printed().back();
        EXPECT_EQ(u"%1 %2: %3, %4"_qs.arg(job.copies).arg(job.title, job.printer, job.media), one.sent);
        EXPECT_TRUE(information.contains(one.size)) << information.toStdString();
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
    waitForOutcome(false);
    late(QUrl::fromLocalFile(folder.filePath(u"first.pdf"_qs)));
    EXPECT_FALSE(panel.isWorking());
    panel.saveAsPdf();
    panel.print();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"second.pdf"_qs)));
    waitForOutcome(true);
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
    const QString missing = folder.filePath(u"missing/a.pdf"_qs);
    system.documentPicker.answer(QUrl::fromLocalFile(missing));
    ASSERT_TRUE(until([&] { return panel.failure().contains(missing); }));
    EXPECT_TRUE(panel.isShown());
    EXPECT_TRUE(outcomes.empty());

    panel.saveAsPdf();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"a.pdf"_qs)));
    waitForOutcome(true, u"a.pdf"_qs);
    EXPECT_TRUE(pagesOf(folder.filePath(u"a.pdf"_qs)).join(u' ').contains(u"Joke 5."_qs));
}

TEST_F(PrintPanelTest, CancelStopsTheWorkFirstAndThenThePanel)
{
    present(30'000);
    panel.saveAsPdf();
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"a.pdf"_qs)));
    ASSERT_TRUE(until([&] { return panel.progress() > 0; }));
    panel.cancel();
    ASSERT_TRUE(until([&] { return !panel.isWorking(); }));
    EXPECT_TRUE(panel.isShown());
    EXPECT_EQ(panel.failure(), QString());
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    panel.cancel();
    waitForOutcome(false);
}

TEST_F(PrintPanelTest, APrinterThatNeverAnswersHoldsNothingUp)
{
    present(5);
    printers.setSilent(true);
    panel.print();
    ASSERT_TRUE(until([&] { return printers.begun() == 1; }));
    panel.cancel();
    EXPECT_FALSE(panel.isShown());
    waitForOutcome(false);

    // The printers are asked anew, which takes as long, but the last ones are still known.
    present(5);
    panel.print();
    ASSERT_TRUE(until([&] { return printers.begun() == 2; }));
    printers.setSilent(false);
    ASSERT_TRUE(until([&] { return printers.printed().size() == 2; }));
    waitForOutcome(true);
    QTest::qWait(50);
    EXPECT_TRUE(outcomes.empty()) << "the first job's late answer was taken";
    EXPECT_TRUE(QDir(system.temporaryFolder.path()).isEmpty()) << "a file was left";

    printers.setSilent(true);
    present(5);
    const auto before = std::chrono::steady_clock::now();
    ownPanel.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5));
    printers.setSilent(false); // the answer finds no panel
    QTest::qWait(50);
}

} // namespace

} // namespace giggle
