// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeReader.h"

#include "tests/support/CollectionFolder.h"

#include <gmock/gmock.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;
using testing::ElementsAre;
using testing::IsEmpty;
using NamesFilter = ExchangeReader::NamesFilter;

/// A reader into a collection of its own.
struct ReaderAndCollection {
    ManagedObjectContext& context() { return appDelegate.persistentContainer().viewContext(); }

    /// What is in memory, and stored as well.
    std::vector<std::string> rows()
    {
        std::vector<std::string> rows = liveRows(context());
        EXPECT_EQ(storedRows(folder.file()), rows);
        return rows;
    }

    CollectionFolder folder;
    AppDelegate appDelegate{folder.path()};
    ExchangeReader reader{appDelegate, QStringLiteral("My Jokes.csv"), "tests/SomeImporter", 7};
};

class ExchangeReaderTest : public testing::Test, protected ReaderAndCollection {};

/// What reading joke lines into an empty collection leaves there, as "oid|category|favorite|id|joke|rating".
const struct {
    const char* name;
    std::string lines;
    std::vector<std::string> rows;
} readingCases[] = {
    {"missing fields stay unset, further fields are ignored",
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
    for (const auto& reading : readingCases) {
        SCOPED_TRACE(reading.name);
        ReaderAndCollection empty;
        empty.reader.readJokes("[GIGGLEARCHIVES]\n" + reading.lines);
        EXPECT_FALSE(empty.reader.wrongFile());
        EXPECT_EQ(empty.rows(), reading.rows);
    }
}

TEST_F(ExchangeReaderTest, KnownIdsAreUpdatedAndEmptyFieldsClearNothing)
{
    insertJoke(context(), {.category = "Old", .rating = "Old", .id = 1, .favorite = true, .joke = "old"});
    insertJoke(context(), {.category = "Zero", .id = 0});
    insertJoke(context(), {.category = "No id"});
    reader.readJokes("[GIGGLEARCHIVES]\n^New^1^F^\nOne field\n");
    EXPECT_THAT(rows(), ElementsAre("1|Old|0|1|old|New", "2|One field|NULL|0|NULL|NULL",
                                    "3|No id|NULL|NULL|NULL|NULL"));
}

TEST_F(ExchangeReaderTest, WrongFilesChangeNothing)
{
    for (const char* document : {"", "\n", "Dad^Mild^1^F^a", "[gigglearchives]\n^^1",
                                 " [GIGGLEARCHIVES]\n^^1", "[GIGGLEARCHIVES]^\n^^1", "no id at all^^^"}) {
        reader.readJokes(document);
        EXPECT_TRUE(reader.wrongFile()) << document;
        EXPECT_THAT(rows(), IsEmpty()) << document;
    }
    reader.readJokes("^^1^F^above the marker\n[GIGG'LEARCHIVES]");
    EXPECT_FALSE(reader.wrongFile());
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

TEST_F(ExchangeReaderTest, FirstLaunchTakesTheNamesOfASection)
{
    insertCategory(context(), std::nullopt);
    insertCategory(context(), "Known");
    const std::string document =
        "Above\n[GIGGLEARCHIVES]\r\nJoke\n[CATEGORY]\n\nDad^more\n'Kno'wn\n\"Quoted\"\r\nDad\n"
        "[CATEGORY]\n^\ndad\n[RATING]\nMild^x\nMild\n[CATEGORY]\n";
    reader.readCategories(document, NamesFilter::KeepsSection);
    EXPECT_THAT(rows(), ElementsAre("1|NULL", "2|Known", "3|Dad", "4|\"Quoted\"", "5|", "6|dad"));
    for (Category* category : context().fetch(Category::fetchRequest()))
        context().deleteObject(*category);
    reader.readRatings(document, NamesFilter::KeepsSection);
    EXPECT_THAT(rows(), ElementsAre("1|Mild", "2|[CATEGORY]"));
    reader.readRatings("GiggleArchives", NamesFilter::KeepsSection);
    EXPECT_TRUE(reader.wrongFile());
    EXPECT_EQ(rows().size(), 2U);
}

} // namespace

} // namespace giggle
