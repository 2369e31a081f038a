// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"
#include "tests/support/PrintedText.h"

#include <mutex>
#include <utility>

namespace giggle {

/// Printers that do what a test tells them. Safe to be asked from another thread.
class FakePrinters : public Printers {
public:
    struct Printed {
        PrintJob job;
        QString information; ///< of the file, as another program reads it
    };

    std::vector<Printer> available() override
    {
        const std::lock_guard lock(m_mutex);
        return m_printers;
    }

    QString print(const PrintJob& job) override
    {
        const QString information = outputOf(QStringLiteral("pdfinfo"), {job.file});
        const std::lock_guard lock(m_mutex);
        if (m_failure.isEmpty())
            m_printed.push_back({job, information});
        return m_failure;
    }

    void set(std::vector<Printer> printers, const QString& failure = {})
    {
        const std::lock_guard lock(m_mutex);
        m_printers = std::move(printers);
        m_failure = failure;
    }

    std::vector<Printed> printed()
    {
        const std::lock_guard lock(m_mutex);
        return m_printed;
    }

private:
    std::mutex m_mutex;
    std::vector<Printer> m_printers;
    std::vector<Printed> m_printed;
    QString m_failure;
};

} // namespace giggle
