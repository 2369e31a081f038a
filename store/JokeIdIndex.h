// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace giggle {

class Jokes;

/// Finds jokes by id, and the highest id, at a cost that does not grow with the collection: one slot for each
/// of the 65,536 ids, in which jokes of the same id are chained in the order of insertion.
class JokeIdIndex {
public:
    JokeIdIndex() : m_slots(SlotCount) {}

    /// Adds a joke under the id it has now; one without an id is left out.
    void add(Jokes& joke);

    /// Takes out a joke that was added and still has the same id.
    void remove(Jokes& joke);

    [[nodiscard]] std::vector<Jokes*> jokesWithId(std::int64_t id) const;

    /// Nothing when no joke has an id.
    [[nodiscard]] std::optional<std::int16_t> highestId() const;

private:
    struct Slot {
        Jokes* first = nullptr;
        Jokes* last = nullptr;
    };

    static constexpr std::size_t SlotCount = 65536;
    static constexpr std::size_t BitsPerWord = 64;

    void markUsed(std::size_t slot, bool used);

    std::vector<Slot> m_slots;
    std::array<std::uint64_t, SlotCount / BitsPerWord> m_used{};
};

} // namespace giggle
