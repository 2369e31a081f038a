// SPDX-License-Identifier: MIT
#include "exchange/format/ExchangeFile.h"

#include "exchange/format/ExchangeReader.h"
#include "tests/support/CollectionFolder.h"
#include "ui/DefaultNames.h"

#include <QFile>

#include <algorithm>
#include <set>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using testing::HasSubstr;

QString fixture(const char* name)
{
    return QStringLiteral(GIGGLE_SOURCE_DIR "/tests/exchange/fixtures/") + QLatin1StringView(name);
}

TEST(ExchangeFileTest, FileThatCannotBeReadGivesTheReason)
{
    CollectionFolder folder;
    const QString path = folder.filePath(QStringLiteral("file.csv"));
    const auto reason = [](const FileText& file) {
        EXPECT_FALSE(file.text);
        return file.failure.toStdString();
    };
    EXPECT_THAT(reason(readUtf8File(path)), HasSubstr("file.csv\" cannot be read: No such file"));
    EXPECT_THAT(reason(readUtf8File(folder.path())), HasSubstr("it is a folder"));
    EXPECT_THAT(reason(readUtf8File(fixture("latin1.csv"))), HasSubstr("it is not a text in UTF-8"));
    EXPECT_THAT(reason(readAsciiFile(fixture("exported.csv"))), HasSubstr("it is not a text in ASCII"));
    writeBytes(path, QByteArray("\xEF\xBB\xBFx\r\n\0", 7));
    EXPECT_EQ(readUtf8File(path).text, std::string("x\r\n\0", 4));
    QFile sparse(path);
    ASSERT_TRUE(sparse.open(QIODevice::ReadWrite) && sparse.resize(MaximumExchangeFileSize + 1));
    EXPECT_THAT(reason(readUtf8File(path)), HasSubstr("it is larger than 256 MB"));
}

TEST(StarterCollectionTest, IsWholeAndConsistent)
{
    const FileText file = readAsciiFile(QStringLiteral(GIGGLE_SOURCE_DIR "/resources/GiggleArchives.txt"));
    ASSERT_TRUE(file.text) << file.failure.toStdString();
    EXPECT_EQ(file.text->find_first_of("'\"\\|\r\t"), std::string::npos);
    CollectionFolder folder;
    AppDelegate appDelegate(folder.path());
    ExchangeReader reader(appDelegate, QStringLiteral("GiggleArchives.txt"), "tests", 1);
    reader.readJokes(*file.text);
    reader.readCategories(*file.text, ExchangeReader::NamesFilter::KeepsSection);
    ManagedObjectContext& context = appDelegate.persistentContainer().viewContext();

    const std::vector<Jokes*> jokes = context.fetch(Jokes::fetchRequest());
    std::set<int> ids;
    std::set<std::string_view> texts;
    for (const Jokes* joke : jokes) {
        SCOPED_TRACE(joke->id().value_or(0));
        EXPECT_TRUE(joke->favorite().has_value());
        EXPECT_FALSE(joke->joke().value_or("").empty());
        EXPECT_EQ(std::ranges::count(DefaultCategoryNames, joke->category().value_or("")), 1);
        EXPECT_EQ(std::ranges::count(DefaultRatingNames, joke->rating().value_or("")), 1);
        ids.insert(joke->id().value_or(0));
        texts.insert(joke->joke().value_or(""));
    }
    EXPECT_EQ(jokes.size(), 188U);
    EXPECT_EQ(ids.size(), 188U);
    EXPECT_EQ(texts.size(), 188U) << "a joke is there twice";
    EXPECT_EQ(*ids.begin(), 1);
    EXPECT_EQ(*ids.rbegin(), 188);

    std::set<std::string_view> names;
    const std::vector<Category*> categories = context.fetch(Category::fetchRequest());
    for (const Category* category : categories)
        names.insert(category->category().value_or(""));
    EXPECT_EQ(categories.size(), 18U);
    EXPECT_EQ(names, std::set<std::string_view>(DefaultCategoryNames.begin(), DefaultCategoryNames.end()));
}

} // namespace

} // namespace giggle
