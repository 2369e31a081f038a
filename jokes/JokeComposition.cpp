// SPDX-License-Identifier: MIT
#include "jokes/JokeComposition.h"

#include "ui/DisplayText.h"

#include <array>

namespace giggle {

namespace {

constexpr std::string_view Header = "From: Giggle Archives App for iPhone and iPad\n\n";
constexpr std::string_view Dashes = "\n----------------------------------";
constexpr std::string_view Room = "\n\n\n";
constexpr std::size_t PiecesOfJoke = 3;

QFont boldSystemFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    font.setBold(true);
    return font;
}

} // namespace

TextAttributes JokeComposition::attributes(Look look)
{
    constexpr int HeaderSize = 20;
    constexpr int JokeSize = 18;
    switch (look) {
    case Look::Header:
        return {Qt::black, boldSystemFont(HeaderSize), Qt::AlignHCenter};
    case Look::Joke:
        return {Qt::black, boldSystemFont(JokeSize), Qt::AlignHCenter};
    case Look::Dashes:
        return {{}, {}, Qt::AlignHCenter};
    case Look::Room:
        break;
    }
    return {Qt::black, {}, {}};
}

void JokeComposition::append(std::string_view text, Look look)
{
    m_text += text;
    m_pieces.push_back({m_text.size(), look});
}

void JokeComposition::appendHeader()
{
    append(Header, Look::Header);
}

void JokeComposition::appendJoke(std::string_view text)
{
    append(text, Look::Joke);
    append(Dashes, Look::Dashes);
    append(Room, Look::Room);
}

void JokeComposition::appendJokes(const std::vector<Jokes*>& jokes)
{
    std::size_t size = m_text.size();
    for (const Jokes* joke : jokes)
        size += joke->joke().value_or("").size() + Dashes.size() + Room.size();
    m_text.reserve(size);
    m_pieces.reserve(m_pieces.size() + PiecesOfJoke * jokes.size());
    for (const Jokes* joke : jokes)
        appendJoke(joke->joke().value_or(""));
}

QString JokeComposition::plainText() const
{
    return textOrEmpty(m_text);
}

AttributedText JokeComposition::attributedText() const
{
    const std::array looks{attributes(Look::Header), attributes(Look::Joke), attributes(Look::Dashes),
                           attributes(Look::Room)};
    AttributedText composition;
    std::size_t start = 0;
    for (const auto& [end, look] : m_pieces) {
        const std::string_view text = std::string_view(m_text).substr(start, end - start);
        composition.append(textOrEmpty(text), looks[static_cast<std::size_t>(look)]);
        start = end;
    }
    return composition;
}

JokeComposition composeJokes(const std::vector<Jokes*>& jokes)
{
    JokeComposition composition;
    composition.appendJokes(jokes);
    return composition;
}

} // namespace giggle
