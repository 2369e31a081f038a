// SPDX-License-Identifier: MIT
#pragma once

#include "store/Category.h"
#include "store/FoldedTexts.h"
#include "store/JokeIdIndex.h"
#include "store/Jokes.h"
#include "store/NameCounts.h"
#include "store/PersistentStore.h"
#include "store/Rating.h"
#include "store/RecordTable.h"

#include <array>
#include <functional>
#include <memory>
#include <unordered_set>

namespace giggle {

/// The one view of a collection: owns every record, keeps all of them in memory and writes what has changed.
///
/// Each entity is read in one scan when it is first needed. Fetches see changes that have not been saved.
/// A save that fails leaves every change pending, so that the next one writes it. Main thread only.
class ManagedObjectContext {
public:
    explicit ManagedObjectContext(std::unique_ptr<PersistentStore> store);

    ManagedObjectContext(const ManagedObjectContext&) = delete;
    ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;

    /// Makes a record with all attributes unset. It is stored by the next save that succeeds. Throws
    /// StoreError when the entity cannot be read.
    template <class Record>
    Record& insert();

    /// The records that @p request asks for, in its order. They belong to the context. Throws StoreError when
    /// the entity cannot be read.
    template <class Record>
    [[nodiscard]] std::vector<Record*> fetch(const FetchRequest<Record>& request);

    /// How many records a fetch of @p request would return. For jokes of one category or rating it costs the
    /// same in every collection. Throws StoreError when the entity cannot be read.
    template <class Record>
    [[nodiscard]] std::size_t count(const FetchRequest<Record>& request);

    /// @name Every category and every rating that a joke has
    /// Each once, in no particular order, unset ones left out. The views last as long as the context. Throws
    /// StoreError when the jokes cannot be read.
    /// @{
    [[nodiscard]] std::vector<std::string_view> categoriesOfJokes();
    [[nodiscard]] std::vector<std::string_view> ratingsOfJokes();
    /// @}

    /// Deletes a record: it vanishes from fetches at once, from the store with the next save. Deleting it
    /// again changes nothing.
    template <class Record>
    void deleteObject(Record& record);

    /// Takes a deletion back: the same object is a record again, with its values and its place in the order
    /// of insertion, so that whatever holds it goes on with it. Before the deletion was saved that is no
    /// change at all; afterwards the next save stores the row anew, under its old oid. Has another program
    /// given that oid to a row of its own meanwhile, the save fails like every save over a foreign change.
    /// Restoring a record that is not deleted changes nothing.
    template <class Record>
    void restore(Record& record);

    /// Whether a save would write anything: false again once every change has been taken back.
    [[nodiscard]] bool hasChanges() const;

    /// Writes what has changed in one transaction, which is on the disk when this returns. Throws StoreError;
    /// also when another program has changed the collection meanwhile, whose changes are then left alone.
    void save();

    /// Hears of every save that has written something, at its end. An empty one hears nothing.
    void setSaveListener(std::function<void()> listener) { m_saveListener = std::move(listener); }

    /// The highest id of a joke, nothing when no joke has one. Costs the same for every collection. Throws
    /// StoreError when the jokes cannot be read.
    [[nodiscard]] std::optional<std::int16_t> highestJokeId();

    /// Every joke in memory, deleted ones included, in the order of insertion.
    [[nodiscard]] const std::pmr::deque<Jokes>& residentJokes() const { return m_jokes.allRecords(); }

    /// What searches look at instead of the resident jokes.
    [[nodiscard]] FoldedTexts& foldedTexts() { return m_foldedTexts; }

    [[nodiscard]] PersistentStore& store() { return *m_store; }

private:
    friend class Jokes;
    friend class Category;
    friend class Rating;
    template <class Record>
    friend struct RowCodec;

    template <class Record>
    RecordTable<Record>& table();
    template <class Record>
    RecordTable<Record>& loadedTable();
    void refuseForeignChanges();
    void addToIndexes(Jokes& joke);
    void removeFromIndexes(Jokes& joke);

    /// The one copy of a category or rating name that jokes refer to. Kept as long as the context.
    const std::string* intern(std::string_view name);

    /// That copy, or nothing when no joke ever had the name.
    [[nodiscard]] const std::string* interned(std::string_view name) const;

    struct NameHash {
        using is_transparent = void;

        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };

    std::unique_ptr<PersistentStore> m_store;
    std::function<void()> m_saveListener;
    std::unordered_set<std::string, NameHash, std::equal_to<>> m_names;
    std::array<const std::string*, 256> m_recentNames = {};
    JokeIdIndex m_jokeIds;
    NameCounts m_categoryCounts;
    NameCounts m_ratingCounts;
    FoldedTexts m_foldedTexts;
    RecordTable<Jokes> m_jokes;
    RecordTable<Category> m_categories;
    RecordTable<Rating> m_ratings;
};

} // namespace giggle
