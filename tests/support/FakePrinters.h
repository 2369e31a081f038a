// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"
#include "tests/support/PrintedText.h"

#include <condition_variable>
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

    struct State {
        std::mutex mutex;
        std::condition_variable answers;
        bool isSilent = false;
        std::vector<Printer> printers;
        int begun = 0;
        std::vector<Printed> printed;
        QString failure;
    };

    explicit FakePrinters(std::shared_ptr<State> state = std::make_shared<State>())
        : m_state(std::move(state))
    {
    }

    std::shared_ptr<Printers> share() override { return std::make_shared<FakePrinters>(m_state); }

    std::vector<Printer> available(const std::stop_token&) override
    {
        std::unique_lock lock(m_state->mutex);
        m_state->answers.wait(lock, [this] { return !m_state->isSilent; });
        return m_state->printers;
    }

    QString print(const PrintJob& job, const std::stop_token&) override
    {
        const QString information = outputOf(QStringLiteral("pdfinfo"), {job.file});
        std::unique_lock lock(m_state->mutex);
        ++m_state->begun;
        m_state->answers.wait(lock, [this] { return !m_state->isSilent; });
        if (m_state->failure.isEmpty())
            m_state->printed.push_back({job, information});
        return m_state->failure;
    }

    void set(std::vector<Printer> printers, const QString& failure = {})
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->printers = std::move(printers);
        m_state->failure = failure;
    }

    /// From now on no call returns, stopped or not, until this is taken back.
    void setSilent(bool isSilent)
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->isSilent = isSilent;
        m_state->answers.notify_all();
    }

    /// How many jobs have come, taken or not.
    int begun()
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->begun;
    }

    std::vector<Printed> printed()
    {
        const std::lock_guard lock(m_state->mutex);
        return m_state->printed;
    }

private:
    std::shared_ptr<State> m_state;
};

} // namespace giggle
