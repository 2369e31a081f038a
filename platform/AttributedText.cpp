// SPDX-License-Identifier: MIT
#include "platform/AttributedText.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace giggle {

namespace {

QTextCharFormat characterFormat(const TextAttributes& attributes)
{
    QTextCharFormat format;
    if (attributes.font)
        format.setFont(*attributes.font, QTextCharFormat::FontPropertiesSpecifiedOnly);
    if (attributes.foregroundColor)
        format.setForeground(*attributes.foregroundColor);
    return format;
}

QTextBlockFormat blockFormat(const TextAttributes& attributes)
{
    QTextBlockFormat format;
    if (attributes.alignment)
        format.setAlignment(*attributes.alignment);
    return format;
}

} // namespace

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

std::unique_ptr<QTextDocument> AttributedText::toDocument() const
{
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document.get());
    for (const Run& run : m_runs) {
        const QTextCharFormat characters = characterFormat(run.attributes);
        const QTextBlockFormat block = blockFormat(run.attributes);
        const QStringList lines = run.text.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (i > 0)
                cursor.insertBlock(block, characters);
            else if (cursor.atBlockStart())
                cursor.setBlockFormat(block);
            cursor.insertText(lines[i], characters);
        }
    }
    return document;
}

} // namespace giggle
