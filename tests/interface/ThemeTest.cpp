// SPDX-License-Identifier: MIT
#include "tests/interface/InterfaceFixture.h"

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>

#include <algorithm>
#include <cmath>

namespace giggle {

namespace {

/// What the pages draw with, in every combination of the system's wishes.
class Theme : public InterfaceFixture {
protected:
    Theme()
    {
        openWith({});
        QQmlComponent component(qmlEngine(&window()));
        component.setData("import QtQml\nimport GiggleArchives\nQtObject { property var theme: Theme }", {});
        theme = std::unique_ptr<QObject>(component.create())->property("theme").value<QObject*>();
    }

    /// As the guidelines for contrast define it: 1 for the same colour, 21 for black on white.
    double contrast(const char* ink, const char* ground) const
    {
        const auto [darker, lighter] = std::minmax({luminance(ink), luminance(ground)});
        return (lighter + 0.05) / (darker + 0.05);
    }

    double luminance(const char* name) const
    {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        const auto color = theme->property(name).value<QColor>();
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    }

    QObject* theme = nullptr;
};

} // namespace

TEST_F(Theme, EveryTextStandsOut)
{
    struct Pair {
        const char* ink;
        const char* ground;
        double leastHighContrast = 7;
    };

    const Pair pairs[] = {{"text", "background"},
                          {"text", "surface"},
                          {"mutedText", "background"},
                          {"mutedText", "surface"},
                          {"requiredText", "background"},
                          {"accentText", "surface"},
                          {"focus", "background"},
                          {"brightInk", "yellow"},
                          {"brightInk", "teal"},
                          {"tintInk", "tint"},
                          {"destructiveInk", "destructive"},
                          {"headerText", "headerBackground", 4.5}}; // these two are given
    for (const InterfaceStyle::Style style : {InterfaceStyle::Style::Light, InterfaceStyle::Style::Dark}) {
        for (const bool highContrast : {false, true}) {
            system().interfaceStyle.change(style);
            system().interfaceStyle.change(highContrast, false);
            for (const Pair& pair : pairs)
                EXPECT_GE(contrast(pair.ink, pair.ground), highContrast ? pair.leastHighContrast : 4.5)
                    << pair.ink << " on " << pair.ground << " style " << static_cast<int>(style)
                    << " high contrast " << highContrast;
            EXPECT_TRUE(!highContrast || contrast("outline", "background") >= 7);
        }
    }
}

TEST_F(Theme, NothingMovesForWhoWantsNoMotion)
{
    EXPECT_GT(theme->property("animationTime").toInt(), 0);
    system().interfaceStyle.change(false, true);
    EXPECT_EQ(theme->property("animationTime").toInt(), 0);
}

} // namespace giggle
