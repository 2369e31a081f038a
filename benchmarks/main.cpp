// SPDX-License-Identifier: MIT
#include "benchmarks/Collections.h"
#include "benchmarks/ResultTable.h"
#include "store/TextSearch.h"

#include <QGuiApplication>
#include <QQuickWindow>

#include <algorithm>
#include <cstdio>
#include <fstream>

#include <unistd.h>

namespace {

using namespace giggle;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Runs both sides in turn, so that whatever slows the machine down for a while slows down both.
void compare(benchmark::State& state, Collections& collections, const Figure& figure)
{
    const Sides sides = figure.prepare(collections, static_cast<std::size_t>(state.range(0)));
    std::vector<double> ours;
    std::vector<double> baseline;
    for (auto round : state) {
        (void)round;
        ours.push_back(sides.ours());
        baseline.push_back(sides.baseline());
        state.SetIterationTime(ours.back());
    }
    state.counters["ours"] = median(ours);
    state.counters["baseline"] = median(baseline);
}

/// Prints by how many bytes opening the collection in @p folder, ready for searches, makes this process grow.
int printResidentBytes(const QString& folder)
{
    const std::size_t before = residentBytes();
    const PersistentContainer container = Collections::open(folder);
    Collections::materialise(container);
    (void)TextSearch::prepare(container.viewContext(), 0, LargestSize);
    std::printf("%zu\n", residentBytes() - before);
    return 0;
}

std::vector<Figure> allFigures()
{
    std::vector<Figure> figures = storeFigures();
    std::ranges::move(searchFigures(), std::back_inserter(figures));
    std::ranges::move(exchangeFigures(), std::back_inserter(figures));
    std::ranges::move(groupFigures(), std::back_inserter(figures));
    std::ranges::move(printFigures(), std::back_inserter(figures));
    std::ranges::move(screenFigures(), std::back_inserter(figures));
    return figures;
}

/// The path behind --write; both are taken out of the arguments.
QString takeDocument(int& argc, char** argv)
{
    char** const end = argv + argc;
    char** const option = std::find(argv, end, std::string_view("--write"));
    if (end - option < 2)
        return {};
    const QString document = QString::fromLocal8Bit(option[1]);
    std::rotate(option, option + 2, end);
    argc -= 2;
    return document;
}

} // namespace

std::size_t giggle::residentBytes()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

std::size_t giggle::peakBytes()
{
    // What getrusage() says begins with the peak of the process that started this one.
    constexpr std::size_t Unit = 1024;
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (std::size_t peak = 0; word == "VmHWM:" && status >> peak)
            return peak * Unit;
    return 0;
}

/// Arguments: --quick for a third of the rounds, --write and a path for the table as a document, and those of
/// Google Benchmark, such as --benchmark_filter.
int main(int argc, char** argv)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1StringView("--resident"))
        return printResidentBytes(arguments[2]);
    if (arguments.size() == 4 && arguments[1] == QLatin1StringView("--screens")) {
        std::printf("%g\n",
                    measureScreens(static_cast<ScreenMeasurement>(arguments[3].toInt()), arguments[2]));
        return 0;
    }
    const bool isQuick = arguments.contains(QLatin1StringView("--quick"));
    argc = static_cast<int>(std::remove(argv, argv + argc, std::string_view("--quick")) - argv);
    const QString document = takeDocument(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;

    Collections collections;
    const std::vector<Figure> figures = allFigures();
    for (const Figure& figure : figures)
        benchmark::RegisterBenchmark(figure.name.c_str(), compare, std::ref(collections), figure)
            ->Arg(1000)
            ->Arg(8000)
            ->Arg(LargestSize)
            ->Iterations(isQuick ? (figure.rounds + 2) / 3 : figure.rounds)
            ->UseManualTime();
    ResultTable table(figures, document);
    benchmark::RunSpecifiedBenchmarks(&table);
    return table.isWell() ? 0 : 1;
}
