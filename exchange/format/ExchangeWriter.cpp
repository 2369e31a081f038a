// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeWriter.h"

#include "exchange/format/ExchangeFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>
#include <utility>

namespace giggle {

namespace {

using namespace ExchangeFormat;

void appendNumber(std::string& text, int number)
{
    char digits[8];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, end);
}

void appendEscaped(std::string& text, std::string_view joke)
{
    std::size_t written = 0;
    // Searching for one byte is several times faster than for one of two.
    std::size_t lineFeed = joke.find('\n');
    std::size_t caret = joke.find(FieldSeparator);
    while (lineFeed != caret) { // both are npos behind the last one
        const std::size_t next = std::min(lineFeed, caret);
        text.append(joke.substr(written, next - written));
        text.append(next == caret ? EscapedCaret : EscapedLineFeed);
        written = next + 1;
        (next == caret ? caret : lineFeed) = joke.find(joke[next], written);
    }
    text.append(joke.substr(written));
}

// In jokes. In the order of the file their texts lie anywhere in memory, each on a page of its own.
constexpr std::size_t Batch = 16;

/// Loads the texts of some jokes at once. A hint would not do: processors may drop one when they would have
/// to look up the page first, and that is most of what it takes.
void readAhead(std::span<Jokes* const> jokes)
{
    constexpr std::size_t CacheLine = 64;
    std::array<std::string_view, Batch> texts;
    unsigned seen = 0;
    for (std::size_t i = 0; i < jokes.size(); ++i) {
        texts[i] = jokes[i]->joke().value_or("");
        if (!texts[i].empty())
            seen += static_cast<unsigned char>(texts[i].front());
    }
    [[maybe_unused]] volatile unsigned loaded = seen;
    for (const std::string_view text : texts)
        for (std::size_t offset = CacheLine; offset < std::min<std::size_t>(text.size(), 1024);
             offset += CacheLine)
            __builtin_prefetch(text.data() + offset);
}

void beginSection(std::string& text, std::string_view marker)
{
    text.append("\n").append(marker).append("\n");
}

/// Room for everything at once, so that a large collection is not copied as its text grows.
std::size_t estimatedSize(const std::vector<Jokes*>& jokes)
{
    constexpr std::size_t NumbersAndSeparators = 16;
    std::size_t size = 1024;
    for (const Jokes* joke : jokes)
        size += joke->joke().value_or("").size() + joke->category().value_or("").size() +
                joke->rating().value_or("").size() + NumbersAndSeparators;
    return size + size / 16; // escapes, categories and ratings
}

} // namespace

void ExchangeWriter::writeJokes(const std::vector<Jokes*>& jokes)
{
    m_text.clear();
    m_text.reserve(estimatedSize(jokes));
    m_text.append(CollectionMarker).append("\n");
    for (std::span<Jokes* const> rest = jokes; !rest.empty();
         rest = rest.subspan(std::min(rest.size(), Batch))) {
        const auto batch = rest.first(std::min(rest.size(), Batch));
        readAhead(batch);
        for (const Jokes* joke : batch)
            writeJoke(*joke);
    }
}

void ExchangeWriter::writeJoke(const Jokes& joke)
{
    m_text.append(joke.category().value_or("")) += FieldSeparator;
    m_text.append(joke.rating().value_or("")) += FieldSeparator;
    appendNumber(m_text, joke.id().value_or(0));
    m_text += FieldSeparator;
    m_text += joke.favorite().value_or(false) ? 'T' : 'F';
    m_text += FieldSeparator;
    appendEscaped(m_text, joke.joke().value_or(""));
    m_text += '\n';
}

void ExchangeWriter::writeCategories(const std::vector<Category*>& categories)
{
    beginSection(m_text, CategoryMarker);
    for (const Category* category : categories)
        m_text.append(category->category().value_or("")) += '\n';
}

void ExchangeWriter::writeRatings(const std::vector<Rating*>& ratings)
{
    beginSection(m_text, RatingMarker);
    for (const Rating* rating : ratings)
        m_text.append(rating->rating().value_or("")) += '\n';
}

FetchRequest<Jokes> ExchangeWriter::jokesRequest()
{
    FetchRequest<Jokes> request = Jokes::fetchRequest();
    request.sortDescriptors = {{"category"}, {"joke"}};
    return request;
}

FetchRequest<Category> ExchangeWriter::categoriesRequest()
{
    FetchRequest<Category> request = Category::fetchRequest();
    request.sortDescriptors = {{"category"}};
    return request;
}

FetchRequest<Rating> ExchangeWriter::ratingsRequest()
{
    FetchRequest<Rating> request = Rating::fetchRequest();
    request.sortDescriptors = {{"rating"}};
    return request;
}

std::string writeCollection(ManagedObjectContext& context)
{
    ExchangeWriter writer;
    writer.writeJokes(context.fetch(ExchangeWriter::jokesRequest()));
    writer.writeCategories(context.fetch(ExchangeWriter::categoriesRequest()));
    writer.writeRatings(context.fetch(ExchangeWriter::ratingsRequest()));
    return std::move(writer).text();
}

} // namespace giggle
