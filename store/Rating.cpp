// SPDX-License-Identifier: MIT
#include "store/Rating.h"

#include "store/ManagedObjectContext.h"

namespace giggle {

void Rating::setRating(OptionalText rating)
{
    if (isDeleted() || name() == rating)
        return;
    auto& table = context().table<Rating>();
    table.willChange(*this);
    m_values.name = rating ? std::optional<std::string>(*rating) : std::nullopt;
    table.didChange(*this, Attribute::rating);
}

} // namespace giggle
