// SPDX-License-Identifier: MIT
#include "store/ManagedObjectContext.h"

#include <type_traits>

#include <sqlite3.h>

namespace giggle {

ManagedObjectContext::ManagedObjectContext(std::unique_ptr<PersistentStore> store)
    : m_store(std::move(store)), m_jokes(*this), m_categories(*this), m_ratings(*this)
{
}

template <class Record>
RecordTable<Record>& ManagedObjectContext::table()
{
    if constexpr (std::is_same_v<Record, Jokes>)
        return m_jokes;
    else if constexpr (std::is_same_v<Record, Category>)
        return m_categories;
    else
        return m_ratings;
}

template <class Record>
RecordTable<Record>& ManagedObjectContext::loadedTable()
{
    RecordTable<Record>& records = table<Record>();
    if (!records.isLoaded()) {
        records.load(m_store->database());
        if constexpr (std::is_same_v<Record, Jokes>)
            for (Jokes* joke : records.liveRecords())
                addToIndexes(*joke);
    }
    return records;
}

void ManagedObjectContext::addToIndexes(Jokes& joke)
{
    m_jokeIds.add(joke);
    m_categoryCounts.add(joke.m_values.category);
    m_ratingCounts.add(joke.m_values.rating);
}

void ManagedObjectContext::removeFromIndexes(Jokes& joke)
{
    m_jokeIds.remove(joke);
    m_categoryCounts.remove(joke.m_values.category);
    m_ratingCounts.remove(joke.m_values.rating);
}

template <class Record>
Record& ManagedObjectContext::insert()
{
    return loadedTable<Record>().insert();
}

template <class Record>
std::vector<Record*> ManagedObjectContext::fetch(const FetchRequest<Record>& request)
{
    RecordTable<Record>& records = loadedTable<Record>();
    if constexpr (std::is_same_v<Record, Jokes>)
        if (request.predicate && request.predicate->attribute() == Attribute::id &&
            request.sortDescriptors.empty())
            return m_jokeIds.jokesWithId(request.predicate->number());
    return records.fetch(request);
}

template <class Record>
std::size_t ManagedObjectContext::count(const FetchRequest<Record>& request)
{
    RecordTable<Record>& records = loadedTable<Record>();
    if constexpr (std::is_same_v<Record, Jokes>) {
        if (request.predicate && request.predicate->attribute() == Attribute::category)
            return m_categoryCounts.of(interned(request.predicate->text()));
        if (request.predicate && request.predicate->attribute() == Attribute::rating)
            return m_ratingCounts.of(interned(request.predicate->text()));
    }
    return records.count(request);
}

std::vector<std::string_view> ManagedObjectContext::categoriesOfJokes()
{
    loadedTable<Jokes>();
    return m_categoryCounts.names();
}

std::vector<std::string_view> ManagedObjectContext::ratingsOfJokes()
{
    loadedTable<Jokes>();
    return m_ratingCounts.names();
}

template <class Record>
void ManagedObjectContext::deleteObject(Record& record)
{
    if constexpr (std::is_same_v<Record, Jokes>)
        if (!record.isDeleted())
            removeFromIndexes(record);
    table<Record>().remove(record);
}

template <class Record>
void ManagedObjectContext::restore(Record& record)
{
    if constexpr (std::is_same_v<Record, Jokes>)
        if (record.isDeleted())
            addToIndexes(record);
    table<Record>().restore(record);
}

bool ManagedObjectContext::hasChanges() const
{
    return m_jokes.hasChanges() || m_categories.hasChanges() || m_ratings.hasChanges();
}

void ManagedObjectContext::save()
{
    if (!hasChanges())
        return;
    m_store->willSave();
    sqlite::Transaction transaction(m_store->database());
    refuseForeignChanges();
    m_jokes.writeChanges(m_store->database());
    m_categories.writeChanges(m_store->database());
    m_ratings.writeChanges(m_store->database());
    transaction.commit();
    m_store->didSave();
    m_jokes.changesWereSaved();
    m_categories.changesWereSaved();
    m_ratings.changesWereSaved();
    if (m_saveListener)
        m_saveListener();
}

void ManagedObjectContext::refuseForeignChanges()
{
    if (!m_store->mayHaveBeenChangedElsewhere())
        return;
    sqlite::Database& database = m_store->database();
    if (!m_jokes.matches(database) || !m_categories.matches(database) || !m_ratings.matches(database))
        throw StoreError(
            SQLITE_BUSY_SNAPSHOT,
            QStringLiteral(
                "Another program has changed the collection. Nothing was overwritten; close and open "
                "Giggle Archives again to see its changes"),
            {{QStringLiteral("path"), m_store->path()}});
    m_store->acceptContents();
}

std::optional<std::int16_t> ManagedObjectContext::highestJokeId()
{
    loadedTable<Jokes>();
    return m_jokeIds.highestId();
}

const std::string* ManagedObjectContext::intern(std::string_view name)
{
    // Of a few dozen names most are found without a hash of all their letters.
    const std::size_t ends = name.empty() ? 0
                                          : static_cast<unsigned char>(name.front()) * 7U +
                                                static_cast<unsigned char>(name.back());
    const std::string*& recent = m_recentNames[(name.size() * 31 + ends) % m_recentNames.size()];
    if (recent && *recent == name)
        return recent;
    const std::string* known = interned(name);
    return recent = known ? known : &*m_names.emplace(name).first;
}

const std::string* ManagedObjectContext::interned(std::string_view name) const
{
    const auto known = m_names.find(name);
    return known != m_names.end() ? &*known : nullptr;
}

template Jokes& ManagedObjectContext::insert();
template Category& ManagedObjectContext::insert();
template Rating& ManagedObjectContext::insert();
template std::vector<Jokes*> ManagedObjectContext::fetch(const FetchRequest<Jokes>&);
template std::vector<Category*> ManagedObjectContext::fetch(const FetchRequest<Category>&);
template std::vector<Rating*> ManagedObjectContext::fetch(const FetchRequest<Rating>&);
template std::size_t ManagedObjectContext::count(const FetchRequest<Jokes>&);
template std::size_t ManagedObjectContext::count(const FetchRequest<Category>&);
template std::size_t ManagedObjectContext::count(const FetchRequest<Rating>&);
template void ManagedObjectContext::deleteObject(Jokes&);
template void ManagedObjectContext::deleteObject(Category&);
template void ManagedObjectContext::deleteObject(Rating&);
template void ManagedObjectContext::restore(Jokes&);
template void ManagedObjectContext::restore(Category&);
template void ManagedObjectContext::restore(Rating&);
template RecordTable<Jokes>& ManagedObjectContext::table();
template RecordTable<Category>& ManagedObjectContext::table();
template RecordTable<Rating>& ManagedObjectContext::table();

} // namespace giggle
