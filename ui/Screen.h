// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Navigator.h"
#include "ui/ScreenEnvironment.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class ManagedObjectContext;

/// What every screen is to the navigation stack: a title and the life-cycle callbacks. A screen owns what it
/// fetches, shows, validates and saves, and never touches an item of its page.
///
/// Derive from giggle::Screen with its namespace: the tools that check pages know the base by what is
/// written.
class Screen : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString title READ title CONSTANT)

public:
    explicit Screen(ScreenEnvironment& environment) : m_environment(environment) {}

    [[nodiscard]] virtual QString title() const = 0;

    /// Whether @p route ends at this screen.
    [[nodiscard]] virtual bool isTargetOf([[maybe_unused]] UnwindRoute route) const { return false; }

    /// Whether going back or closing the window would lose something that the user has changed; the user is
    /// then asked first.
    [[nodiscard]] virtual bool hasUnsavedChanges() const { return false; }

    /// @name Life cycle, called by the navigation controller in this order
    /// @{
    virtual void viewDidLoad() {}

    virtual void viewWillAppear() {}

    virtual void viewDidAppear() {}

    virtual void viewDidDisappear() {}

    /// @}

    /// Whether the screen, on top, does itself what @p segue would open another of its kind for.
    virtual bool answersSegue(SegueId) { return false; }

    /// A screen above is about to be opened.
    virtual void prepareForSegue(SegueId) {}

    /// A route that ends here was taken; called before viewWillAppear.
    virtual void unwound(UnwindRoute) {}

protected:
    [[nodiscard]] ScreenEnvironment& environment() const { return m_environment; }

    /// The collection's one context.
    [[nodiscard]] ManagedObjectContext& viewContext() const;

private:
    ScreenEnvironment& m_environment;
};

} // namespace giggle
