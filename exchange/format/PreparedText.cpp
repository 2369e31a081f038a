// SPDX-License-Identifier: MIT
#include "exchange/format/PreparedText.h"

#include <algorithm>

namespace giggle {

// Searching for one byte is several times faster than for one of two, and each is looked for once.
PreparedText::PreparedText(std::string_view document)
    : m_document(document), m_lineFeed(document.find('\n')), m_carriageReturn(document.find('\r'))
{
}

bool PreparedText::next(PreparedLine& line)
{
    if (m_isAtEnd)
        return false;
    const std::size_t end = std::min(m_lineFeed, m_carriageReturn);
    m_isAtEnd = end == std::string_view::npos;
    line = {m_document.substr(m_position, m_isAtEnd ? end : end - m_position), ++m_number};
    if (!m_isAtEnd) {
        // A carriage return with a line feed ends one line. The empty line that two ends would make between
        // them would be dropped anyway, and the numbers of the lines would no longer be those of an editor.
        const bool areBoth = m_carriageReturn < m_lineFeed && m_lineFeed == m_carriageReturn + 1;
        m_position = end + (areBoth ? 2 : 1);
        if (m_lineFeed < m_position)
            m_lineFeed = m_document.find('\n', m_position);
        if (m_carriageReturn < m_position)
            m_carriageReturn = m_document.find('\r', m_position);
    }
    if (line.text.find('\'') != std::string_view::npos) {
        m_line = line.text;
        std::erase(m_line, '\'');
        line.text = m_line;
    }
    return true;
}

bool hasPreparedLine(std::string_view document, std::string_view text)
{
    PreparedText prepared(document);
    for (PreparedLine line{}; prepared.next(line);)
        if (line.text == text)
            return true;
    return false;
}

} // namespace giggle
