// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace giggle {

class AppDelegate;
class Resources;

/// What the first launch puts into the empty collection, in three steps that run in this order.
class FirstLaunchSeeding {
public:
    FirstLaunchSeeding(AppDelegate& appDelegate, const Resources& resources);

    /// Whether the collection holds no record at all. One that cannot be read counts as not empty.
    [[nodiscard]] bool isCollectionEmpty() const;

    /// Inserts one category for each default name. The records stay without a name, and pending: the next
    /// save stores them.
    void seedDefaultCategories();

    /// Inserts and saves one rating for each default name, whatever is there already.
    void seedDefaultRatings();

    /// Reads the jokes and the categories of the starter collection that ships with the application. A
    /// starter collection that is missing or cannot be read ends the program.
    void importStarterCollection();

private:
    [[nodiscard]] QString starterFile() const;

    AppDelegate& m_appDelegate;
    const Resources& m_resources;
};

} // namespace giggle
