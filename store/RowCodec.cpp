// SPDX-License-Identifier: MIT
#include "store/RowCodec.h"

#include "store/ManagedObjectContext.h"

#include <limits>

#include <sqlite3.h>

namespace giggle {

namespace {

template <class Number>
std::optional<Number> number(const sqlite::Statement& row, int column)
{
    if (row.isNull(column))
        return std::nullopt;
    const std::int64_t value = row.integer(column);
    if (value < std::int64_t(std::numeric_limits<Number>::min()) ||
        value > std::int64_t(std::numeric_limits<Number>::max()))
        throw StoreError(SQLITE_CORRUPT,
                         QStringLiteral("Joke row %1 holds the number %2, which is out of range")
                             .arg(row.integer(0))
                             .arg(value));
    return static_cast<Number>(value);
}

} // namespace

RowCodec<Jokes>::Values RowCodec<Jokes>::read(const sqlite::Statement& row, ManagedObjectContext& context)
{
    Values values;
    if (const OptionalText category = row.text(1))
        values.category = context.intern(*category);
    values.favorite = number<bool>(row, 2);
    values.id = number<std::int16_t>(row, 3);
    if (const OptionalText joke = row.text(4))
        values.joke.emplace(*joke);
    if (const OptionalText rating = row.text(5))
        values.rating = context.intern(*rating);
    return values;
}

void RowCodec<Jokes>::bind(sqlite::Statement& statement, const Values& values)
{
    statement.bind(2, Jokes::view(values.category));
    if (values.favorite)
        statement.bind(3, std::int64_t(*values.favorite));
    else
        statement.bindNull(3);
    if (values.id)
        statement.bind(4, std::int64_t(*values.id));
    else
        statement.bindNull(4);
    statement.bind(5, values.joke ? OptionalText(*values.joke) : std::nullopt);
    statement.bind(6, Jokes::view(values.rating));
}

} // namespace giggle
