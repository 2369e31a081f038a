// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"

#include <QStringList>

#include <vector>

namespace giggle {

/// What can be chosen before printing, and what is. The paper follows the printer, which says what it holds,
/// until one is chosen that the printer has too. There is always a paper.
class PrintChoices {
public:
    PrintChoices();

    /// The printers that were found. The one that was chosen stays; without it the default one is chosen.
    void setPrinters(std::vector<Printer> printers);

    void choosePrinter(int row);
    void choosePaper(int row);

    [[nodiscard]] QStringList printerNames() const;
    [[nodiscard]] QStringList paperNames() const;

    /// nullptr where there is none.
    [[nodiscard]] const Printer* printer() const;

    [[nodiscard]] const Paper& paper() const { return m_papers[m_paper]; }

private:
    void followPrinter();
    [[nodiscard]] bool takePaper(const QString& media);

    std::vector<Printer> m_printers;
    std::vector<Paper> m_papers;
    std::size_t m_printer = 0;
    std::size_t m_paper = 0;
    QString m_wantedMedia; ///< empty until the user chooses
};

} // namespace giggle
