// SPDX-License-Identifier: MIT
#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "exchange/PrintViewController.h"
#include "tests/support/ScreenFixture.h"

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;

class ExportViewControllerTest : public ScreenFixture {
protected:
    [[nodiscard]] std::string shown() { return *screen.exportTextView()->text(); }

    const QString path = system.temporaryFolder.filePath(u"GiggleArchives.csv"_qs);
    ExportViewController screen{environment};
};

TEST_F(ExportViewControllerTest, TheFileIsShownSavedAndMailedByteForByte)
{
    // What a text widget would turn into something else.
    addJoke({.id = 1, .favorite = true, .joke = "no-break\u00a0space, \u2028, \r and ^"});
    const std::string text =
        "[GIGGLEARCHIVES]\n^^1^T^no-break\u00a0space, \u2028, \r and ~#~\n\n[CATEGORY]\n\n[RATING]\n";
    EXPECT_DEATH(screen.SaveToFiles(), "no exported text");
    screen.exportTextView()->copy();
    EXPECT_EQ(navigator.confirmed, QString()) << "there is nothing to copy yet";
    screen.CreateUpdateFile();
    EXPECT_EQ(shown(), text);
    screen.exportTextView()->copy();
    EXPECT_EQ(navigator.confirmed, u"Copied."_qs);

    screen.SaveToFiles();
    EXPECT_EQ(std::get<SharedFile>(system.shareSheet.presented.at(0).items.at(0)).path, path);
    EXPECT_EQ(readBytes(path).toStdString(), text);

    screen.WriteTextFile();
    Mail expected;
    expected.subject = u"Giggle Archives Update Text File"_qs;
    expected.body = u"Attachment: Giggle Archives Text File"_qs;
    expected.attachments = {{QByteArray::fromStdString(text), u"csv"_qs, u"GiggleArchives.csv"_qs}};
    EXPECT_THAT(system.mailComposer.presented, ElementsAre(expected));
    EXPECT_EQ(shown(), text);

    // A place that cannot be written to is logged, and the way goes on.
    ASSERT_TRUE(QFile::remove(path) && QDir().mkdir(path));
    testing::internal::CaptureStderr();
    screen.SaveToFiles();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("GiggleArchives.csv\" cannot be written"));
    EXPECT_EQ(system.shareSheet.presented.size(), 2U);
    screen.WriteTextFile();
    EXPECT_TRUE(system.mailComposer.presented.at(1).attachments.empty());
    EXPECT_EQ(shown(), text);
}

using ImportViewControllerTest = ScreenFixture;

const std::string Marker = "[GIGGLEARCHIVES]\n";

TEST_F(ImportViewControllerTest, OddFilesGiveWhatCanBeHad)
{
    const QString file = folder.filePath(u"My Jokes.csv"_s);
    for (const auto& [bytes, outcome, rows] :
         {std::tuple("Dad^Mild^1^T^a\n"s, u"My Jokes.csv Is The Incorrect Import File"_s,
                     std::vector<std::string>()),
          std::tuple("\xEF\xBB\xBF" + Marker + "^^1^F^a\n", u"Data Import Completed"_s,
                     std::vector{"1|NULL|0|1|a|NULL"s})}) {
        writeBytes(file, QByteArray::fromStdString(bytes));
        ImportViewController screen(environment);
        selection.DocumentToImport = QUrl::fromLocalFile(file);
        screen.viewDidLoad();
        screen.ImportTextFile();
        EXPECT_EQ(navigator.alerts.back().message, outcome);
        EXPECT_EQ(liveRows(context()), rows);
    }
}

TEST_F(ImportViewControllerTest, FilesThatCannotBeReadSayWhyAndStopTheImportAndNothingElse)
{
    addJoke({.id = 1, .joke = "mine"});
    const auto stored = storedRows(folder.file());
    const QString latin1 = QStringLiteral(GIGGLE_SOURCE_DIR "/tests/exchange/fixtures/latin1.csv");
    const QString picture = folder.filePath(QStringLiteral("picture.png"));
    writeBytes(picture, QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16));
    const QString huge = folder.filePath(QStringLiteral("huge.csv"));
    QFile sparse(huge);
    ASSERT_TRUE(sparse.open(QIODevice::ReadWrite) && sparse.resize(2'000'000'000));
    const QString link = folder.filePath(QStringLiteral("link.csv"));
    ASSERT_TRUE(QFile::link(folder.file(), link));
    for (const auto& [path, reason] :
         {std::pair(link, "link.csv\" is the collection itself"), // closing it would let go of its locks
          std::pair(latin1, "latin1.csv\" cannot be read: it is not a text in UTF-8"),
          std::pair(picture, "picture.png\" cannot be read: it is not a text"),
          std::pair(huge, "huge.csv\" cannot be read: it is larger than"),
          std::pair(folder.path(), "cannot be read: it is a folder"),
          std::pair(folder.filePath(QStringLiteral("gone.csv")),
                    "gone.csv\" cannot be read: No such file")}) {
        SCOPED_TRACE(reason);
        ImportViewController screen(environment);
        testing::internal::CaptureStderr();
        selection.DocumentToImport = QUrl::fromLocalFile(path);
        screen.viewDidLoad();
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(reason));
        EXPECT_THAT(*screen.importTextView()->text(), HasSubstr(reason));
        EXPECT_TRUE(screen.isImportButtonEnabled());
        EXPECT_FALSE(screen.isLoadFileButtonEnabled());
        EXPECT_DEATH(screen.ImportTextFile(), reason + ".*Giggle_Archives/ImportViewController"s);
        EXPECT_EQ(storedRows(folder.file()), stored);
    }
}

