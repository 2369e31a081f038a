// SPDX-License-Identifier: MIT
#include "app/Storyboard.h"

#include "exchange/ExportViewController.h"
#include "exchange/ImportExportViewController.h"
#include "exchange/ImportViewController.h"
#include "exchange/PrintViewController.h"
#include "jokes/AddJokeViewController.h"
#include "jokes/DefaultsViewController.h"
#include "jokes/EditJokeViewController.h"
#include "jokes/NewMainListTableViewController.h"
#include "lists/AddCategoryViewController.h"
#include "lists/AddRatingViewController.h"
#include "lists/CategoryBreakdownTableViewController.h"
#include "lists/CategoryTableViewController.h"
#include "lists/EditCategoryViewController.h"
#include "lists/EditRatingViewController.h"
#include "lists/RatingBreakdownTableViewController.h"
#include "lists/RatingTableViewController.h"
#include "lists/TabBarController.h"
#include "shell/JokeOfDayViewController.h"
#include "shell/OverviewViewController.h"
#include "shell/RateShareTableViewController.h"
#include "shell/ReferenceListViewController.h"
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
    SceneDescription{SegueId::AddJoke, makeScreen<AddJokeViewController>, QLatin1StringView("AddJokeView")},
    SceneDescription{SegueId::CategoryBreakdown, makeScreen<CategoryBreakdownTableViewController>,
                     QLatin1StringView("CategoryBreakdownView")},
    SceneDescription{SegueId::AppOverview, makeScreen<OverviewViewController>,
                     QLatin1StringView("OverviewView")},
    SceneDescription{SegueId::DefaultSettings, makeScreen<DefaultsViewController>,
                     QLatin1StringView("DefaultsView")},
    SceneDescription{SegueId::EditJoke, makeScreen<EditJokeViewController>,
                     QLatin1StringView("EditJokeView")},
    SceneDescription{SegueId::ExportJokes, makeScreen<ExportViewController>, QLatin1StringView("ExportView")},
    SceneDescription{SegueId::ImportExport, makeScreen<ImportExportViewController>,
                     QLatin1StringView("ImportExportView")},
    SceneDescription{SegueId::ImportJokes, makeScreen<ImportViewController>, QLatin1StringView("ImportView")},
    SceneDescription{SegueId::JokeOfDay, makeScreen<JokeOfDayViewController>,
                     QLatin1StringView("JokeOfDayView")},
    SceneDescription{SegueId::JokeList, makeScreen<NewMainListTableViewController>,
                     QLatin1StringView("JokeListView")},
    SceneDescription{SegueId::Print, makeScreen<PrintViewController>, QLatin1StringView("PrintView")},
    SceneDescription{SegueId::RateShare, makeScreen<RateShareTableViewController>,
                     QLatin1StringView("RateShareView")},
    SceneDescription{SegueId::ReferenceLists, makeScreen<ReferenceListViewController>,
                     QLatin1StringView("ReferenceListView")},
    SceneDescription{SegueId::CategoryList, makeScreen<CategoryTableViewController>,
                     QLatin1StringView("CategoryListView")},
    SceneDescription{SegueId::AddCategory, makeScreen<AddCategoryViewController>,
                     QLatin1StringView("AddCategoryView")},
    SceneDescription{SegueId::EditCategory, makeScreen<EditCategoryViewController>,
                     QLatin1StringView("EditCategoryView")},
    SceneDescription{SegueId::RatingList, makeScreen<RatingTableViewController>,
                     QLatin1StringView("RatingListView")},
    SceneDescription{SegueId::AddRating, makeScreen<AddRatingViewController>,
                     QLatin1StringView("AddRatingView")},
    SceneDescription{SegueId::EditRating, makeScreen<EditRatingViewController>,
                     QLatin1StringView("EditRatingView")},
    SceneDescription{SegueId::RatingBreakdown, makeScreen<RatingBreakdownTableViewController>,
                     QLatin1StringView("RatingBreakdownView")},
    SceneDescription{SegueId::TabBarController, makeScreen<TabBarController>,
                     QLatin1StringView("TabBarView")},
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
