// SPDX-License-Identifier: MIT
#include "ui/NavigationController.h"

#include "store/FatalError.h"

#include <QQmlEngine>

#include <algorithm>
#include <utility>

namespace giggle {

NavigationController::NavigationController(SceneFactory& scenes) : m_scenes(scenes) {}

NavigationController::~NavigationController() = default;

bool NavigationController::canPerform(SegueId segue) const
{
    return m_scenes.hasScene(segue);
}

void NavigationController::performSegue(SegueId segue)
{
    if (!canPerform(segue))
        return;
    if (!m_stack.empty()) {
        Entry& top = m_stack.back();
        if (top.openedBy == segue && top.appearing != Appearing::Done)
            return;
        if (top.openedBy == segue && top.screen->answersSegue(segue))
            return;
        top.screen->prepareForSegue(segue);
    }
    push(m_scenes.makeScene(segue), segue);
}

void NavigationController::push(Scene scene, std::optional<SegueId> openedBy)
{
    m_passingNotices.clear();
    Screen* screen = scene.screen.get();
    // A page must never hand the screen to the script engine's garbage collector.
    QQmlEngine::setObjectOwnership(screen, QQmlEngine::CppOwnership);
    m_stack.push_back({std::move(scene.screen), openedBy, Appearing::Underway});
    screen->viewDidLoad();
    screen->viewWillAppear();
    emit depthChanged();
    emit pushed(screen, scene.page, m_stack.size() > 1);
}

void NavigationController::start()
{
    if (m_stack.empty())
        push(m_scenes.makeRoot(), std::nullopt);
}

void NavigationController::back()
{
    if (!m_stack.empty() && m_stack.back().screen->hasUnsavedChanges())
        askToDiscard([this] { popTop(); });
    else
        popTop();
}

bool NavigationController::mayClose()
{
    // A file that is opened from outside can lead on from an editor.
    if (std::ranges::none_of(m_stack, [](const Entry& entry) { return entry.screen->hasUnsavedChanges(); }))
        return true;
    askToDiscard([this] { emit closeRequested(); });
    return false;
}

void NavigationController::askToDiscard(std::function<void()> discard)
{
    // What the alert on show says comes first; it may be this question itself.
    if (m_isAlertShown)
        return;
    present({QStringLiteral("Discard Changes?"),
             QStringLiteral("What you have changed here is not saved."),
             {{QStringLiteral("Discard"), std::move(discard)}, {QStringLiteral("Keep Editing"), {}, true}}});
}

void NavigationController::popTop()
{
    if (m_stack.size() > 1)
        popTo(m_stack.size() - 2);
}

void NavigationController::unwind(UnwindRoute route)
{
    for (std::size_t i = m_stack.size(); i-- > 0;) {
        if (i + 1 == m_stack.size() || !m_stack[i].screen->isTargetOf(route))
            continue;
        const std::size_t editor = lastUnsavedBetween(i, m_stack.size() - 1);
        if (editor == i)
            m_stack[i].screen->unwound(route);
        popTo(editor);
        return;
    }
}

std::size_t NavigationController::lastUnsavedBetween(std::size_t target, std::size_t top) const
{
    for (std::size_t i = top; --i > target;)
        if (m_stack[i].screen->hasUnsavedChanges())
            return i;
    return target;
}

void NavigationController::popTo(std::size_t target)
{
    m_passingNotices.clear();
    const auto firstLeaving = m_stack.begin() + static_cast<std::ptrdiff_t>(target) + 1;
    const auto count = static_cast<int>(m_stack.end() - firstLeaving);
    std::move(firstLeaving, m_stack.end(), std::back_inserter(m_leaving));
    m_stack.erase(firstLeaving, m_stack.end());

    Entry& uncovered = m_stack.back();
    uncovered.appearing = Appearing::Underway;
    uncovered.screen->viewWillAppear();
    emit depthChanged();
    emit popped(count);
}

void NavigationController::disappear(Entry& entry)
{
    if (std::exchange(entry.appearing, Appearing::No) != Appearing::No)
        entry.screen->viewDidDisappear();
}

void NavigationController::pageDidAppear(Screen* screen)
{
    if (m_stack.empty() || m_stack.back().screen.get() != screen ||
        m_stack.back().appearing == Appearing::Done)
        return;
    m_stack.back().appearing = Appearing::Done;
    for (Entry& entry : m_leaving)
        disappear(entry);
    for (std::size_t i = 0; i + 1 < m_stack.size(); ++i)
        disappear(m_stack[i]);
    screen->viewDidAppear();
}

void NavigationController::pageRemoved(Screen* screen)
{
    const auto found =
        std::ranges::find(m_leaving, screen, [](const Entry& entry) { return entry.screen.get(); });
    if (found == m_leaving.end())
        return;
    disappear(*found);
    // The page may be in the middle of its own destruction, its bindings still alive.
    found->screen.release()->deleteLater();
    m_leaving.erase(found);
}

void NavigationController::pageFailed(const QUrl& page, const QString& reason)
{
    fatalError(QStringLiteral("The page %1 cannot be shown: %2").arg(page.fileName(), reason), __FILE__,
               __LINE__);
}

AlertContent NavigationController::alert() const
{
    if (!m_isAlertShown)
        return {};
    const Alert& alert = m_alerts.front();
    AlertContent content{true, alert.title, alert.message, {}};
    for (const AlertAction& action : alert.actions) {
        if (action.isCancel || alert.actions.size() == 1)
            content.cancelAction = static_cast<int>(content.actions.size());
        content.actions.append(action.title);
    }
    return content;
}

void NavigationController::present(Alert alert)
{
    m_alerts.push_back(std::move(alert));
    if (m_alerts.size() > 1)
        return;
    m_isAlertShown = true;
    emit alertChanged();
}

void NavigationController::alertAnswered(int actionIndex)
{
    if (!m_isAlertShown || actionIndex < 0 ||
        std::cmp_greater_equal(actionIndex, m_alerts.front().actions.size()))
        return;
    const auto handler = m_alerts.front().actions[static_cast<std::size_t>(actionIndex)].handler;
    m_isAlertShown = false;
    emit alertChanged();
    // The answered alert keeps its place at the front, so that alerts which the handler presents wait.
    if (handler)
        handler();
    m_alerts.pop_front();
    if (m_alerts.empty())
        return;
    m_isAlertShown = true;
    emit alertChanged();
}

void NavigationController::setNotice(const QString& notice)
{
    if (notice == m_notice)
        return;
    m_notice = notice;
    emit noticeChanged();
}

void NavigationController::setNavigationBarHidden(bool hidden)
{
    if (hidden == m_navigationBarHidden)
        return;
    m_navigationBarHidden = hidden;
    emit navigationBarHiddenChanged();
}

} // namespace giggle