TEST_F(ImportViewControllerTest, OneFileAVisit)
{
    const QString file = folder.filePath(u"jokes.csv"_s);
    writeBytes(file, QByteArray::fromStdString(Marker));
    ImportViewController screen(environment);
    EXPECT_DEATH(screen.ImportTextFile(), "No file has been loaded");
    selection.DocumentToImport = QUrl::fromLocalFile(file);
    screen.viewWillAppear(); // over a screen that has hidden the bar
    EXPECT_EQ(navigator.navigationBarHidden, false);
    EXPECT_TRUE(screen.answersSegue(SegueId::ImportJokes));
    EXPECT_EQ(*screen.importTextView()->text(), Marker);
    EXPECT_FALSE(screen.answersSegue(SegueId::ImportJokes));
}

const std::string Header = "From: Giggle Archives App for iPhone and iPad\n\n";

std::string documentOf(const std::vector<std::string>& jokes)
{
    std::string text = Header;
    for (const std::string& joke : jokes)
        text += joke + "\n" + std::string(34, '-') + "\n\n\n";
    return text;
}

class PrintViewControllerTest : public ScreenFixture {
protected:
    [[nodiscard]] std::string document() { return *screen.printTextView()->text(); }

    [[nodiscard]] QString file() const { return system.platform.documentsFolder + u"/GiggleArchives.txt"_s; }

    PrintViewController screen{environment};
};

TEST_F(PrintViewControllerTest, TheDocumentFollowsTheList)
{
    using enum SegmentedJokeListController::Mode;
    const std::string three = "3 don't \u00e9\u00a0\n^";
    addJoke({.category = "b", .rating = "x", .favorite = true, .joke = "1"});
    addJoke({.category = "a", .rating = "y", .joke = three});
    addJoke({.category = "b", .joke = "2"});
    addJoke({.rating = "y", .favorite = true, .joke = "4"});

    screen.viewDidLoad();
    const auto documentBy = [this](int segment, bool isAscending) {
        screen.setSelectedSegment(segment);
        screen.setSortAsc(isAscending);
        return document();
    };
    EXPECT_EQ(documentBy(CategoryMode, true), documentOf({"4", three, "1", "2"}));
    EXPECT_EQ(documentBy(CategoryMode, false), documentOf({"1", "2", three, "4"})) << "the second key stays";
    EXPECT_EQ(documentBy(RatingMode, true), documentOf({"2", "1", three, "4"}));
    EXPECT_EQ(documentBy(JokeMode, false), documentOf({"4", three, "2", "1"}));
    EXPECT_EQ(documentBy(FavoritesMode, true), documentOf({"1", "4"}));
    screen.setSearchText(u"nothing"_s);
    EXPECT_EQ(document(), documentOf({"1", "4"})) << "favourites are not filtered";
    EXPECT_EQ(screen.numberOfRows(), 2);
}

TEST_F(PrintViewControllerTest, EveryFetchWithoutJokesIsSaid)
{
    screen.viewDidLoad();
    EXPECT_EQ(document(), Header);
    addJoke({.joke = "no favourite"});
    for (const int segment : {2, 3})
        screen.setSelectedSegment(segment);
    mainQueue.advance(0ms);
    ASSERT_EQ(navigator.alerts.size(), 2U) << "at first, and without favourites";
    EXPECT_EQ(navigator.alerts[0].message, u"There are no Jokes entered to print."_s);
}

TEST_F(PrintViewControllerTest, AJokeWithoutATextEndsTheProgramWhereItIsListed)
{
    addJoke({.favorite = true, .joke = "x"});
    addJoke({.favorite = false});
    EXPECT_DEATH(screen.viewDidLoad(), "Fatal error: A joke without a text cannot be printed.");
}

TEST_F(PrintViewControllerTest, PrintingSaysTheDocumentAndTheOutcomeOnTheConsole)
{
    addJoke({.joke = "Hello"});
    screen.viewDidLoad();
    const auto saidBy = [](const auto& deed) {
        testing::internal::CaptureStdout();
        deed();
        return testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(saidBy([&] { screen.PrintNotes(); }), documentOf({"Hello"}) + '\n');
    const FakePrintPanel::Request request = system.printPanel.presented.at(0);
    EXPECT_EQ(request.text.toStdString(), documentOf({"Hello"}));
    EXPECT_EQ(saidBy([&] { request.finished({true, {}}); }), "Image is Printed\n");
    EXPECT_EQ(saidBy([&] { request.finished({false, {}}); }), "\n");
    EXPECT_EQ(saidBy([&] { request.finished({false, u"no paper"_s}); }), "");
}

TEST_F(PrintViewControllerTest, TheDocumentIsMailedAsAFile)
{
    const std::string text = "no-break\u00a0space, \u2028, \r";
    addJoke({.joke = text});
    screen.viewDidLoad();
    screen.EmailFile();
    const QByteArray document = QByteArray::fromStdString(documentOf({text}));
    Mail expected;
    expected.subject = u"Giggle Archives"_s;
    expected.attachments = {{document, u"text/txt"_s, file()}};
    EXPECT_THAT(system.mailComposer.presented, ElementsAre(expected));
    EXPECT_EQ(readBytes(file()), document);

    // Not the file of last time.
    QFile::remove(file());
    ASSERT_TRUE(QDir().mkdir(file()));
    testing::internal::CaptureStderr();
    screen.EmailFile();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("cannot be written"));
    EXPECT_TRUE(system.mailComposer.presented.back().attachments.empty());

    system.mailComposer.canSend = false;
    screen.EmailFile();
    EXPECT_EQ(system.mailComposer.presented.size(), 2U);
    EXPECT_EQ(navigator.alerts.at(0).message, u"Email not Setup or Unavailable"_s);
}

} // namespace

} // namespace giggle
