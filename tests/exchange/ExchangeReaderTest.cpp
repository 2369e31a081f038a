// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeReader.h"

#include "exchange/format/ExchangeFile.h"
#include "shell/DefaultNames.h"
#include "tests/support/CollectionFolder.h"

#include <algorithm>
#include <set>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using NamesFilter = ExchangeReader::NamesFilter;

class ExchangeReaderTest : public testing::Test {
protected:
    ManagedObjectContext& context() { return m_appDelegate.persistentContainer().viewContext(); }

    std::vector<std::string> rows() { return liveRows(context()); }

    CollectionFolder m_folder;
    AppDelegate m_appDelegate{m_folder.path()};
    ExchangeReader m_reader{m_appDelegate, QStringLiteral("My Jokes.csv"), "tests/SomeImporter", 7};
};

/// What reading joke lines into an empty collection leaves there, as "oid|category|favorite|id|joke|rating".
struct ReadingCase {
    const char* name;
    std::string lines;
    std::vector<std::string> rows;
};

const std::vector<ReadingCase> readingCases = {
    {"fewer and more fields",
     "Dad\nDad^Mild\nDad^Mild^7^F^a^b^c",
     {"1|Dad|NULL|NULL|NULL|NULL", "2|Dad|NULL|NULL|NULL|Mild", "3|Dad|0|7|a|Mild"}},
    {"empty fields stay unset, as do quotes alone",
     "^^7^^\n\"\"^\"^8^\"^\"\"",
     {"1|NULL|NULL|7|NULL|NULL", "2|NULL|NULL|8|NULL|NULL"}},
    {"favorites",
     "^^1^F^\n^^2^f^\n^^3^T^\n^^4^no^\n^^5^ F^\n^^6^\"F\"^",
     {"1|NULL|0|1|NULL|NULL", "2|NULL|1|2|NULL|NULL", "3|NULL|1|3|NULL|NULL", "4|NULL|1|4|NULL|NULL",
      "5|NULL|1|5|NULL|NULL", "6|NULL|0|6|NULL|NULL"}},
    {"ids",
     "^^+5\n^^007\n^^-0\n^^-32768\n^^+32767\n^^0000000000000000000000012",
     {"1|NULL|NULL|5|NULL|NULL", "2|NULL|NULL|7|NULL|NULL", "3|NULL|NULL|0|NULL|NULL",
      "4|NULL|NULL|-32768|NULL|NULL", "5|NULL|NULL|32767|NULL|NULL", "6|NULL|NULL|12|NULL|NULL"}},
    {"escapes, also such that overlap; in names they stay",
     "@#@^~#~^1^F^a@#@b~#~c@#@@#@\n^^2^F^@#@#@~#~#~@#",
     {"1|@#@|0|1|a\nb'c\n\n|~#~", "2|NULL|0|2|\n#@'#~@#|NULL"}},
    {"removed marks uncover escapes", "^^1^F^@'#@ ~\"#~ '\"", {"1|NULL|0|1|\n ' |NULL"}},
    {"apostrophes and quotes go", "It's^\"Mi\"ld^1^F^'\"a\"'b", {"1|Its|0|1|ab|Mild"}},
    {"blanks and control characters stay",
     " Dad ^\tMild^1^F^ a \na\0b^^2^F^\x01\0c"s,
     {"1| Dad |0|1| a |\tMild", "2|a\0b|0|2|\x01\0c|NULL"s}},
    {"returns end lines",
     "^^1^F^a\rDad^Mild^2^F^b\r\n\r^^3^F^c",
     {"1|NULL|0|1|a|NULL", "2|Dad|0|2|b|Mild", "3|NULL|0|3|c|NULL"}},
    {"apostrophe before the line is looked at", "'\n^^1\n[CATE'GORY]\n^^2", {"1|NULL|NULL|1|NULL|NULL"}},
    {"same id in the file", "Dad^Mild^1^T^a\nPuns^^1^F^", {"1|Puns|0|1|a|Mild"}},
    {"markers with blanks are none",
     "[CATEGORY] \n[category]\n[RATING]",
     {"1|[CATEGORY] |NULL|NULL|NULL|NULL", "2|[category]|NULL|NULL|NULL|NULL",
      "3|[RATING]|NULL|NULL|NULL|NULL"}},
    {"marker again, nothing behind the categories",
     "^^1\n[GIGGLEARCHIVES]\n^^2\n[CATEGORY]\nDad\n[GIGGLEARCHIVES]\n^^3",
     {"1|NULL|NULL|1|NULL|NULL", "2|NULL|NULL|2|NULL|NULL"}},
};

TEST(JokeLinesTest, GiveTheJokes)
{
    for (const ReadingCase& reading : readingCases) {
        SCOPED_TRACE(reading.name);
        CollectionFolder folder;
        AppDelegate appDelegate(folder.path());
        ExchangeReader reader(appDelegate, QStringLiteral("My Jokes.csv"), "tests/SomeImporter", 7);
        reader.readJokes("[GIGGLEARCHIVES]\n" + reading.lines);
        EXPECT_FALSE(reader.wrongFile());
        EXPECT_THAT(liveRows(appDelegate.persistentContainer().viewContext()),
                    ElementsAreArray(reading.rows));
        EXPECT_THAT(storedRows(folder.file()), ElementsAreArray(reading.rows));
    }
}

