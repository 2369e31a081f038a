// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <utility>
#include <vector>

namespace giggle {

/// One button of an alert. The handler may be empty; it runs after the alert has been taken away.
struct AlertAction {
    QString title;
    std::function<void()> handler;
    bool isCancel = false; ///< leaves everything as it is: has the keyboard first, and Escape presses it
};

/// A dialog with a title, a message and one or more buttons, shown over the current screen.
struct Alert {
    QString title;
    QString message;
    std::vector<AlertAction> actions;
};

/// An alert that only says something: its one button is "OK", which runs @p handler.
[[nodiscard]] inline Alert information(const QString& title, const QString& message,
                                       std::function<void()> handler = {})
{
    return {title, message, {{QStringLiteral("OK"), std::move(handler)}}};
}

} // namespace giggle
