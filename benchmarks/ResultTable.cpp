// SPDX-License-Identifier: MIT
#include "benchmarks/ResultTable.h"

#include "ui/AtomicFile.h"

#include <QDate>
#include <QFile>
#include <QSysInfo>
#include <QThread>

#include <algorithm>
#include <cstdio>

#include <sqlite3.h>
#include <unistd.h>

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

std::string verdict(const std::string& goal, bool isMet)
{
    return goal + (isMet ? ": met" : ": MISSED");
}

QString processor()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    if (file.open(QIODevice::ReadOnly))
        for (const QByteArray& line : file.readAll().split('\n'))
            if (line.startsWith("model name"))
                return QString::fromUtf8(line.mid(line.indexOf(':') + 1).trimmed());
    return QSysInfo::currentCpuArchitecture();
}

/// What was written by hand below the table.
std::string notesIn(const QString& document)
{
    QFile file(document);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = file.readAll();
    const qsizetype notes = text.indexOf("\n## Notes\n");
    return notes < 0 ? std::string() : text.mid(notes).toStdString();
}

std::string machine()
{
    const double gigabytes =
        double(::sysconf(_SC_PHYS_PAGES)) * double(::sysconf(_SC_PAGESIZE)) / (1024.0 * 1024 * 1024);
    return QStringLiteral(
               "%1, on %2 with %3 cores and %4 GB of memory; %5, Linux %6, Qt %7, SQLite %8, GCC %9.\n")
        .arg(QDate::currentDate().toString(Qt::ISODate), processor(),
             QString::number(QThread::idealThreadCount()), QString::number(gigabytes, 'f', 0),
             QSysInfo::prettyProductName(), QSysInfo::kernelVersion(), QString::fromLatin1(qVersion()),
             QString::fromLatin1(sqlite3_libversion()), QStringLiteral(__VERSION__))
        .toStdString();
}

} // namespace

void ResultTable::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        m_isWell = m_isWell && !run.error_occurred;
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
    m_rows.push_back({figure.name, run.run_name.args, inUnit(ours, figure.unit),
                      inUnit(baseline, figure.unit), formatted("%.3g", ours / baseline), goal,
                      figure.baselineName});
}

void ResultTable::Finalize()
{
    std::vector<Row> rows{{"figure", "jokes", "ours", "baseline", "ratio", "goal", "baseline is"}};
    rows.insert(rows.end(), m_rows.begin(), m_rows.end());
    for (const Row& row : rows)
        std::printf("%-43s %6s %11s %11s %8s  %-23s %s\n", row.figure.c_str(), row.size.c_str(),
                    row.ours.c_str(), row.baseline.c_str(), row.ratio.c_str(), row.goal.c_str(),
                    row.baselineName.c_str());
    if (!m_document.isEmpty())
        m_isWell = writeDocument() && m_isWell;
}

bool ResultTable::writeDocument() const
{
    std::string text =
        "# How fast it is\n\n"
        "Written by `./benchmark --write docs/performance.md`, which runs every figure in "
        "collections of 1,000, 8,000 and\n65,536 jokes, the most that there can be. Each round "
        "measures ours and then the baseline; the medians count. Goals\nare for the largest "
        "collection.\n\n";
    text += machine();
    std::string figure;
    for (const Row& row : m_rows) {
        if (figure.empty())
            text += "\n| figure | jokes | ours | baseline | ratio | goal | baseline is |\n"
                    "|---|--:|--:|--:|--:|---|---|\n";
        figure = row.figure;
        text += "| " + row.figure + " | " + row.size + " | " + row.ours + " | " + row.baseline + " | " +
                row.ratio + " | " + row.goal + " | " + row.baselineName + " |\n";
    }
    text += notesIn(m_document);
    const QString failure = writeAtomically(m_document, text);
    if (!failure.isEmpty())
        std::fprintf(stderr, "%s\n", qUtf8Printable(failure));
    return failure.isEmpty();
}

} // namespace giggle
