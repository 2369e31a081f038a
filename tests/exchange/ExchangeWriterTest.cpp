// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeWriter.h"

#include "exchange/format/ExchangeReader.h"
#include "tests/support/CollectionFolder.h"

#include <random>
#include <set>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;
using std::string_literals::operator""s;

TEST(ExchangeWriterTest, CollectionIsWrittenByteForByte)
{
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    const JokeValues jokes[] = {
        {.category = "\xC3\x89tude", .rating = "Mild", .id = 7, .joke = "Code points decide the order"},
        {.category = "Puns",
         .id = 32767,
         .favorite = true,
         .joke = "Tab\there, caf\xC3\xA9 \xF0\x9F\x98\x80, return\rin the middle"},
        {.category = "Dad",
         .rating = "\"Teens\", it's",
         .id = 1,
         .favorite = false,
         .joke = "Caret ^, quote \", apostrophe ', escape @#@ and ~#~ of its own"},
        {.category = "Dad", .rating = "All Ages", .id = 2, .favorite = true, .joke = "- One\n- Two\n"},
        {.category = "", .rating = "Mild", .id = 5, .joke = ""},
        {.id = -32768, .joke = "Nothing but a text"},
        {}};

    for (const JokeValues& joke : jokes)
        insertJoke(context, joke);
    for (const OptionalText name :
         {OptionalText("dad"), OptionalText("Puns"), OptionalText(""), OptionalText(), OptionalText("Dad")})
        insertCategory(context, name);
    insertRating(context, "Mild");
    insertRating(context, std::nullopt);
    EXPECT_EQ(
        writeCollection(context),
        readBytes(QStringLiteral(GIGGLE_SOURCE_DIR "/tests/exchange/fixtures/exported.csv")).toStdString());
}

/// What the exchange file's description says about one text: what comes back, and as unset when it is empty.
std::string changedOnTheWay(const std::optional<std::string>& text, bool isJoke)
{
    QString changed = QString::fromStdString(text.value_or(""));
    if (isJoke)
        changed.replace(u'\n', u"@#@"_s).replace(u'^', u"~#~"_s);
    changed.remove(u'\'').remove(u'"');
    if (isJoke)
        changed.replace(u"@#@"_s, u"\n"_s).replace(u"~#~"_s, u"'"_s);
    return changed.isEmpty() ? "NULL" : changed.toStdString();
}

std::size_t below(std::size_t limit, std::mt19937& random)
{
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
}

std::optional<std::string> randomText(bool isJoke, std::mt19937& random)
{
    static const std::string pieces[] = {"a", "'",  "\"",  "@",      "#",          "@#@",        "~#~", "~",
                                         " ", "\t", "\0"s, "\u00e9", "\U0001F600", "[CATEGORY]", "\n",  "^"};
    if (below(8, random) == 0)
        return std::nullopt;
    std::string text;
    for (std::size_t i = below(12, random); i > 0; --i)
        text += pieces[below(std::size(pieces) - (isJoke ? 0 : 2), random)];
    return text;
}

/// Returns what comes back of it, as "category|favorite|id|joke|rating".
std::string insertRandomJoke(ManagedObjectContext& context, std::int16_t id, std::mt19937& random)
{
    const auto category = randomText(false, random);
    const auto rating = randomText(false, random);
    const auto text = randomText(true, random);
    const auto favorite = below(3, random) == 0 ? std::nullopt : std::optional(below(2, random) == 0);
    insertJoke(context,
               {.category = category, .rating = rating, .id = id, .favorite = favorite, .joke = text});
    return changedOnTheWay(category, false) + (favorite.value_or(false) ? "|1|" : "|0|") +
           std::to_string(id) + '|' + changedOnTheWay(text, true) + '|' + changedOnTheWay(rating, false);
}

TEST(RoundTripTest, ChangesNothingButWhatTheFormatSays)
{
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        CollectionFolder sourceFolder;
        PersistentContainer source = sourceFolder.open();
        std::set<std::string> expected;
        for (const int id : {-32768, -1, 0, 1, 2, 300, 32767})
            expected.insert(insertRandomJoke(source.viewContext(), std::int16_t(id), random));
        insertCategory(source.viewContext(), "Dad");
        insertRating(source.viewContext(), "Mild");
        const std::string document = writeCollection(source.viewContext());

        CollectionFolder folder;
        AppDelegate appDelegate(folder.path());
        ExchangeReader reader(appDelegate, u"file"_s, "tests", 1);
        for (int reading = 0; reading < 2; ++reading) {
            reader.readJokes(document);
            reader.readCategories(document, ExchangeReader::NamesFilter::KeepsNothing);
            reader.readRatings(document, ExchangeReader::NamesFilter::KeepsNothing);
            std::set<std::string> found;
            for (const std::string& row : liveRows(appDelegate.persistentContainer().viewContext()))
                found.insert(row.substr(row.find('|') + 1)); // in whatever order they came
            ASSERT_EQ(found, expected) << document;
        }
    }
}

} // namespace

} // namespace giggle
