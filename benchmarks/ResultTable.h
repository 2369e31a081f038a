// SPDX-License-Identifier: MIT
#pragma once

#include "benchmarks/Figure.h"

namespace giggle {

/// Prints one table of all results at the end: ours beside the baseline, and whether the goal is met.
class ResultTable : public benchmark::BenchmarkReporter {
public:
    explicit ResultTable(std::vector<Figure> figures) : m_figures(std::move(figures)) {}

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    void addRow(const Run& run, const Figure& figure);

    std::vector<Figure> m_figures;
    std::vector<std::string> m_rows;
};

} // namespace giggle
