// SPDX-License-Identifier: MIT
#include "store/FoldedTexts.h"

#include "store/ByteScan.h"
#include "store/Jokes.h"

#include <QString>

#include <algorithm>

namespace giggle {

void FoldedTexts::prepare(const std::pmr::deque<Jokes>& jokes, std::size_t first, std::size_t count)
{
    m_texts.resize(jokes.size());
    const std::size_t last = std::min(jokes.size(), first + count);
    for (std::size_t i = first; i < last; ++i)
        if (!m_texts[i].data())
            m_texts[i] = folded(jokes[i], i);
}

const std::vector<std::string_view>& FoldedTexts::of(const std::pmr::deque<Jokes>& jokes)
{
    prepare(jokes, 0, jokes.size());
    return m_texts;
}

void FoldedTexts::forget(std::size_t position)
{
    if (position < m_texts.size())
        m_texts[position] = {};
}

std::string_view FoldedTexts::folded(const Jokes& joke, std::size_t position)
{
    const std::string_view text = joke.joke().value_or("");
    if (isAscii(text)) {
        m_lowered.erase(position);
        return text.empty() ? "" : text;
    }
    std::string& copy = m_lowered[position];
    // Room comes first, so that the copies lie one behind the other, and not where there is room between what
    // lowering needs for a while.
    copy.reserve(text.size());
    return copy.assign(lowered(text));
}

std::string lowered(std::string_view text)
{
    return QString::fromUtf8(text).toLower().toUtf8().toStdString();
}

} // namespace giggle
