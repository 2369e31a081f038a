// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"

#include <gmock/gmock.h>

namespace giggle {

namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

TEST(OtherProgramsTest, ForeignChangesAreNeitherOverwrittenNorPassedOverInSilence)
{
    for (const char* change :
         {"UPDATE jokes SET joke = 'theirs' WHERE id = 1", "UPDATE jokes SET favorite = NULL WHERE id = 3",
          "DELETE FROM jokes WHERE id = 3", "INSERT INTO jokes(joke) VALUES('theirs')",
          "INSERT INTO jokes(oid, joke) VALUES(0, 'theirs')", "UPDATE jokes SET oid = oid - 10",
          "UPDATE category SET category = 'puns'", "DELETE FROM jokes WHERE id = 1", "DELETE FROM jokes"}) {
        SCOPED_TRACE(change);
        const CollectionFolder folder;
        PersistentContainer container = folder.open();
        ManagedObjectContext& context = container.viewContext();
        Jokes& joke = insertJoke(context, {.id = 1, .joke = "text"});
        for (const std::int16_t id : std::initializer_list<std::int16_t>{2, 3})
            insertJoke(context, {.id = id, .favorite = false});
        insertCategory(context, "Puns");
        context.save();
        RawDatabase other(folder.file());
        other.execute(change);
        const std::vector<std::string> theirs = storedRows(other);

        joke.setJoke("ours");
        insertJoke(context, {.id = 4});
        for (int attempt = 0; attempt < 2; ++attempt) {
            EXPECT_THAT([&] { context.save(); },
                        ThrowsMessage<StoreError>(HasSubstr("Another program has changed the collection")));
            EXPECT_TRUE(context.hasChanges());
            EXPECT_EQ(storedRows(other), theirs);
        }
        closeContainer(container);
        EXPECT_EQ(liveRows(folder.open().viewContext()), theirs);
    }
}

} // namespace

} // namespace giggle
