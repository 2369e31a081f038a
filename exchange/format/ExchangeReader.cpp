// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeReader.h"

#include "exchange/format/ExchangeFormat.h"
#include "exchange/format/PreparedText.h"
#include "store/BulkSaving.h"
#include "store/Console.h"
#include "store/FatalError.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace giggle {

namespace {

using namespace ExchangeFormat;

/// The fields of a joke line in the file's order; further ones are ignored.
enum Field : std::size_t { CategoryField, RatingField, IdField, FavoriteField, JokeField, FieldCount };

struct Fields {
    std::array<std::string_view, FieldCount> values;
    std::size_t count = 0;
};

Fields split(std::string_view line)
{
    Fields fields;
    while (fields.count < FieldCount) {
        const std::size_t end = line.find(FieldSeparator);
        fields.values[fields.count++] = line.substr(0, end);
        if (end == std::string_view::npos)
            break;
        line.remove_prefix(end + 1);
    }
    return fields;
}

/// Most texts hold nothing to replace: those are not copied.
void replaceAll(std::string& text, std::string_view what, std::string_view by)
{
    std::size_t at = text.find(what);
    if (at == std::string::npos)
        return;
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    for (; at != std::string::npos; at = text.find(what, copied)) {
        result.append(text, copied, at - copied).append(by);
        copied = at + what.size();
    }
    result.append(text, copied);
    text = std::move(result);
}

/// An optional sign and ASCII digits within 16 bits, and nothing else.
std::optional<std::int16_t> parsedId(std::string_view field)
{
    if (field.starts_with('+')) {
        field.remove_prefix(1);
        if (field.starts_with('-'))
            return std::nullopt;
    }
    std::int16_t id = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), id);
    return error == std::errc() && end == field.data() + field.size() ? std::optional(id) : std::nullopt;
}

/// Sets the attributes for which the line has a field that is not empty.
void setAttributes(Jokes& joke, const Fields& fields, std::int16_t id)
{
    for (std::size_t i = 0; i < fields.count; ++i) {
        std::string field(fields.values[i]);
        replaceAll(field, "\"", "");
        if (field.empty())
            continue;
        switch (i) {
        case CategoryField:
            joke.setCategory(field);
            break;
        case RatingField:
            joke.setRating(field);
            break;
        case IdField:
            joke.setId(id);
            break;
        case FavoriteField:
            joke.setFavorite(field != "F");
            break;
        case JokeField:
            replaceAll(field, EscapedLineFeed, "\n");
            replaceAll(field, EscapedCaret, "'");
            joke.setJoke(field);
            break;
        }
    }
}

/// What differs between the category and the rating step.
template <class Record>
struct NameStep;

template <>
struct NameStep<Category> {
    static constexpr std::string_view marker = CategoryMarker;
    static constexpr std::string_view endMarker = RatingMarker;
    static constexpr auto predicate = "category == %@";
    static constexpr auto setName = &Category::setCategory;

    static QString saveFailure(const QString& description) { return description; }
};

template <>
struct NameStep<Rating> {
    static constexpr std::string_view marker = RatingMarker;
    static constexpr std::string_view endMarker = {}; // the section ends with the file
    static constexpr auto predicate = "rating == %@";
    static constexpr auto setName = &Rating::setRating;

    static QString saveFailure(const QString& description)
    {
        return QStringLiteral("Can't Save %1").arg(description);
    }
};

} // namespace

ExchangeReader::ExchangeReader(AppDelegate& appDelegate, QString sourceName, const char* sourceFile, int line)
    : m_appDelegate(appDelegate), m_sourceName(std::move(sourceName)), m_sourceFile(sourceFile), m_line(line)
{
}

ManagedObjectContext& ExchangeReader::context() const
{
    return m_appDelegate.persistentContainer().viewContext();
}

void ExchangeReader::readJokes(std::string_view document)
{
    m_appDelegate.loadSecondContainer(m_sourceFile, m_line);
    m_wrongFile = !hasPreparedLine(document, CollectionMarker);
    if (m_wrongFile)
        return;
    BulkSaving bulk(context());
    PreparedText text(document);
    for (PreparedLine line{}; text.next(line);) {
        if (line.text == CategoryMarker)
            break;
        if (!line.text.empty() && line.text != CollectionMarker)
            readJokeLine(line, bulk);
    }
}

void ExchangeReader::readJokeLine(const PreparedLine& line, BulkSaving& bulk)
{
    const Fields fields = split(line.text);
    const std::int16_t id =
        fields.count > IdField ? idOf(fields.values[IdField], line, bulk) : std::int16_t(0);
    try {
        FetchRequest<Jokes> request = Jokes::fetchRequest();
        request.predicate = Predicate<Jokes>("id == %i", id);
        const std::vector<Jokes*> results = context().fetch(request);
        if (results.size() > 1)
            return;
        setAttributes(results.empty() ? context().insert<Jokes>() : *results.front(), fields, id);
        bulk.save();
    } catch (const StoreError& error) {
        printFailure(error.localizedDescription());
    }
}

std::int16_t ExchangeReader::idOf(std::string_view field, const PreparedLine& line, BulkSaving& bulk) const
{
    if (const auto id = parsedId(field))
        return *id;
    QString whatWasSaved = QStringLiteral("The jokes above this line have been saved");
    try {
        bulk.finish();
    } catch (const StoreError& error) {
        whatWasSaved = error.localizedDescription();
    }
    constexpr int ShownLength = 40;
    fatalError(QStringLiteral("\"%1\", line %2: \"%3\" is not an id, a whole number from -32768 to 32767. %4")
                   .arg(m_sourceName, QString::number(line.number),
                        QString::fromUtf8(field).left(ShownLength), whatWasSaved),
               m_sourceFile, m_line);
}

void ExchangeReader::readCategories(std::string_view document, NamesFilter filter)
{
    readNames<Category>(document, filter);
}

void ExchangeReader::readRatings(std::string_view document, NamesFilter filter)
{
    readNames<Rating>(document, filter);
}

template <class Record>
void ExchangeReader::readNames(std::string_view document, NamesFilter filter)
{
    m_appDelegate.loadSecondContainer(m_sourceFile, m_line);
    using Step = NameStep<Record>;
    m_wrongFile = !hasPreparedLine(document, Step::marker);
    if (m_wrongFile || filter == NamesFilter::KeepsNothing)
        return;
    BulkSaving bulk(context());
    PreparedText text(document);
    PreparedLine line{};
    while (text.next(line) && line.text != Step::marker) {
    }
    // Empty lines and the marker itself never count.
    while (text.next(line) && (Step::endMarker.empty() || line.text != Step::endMarker))
        if (!line.text.empty() && line.text != Step::marker)
            readNameLine<Record>(line.text, bulk);
}

template <class Record>
void ExchangeReader::readNameLine(std::string_view line, BulkSaving& bulk)
{
    using Step = NameStep<Record>;
    const std::string_view name = line.substr(0, line.find(FieldSeparator));
    try {
        FetchRequest<Record> request = Record::fetchRequest();
        request.predicate = Predicate<Record>(Step::predicate, name);
        if (!context().fetch(request).empty())
            return;
        Record& record = context().insert<Record>();
        (record.*Step::setName)(name);
        bulk.save();
    } catch (const StoreError& error) {
        printFailure(Step::saveFailure(error.localizedDescription()));
    }
}

} // namespace giggle
