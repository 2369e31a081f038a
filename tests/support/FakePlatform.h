// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Fonts.h"
#include "platform/InterfaceStyle.h"
#include "platform/Platform.h"
#include "platform/Resources.h"
#include "platform/WindowActivation.h"

#include <QMap>
#include <QStringList>

namespace giggle {

class FakeInterfaceStyle : public InterfaceStyle {
public:
    FakeInterfaceStyle() = default;

    Style current() const override { return m_style; }

    void change(Style style)
    {
        m_style = style;
        emit changed();
    }

private:
    Style m_style = Style::Light;
};

/// Knows the fonts of `installed` and no others.
class FakeFonts : public Fonts {
public:
    std::optional<QFont> font(const QString& name, double pointSize) override
    {
        if (!installed.contains(name))
            return std::nullopt;
        QFont font(name);
        font.setPixelSize(qMax(1, qRound(pointSize)));
        return font;
    }

    QStringList installed{QStringLiteral("Arial"), QStringLiteral("Courier New")};
};

/// Has the resources of `paths`, by "<name>.<type>".
class FakeResources : public Resources {
public:
    std::optional<QString> pathForResource(const QString& name, const QString& type) const override
    {
        const auto found = paths.constFind(name + u'.' + type);
        return found == paths.constEnd() ? std::nullopt : std::optional(*found);
    }

    QMap<QString, QString> paths;
};

class FakeWindowActivation : public WindowActivation {
public:
    FakeWindowActivation() = default;
};

/// A system that does what a test tells it.
struct FakePlatform {
    FakeInterfaceStyle interfaceStyle;
    FakeFonts fonts;
    FakeResources resources;
    FakeWindowActivation windowActivation;
    Platform platform{interfaceStyle, fonts, resources, windowActivation};
};

} // namespace giggle
