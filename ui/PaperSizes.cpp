// SPDX-License-Identifier: MIT
#include "ui/PaperSizes.h"

#include <algorithm>
#include <array>

namespace giggle {

namespace {

constexpr std::array LetterTerritories{
    QLocale::UnitedStates, QLocale::Canada,     QLocale::Mexico,   QLocale::Philippines, QLocale::Chile,
    QLocale::Colombia,     QLocale::Venezuela,  QLocale::Panama,   QLocale::CostaRica,   QLocale::Guatemala,
    QLocale::ElSalvador,   QLocale::PuertoRico, QLocale::Nicaragua};

Paper millimetres(const char* name, const char* media, double width, double height)
{
    return {QLatin1StringView(name), QLatin1StringView(media), QSizeF(width, height) * 72 / 25.4};
}

} // namespace

std::vector<Paper> usualPapers()
{
    return {millimetres("A4", "iso_a4_210x297mm", 210, 297),
            millimetres("Letter", "na_letter_8.5x11in", 215.9, 279.4),
            millimetres("A3", "iso_a3_297x420mm", 297, 420),
            millimetres("A5", "iso_a5_148x210mm", 148, 210),
            millimetres("A6", "iso_a6_105x148mm", 105, 148),
            millimetres("B5", "iso_b5_176x250mm", 176, 250),
            millimetres("Legal", "na_legal_8.5x14in", 215.9, 355.6),
            millimetres("Executive", "na_executive_7.25x10.5in", 184.15, 266.7)};
}

QString usualMedia(const QLocale& locale)
{
    const bool isLetter = std::ranges::find(LetterTerritories, locale.territory()) != LetterTerritories.end();
    return isLetter ? QStringLiteral("na_letter_8.5x11in") : QStringLiteral("iso_a4_210x297mm");
}

} // namespace giggle
