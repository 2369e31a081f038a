// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFonts.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <array>

namespace giggle {

namespace {

struct Alias {
    QStringView name;
    QStringView family;
};

constexpr std::array Aliases{
    Alias{u"Arial", u"Liberation Sans"},
    Alias{u"Times New Roman", u"Liberation Serif"},
    Alias{u"Courier New", u"Liberation Mono"},
};

// Nothing bounds the sizes that settings hold; glyphs beyond this would exhaust the memory.
constexpr double LargestPixelSize = 2000;

QString familyBehind(const QString& name)
{
    for (const Alias& alias : Aliases)
        if (name.compare(alias.name, Qt::CaseInsensitive) == 0)
            return alias.family.toString();
    return name;
}

int pixelSize(double pointSize)
{
    if (!(pointSize > 1))
        return 1;
    return qRound(qMin(pointSize, LargestPixelSize));
}

} // namespace

LinuxFonts::LinuxFonts()
{
    QObject::connect(qGuiApp, &QGuiApplication::fontDatabaseChanged, &m_lifetime,
                     [this] { m_families.clear(); });
}

std::optional<QFont> LinuxFonts::font(const QString& name, double pointSize)
{
    std::optional<QString> family = installedFamily(familyBehind(name));
    if (!family)
        family = installedFamily(name);
    if (!family)
        return std::nullopt;
    QFont font(*family);
    font.setPixelSize(pixelSize(pointSize));
    return font;
}

QStringList LinuxFonts::families()
{
    ensureFamilies();
    QStringList families = m_families.values();
    families.removeIf(&QFontDatabase::isPrivateFamily);
    for (const Alias& alias : Aliases)
        if (installedFamily(alias.family.toString()) && !installedFamily(alias.name.toString()))
            families.append(alias.name.toString());
    return families;
}

void LinuxFonts::ensureFamilies()
{
    if (!m_families.isEmpty())
        return;
    const QStringList families = QFontDatabase::families();
    for (const QString& family : families)
        m_families.insert(family.toCaseFolded(), family);
}

std::optional<QString> LinuxFonts::installedFamily(const QString& name)
{
    ensureFamilies();
    const auto found = m_families.constFind(name.toCaseFolded());
    if (found == m_families.constEnd())
        return std::nullopt;
    return *found;
}

} // namespace giggle
