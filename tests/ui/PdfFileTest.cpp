// SPDX-License-Identifier: MIT
#include "ui/PdfFile.h"

#include "tests/support/CollectionFolder.h"
#include "tests/support/PrintedText.h"
#include "ui/PageBreaker.h"
#include "ui/PaperSizes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QSizeF A4 = usualPapers().front().size;

QStringList allMatches(const QString& text, const QString& pattern)
{
    QStringList found;
    for (const QRegularExpressionMatch& match : QRegularExpression(pattern).globalMatch(text))
        found += match.captured(0);
    return found;
}

/// For as long as it lives no file can grow larger.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

class PdfFileTest : public testing::Test {
protected:
    /// A place with a file, to be replaced.
    QString placeWithFile()
    {
        QFile file(m_folder.filePath(u"jokes.pdf"_qs));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("before");
        return file.fileName();
    }

    void expectNothingChanged() const
    {
        EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList{u"jokes.pdf"_qs});
        EXPECT_EQ(readBytes(m_folder.filePath(u"jokes.pdf"_qs)), "before");
    }

    CollectionFolder m_folder;
};

TEST_F(PdfFileTest, HoldsThreeJokesOnOnePage)
{
    AttributedText text = manyJokes(3);
    text.append(u"caf\u00e9 \U0001F600 \u05e9\u05dc\u05d5\u05dd\r\nlast\x01line"_qs);
    const PdfOutcome outcome = makePdfFile(text, A4, u"Jokes"_qs, placeWithFile());
    EXPECT_EQ(outcome.failure, QString());
    EXPECT_EQ(outcome.pages, 1);
    const QStringList pages = pagesOf(m_folder.filePath(u"jokes.pdf"_qs));
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(allMatches(pages[0], u"Joke \\d+\\."_qs),
              (QStringList{u"Joke 1."_qs, u"Joke 2."_qs, u"Joke 3."_qs}));
    for (const QString& part : {u"caf\u00e9"_qs, u"last line"_qs, u"----------"_qs})
        EXPECT_TRUE(pages[0].contains(part)) << part.toStdString() << " in " << pages[0].toStdString();
    EXPECT_TRUE(outputOf(u"pdfinfo"_qs, {m_folder.filePath(u"jokes.pdf"_qs)}).contains(u"(A4)"_qs));
}

TEST_F(PdfFileTest, ALongTextLosesNothingAndKeepsJokesWhole)
{
    constexpr int Count = 3000;
    const AttributedText text = manyJokes(Count);
    const PdfOutcome outcome = makePdfFile(text, A4, u"Jokes"_qs, placeWithFile());
    const QStringList pages = pagesOf(m_folder.filePath(u"jokes.pdf"_qs));
    ASSERT_EQ(pages.size(), outcome.pages);
    EXPECT_GT(pages.size(), Count / 20);
    QStringList numbers;
    for (qsizetype i = 0; i < pages.size(); ++i) {
        const QStringList jokes = allMatches(pages[i], u"Joke \\d+\\."_qs);
        EXPECT_EQ(jokes.size(), allMatches(pages[i], u"-{10}"_qs).size()) << "torn on page " << i + 1;
        EXPECT_TRUE(pages[i].trimmed().endsWith(QString::number(i + 1))) << pages[i].toStdString();
        numbers += jokes;
    }
    ASSERT_EQ(numbers.size(), Count);
    for (int i = 0; i < Count; ++i)
        ASSERT_EQ(numbers[i], u"Joke %1."_qs.arg(i + 1));
}

TEST(PageBreakerTest, APageMadeAgainFromItsStartIsTheSame)
{
    AttributedText text = manyJokes(100);
    text.append(u"many words "_qs.repeated(5000), {Qt::red, {}, {}});
    text.append(QString(20'000, u'x'));
    const PageGeometry geometry(A4);
    PageBreaker breaker(text, geometry);
    int count = 0;
    for (PageStart start; !breaker.isAtEnd(); start = breaker.start(), ++count) {
        const std::optional<TextPage> page = breaker.next();
        const std::optional<TextPage> again = PageBreaker(text, geometry, start).next();
        ASSERT_TRUE(page && again);
        ASSERT_EQ(page->parts.size(), again->parts.size()) << count;
        for (std::size_t i = 0; i < page->parts.size(); ++i) {
            EXPECT_EQ(page->parts[i].piece.begin, again->parts[i].piece.begin);
            EXPECT_EQ(page->parts[i].firstLine, again->parts[i].firstLine);
            EXPECT_EQ(page->parts[i].endLine, again->parts[i].endLine);
            EXPECT_LE(page->parts[i].top, geometry.textHeight());
        }
    }
    EXPECT_GT(count, 20);
}

TEST_F(PdfFileTest, AVeryLongParagraphIsWhole)
{
    AttributedText text;
    QString words;
    for (int i = 0; i < 9000; ++i)
        words += QString::number(i) + u' ';
    text.append(words);
    (void)makePdfFile(text, A4, u"Jokes"_qs, placeWithFile());
    QStringList read;
    for (const QString& page : pagesOf(m_folder.filePath(u"jokes.pdf"_qs)))
        read +=
            page.simplified().split(u' ').mid(0, page.simplified().split(u' ').size() - 1); // less its number
    EXPECT_EQ(read.join(u' '), words.trimmed());
}

TEST_F(PdfFileTest, LeavesWhatWasThereWhenItFails)
{
    const AttributedText text = manyJokes(400);
    const QString path = placeWithFile();
    const auto mayGoOn = [](PdfProgress progress) { return progress.pages < 2; };
    const PdfOutcome cancelled = makePdfFile(text, A4, u"Jokes"_qs, path, mayGoOn);
    EXPECT_TRUE(cancelled.isCancelled);
    EXPECT_EQ(cancelled.failure, QString());
    expectNothingChanged();

    {
        const FileSizeLimit limit(30'000);
        const PdfOutcome full = makePdfFile(text, A4, u"Jokes"_qs, path);
        EXPECT_TRUE(full.failure.contains(path) && full.failure.contains(u"cannot be written"_qs));
    }
    expectNothingChanged();

    for (const QString& bad : {m_folder.filePath(u"missing/jokes.pdf"_qs), m_folder.path()})
        EXPECT_TRUE(makePdfFile(text, A4, u"Jokes"_qs, bad).failure.contains(bad));
    expectNothingChanged();
}

TEST(PaperSizesTest, FollowTheCountry)
{
    EXPECT_EQ(usualMedia(QLocale(u"en_US"_qs)), u"na_letter_8.5x11in"_qs);
    EXPECT_EQ(usualMedia(QLocale(u"de_DE"_qs)), u"iso_a4_210x297mm"_qs);
    EXPECT_EQ(usualMedia(QLocale::c()), u"iso_a4_210x297mm"_qs);
}

} // namespace

} // namespace giggle
