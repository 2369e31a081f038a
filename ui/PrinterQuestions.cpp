// SPDX-License-Identifier: MIT
#include "ui/PrinterQuestions.h"

#include <chrono>

namespace giggle {

PrinterQuestions::~PrinterQuestions()
{
    // Nearly always they end in time, and none is left when the program comes to its end. One that does not
    // is stuck in the system, and has everything that it uses to itself.
    std::unique_lock lock(m_shared->mutex);
    m_shared->receiver = nullptr;
    (void)m_shared->ended.wait_for(lock, std::chrono::seconds(1), [this] { return m_shared->open == 0; });
}

} // namespace giggle
