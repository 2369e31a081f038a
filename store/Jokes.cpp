// SPDX-License-Identifier: MIT
#include "store/Jokes.h"

#include "store/ManagedObjectContext.h"

namespace giggle {

template <class Value>
void Jokes::change(Attribute attribute, Value Values::*member, Value value)
{
    if (isDeleted() || m_values.*member == value)
        return;
    auto& table = context().table<Jokes>();
    table.willChange(*this);
    m_values.*member = std::move(value);
    table.didChange(*this, attribute);
}

void Jokes::changeName(Attribute attribute, Name Values::*member, OptionalText name, NameCounts& counts)
{
    if (isDeleted())
        return;
    counts.remove(m_values.*member);
    change(attribute, member, name ? context().intern(*name) : nullptr);
    counts.add(m_values.*member);
}

void Jokes::setCategory(OptionalText category)
{
    changeName(Attribute::category, &Values::category, category, context().m_categoryCounts);
}

void Jokes::setFavorite(std::optional<bool> favorite)
{
    change(Attribute::favorite, &Values::favorite, favorite);
}

void Jokes::setId(std::optional<std::int16_t> id)
{
    if (isDeleted() || m_values.id == id)
        return;
    JokeIdIndex& index = context().m_jokeIds;
    index.remove(*this);
    change(Attribute::id, &Values::id, id);
    index.add(*this);
}

void Jokes::setJoke(OptionalText joke)
{
    context().foldedTexts().forget(position());
    change(Attribute::joke, &Values::joke, joke ? std::optional<std::string>(*joke) : std::nullopt);
}

void Jokes::setRating(OptionalText rating)
{
    changeName(Attribute::rating, &Values::rating, rating, context().m_ratingCounts);
}

OptionalText Jokes::text(Attribute attribute) const
{
    switch (attribute) {
    case Attribute::category:
        return category();
    case Attribute::joke:
        return joke();
    case Attribute::rating:
        return rating();
    case Attribute::favorite:
    case Attribute::id:
        break;
    }
    return std::nullopt;
}

std::optional<std::int64_t> Jokes::number(Attribute attribute) const
{
    switch (attribute) {
    case Attribute::favorite:
        return m_values.favorite.value_or(false);
    case Attribute::id:
        return m_values.id;
    case Attribute::category:
    case Attribute::joke:
    case Attribute::rating:
        break;
    }
    return std::nullopt;
}

} // namespace giggle
