// SPDX-License-Identifier: MIT
#include "ui/PrintChoices.h"

#include "ui/PaperSizes.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace giggle {

namespace {

/// Two sizes that differ by less, in points, are the same.
constexpr double Tolerance = 3;

/// Printers have names of their own for the sizes that everybody knows.
std::vector<Paper> namedAsUsual(std::vector<Paper> papers)
{
    const std::vector<Paper> usual = usualPapers();
    for (Paper& paper : papers) {
        const auto known = std::ranges::find_if(usual, [&](const Paper& each) {
            const QSizeF difference = each.size - paper.size;
            return std::abs(difference.width()) < Tolerance && std::abs(difference.height()) < Tolerance;
        });
        if (known != usual.end())
            paper.name = known->name;
    }
    return papers;
}

} // namespace

PrintChoices::PrintChoices()
{
    followPrinter();
}

void PrintChoices::setPrinters(std::vector<Printer> printers)
{
    const QString chosen = printer() ? printer()->name : QString();
    m_printers = std::move(printers);
    auto found = std::ranges::find(m_printers, chosen, &Printer::name);
    if (found == m_printers.end())
        found = std::ranges::find(m_printers, true, &Printer::isDefault);
    m_printer = found == m_printers.end() ? 0 : static_cast<std::size_t>(found - m_printers.begin());
    followPrinter();
}

void PrintChoices::choosePrinter(int row)
{
    if (row < 0 || std::cmp_greater_equal(row, m_printers.size()))
        return;
    m_printer = static_cast<std::size_t>(row);
    followPrinter();
}

void PrintChoices::choosePaper(int row)
{
    if (row < 0 || std::cmp_greater_equal(row, m_papers.size()))
        return;
    m_paper = static_cast<std::size_t>(row);
    m_wantedMedia = paper().media;
}

void PrintChoices::followPrinter()
{
    const Printer* chosen = printer();
    m_papers = chosen && !chosen->papers.empty() ? namedAsUsual(chosen->papers) : usualPapers();
    m_paper = 0;
    if (takePaper(m_wantedMedia) || (chosen && takePaper(chosen->defaultMedia)))
        return;
    (void)takePaper(usualMedia(QLocale::system()));
}

bool PrintChoices::takePaper(const QString& media)
{
    const auto found = std::ranges::find(m_papers, media, &Paper::media);
    if (found == m_papers.end())
        return false;
    m_paper = static_cast<std::size_t>(found - m_papers.begin());
    return true;
}

const Printer* PrintChoices::printer() const
{
    return m_printers.empty() ? nullptr : &m_printers[m_printer];
}

QStringList PrintChoices::printerNames() const
{
    QStringList names;
    for (const Printer& each : m_printers)
        names += each.description;
    return names;
}

QStringList PrintChoices::paperNames() const
{
    QStringList names;
    for (const Paper& each : m_papers)
        names += each.name;
    return names;
}

} // namespace giggle
