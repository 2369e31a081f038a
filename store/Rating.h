// SPDX-License-Identifier: MIT
#pragma once

#include "store/NamedRecord.h"

namespace giggle {

/// One rating name. Nothing keeps two records from holding the same name, or none.
class Rating : public NamedRecord {
public:
    using NamedRecord::NamedRecord;

    static FetchRequest<Rating> fetchRequest() { return {}; }

    [[nodiscard]] OptionalText rating() const { return name(); }

    void setRating(OptionalText rating);

private:
    friend class ManagedObjectContext;
    friend class RecordTable<Rating>;
    template <class Record>
    friend struct NamedRowCodec;
};

} // namespace giggle
