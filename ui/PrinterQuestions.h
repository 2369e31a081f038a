// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Printers.h"

#include <QMetaObject>
#include <QObject>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace giggle {

/// Puts questions to the printers, each in a thread of its own: an answer may take long, or never come. Lives
/// in the main thread. Destroying it waits for open questions, but not for longer than a second.
class PrinterQuestions {
public:
    PrinterQuestions() { m_shared->receiver = &m_receiver; }

    PrinterQuestions(const PrinterQuestions&) = delete;
    PrinterQuestions& operator=(const PrinterQuestions&) = delete;
    ~PrinterQuestions();

    /// Calls @p question with @p printers in the other thread, and then @p take with the answer in the main
    /// one; the latter not once this is destroyed. @p question must refer to nothing that may be gone by
    /// then.
    template <class Question, class Take>
    void ask(std::shared_ptr<Printers> printers, Question question, Take take);

private:
    /// The threads may outlive the rest.
    struct Shared {
        std::mutex mutex;
        std::condition_variable ended;
        QObject* receiver = nullptr; ///< null once nobody takes answers
        int open = 0;
    };

    QObject m_receiver;
    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
};

template <class Question, class Take>
void PrinterQuestions::ask(std::shared_ptr<Printers> printers, Question question, Take take)
{
    {
        const std::lock_guard lock(m_shared->mutex);
        ++m_shared->open;
    }
    auto answerIt = [shared = m_shared, printers = std::move(printers), question = std::move(question),
                     take = std::move(take)]() mutable {
        auto answer = question(*printers);
        printers.reset();
        const std::lock_guard lock(shared->mutex);
        if (shared->receiver)
            QMetaObject::invokeMethod(
                shared->receiver, [take, answer = std::move(answer)] { take(answer); }, Qt::QueuedConnection);
        --shared->open;
        shared->ended.notify_all();
    };
    std::thread(std::move(answerIt)).detach();
}

} // namespace giggle
