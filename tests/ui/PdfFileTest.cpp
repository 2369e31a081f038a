// SPDX-License-Identifier: MIT
#include "ui/PdfFile.h"

#include "tests/support/CollectionFolder.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/PrintedText.h"
#include "ui/PaperSizes.h"

#include <QDir>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QSizeF A4 = usualPapers().front().size;

class PdfFileTest : public testing::Test {
protected:
    PdfFileTest() { writeBytes(place, "before"); }

    void expectNothingChanged() const
    {
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList{u"jokes.pdf"_qs});
        EXPECT_EQ(readBytes(place), "before");
    }

    CollectionFolder m_folder;
    const QString place = m_folder.filePath(u"jokes.pdf"_qs); ///< of a file that is to be replaced
};

TEST_F(PdfFileTest, ALongTextLosesNothingAndKeepsJokesWhole)
{
    constexpr int Count = 3000;
    QString numbers;
    for (int i = 0; i < 9000; ++i)
        numbers += QString::number(i) + u' ';
    AttributedText text = manyJokes(Count);
    text.append(u"caf\u00e9 \U0001F600 \u05e9\u05dc\u05d5\u05dd\r\nlast\x01line\n"_qs + numbers);
    const PdfOutcome outcome = makePdfFile(text, A4, u"Jokes"_qs, place);
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_TRUE(outputOf(u"pdfinfo"_qs, {place}).contains(u"(A4)"_qs));
    const QStringList pages = pagesOf(place);
    ASSERT_EQ(pages.size(), outcome.pages);
    EXPECT_GT(pages.size(), Count / 20);
    QStringList words;
    for (qsizetype i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i].count(u"Joke "_qs), pages[i].count(u"----------"_qs)) << "torn on page " << i + 1;
        words += pages[i].simplified().split(u' ');
        EXPECT_EQ(words.takeLast(), QString::number(i + 1));
    }
    const QString whole = words.join(u' ');
    EXPECT_EQ(whole.count(u"Joke "_qs), Count);
    for (qsizetype i = 1, at = 0; i <= Count; ++i)
        ASSERT_GE(at = whole.indexOf(u"Joke %1."_qs.arg(i), at), 0) << i << " is missing or misplaced";
    for (const QString& part : {u"caf\u00e9"_qs, u"last line"_qs, numbers.trimmed()})
        EXPECT_TRUE(whole.contains(part)) << part.left(20).toStdString();
}

TEST_F(PdfFileTest, LeavesWhatWasThereWhenItFails)
{
    const AttributedText text = manyJokes(400);
    const auto mayGoOn = [](PdfProgress progress) { return progress.pages < 2; };
    const PdfOutcome cancelled = makePdfFile(text, A4, u"Jokes"_qs, place, mayGoOn);
    EXPECT_TRUE(cancelled.isCancelled);
    EXPECT_EQ(cancelled.failure, QString());
    expectNothingChanged();

    {
        const FileSizeLimit limit(30'000);
        const PdfOutcome full = makePdfFile(text, A4, u"Jokes"_qs, place);
        EXPECT_TRUE(full.failure.contains(place) && full.failure.contains(u"cannot be written"_qs));
    }
    expectNothingChanged();

    for (const QString& bad : {m_folder.filePath(u"missing/jokes.pdf"_qs), m_folder.path()})
        EXPECT_TRUE(makePdfFile(text, A4, u"Jokes"_qs, bad).failure.contains(bad));
    expectNothingChanged();
}

} // namespace

} // namespace giggle
