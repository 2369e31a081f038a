// SPDX-License-Identifier: MIT
#include "exchange/ImportViewController.h"

#include "tests/support/ScreenFixture.h"

#include <QFile>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;

class ImportViewControllerTest : public ScreenFixture {
protected:
    void pick(ImportViewController& screen, const QString& path)
    {
        screen.LoadFile();
        system.documentPicker.answer(QUrl::fromLocalFile(path));
    }

    /// Picks the file, imports it, and returns the messages of both alerts.
    std::vector<std::string> import(const QString& path)
    {
        ImportViewController screen(environment);
        screen.viewDidLoad();
        pick(screen, path);
        screen.ImportTextFile();
        std::vector<std::string> messages;
        for (const Alert& alert : std::exchange(navigator.alerts, {})) {
            EXPECT_EQ(alert.title.toStdString(), "Data Import");
            messages.push_back(alert.message.toStdString());
        }
        return messages;
    }

    QString file = folder.filePath(QStringLiteral("My Jokes.csv"));
};

const std::string Loaded = "File Loaded and Ready to Import";
const std::string Completed = "Data Import Completed";
const std::string Wrong = "My Jokes.csv Is The Incorrect Import File";
const std::string Marker = "[GIGGLEARCHIVES]\n";

TEST_F(ImportViewControllerTest, OddFilesGiveWhatCanBeHad)
{
    const std::string longText(10'000'000, 'x');
    for (const auto& [bytes, outcome, rows] :
         {std::tuple("Dad^Mild^1^T^a\n"s, Wrong, std::vector<std::string>()),
          std::tuple("\xEF\xBB\xBF" + Marker + "^^1^F^a\n", Completed, std::vector{"1|NULL|0|1|a|NULL"s}),
          std::tuple(Marker + "^^1^F^" + longText, Completed,
                     std::vector{"1|NULL|0|1|" + longText + "|NULL"})}) {
        writeBytes(file, QByteArray::fromStdString(bytes));
        EXPECT_THAT(import(file), ElementsAre(Loaded, outcome));
        EXPECT_TRUE(liveRows(context()) == rows); // without printing megabytes
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
    for (const auto& [path, reason] :
         {std::pair(latin1, "latin1.csv\" cannot be read: it is not a text in UTF-8"),
          std::pair(picture, "picture.png\" cannot be read: it is not a text"),
          std::pair(huge, "huge.csv\" cannot be read: it is larger than"),
          std::pair(folder.path(), "cannot be read: it is a folder"),
          std::pair(folder.filePath(QStringLiteral("gone.csv")),
                    "gone.csv\" cannot be read: No such file")}) {
        SCOPED_TRACE(reason);
        ImportViewController screen(environment);
        testing::internal::CaptureStderr();
        pick(screen, path);
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(reason));
        EXPECT_THAT(*screen.importTextView()->text(), HasSubstr(reason));
        EXPECT_TRUE(screen.isImportButtonEnabled());
        EXPECT_FALSE(screen.isLoadFileButtonEnabled());
        EXPECT_DEATH(screen.ImportTextFile(), reason + ".*Giggle_Archives/ImportViewController"s);
        EXPECT_EQ(storedRows(folder.file()), stored);
    }
}

TEST_F(ImportViewControllerTest, OneFileAVisitAndTheWayBackIsTheMenu)
{
    writeBytes(file, QByteArray::fromStdString(Marker));
    ImportViewController screen(environment);
    screen.viewDidLoad();
    pick(screen, {}); // cancelled
    EXPECT_TRUE(screen.isLoadFileButtonEnabled());
    EXPECT_DEATH(screen.ImportTextFile(), "No file has been loaded");

    selection.DocumentToImport = QUrl::fromLocalFile(file);
    EXPECT_TRUE(screen.answersSegue(SegueId::ImportJokes));
    EXPECT_EQ(*screen.importTextView()->text(), Marker);
    EXPECT_FALSE(screen.isLoadFileButtonEnabled());
    EXPECT_FALSE(screen.answersSegue(SegueId::ImportJokes));
    screen.ImportTextFile();
    ASSERT_EQ(navigator.alerts.size(), 2U);
    navigator.alerts.back().actions.front().handler();
    EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToMenu));
}

} // namespace

} // namespace giggle
