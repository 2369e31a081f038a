// SPDX-License-Identifier: MIT
#pragma once

#include "store/Category.h"
#include "store/Jokes.h"
#include "store/Rating.h"
#include "store/sqlite/Database.h"

namespace giggle {

/// How a record becomes a row and a row a record's values. In every statement the oid is column 0 of what is
/// read and parameter 1 of what is written.
template <class Record>
struct RowCodec;

template <>
struct RowCodec<Jokes> {
    using Values = Jokes::Values;

    static constexpr std::string_view SelectAll =
        "SELECT oid, category, favorite, id, joke, rating FROM jokes ORDER BY oid";
    static constexpr std::string_view Upsert =
        "INSERT INTO jokes(oid, category, favorite, id, joke, rating) VALUES(?1, ?2, ?3, ?4, ?5, ?6) "
        "ON CONFLICT(oid) DO UPDATE SET category = ?2, favorite = ?3, id = ?4, joke = ?5, rating = ?6";
    static constexpr std::string_view Delete = "DELETE FROM jokes WHERE oid = ?1";

    /// Throws StoreError for a number that no record can hold.
    static Values read(const sqlite::Statement& row, ManagedObjectContext& context);
    static void bind(sqlite::Statement& statement, const Values& values);
};

/// Categories and ratings: one table shape, two names.
template <class Record>
struct NamedRowCodec {
    using Values = typename Record::Values;

    static Values read(const sqlite::Statement& row, ManagedObjectContext&)
    {
        Values values;
        if (const OptionalText name = row.text(1))
            values.name.emplace(*name);
        return values;
    }

    static void bind(sqlite::Statement& statement, const Values& values)
    {
        statement.bind(2, values.name ? OptionalText(*values.name) : std::nullopt);
    }
};

template <>
struct RowCodec<Category> : NamedRowCodec<Category> {
    static constexpr std::string_view SelectAll = "SELECT oid, category FROM category ORDER BY oid";
    static constexpr std::string_view Upsert =
        "INSERT INTO category(oid, category) VALUES(?1, ?2) ON CONFLICT(oid) DO UPDATE SET category = ?2";
    static constexpr std::string_view Delete = "DELETE FROM category WHERE oid = ?1";
};

template <>
struct RowCodec<Rating> : NamedRowCodec<Rating> {
    static constexpr std::string_view SelectAll = "SELECT oid, rating FROM rating ORDER BY oid";
    static constexpr std::string_view Upsert =
        "INSERT INTO rating(oid, rating) VALUES(?1, ?2) ON CONFLICT(oid) DO UPDATE SET rating = ?2";
    static constexpr std::string_view Delete = "DELETE FROM rating WHERE oid = ?1";
};

} // namespace giggle
