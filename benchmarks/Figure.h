// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace giggle {

class Collections;

inline constexpr std::size_t LargestSize = 65536; // all that 16-bit ids can number

/// What is wanted of a figure in the largest collection.
struct Goal {
    std::optional<double> largestRatio = {}; ///< ours to the baseline
    std::optional<double> largestValue = {}; ///< of ours, in the figure's unit
};

enum class Unit { Seconds, Bytes };

/// A figure's two sides. Each call does the work once and returns what it measured, in the figure's unit.
struct Sides {
    std::function<double()> ours;
    std::function<double()> baseline;
};

/// Something that is measured beside its baseline.
struct Figure {
    std::string name;
    std::string baselineName;
    Goal goal;
    /// Makes what both sides need for collections of @p size jokes; not measured. The sides own it.
    std::function<Sides(Collections& collections, std::size_t size)> prepare;
    int rounds = 9; ///< each runs both sides; their medians count
    Unit unit = Unit::Seconds;
};

[[nodiscard]] std::vector<Figure> storeFigures();
[[nodiscard]] std::vector<Figure> searchFigures();
[[nodiscard]] std::vector<Figure> exchangeFigures();
[[nodiscard]] std::vector<Figure> groupFigures();
[[nodiscard]] std::vector<Figure> printFigures();
[[nodiscard]] std::vector<Figure> screenFigures();

enum class ScreenMeasurement {
    MenuFrame,
    JokeListFrame,
    ScrolledFrame,
    Memory,
    EditorFrame,
    EditorSave,
    BreakdownFrame,
    Export,
    ExportMemory,
    Import,      ///< of the file "jokes.csv" in the collection's folder
    ImportMemory ///< the same
};

/// Shows the screens over the collection in @p folder, in this process, and measures one thing about them:
/// seconds, or bytes of memory. Once in a process; needs a QGuiApplication.
[[nodiscard]] double measureScreens(ScreenMeasurement measurement, const QString& folder);

/// The same in a process of its own, whose screens nothing has shown before.
[[nodiscard]] double measuredElsewhere(ScreenMeasurement measurement, const QString& folder);

/// How much memory this process has at the moment.
[[nodiscard]] std::size_t residentBytes();

/// The most memory that this process has had.
[[nodiscard]] std::size_t peakBytes();

/// How long it takes until @p work has returned; what becomes of its result takes no part.
template <class Work>
double secondsFor(const Work& work)
{
    const auto start = std::chrono::steady_clock::now();
    auto result = work();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    benchmark::DoNotOptimize(result);
    return time.count();
}

} // namespace giggle
