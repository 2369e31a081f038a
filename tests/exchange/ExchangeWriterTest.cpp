// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeWriter.h"

#include "tests/support/CollectionFolder.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

using std::string_literals::operator""s;

TEST(ExchangeWriterTest, CollectionIsWrittenByteForByte)
{
    CollectionFolder folder;
    PersistentContainer container = folder.open();
    ManagedObjectContext& context = container.viewContext();
    insertJoke(
        context,
        {.category = "\xC3\x89tude", .rating = "Mild", .id = 7, .joke = "Code points decide the order"});
    insertJoke(context, {.category = "Puns",
                         .id = 32767,
                         .favorite = true,
                         .joke = "Tab\there, caf\xC3\xA9 \xF0\x9F\x98\x80, return\rin the middle"});
    insertJoke(context, {.category = "Dad",
                         .rating = "\"Teens\", it's",
                         .id = 1,
                         .favorite = false,
                         .joke = "Caret ^, quote \", apostrophe ', escape @#@ and ~#~ of its own"});
    insertJoke(
        context,
        {.category = "Dad", .rating = "All Ages", .id = 2, .favorite = true, .joke = "- One\n- Two\n"});
    insertJoke(context, {.category = "", .rating = "Mild", .id = 5, .joke = ""});
    insertJoke(context, {.id = -32768, .joke = "Nothing but a text"});
    insertJoke(context, {});
    for (const OptionalText name :
         {OptionalText("dad"), OptionalText("Puns"), OptionalText(""), OptionalText(), OptionalText("Dad")})
        insertCategory(context, name);
    insertRating(context, "Mild");
    insertRating(context, std::nullopt);
    EXPECT_EQ(
        writeCollection(context),
        readBytes(QStringLiteral(GIGGLE_SOURCE_DIR "/tests/exchange/fixtures/exported.csv")).toStdString());
}

} // namespace

} // namespace giggle
