// SPDX-License-Identifier: MIT
#pragma once

#include "store/AppDelegate.h"

#include <QString>

#include <string_view>

namespace giggle {

class BulkSaving;
struct PreparedLine;

/// Reads the text of an exchange file into the collection, in three steps that may each be run alone.
/// docs/exchange-format.md describes the format and what the reader changes on the way.
///
/// Every line is a save, and some of them share a transaction (see BulkSaving): after a crash the collection
/// holds the file up to some line. What a step has read is on the disk when it returns, and before it ends
/// the program. A save that fails is logged, and reading goes on.
class ExchangeReader {
public:
    /// Which lines of a text the category and rating steps look at.
    enum class NamesFilter {
        KeepsNothing, ///< an import: the sections are looked for, and not one of their lines is taken over
        KeepsSection, ///< the first launch: the lines between the section's marker and the next one
    };

    /// @param sourceName what messages call the text, usually a file's name
    /// @param sourceFile,line in whose name the reader ends the program; the name must outlive the reader
    ExchangeReader(AppDelegate& appDelegate, QString sourceName, const char* sourceFile, int line);

    /// Updates the joke that has the line's id, inserts one when none has it, and skips the line when several
    /// have it. A line whose id is no number of 16 bits ends the program; the lines above it are saved.
    void readJokes(std::string_view document);

    /// Inserts a category for every line that @p filter keeps, unless one has that name.
    void readCategories(std::string_view document, NamesFilter filter);

    /// The same for the ratings.
    void readRatings(std::string_view document, NamesFilter filter);

    /// Whether the last step missed its marker line.
    [[nodiscard]] bool wrongFile() const { return m_wrongFile; }

private:
    void readJokeLine(const PreparedLine& line, BulkSaving& bulk);
    [[nodiscard]] std::int16_t idOf(std::string_view field, const PreparedLine& line, BulkSaving& bulk) const;
    template <class Record>
    void readNames(std::string_view document, NamesFilter filter);
    template <class Record>
    void readNameLine(std::string_view line, BulkSaving& bulk);
    [[nodiscard]] ManagedObjectContext& context() const;

    AppDelegate& m_appDelegate;
    QString m_sourceName;
    const char* m_sourceFile;
    int m_line;
    bool m_wrongFile = false;
};

} // namespace giggle
