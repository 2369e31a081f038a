// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"

namespace giggle {

/// The printers of the CUPS service: the machine's, or the one that the user's settings name.
class CupsPrinters : public Printers {
public:
    CupsPrinters() = default;

    [[nodiscard]] std::vector<Printer> available() override;

    [[nodiscard]] QString print(const PrintJob& job) override;
};

} // namespace giggle
