// SPDX-License-Identifier: MIT
#include "platform/AttributedText.h"

namespace giggle {

void AttributedText::append(const QString& text, const TextAttributes& attributes)
{
    if (!text.isEmpty())
        m_runs.push_back({text, attributes});
}

QString AttributedText::plainText() const
{
    QString text;
    for (const Run& run : m_runs)
        text += run.text;
    return text;
}

} // namespace giggle
