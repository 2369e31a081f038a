// SPDX-License-Identifier: MIT
#pragma once

namespace giggle {

class ManagedObjectContext;

/// Makes commits cheap while many small saves follow each other, and durable again at its end. What was saved
/// counts as safe only when finish() has returned; a crash of the machine before that leaves a whole prefix
/// of the saves.
class BulkSaving {
public:
    explicit BulkSaving(ManagedObjectContext& context);

    /// Ends it, if finish() was not called; a failure is only logged.
    ~BulkSaving();

    BulkSaving(const BulkSaving&) = delete;
    BulkSaving& operator=(const BulkSaving&) = delete;

    /// Saves the context, together with the saves before it: a few of them share one transaction, which then
    /// costs a fraction of many. While saves fail, fewer and fewer of them are tried: each would have to
    /// write everything that has piled up. Throws StoreError when one was tried and failed.
    void save();

    /// Saves what is still pending and forces everything to the disk. Throws StoreError.
    void finish();

private:
    /// More would gain little: the pages that these fill have to be written in any case.
    static constexpr int UsuallyJoined = 16;

    ManagedObjectContext& m_context;
    bool m_isFinished = false;
    int m_savesWaiting = 0;
    int m_savesJoined = UsuallyJoined;
};

} // namespace giggle
