// SPDX-License-Identifier: MIT
#include "benchmarks/BaselineDatabase.h"
#include "benchmarks/Collections.h"
#include "benchmarks/Figure.h"
#include "benchmarks/ScreenSession.h"

#include <QCoreApplication>
#include <QProcess>

#include <algorithm>
#include <stdexcept>

namespace giggle {

namespace {

constexpr int ScrolledFrames = 600;

double percentile99(std::vector<double> values)
{
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() * 99 / 100);
    std::ranges::nth_element(values, place);
    return *place;
}

/// The file is on the disk's account, what grows over its reading and showing is the application's.
double measureExchange(ScreenSession& session, ScreenMeasurement measurement, const QString& folder)
{
    const std::size_t before = residentBytes();
    const bool isExport =
        measurement == ScreenMeasurement::Export || measurement == ScreenMeasurement::ExportMemory;
    const double seconds =
        isExport ? session.exportFile() : session.importFile(folder + QStringLiteral("/jokes.csv"));
    const bool isTime = measurement == ScreenMeasurement::Export || measurement == ScreenMeasurement::Import;
    return isTime ? seconds : double(peakBytes() - before);
}

} // namespace

double measuredElsewhere(ScreenMeasurement measurement, const QString& folder)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--screens"), folder, QString::number(static_cast<int>(measurement))});
    process.waitForFinished(120'000);
    bool isNumber = false;
    const double value = process.readAllStandardOutput().trimmed().split('\n').back().toDouble(&isNumber);
    if (!isNumber)
        throw std::runtime_error("the process that measures the screens failed");
    return value;
}

namespace {

/// Against the same screens over an empty collection: what grows with the collection stands out.
Sides screenSides(ScreenMeasurement measurement, Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    const QString empty = collections.emptyFolder();
    return {[=] { return measuredElsewhere(measurement, folder); },
            [=] { return measuredElsewhere(measurement, empty); }};
}

Sides firstFrameSides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    return {[folder] { return measuredElsewhere(ScreenMeasurement::JokeListFrame, folder); },
            [folder] {
                return secondsFor([&] {
                    return BaselineDatabase(Collections::fileIn(folder), BaselineDatabase::Sync::Full)
                        .jokes("ORDER BY category, joke");
                });
            }};
}

Sides editorFrameSides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    const QString small = collections.folder(1000);
    return {[folder] { return measuredElsewhere(ScreenMeasurement::EditorFrame, folder); },
            [small] { return measuredElsewhere(ScreenMeasurement::EditorFrame, small); }};
}

/// Against the same change to the same row, by its text, with the plain API.
Sides editorSaveSides(Collections& collections, std::size_t size)
{
    const QString folder = collections.folder(size);
    return {[folder] { return measuredElsewhere(ScreenMeasurement::EditorSave, folder); },
            [folder, size] {
                BaselineDatabase database(Collections::fileIn(folder), BaselineDatabase::Sync::Full);
                RawJoke row = database.jokes("ORDER BY category, joke")[size / 2];
                row.favorite = 1 - row.favorite;
                return secondsFor([&] {
                    database.upsert(row);
                    return database.jokes("ORDER BY category, joke").size();
                });
            }};
}

} // namespace

double measureScreens(ScreenMeasurement measurement, const QString& folder)
{
    ScreenSession session(folder);
    const double menuFrame = session.openMenu();
    if (measurement == ScreenMeasurement::MenuFrame)
        return menuFrame;
    if (measurement == ScreenMeasurement::BreakdownFrame)
        return session.openLargestBreakdown();
    if (measurement >= ScreenMeasurement::Export)
        return measureExchange(session, measurement, folder);
    const double listFrame = session.openJokeList();
    if (measurement == ScreenMeasurement::JokeListFrame)
        return listFrame;
    if (measurement == ScreenMeasurement::EditorFrame || measurement == ScreenMeasurement::EditorSave) {
        const double editorFrame = session.openEditor();
        return measurement == ScreenMeasurement::EditorFrame ? editorFrame : session.saveInEditor();
    }
    const std::vector<double> frames = session.scroll(ScrolledFrames);
    return measurement == ScreenMeasurement::ScrolledFrame ? percentile99(frames) : double(residentBytes());
}

std::vector<Figure> screenFigures()
{
    const auto against = [](ScreenMeasurement measurement) {
        return [measurement](Collections& collections, std::size_t size) {
            return screenSides(measurement, collections, size);
        };
    };
    return {
        {"start to the menu's first frame",
         "empty collection",
         {.largestRatio = 1.15},
         against(ScreenMeasurement::MenuFrame),
         5},
        {"joke list, tap to first frame", "raw ORDER BY", {.largestValue = 0.3}, firstFrameSides, 5},
        {"editor, tap to first frame", "with 1,000 jokes", {.largestValue = 0.1}, editorFrameSides, 5},
        {"editor, save and list anew",
         "raw upsert and ORDER BY",
         {.largestValue = 20e-3},
         editorSaveSides,
         5},
        {"scrolling, 99 % of frames",
         "empty collection",
         {.largestValue = 16e-3},
         against(ScreenMeasurement::ScrolledFrame),
         3},
        {"resident memory, list scrolled",
         "empty collection",
         {.largestValue = 150e6},
         against(ScreenMeasurement::Memory),
         3,
         Unit::Bytes},
    };
}

} // namespace giggle
