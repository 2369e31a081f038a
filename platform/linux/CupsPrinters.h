// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"

namespace giggle {

/// The printers of the CUPS service: the machine's, or the one that the user's settings name.
/// A service that is reached but does not answer is given up after a while.
class CupsPrinters : public Printers {
public:
    CupsPrinters() = default;

    [[nodiscard]] std::shared_ptr<Printers> share() override { return std::make_shared<CupsPrinters>(); }

    [[nodiscard]] std::vector<Printer> available(const std::stop_token& stop) override;

    [[nodiscard]] QString print(const PrintJob& job, const std::stop_token& stop) override;
};

} // namespace giggle
