// SPDX-License-Identifier: MIT
#pragma once

#include "store/ManagedObjectContext.h"

#include <string>

namespace giggle {

/// Builds the text of an exchange file, UTF-8 with line feeds. The three sections are written by three calls,
/// in this order, each over what its fetch returned. docs/exchange-format.md describes the format.
class ExchangeWriter {
public:
    /// The marker line, then one line for each joke.
    void writeJokes(const std::vector<Jokes*>& jokes);

    void writeCategories(const std::vector<Category*>& categories);

    void writeRatings(const std::vector<Rating*>& ratings);

    [[nodiscard]] const std::string& text() const& { return m_text; }

    [[nodiscard]] std::string text() && { return std::move(m_text); }

    /// @name The requests whose results a file holds, in the file's order
    /// @{
    [[nodiscard]] static FetchRequest<Jokes> jokesRequest();
    [[nodiscard]] static FetchRequest<Category> categoriesRequest();
    [[nodiscard]] static FetchRequest<Rating> ratingsRequest();
    /// @}

private:
    void writeJoke(const Jokes& joke);

    std::string m_text;
};

/// The whole collection as the text of an exchange file. Throws StoreError when it cannot be read.
[[nodiscard]] std::string writeCollection(ManagedObjectContext& context);

} // namespace giggle
