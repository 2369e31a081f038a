// SPDX-License-Identifier: MIT
#include "exchange/format/PreparedText.h"

#include <algorithm>

namespace giggle {

PreparedText::PreparedText(std::string_view document)
{
    m_text.reserve(document.size());
    std::size_t taken = 0;
    // Searching for one byte is several times faster than for one of two.
    std::size_t carriageReturn = document.find('\r');
    std::size_t apostrophe = document.find('\'');
    while (carriageReturn != apostrophe) { // both are npos behind the last one
        const std::size_t next = std::min(carriageReturn, apostrophe);
        m_text.append(document.substr(taken, next - taken));
        taken = next + 1;
        // A carriage return with a line feed ends one line. The empty line that two ends would make between
        // them would be dropped anyway, and the numbers of the lines would no longer be those of an editor.
        if (next == carriageReturn && !document.substr(taken).starts_with('\n'))
            m_text += '\n';
        (next == apostrophe ? apostrophe : carriageReturn) = document.find(document[next], taken);
    }
    m_text.append(document.substr(taken));
    std::string_view rest = m_text;
    for (std::size_t number = 1;; ++number) {
        const std::size_t end = rest.find('\n');
        m_lines.push_back({rest.substr(0, end), number});
        if (end == std::string_view::npos)
            break;
        rest.remove_prefix(end + 1);
    }
}

bool PreparedText::hasLine(std::string_view text) const
{
    return std::ranges::find(m_lines, text, &PreparedLine::text) != m_lines.end();
}

} // namespace giggle
