// SPDX-License-Identifier: MIT
#include "exchange/ImportViewController.h"

#include "exchange/format/ExchangeFile.h"
#include "tests/support/FaultyVfs.h"
#include "tests/support/ScreenFixture.h"

#include <QFile>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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

    std::vector<std::string> rows() { return liveRows(context()); }

    QString file = folder.filePath(QStringLiteral("My Jokes.csv"));
};

const std::string Loaded = "File Loaded and Ready to Import";
const std::string Completed = "Data Import Completed";
const std::string Wrong = "My Jokes.csv Is The Incorrect Import File";
const std::string Marker = "[GIGGLEARCHIVES]\n";

TEST_F(ImportViewControllerTest, OddFilesGiveWhatCanBeHad)
{
    const std::string longText(10'000'000, 'x');

    const struct {
        const char* name;
        std::string bytes;
        std::string outcome;
        std::vector<std::string> rows;
    } cases[] = {
        {"empty", "", Wrong, {}},
        {"another text", "Dad^Mild^1^T^a\n", Wrong, {}},
        {"byte-order mark", "\xEF\xBB\xBF" + Marker + "^^1^F^a\n", Completed, {"NULL|0|1|a|NULL"}},
        {"carriage returns", "[GIGGLEARCHIVES]\r^^1^F^a\r", Completed, {"NULL|0|1|a|NULL"}},
        {"no line end", Marker + "^^1^F^a", Completed, {"NULL|0|1|a|NULL"}},
        {"torn line",
         Marker + "^^1^F^a\nDad^Mil",
         Completed,
         {"NULL|0|1|a|NULL", "Dad|NULL|NULL|NULL|Mil"}},
        {"zero bytes", Marker + "^^1^F^a\0b\n"s, Completed, {"NULL|0|1|a\0b|NULL"s}},
        {"long line", Marker + "^^1^F^" + longText, Completed, {"NULL|0|1|" + longText + "|NULL"}},
    };

    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        writeBytes(file, QByteArray::fromStdString(one.bytes));
        EXPECT_THAT(import(file), ElementsAre(Loaded, one.outcome));
        std::vector<std::string> found = rows();
        for (std::string& row : found) // each case begins with a number of its own
            row.erase(0, row.find('|') + 1);
        EXPECT_TRUE(found == one.rows); // without printing megabytes
        for (Jokes* joke : context().fetch(Jokes::fetchRequest()))
            context().deleteObject(*joke);
        context().save();
    }
}

TEST_F(ImportViewControllerTest, FilesThatCannotBeReadSayWhyAndStopTheImportAndNothingElse)
{
    addJoke({.id = 1, .joke = "mine"});
    const auto stored = storedRows(folder.file());
    writeBytes(file, "[GIGGLEARCHIVES]\n^^1^F^caf\xE9\n");
    const QString picture = folder.filePath(QStringLiteral("picture.png"));
    writeBytes(picture, QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16));
    const QString huge = folder.filePath(QStringLiteral("huge.csv"));
    QFile sparse(huge);
    ASSERT_TRUE(sparse.open(QIODevice::ReadWrite) && sparse.resize(2'000'000'000));
    for (const auto& [path, reason] :
         {std::pair(file, "My Jokes.csv\" cannot be read: it is not a text in UTF-8"),
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

TEST_F(ImportViewControllerTest, AnIdOutOfRangeEndsTheProgramAndWhatIsAboveStays)
{
    writeBytes(file, QByteArray::fromStdString(Marker + "^^1^F^a\n^^40000^F^b\n^^3^F^c\n"));
    EXPECT_DEATH(import(file), "\"My Jokes.csv\", line 3: \"40000\" is not an id");
    EXPECT_THAT(storedRows(folder.file()), ElementsAre("1|NULL|0|1|a|NULL"));
}

struct FaultyDisk {
    FaultyVfs disk;
};

/// The disk is there before the collection and after it.
class ImportOnFaultyDiskTest : protected FaultyDisk, public ImportViewControllerTest {};

TEST_F(ImportOnFaultyDiskTest, ADiskThatFillsKeepsWholeLinesAndTheRestComesWithALaterSave)
{
    std::string text = Marker;
    for (int i = 1; i <= 200; ++i)
        text += "^^" + std::to_string(i) + "^F^joke " + std::to_string(i) + "\n";
    writeBytes(file, QByteArray::fromStdString(text));
    (void)rows();
    disk.failAt(6, FaultyVfs::Failing::FromThenOn);
    testing::internal::CaptureStderr();
    EXPECT_THAT(import(file), ElementsAre(Loaded, Completed));
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("disk"));
    EXPECT_TRUE(disk.hasFailed());
    EXPECT_EQ(rows().size(), 200U);

    CollectionFolder crashed;
    folder.copyAsAfterACrash(crashed);
    disk.disarm();
    const auto kept = storedRows(crashed.file());
    EXPECT_LT(kept.size(), 200U);
    EXPECT_TRUE(std::equal(kept.begin(), kept.end(), rows().begin()));

    context().save();
    EXPECT_EQ(storedRows(folder.file()), rows());
}

TEST_F(ImportViewControllerTest, OneFileAVisitAndTheWayBackIsTheMenu)
{
    writeBytes(file, QByteArray::fromStdString(Marker));
    ImportViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_FALSE(screen.isImportButtonEnabled());
    screen.LoadFile();
    system.documentPicker.answer({}); // cancelled
    EXPECT_TRUE(screen.isLoadFileButtonEnabled());
    EXPECT_DEATH(screen.ImportTextFile(), "No file has been loaded");

    selection.DocumentToImport = QUrl::fromLocalFile(file);
    EXPECT_TRUE(screen.answersSegue(SegueId::ImportJokes));
    EXPECT_EQ(*screen.importTextView()->text(), Marker);
    EXPECT_FALSE(screen.isLoadFileButtonEnabled());
    EXPECT_FALSE(screen.answersSegue(SegueId::ImportJokes));
    screen.ImportTextFile();
    ASSERT_EQ(navigator.alerts.size(), 2U);
    EXPECT_THAT(navigator.unwound, IsEmpty());
    navigator.alerts.back().actions.front().handler();
    EXPECT_THAT(navigator.unwound, ElementsAre(UnwindRoute::ToMenu));
}

} // namespace

} // namespace giggle