TEST_F(ExchangeReaderTest, KnownIdsAreUpdatedAndEmptyFieldsClearNothing)
{
    insertJoke(context(), {.category = "Old", .rating = "Old", .id = 1, .favorite = true, .joke = "old"});
    insertJoke(context(), {.category = "Zero", .id = 0});
    insertJoke(context(), {.category = "No id"});
    m_reader.readJokes("[GIGGLEARCHIVES]\n^New^1^F^\nOne field\n");
    EXPECT_THAT(rows(), ElementsAre("1|Old|0|1|old|New", "2|One field|NULL|0|NULL|NULL",
                                    "3|No id|NULL|NULL|NULL|NULL"));
    EXPECT_EQ(storedRows(m_folder.file()), rows());
}

TEST_F(ExchangeReaderTest, WrongFilesChangeNothing)
{
    for (const char* document : {"", "\n", "Dad^Mild^1^F^a", "[gigglearchives]\n^^1",
                                 " [GIGGLEARCHIVES]\n^^1", "[GIGGLEARCHIVES]^\n^^1", "no id at all^^^"}) {
        m_reader.readJokes(document);
        EXPECT_TRUE(m_reader.wrongFile()) << document;
        EXPECT_THAT(rows(), IsEmpty()) << document;
    }
    m_reader.readJokes("^^1^F^above the marker\n[GIGG'LEARCHIVES]");
    EXPECT_FALSE(m_reader.wrongFile());
    EXPECT_THAT(rows(), ElementsAre("1|NULL|0|1|above the marker|NULL"));
}

TEST(ExchangeReaderStopTest, FieldThatIsNoIdEndsTheProgramAfterWhatIsAboveItWasSaved)
{
    for (const char* field : {"", " ", " 5", "5 ", "5.0", "\"5\"", "32768", "-32769", "99999999999999999999",
                              "+-5", "-+5", "--5", "++5", "+", "-", "0x10", "1e2", "\xD9\xA3", "F"}) {
        CollectionFolder folder;
        const auto read = [&] {
            AppDelegate appDelegate(folder.path());
            ExchangeReader(appDelegate, QStringLiteral("My Jokes.csv"), "tests/SomeImporter", 7)
                .readJokes(std::string("[GIGGLEARCHIVES]\r\nDad^Mild^1^F^a\r\n^^2\r\nDad^Mild^") + field +
                           "^F^b\r\nDad^Mild^4^F^c");
        };
        EXPECT_DEATH(read(), "Fatal error: \"My Jokes.csv\", line 4: \".*\" is not an id.*: file "
                             "tests/SomeImporter, line 7")
            << field;
        EXPECT_THAT(storedRows(folder.file()), ElementsAre("1|Dad|0|1|a|Mild", "2|NULL|NULL|2|NULL|NULL"));
    }
}

TEST_F(ExchangeReaderTest, ImportTakesNoNamesOver)
{
    for (const auto& [document, isWrong] :
         {std::pair("[GIGGLEARCHIVES]\n[CATEGORY]\nDad\n[RATING]\nMild", false),
          std::pair("[GIGGLEARCHIVES]\nDad", true)}) {
        m_reader.readCategories(document, NamesFilter::KeepsNothing);
        EXPECT_EQ(m_reader.wrongFile(), isWrong);
        m_reader.readRatings(document, NamesFilter::KeepsNothing);
        EXPECT_EQ(m_reader.wrongFile(), isWrong);
    }
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(ExchangeReaderTest, FirstLaunchTakesTheNamesOfASection)
{
    insertCategory(context(), std::nullopt);
    insertCategory(context(), "Known");
    const std::string document =
        "Above\n[GIGGLEARCHIVES]\r\nJoke\n[CATEGORY]\n\nDad^more\n'Kno'wn\n\"Quoted\"\r\nDad\n"
        "[CATEGORY]\n^\ndad\n[RATING]\nMild^x\nMild\n[CATEGORY]\n";
    m_reader.readCategories(document, NamesFilter::KeepsSection);
    EXPECT_THAT(rows(), ElementsAre("1|NULL", "2|Known", "3|Dad", "4|\"Quoted\"", "5|", "6|dad"));
    for (Category* category : context().fetch(Category::fetchRequest()))
        context().deleteObject(*category);
    m_reader.readRatings(document, NamesFilter::KeepsSection);
    EXPECT_THAT(rows(), ElementsAre("1|Mild", "2|[CATEGORY]"));
    EXPECT_EQ(storedRows(m_folder.file()), rows());
    m_reader.readRatings("GiggleArchives", NamesFilter::KeepsSection);
    EXPECT_TRUE(m_reader.wrongFile());
    EXPECT_EQ(rows().size(), 2U);
}

TEST_F(ExchangeReaderTest, TheStarterCollectionIsWholeAndConsistent)
{
    const FileText file = readAsciiFile(QStringLiteral(GIGGLE_SOURCE_DIR "/resources/GiggleArchives.txt"));
    ASSERT_TRUE(file.text) << file.failure.toStdString();
    m_reader.readJokes(*file.text);
    std::set<int> ids;
    std::set<std::string_view> texts;
    for (const Jokes* joke : context().fetch(Jokes::fetchRequest())) {
        EXPECT_EQ(std::ranges::count(DefaultCategoryNames, joke->category().value_or("")), 1) << *joke->id();
        EXPECT_EQ(std::ranges::count(DefaultRatingNames, joke->rating().value_or("")), 1) << *joke->id();
        ids.insert(*joke->id());
        texts.insert(joke->joke().value_or(""));
    }
    EXPECT_EQ(ids.size(), 188U);
    EXPECT_EQ(texts.size(), 188U) << "a joke is there twice";
    EXPECT_FALSE(texts.contains(""));
}

} // namespace

} // namespace giggle
