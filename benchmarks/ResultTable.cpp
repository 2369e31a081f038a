// SPDX-License-Identifier: MIT
#include "benchmarks/ResultTable.h"

#include <algorithm>
#include <cstdio>

namespace giggle {

namespace {

template <class... Values>
std::string formatted(const char* format, Values... values)
{
    char text[256];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string inUnit(double value, Unit unit)
{
    if (unit == Unit::Bytes)
        return formatted("%.1f MB", value / 1e6);
    if (value < 1e-6)
        return formatted("%.0f ns", value * 1e9);
    if (value < 1e-3)
        return formatted("%.1f us", value * 1e6);
    return formatted("%.2f ms", value * 1e3);
}

std::string row(const std::string& figure, const std::string& size, const std::string& ours,
                const std::string& baseline, const std::string& ratio, const std::string& goal,
                const std::string& baselineName)
{
    return formatted("%-43s %6s %11s %11s %8s  %-23s %s\n", figure.c_str(), size.c_str(), ours.c_str(),
                     baseline.c_str(), ratio.c_str(), goal.c_str(), baselineName.c_str());
}

std::string verdict(const std::string& goal, bool isMet)
{
    return goal + (isMet ? ": met" : ": MISSED");
}

} // namespace

void ResultTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        std::fprintf(stderr, "%s %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
        const auto figure = std::ranges::find(m_figures, run.run_name.function_name, &Figure::name);
        if (!run.error_occurred && figure != m_figures.end())
            addRow(run, *figure);
    }
}

void ResultTable::addRow(const Run& run, const Figure& figure)
{
    const double ours = run.counters.at("ours");
    const double baseline = run.counters.at("baseline");
    std::string goal;
    if (run.run_name.args == std::to_string(LargestSize)) {
        if (const auto limit = figure.goal.largestRatio)
            goal = verdict(formatted("ratio <= %.4g", *limit), ours / baseline <= *limit);
        if (const auto limit = figure.goal.largestValue)
            goal = verdict("<= " + inUnit(*limit, figure.unit), ours <= *limit);
    }
    m_rows.push_back(row(figure.name, run.run_name.args, inUnit(ours, figure.unit),
                         inUnit(baseline, figure.unit), formatted("%.3g", ours / baseline), goal,
                         figure.baselineName));
}

void ResultTable::Finalize()
{
    std::fputs(row("figure", "jokes", "ours", "baseline", "ratio", "goal", "baseline is").c_str(), stdout);
    for (const std::string& line : m_rows)
        std::fputs(line.c_str(), stdout);
}

} // namespace giggle
