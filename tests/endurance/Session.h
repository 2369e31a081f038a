// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/CollectionFolder.h"
#include "tests/support/LongRun.h"
#include "tests/support/SimulatedDisk.h"

#include <functional>
#include <string>
#include <vector>

namespace giggle {

using Rows = std::vector<std::string>;

/// Whether a save succeeded.
[[nodiscard]] bool saves(ManagedObjectContext& context);

/// What may be found after a power cut, a kill or a failure: the state that was acknowledged last, or one
/// that a save has tried to reach since then.
struct Expectation {
    std::vector<Rows> collections;
    std::vector<double> fontSizes; ///< 0 when none is stored

    auto operator<=>(const Expectation&) const = default;
};

/// What a user does with the application: adds, edits, ticks and deletes jokes, imports a file, changes a
/// preference, closes the application in between. All of it notes what it has been promised.
class Session {
public:
    enum class Kind {
        Daily,        ///< all of the above, with the log moved into the file now and then
        RollbackMode, ///< the same in a collection that could not be converted for want of space
        FirstLaunch,  ///< the first launch, which fills the collection
    };

    /// @param hasFailed whether calls may have failed until now
    Session(const CollectionFolder& folder, Kind kind, std::function<bool()> hasFailed = {});

    /// Goes through all of it, whatever fails. What failed once is tried again at once.
    void run();

    [[nodiscard]] const Expectation& expectation() const { return m_expectation; }

private:
    void runDaily();
    void runFirstLaunch();
    void use(const std::function<void(ManagedObjectContext&)>& steps);
    void save(ManagedObjectContext& context);
    void acknowledgeUnlessFailed(ManagedObjectContext& context);
    void importJokes();
    void changeFontSize(double size);

    [[nodiscard]] bool hasFailed() const { return m_hasFailed && m_hasFailed(); }

    const CollectionFolder& m_folder;
    Kind m_kind;
    std::function<bool()> m_hasFailed;
    Expectation m_expectation{{{}}, {0}};
};

/// A fresh start on what is in @p folder: finds what is expected whole, and can save.
void expectFreshStart(const CollectionFolder& folder, const Expectation& expected);

/// The same in a new folder that holds @p image.
void expectFreshStart(const SimulatedDisk::Image& image, const Expectation& expected);

} // namespace giggle
