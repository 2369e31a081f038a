// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace giggle {

/// One line of a document, without its end.
struct PreparedLine {
    std::string_view text;
    std::size_t number; ///< in the document, from 1
};

/// An exchange file's text as the reader takes it apart: carriage returns are line ends, every apostrophe is
/// gone, and there is at least one line. The lines refer to this object.
class PreparedText {
public:
    explicit PreparedText(std::string_view document);

    PreparedText(const PreparedText&) = delete;
    PreparedText& operator=(const PreparedText&) = delete;

    [[nodiscard]] const std::vector<PreparedLine>& lines() const { return m_lines; }

    [[nodiscard]] bool hasLine(std::string_view text) const;

private:
    std::string m_text;
    std::vector<PreparedLine> m_lines;
};

} // namespace giggle
