// SPDX-License-Identifier: MIT
#include "app/Storyboard.h"

#include "exchange/ExportViewController.h"
#include "exchange/ImportExportViewController.h"
#include "exchange/ImportViewController.h"
#include "jokes/AddJokeViewController.h"
#include "jokes/EditJokeViewController.h"
#include "jokes/NewMainListTableViewController.h"
#include "shell/JokeOfDayViewController.h"
#include "shell/ViewController.h"

#include <algorithm>
#include <array>

namespace giggle {

namespace {

template <class ScreenClass>
std::unique_ptr<Screen> makeScreen(ScreenEnvironment& environment)
{
    return std::make_unique<ScreenClass>(environment);
}

struct SceneDescription {
    SegueId segue;
    std::unique_ptr<Screen> (*makeScreen)(ScreenEnvironment&);
    QLatin1StringView page;
};

constexpr std::array Scenes{
    SceneDescription{SegueId::AddJoke, makeScreen<AddJokeViewController>,
                     QLatin1StringView("AddJokeView")},
    SceneDescription{SegueId::EditJoke, makeScreen<EditJokeViewController>,
                     QLatin1StringView("EditJokeView")},
    SceneDescription{SegueId::ExportJokes, makeScreen<ExportViewController>,
                     QLatin1StringView("ExportView")},
    SceneDescription{SegueId::ImportExport, makeScreen<ImportExportViewController>,
                     QLatin1StringView("ImportExportView")},
    SceneDescription{SegueId::ImportJokes, makeScreen<ImportViewController>,
                     QLatin1StringView("ImportView")},
    SceneDescription{SegueId::JokeOfDay, makeScreen<JokeOfDayViewController>,
                     QLatin1StringView("JokeOfDayView")},
    SceneDescription{SegueId::JokeList, makeScreen<NewMainListTableViewController>,
                     QLatin1StringView("JokeListView")},
};

const SceneDescription* sceneBehind(SegueId segue)
{
    const auto found = std::ranges::find(Scenes, segue, &SceneDescription::segue);
    return found == Scenes.end() ? nullptr : &*found;
}

QUrl pageUrl(QLatin1StringView page)
{
    return QUrl(QStringLiteral("qrc:/qt/qml/GiggleArchives/%1.qml").arg(page));
}

} // namespace

bool Storyboard::hasScene(SegueId segue) const
{
    return sceneBehind(segue) != nullptr;
}

Scene Storyboard::makeRoot()
{
    return {makeScreen<ViewController>(*m_environment), pageUrl(QLatin1StringView("MainMenuView"))};
}

Scene Storyboard::makeScene(SegueId segue)
{
    const SceneDescription* scene = sceneBehind(segue);
    if (!scene)
        return {};
    return {scene->makeScreen(*m_environment), pageUrl(scene->page)};
}

} // namespace giggle
