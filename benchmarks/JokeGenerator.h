// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace giggle {

/// The share of jokes that are written in other letters than ASCII's, in percent.
enum class ForeignShare { None = 0, Usual = 15, All = 100 };

struct GeneratedJoke {
    std::string_view category;
    std::string_view rating;
    bool favorite;
    std::string text; ///< about 350 bytes; a quarter of them have several lines
};

/// Makes up jokes as a real collection has them: many begin with the same words, a few favourites, categories
/// of different sizes. The same on every run.
class JokeGenerator {
public:
    explicit JokeGenerator(ForeignShare share) : m_share(share) {}

    [[nodiscard]] GeneratedJoke next();

    static constexpr std::array<std::string_view, 22> Categories{
        "Animals",    "Bar",  "Business", "Computers", "Cooking", "Dad Jokes", "Doctors", "Family",
        "Farm",       "Food", "Golf",     "History",   "Kids",    "Lawyers",   "Music",   "Office",
        "One-Liners", "Puns", "School",   "Science",   "Sports",  "Travel"};
    static constexpr std::array<std::string_view, 8> Ratings{"Clean", "Family", "General", "Groaner",
                                                             "Mild",  "Office", "Teens",   "Kids"};

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    ForeignShare m_share;
    std::mt19937 m_random{20'061'993};
};

} // namespace giggle
