// SPDX-License-Identifier: MIT
#include "exchange/format/PreparedText.h"

#include <algorithm>

namespace giggle {

PreparedText::PreparedText(std::string_view document)
{
    m_text.reserve(document.size());
    while (!document.empty()) {
        const std::size_t special = document.find_first_of("\r'");
        m_text.append(document.substr(0, special));
        if (special == std::string_view::npos)
            break;
        const bool isCarriageReturn = document[special] == '\r';
        document.remove_prefix(special + 1);
        // A carriage return with a line feed ends one line. The empty line that two ends would make between
        // them would be dropped anyway, and the numbers of the lines would no longer be those of an editor.
        if (isCarriageReturn && !document.starts_with('\n'))
            m_text += '\n';
    }
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
