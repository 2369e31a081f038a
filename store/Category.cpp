// SPDX-License-Identifier: MIT
#include "store/Category.h"

#include "store/ManagedObjectContext.h"

namespace giggle {

void Category::setCategory(OptionalText category)
{
    if (isDeleted() || name() == category)
        return;
    auto& table = context().table<Category>();
    table.willChange(*this);
    m_values.name = category ? std::optional<std::string>(*category) : std::nullopt;
    table.didChange(*this, Attribute::category);
}

} // namespace giggle
