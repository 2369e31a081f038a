// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeReader.h"
#include "exchange/format/ExchangeWriter.h"
#include "tests/support/CollectionFolder.h"

#include <random>
#include <set>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;
using std::string_literals::operator""s;

/// What the exchange file's description says about one text: what comes back, and as unset when it is empty.
std::string changedOnTheWay(const std::optional<std::string>& text, bool isJoke)
{
    QString changed = QString::fromStdString(text.value_or(""));
    if (isJoke)
        changed.replace(u'\n', u"@#@"_s).replace(u'^', u"~#~"_s);
    changed.remove(u'\'').remove(u'"');
    if (isJoke)
        changed.replace(u"@#@"_s, u"\n"_s).replace(u"~#~"_s, u"'"_s);
    return changed.isEmpty() ? "NULL" : changed.toStdString();
}

class RoundTrip {
public:
    explicit RoundTrip(unsigned seed) : m_random(seed) {}

    void run()
    {
        CollectionFolder sourceFolder;
        PersistentContainer source = sourceFolder.open();
        for (const std::int16_t id : std::initializer_list<std::int16_t>{-32768, -1, 0, 1, 2, 300, 32767})
            insertRandomJoke(source.viewContext(), id);
        insertCategory(source.viewContext(), "Dad");
        insertRating(source.viewContext(), "Mild");
        const std::string document = writeCollection(source.viewContext());

        CollectionFolder folder;
        AppDelegate appDelegate(folder.path());
        ExchangeReader reader(appDelegate, u"file"_s, "tests", 1);
        for (int reading = 0; reading < 2; ++reading) {
            reader.readJokes(document);
            reader.readCategories(document, ExchangeReader::NamesFilter::KeepsNothing);
            reader.readRatings(document, ExchangeReader::NamesFilter::KeepsNothing);
            std::set<std::string> found;
            for (const std::string& row : liveRows(appDelegate.persistentContainer().viewContext()))
                found.insert(row.substr(row.find('|') + 1)); // in whatever order they came
            ASSERT_EQ(found, m_expected) << document;
        }
    }

private:
    std::size_t below(std::size_t limit)
    {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }

    std::optional<std::string> randomText(bool isJoke)
    {
        static const std::string pieces[] = {"a",          "'",          "\"", "@",  "#",   "@#@",
                                             "~#~",        "~",          " ",  "\t", "\0"s, "\u00e9",
                                             "\U0001F600", "[CATEGORY]", "\n", "^"};
        if (below(8) == 0)
            return std::nullopt;
        std::string text;
        for (std::size_t i = below(12); i > 0; --i)
            text += pieces[below(std::size(pieces) - (isJoke ? 0 : 2))];
        return text;
    }

    void insertRandomJoke(ManagedObjectContext& context, std::int16_t id)
    {
        const auto category = randomText(false);
        const auto rating = randomText(false);
        const auto text = randomText(true);
        const auto favorite = below(3) == 0 ? std::nullopt : std::optional(below(2) == 0);
        insertJoke(context,
                   {.category = category, .rating = rating, .id = id, .favorite = favorite, .joke = text});
        m_expected.insert(changedOnTheWay(category, false) + (favorite.value_or(false) ? "|1|" : "|0|") +
                          std::to_string(id) + '|' + changedOnTheWay(text, true) + '|' +
                          changedOnTheWay(rating, false));
    }

    std::mt19937 m_random;
    std::set<std::string> m_expected; ///< as "category|favorite|id|joke|rating"
};

TEST(RoundTripTest, ChangesNothingButWhatTheFormatSays)
{
    for (unsigned seed = 1; seed <= 60 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        RoundTrip(seed).run();
    }
}

} // namespace

} // namespace giggle
