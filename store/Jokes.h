// SPDX-License-Identifier: MIT
#pragma once

#include "store/FetchRequest.h"
#include "store/ManagedObject.h"

#include <string>

namespace giggle {

class NameCounts;

/// One joke. It names its category and its rating as text; nothing ties them to a Category or Rating record.
class Jokes : public ManagedObject {
public:
    using ManagedObject::ManagedObject;

    static FetchRequest<Jokes> fetchRequest() { return {}; }

    [[nodiscard]] OptionalText category() const { return view(m_values.category); }

    [[nodiscard]] std::optional<bool> favorite() const { return m_values.favorite; }

    [[nodiscard]] std::optional<std::int16_t> id() const { return m_values.id; }

    [[nodiscard]] OptionalText joke() const { return m_values.joke; }

    [[nodiscard]] OptionalText rating() const { return view(m_values.rating); }

    void setCategory(OptionalText category);
    void setFavorite(std::optional<bool> favorite);
    void setId(std::optional<std::int16_t> id);
    void setJoke(OptionalText joke);
    void setRating(OptionalText rating);

    /// The value of a text attribute.
    [[nodiscard]] OptionalText text(Attribute attribute) const;

    /// The value of a number attribute; an unset `favorite` is 0, an unset `id` nothing.
    [[nodiscard]] std::optional<std::int64_t> number(Attribute attribute) const;

private:
    friend class ManagedObjectContext;
    friend class JokeIdIndex;
    friend class RecordTable<Jokes>;
    template <class Record>
    friend struct RowCodec;
    friend class TextSearch;

    /// Names are interned by the context: equal names are the same object.
    using Name = const std::string*;

    struct Values {
        Name category = nullptr;
        Name rating = nullptr;
        std::optional<std::string> joke;
        std::optional<std::int16_t> id;
        std::optional<bool> favorite;

        bool operator==(const Values&) const = default;
    };

    static OptionalText view(Name name) { return name ? OptionalText(*name) : std::nullopt; }

    template <class Value>
    void change(Attribute attribute, Value Values::*member, Value value);
    void changeName(Attribute attribute, Name Values::*member, OptionalText name, NameCounts& counts);

    Values m_values;
    Jokes* m_nextWithSameId = nullptr;
};

} // namespace giggle
