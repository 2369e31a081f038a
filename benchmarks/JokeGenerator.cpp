// SPDX-License-Identifier: MIT
#include "benchmarks/JokeGenerator.h"

#include <algorithm>
#include <span>

namespace giggle {

namespace {

struct Vocabulary {
    std::span<const std::string_view> openers;
    std::span<const std::string_view> words;
};

constexpr std::array<std::string_view, 8> EnglishOpeners{"Why did the ",
                                                         "What do you call a ",
                                                         "How many ",
                                                         "A man walks into a ",
                                                         "What did one ",
                                                         "Knock knock. Who is there? ",
                                                         "Did you hear about the ",
                                                         "My doctor told me that "};
constexpr std::array<std::string_view, 48> EnglishWords{
    "chicken",  "road",    "bartender", "piano",   "lawyer", "the",      "of",     "cross",
    "with",     "because", "engineer",  "light",   "bulb",   "horse",    "long",   "face",
    "said",     "Monday",  "banana",    "never",   "doctor", "penguin",  "fridge", "and",
    "computer", "reboot",  "cheese",    "teacher", "to",     "he",       "asked",  "me",
    "why",      "parrot",  "elephant",  "was",     "under",  "umbrella", "that",   "golf",
    "ball",     "three",   "wishes",    "genie",   "it",     "farmer",   "in",     "forgot"};
constexpr std::array<std::string_view, 4> RussianOpeners{"Почему ", "Как называется ", "Приходит человек в ",
                                                         "Сколько нужно "};
constexpr std::array<std::string_view, 32> RussianWords{
    "курица",  "дорога", "бармен",  "рояль",  "адвокат", "через",   "потому",  "что",
    "инженер", "лампа",  "лошадь",  "сказал", "никогда", "доктор",  "пингвин", "и",
    "Петя",    "сыр",    "учитель", "он",     "спросил", "меня",    "попугай", "слон",
    "под",     "зонтик", "в",       "мяч",    "три",     "желания", "забыл",   "Ёжик"};

constexpr Vocabulary English{EnglishOpeners, EnglishWords};
constexpr Vocabulary Russian{RussianOpeners, RussianWords};

} // namespace

GeneratedJoke JokeGenerator::next()
{
    const Vocabulary& vocabulary = below(100) < static_cast<std::size_t>(m_share) ? Russian : English;
    const std::size_t length = 200 + below(300);
    std::string text(vocabulary.openers[below(vocabulary.openers.size())]);
    while (text.size() < length)
        text.append(vocabulary.words[below(vocabulary.words.size())]) += ' ';
    text.back() = '.';
    if (below(4) == 0)
        std::ranges::replace(text, '?', '\n');
    // The smaller of two numbers: the first categories are larger than the last ones.
    const std::size_t category = std::min(below(Categories.size()), below(Categories.size()));
    return {Categories[category], Ratings[below(Ratings.size())], below(8) == 0, std::move(text)};
}

} // namespace giggle
