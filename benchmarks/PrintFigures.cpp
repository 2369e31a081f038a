// SPDX-License-Identifier: MIT
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "jokes/JokeComposition.h"
#include "store/PersistentContainer.h"
#include "ui/PaperSizes.h"
#include "ui/PdfFile.h"

#include <QFile>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace giggle {

namespace {

/// A document of more jokes takes minutes.
constexpr std::size_t MostInDocument = 4000;

AttributedText printedJokes(Collections& collections, std::size_t size, std::size_t count)
{
    const PersistentContainer container = Collections::open(collections.folder(size));
    std::vector<Jokes*> jokes = container.viewContext().fetch(Jokes::fetchRequest());
    jokes.resize(std::min(jokes.size(), count));
    return composeJokes(jokes).attributedText();
}

std::unique_ptr<QTextDocument> documentOf(const AttributedText& text)
{
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document.get());
    for (const AttributedText::Run& run : text.runs()) {
        QTextCharFormat format;
        if (run.attributes.font)
            format.setFont(*run.attributes.font);
        QTextBlockFormat block;
        block.setAlignment(run.attributes.alignment.value_or(Qt::AlignLeft));
        cursor.setBlockFormat(block);
        cursor.insertText(run.text, format);
    }
    return document;
}

int pagesIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the document was not printed");
    return static_cast<int>(file.readAll().count("/Type /Page\n"));
}

/// Both sides give the seconds that a page takes.
Sides pdfSides(Collections& collections, std::size_t size)
{
    const auto folder = std::make_shared<QTemporaryDir>();
    const auto text = std::make_shared<const AttributedText>(printedJokes(collections, size, size));
    const auto document =
        std::shared_ptr<QTextDocument>(documentOf(printedJokes(collections, size, MostInDocument)));
    const auto ours = [=] {
        int pages = 0;
        const double seconds = secondsFor([&] {
            const PdfOutcome outcome = makePdfFile(*text, usualPapers().front().size, QStringLiteral("Jokes"),
                                                   folder->filePath(QStringLiteral("ours.pdf")));
            if (!outcome.failure.isEmpty())
                throw std::runtime_error(outcome.failure.toStdString());
            pages = outcome.pages;
            return pages;
        });
        return seconds / pages;
    };
    const auto baseline = [=] {
        const QString path = folder->filePath(QStringLiteral("plain.pdf"));
        const double seconds = secondsFor([&] {
            QPdfWriter writer(path);
            writer.setPageSize(QPageSize(QPageSize::A4));
            writer.setResolution(72); // the sizes of the fonts are points
            document->print(&writer);
            return 0;
        });
        return seconds / pagesIn(path);
    };
    return {ours, baseline};
}

} // namespace

std::vector<Figure> printFigures()
{
    // 500 pages a second.
    return {{"PDF file, for each page", "QTextDocument::print", {.largestValue = 2e-3}, pdfSides, 3}};
}

} // namespace giggle
