// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Navigator.h"

#include <optional>
#include <vector>

namespace giggle {

/// Writes down what screens ask of it and shows nothing.
class FakeNavigator : public Navigator {
public:
    bool canPerform(SegueId) const override { return false; }

    void performSegue(SegueId segue) override { performed.push_back(segue); }

    void unwind(UnwindRoute route) override { unwound.push_back(route); }

    void present(Alert alert) override { alerts.push_back(std::move(alert)); }

    void confirm(const QString& text) override { confirmed = text; }

    void offerUndo(const QString& text, std::function<void()> newUndo) override
    {
        undoOffer = text;
        undo = std::move(newUndo);
    }

    void setNavigationBarHidden(bool hidden) override { navigationBarHidden = hidden; }

    std::vector<SegueId> performed;
    std::vector<UnwindRoute> unwound;
    std::vector<Alert> alerts;
    QString confirmed;
    QString undoOffer; ///< the last one
    std::function<void()> undo;
    std::optional<bool> navigationBarHidden; ///< nothing until a screen has said
};

} // namespace giggle
