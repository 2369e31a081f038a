// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/CollectionFolder.h"
#include "tests/support/LongRun.h"
#include "tests/support/SimulatedDisk.h"

#include <deque>
#include <string>
#include <vector>

namespace giggle {

/// What a fresh start may find of something that is saved again and again: the state that was acknowledged
/// last, or one that a save has tried to reach since then.
template <class State>
class Ledger {
public:
    explicit Ledger(State first) : m_states{std::move(first)} {}

    void attempt(State state)
    {
        if (m_states.back() != state)
            m_states.push_back(std::move(state));
    }

    /// A save of the last state that was attempted has been acknowledged.
    void acknowledge() { m_first = m_states.size() - 1; }

    [[nodiscard]] std::vector<State> possible() const
    {
        return {m_states.begin() + static_cast<std::ptrdiff_t>(m_first), m_states.end()};
    }

    /// Changes with every change of what is possible.
    [[nodiscard]] std::pair<std::size_t, std::size_t> moment() const { return {m_first, m_states.size()}; }

private:
    std::vector<State> m_states;
    std::size_t m_first = 0;
};

using Rows = std::vector<std::string>;

/// The rows of a collection in a form that reads well in a message: long texts are shortened.
[[nodiscard]] Rows rowsOf(ManagedObjectContext& context);

/// What must be found after a power cut, a kill or a failure.
struct Expectation {
    std::vector<Rows> collections;
    std::vector<double> fontSizes; ///< 0 when none is stored
};

/// What a user does with the application: adds, edits, ticks and deletes jokes, renames a category, imports a
/// file, changes a preference, closes the application in between. All of it notes what it has been promised.
class Session {
public:
    enum class Kind {
        Daily,        ///< all of the above, with the log moved into the file now and then
        RollbackMode, ///< the same in a collection that could not be converted for want of space
        FirstLaunch,  ///< the first launch, which fills the collection
    };

    Session(const CollectionFolder& folder, SimulatedDisk& disk, Kind kind);

    /// Goes through all of it, whatever fails. What failed once is tried again at once.
    void run();

    [[nodiscard]] Expectation expectation() const { return {m_collection.possible(), m_fontSize.possible()}; }

    [[nodiscard]] auto moment() const { return std::pair(m_collection.moment(), m_fontSize.moment()); }

private:
    void runDaily();
    void runFirstLaunch();
    void use(const std::function<void(ManagedObjectContext&)>& steps);
    void save(ManagedObjectContext& context);
    void acknowledgeUnlessFailed(ManagedObjectContext& context);
    void importJokes();
    void changeFontSize(double size);

    const CollectionFolder& m_folder;
    SimulatedDisk& m_disk;
    Kind m_kind;
    Ledger<Rows> m_collection{{}};
    Ledger<double> m_fontSize{0};
};

/// A fresh start on what is in @p folder: finds what is expected whole, and can save.
void expectFreshStart(const CollectionFolder& folder, const Expectation& expected);

/// The same in a new folder that holds @p image.
void expectFreshStart(const SimulatedDisk::Image& image, const Expectation& expected);

} // namespace giggle
