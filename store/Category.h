// SPDX-License-Identifier: MIT
#pragma once

#include "store/NamedRecord.h"

namespace giggle {

/// One category name. Nothing keeps two records from holding the same name, or none.
class Category : public NamedRecord {
public:
    using NamedRecord::NamedRecord;

    static FetchRequest<Category> fetchRequest() { return {}; }

    [[nodiscard]] OptionalText category() const { return name(); }

    void setCategory(OptionalText category);

private:
    friend class ManagedObjectContext;
    friend class RecordTable<Category>;
    template <class Record>
    friend struct NamedRowCodec;
};

} // namespace giggle
