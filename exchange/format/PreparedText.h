// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace giggle {

/// One line of a document, without its end.
struct PreparedLine {
    std::string_view text;
    std::size_t number; ///< in the document, from 1
};

/// An exchange file's text as the reader takes it apart, line by line: carriage returns are line ends, every
/// apostrophe is gone, and there is at least one line. It refers to the document, which is not copied.
class PreparedText {
public:
    explicit PreparedText(std::string_view document);

    PreparedText(const PreparedText&) = delete;
    PreparedText& operator=(const PreparedText&) = delete;

    /// The next line, which stays valid until the one behind it is asked for, or false behind the last.
    [[nodiscard]] bool next(PreparedLine& line);

private:
    std::string_view m_document;
    std::size_t m_position = 0;
    std::size_t m_lineFeed;       // the next one
    std::size_t m_carriageReturn; // the next one
    std::size_t m_number = 0;
    bool m_isAtEnd = false;
    std::string m_line;
};

/// Whether a prepared line of @p document is exactly @p text.
[[nodiscard]] bool hasPreparedLine(std::string_view document, std::string_view text);

} // namespace giggle
