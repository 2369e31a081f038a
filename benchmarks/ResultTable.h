// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/Figure.h"

namespace giggle {

/// Prints one table of all results at the end, ours beside the baseline, and whether the goal is met; and
/// writes it as a document, if that is asked for.
class ResultTable : public benchmark::BenchmarkReporter {
public:
    /// @p document is the path of a Markdown file to be written, or empty.
    ResultTable(std::vector<Figure> figures, QString document)
        : m_figures(std::move(figures)), m_document(std::move(document))
    {
    }

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    /// Whether all went well so far: no figure failed, and the document could be written.
    [[nodiscard]] bool isWell() const { return m_isWell; }

private:
    struct Row {
        std::string figure;
        std::string size;
        std::string ours;
        std::string baseline;
        std::string ratio;
        std::string goal;
        std::string baselineName;
    };

    void addRow(const Run& run, const Figure& figure);
    [[nodiscard]] bool writeDocument() const;

    std::vector<Figure> m_figures;
    QString m_document;
    std::vector<Row> m_rows;
    bool m_isWell = true;
};

} // namespace giggle
