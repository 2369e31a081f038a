// SPDX-License-Identifier: MIT
#pragma once

#include "ui/AlertContent.h"
#include "ui/PassingNotices.h"
#include "ui/SceneFactory.h"

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace giggle {

/// The stack of screens. It owns them and runs their life cycle; the main window shows the page of each,
/// follows `pushed` and `popped`, and reports back when a page has come to rest or is gone.
///
/// Life cycle of a push: the new screen's viewDidLoad and viewWillAppear; once its page has come to rest the
/// covered screen's viewDidDisappear and the new one's viewDidAppear. Of a way back: unwound (of a route's
/// target), the uncovered screen's viewWillAppear; once its page has come to rest viewDidDisappear of the
/// screen that was on top and viewDidAppear of the uncovered one. A screen is deleted after its page.
class NavigationController : public QObject, public Navigator {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool navigationBarHidden READ navigationBarHidden NOTIFY navigationBarHiddenChanged)
    Q_PROPERTY(int depth READ depth NOTIFY depthChanged)
    Q_PROPERTY(giggle::AlertContent alert READ alert NOTIFY alertChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)
    Q_PROPERTY(giggle::PassingNotices* passingNotices READ passingNotices CONSTANT)

public:
    /// @p scenes must outlive the controller; it is first asked by start().
    explicit NavigationController(SceneFactory& scenes);
    ~NavigationController() override;

    [[nodiscard]] bool canPerform(SegueId segue) const override;

    /// Without a scene for @p segue nothing happens. A segue that has just opened the top screen, whose page
    /// is still coming in, is a second press on the same button and is dropped. A top screen that was opened
    /// by the same segue may answer it itself.
    void performSegue(SegueId segue) override;

    /// A screen with unsaved changes ends the way back early.
    void unwind(UnwindRoute route) override;
    void present(Alert alert) override;

    void confirm(const QString& text) override { m_passingNotices.confirm(text); }

    void offerUndo(const QString& text, std::function<void()> undo) override
    {
        m_passingNotices.offerUndo(text, std::move(undo));
    }

    void setNavigationBarHidden(bool hidden) override;

    [[nodiscard]] bool navigationBarHidden() const { return m_navigationBarHidden; }

    [[nodiscard]] int depth() const { return static_cast<int>(m_stack.size()); }

    /// The alert on show; the others wait behind it.
    [[nodiscard]] AlertContent alert() const;

    /// A line that stays until the user dismisses it, without keeping anybody from working on. Empty when
    /// there is none.
    [[nodiscard]] QString notice() const { return m_notice; }

    void setNotice(const QString& notice);

    [[nodiscard]] PassingNotices* passingNotices() { return &m_passingNotices; }

    /// Opens the root screen; called once by the main window, when it can take pages.
    Q_INVOKABLE void start();

    /// One screen back; at the root nothing happens. A screen with unsaved changes is left only when the user
    /// agrees to lose them. While an alert is shown nothing happens there.
    Q_INVOKABLE void back();

    /// Whether the window may be closed now. If not, the user is asked, unless an alert is shown already, and
    /// `closeRequested` may follow.
    Q_INVOKABLE bool mayClose();

    /// The page of @p screen has come to rest on top. Safe to call more than once.
    Q_INVOKABLE void pageDidAppear(giggle::Screen* screen);

    /// The page of @p screen is gone. Deletes the screen if it has left the stack.
    Q_INVOKABLE void pageRemoved(giggle::Screen* screen);

    /// The page of a screen could not be loaded, which ends the program.
    Q_INVOKABLE void pageFailed(const QUrl& page, const QString& reason);

    /// Takes the alert on show away, runs the action's handler, then shows the next alert. An index that the
    /// alert does not have changes nothing.
    Q_INVOKABLE void alertAnswered(int actionIndex);

    Q_INVOKABLE void dismissNotice() { setNotice({}); }

signals:
    void pushed(giggle::Screen* screen, const QUrl& page, bool animated);
    void popped(int count);
    void navigationBarHiddenChanged();
    void depthChanged();
    void alertChanged();
    void noticeChanged();
    void closeRequested();

private:
    enum class Appearing { No, Underway, Done };

    struct Entry {
        std::unique_ptr<Screen> screen;
        std::optional<SegueId> openedBy;
        Appearing appearing = Appearing::No;
    };

    void push(Scene scene, std::optional<SegueId> openedBy);
    void popTo(std::size_t target);
    void popTop();
    /// The highest screen with unsaved changes that lies between the two, else @p target.
    [[nodiscard]] std::size_t lastUnsavedBetween(std::size_t target, std::size_t top) const;
    void askToDiscard(std::function<void()> discard);
    static void disappear(Entry& entry);

    SceneFactory& m_scenes;
    std::vector<Entry> m_stack;
    std::vector<Entry> m_leaving; // off the stack, but with a page that is still sliding out
    bool m_navigationBarHidden = false;
    std::deque<Alert> m_alerts;
    bool m_isAlertShown = false;
    QString m_notice;
    PassingNotices m_passingNotices;
};

} // namespace giggle
