// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <optional>
#include <vector>

namespace giggle {

/// How a piece of text looks. What is unset is left to where the text is shown.
struct TextAttributes {
    std::optional<QColor> foregroundColor;
    std::optional<QFont> font;
    std::optional<Qt::Alignment> alignment; ///< of the paragraphs that begin in the piece

    bool operator==(const TextAttributes&) const = default;
};

/// A text whose pieces look different: what rows show, and what is shared, mailed and printed. Paragraphs end
/// with a line feed. The text itself is kept as it is, to the last code unit.
class AttributedText {
public:
    struct Run {
        QString text;
        TextAttributes attributes;
    };

    void append(const QString& text, const TextAttributes& attributes = {});

    [[nodiscard]] const std::vector<Run>& runs() const { return m_runs; }

    [[nodiscard]] QString plainText() const;

private:
    std::vector<Run> m_runs;
};

} // namespace giggle
