// SPDX-License-Identifier: MIT
#include "exchange/PrintViewController.h"

#include "tests/support/ScreenFixture.h"

#include <QFile>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;
using testing::ElementsAre;

const std::string Header = "From: Giggle Archives App for iPhone and iPad\n\n";

std::string documentOf(const std::vector<std::string>& jokes)
{
    std::string text = Header;
    for (const std::string& joke : jokes)
        text += joke + "\n" + std::string(34, '-') + "\n\n\n";
    return text;
}

class PrintViewControllerTest : public ScreenFixture {
protected:
    [[nodiscard]] std::string document() { return *screen.printTextView()->text(); }

    [[nodiscard]] QString file() const { return system.platform.documentsFolder + u"/GiggleArchives.txt"_s; }

    PrintViewController screen{environment};
};

TEST_F(PrintViewControllerTest, TheDocumentFollowsTheList)
{
    using enum SegmentedJokeListController::Mode;
    const std::string three = "3 don't \u00e9\u00a0\n^";
    addJoke({.category = "b", .rating = "x", .favorite = true, .joke = "1"});
    addJoke({.category = "a", .rating = "y", .joke = three});
    addJoke({.category = "b", .joke = "2"});
    addJoke({.rating = "y", .favorite = true, .joke = "4"});

    screen.viewDidLoad();
    const auto documentBy = [this](int segment, bool isAscending) {
        screen.setSelectedSegment(segment);
        screen.setSortAsc(isAscending);
        return document();
    };
    EXPECT_EQ(documentBy(CategoryMode, true), documentOf({"4", three, "1", "2"}));
    EXPECT_EQ(documentBy(CategoryMode, false), documentOf({"1", "2", three, "4"})) << "the second key stays";
    EXPECT_EQ(documentBy(RatingMode, true), documentOf({"2", "1", three, "4"}));
    EXPECT_EQ(documentBy(JokeMode, false), documentOf({"4", three, "2", "1"}));
    EXPECT_EQ(documentBy(FavoritesMode, true), documentOf({"1", "4"}));
    screen.setSearchText(u"nothing"_s);
    EXPECT_EQ(document(), documentOf({"1", "4"})) << "favourites are not filtered";
    EXPECT_EQ(screen.numberOfRows(), 2);
}

TEST_F(PrintViewControllerTest, EveryFetchWithoutJokesIsSaid)
{
    screen.viewDidLoad();
    EXPECT_EQ(document(), Header);
    addJoke({.joke = "no favourite"});
    for (const int segment : {2, 3})
        screen.setSelectedSegment(segment);
    mainQueue.advance(0ms);
    ASSERT_EQ(navigator.alerts.size(), 2U) << "at first, and without favourites";
    EXPECT_EQ(navigator.alerts[0].message, u"There are no Jokes entered to print."_s);
}

TEST_F(PrintViewControllerTest, AJokeWithoutATextEndsTheProgramWhereItIsListed)
{
    addJoke({.favorite = true, .joke = "x"});
    addJoke({.favorite = false});
    EXPECT_DEATH(screen.viewDidLoad(), "Fatal error: A joke without a text cannot be printed.");
}

TEST_F(PrintViewControllerTest, PrintingSaysTheDocumentAndTheOutcomeOnTheConsole)
{
    addJoke({.joke = "Hello"});
    screen.viewDidLoad();
    const auto saidBy = [](const auto& deed) {
        testing::internal::CaptureStdout();
        deed();
        return testing::internal::GetCapturedStdout();
    };
    EXPECT_EQ(saidBy([&] { screen.PrintNotes(); }), documentOf({"Hello"}) + '\n');
    const FakePrintPanel::Request request = system.printPanel.presented.at(0);
    EXPECT_EQ(request.text.toStdString(), documentOf({"Hello"}));
    EXPECT_EQ(saidBy([&] { request.finished({true, {}}); }), "Image is Printed\n");
    EXPECT_EQ(saidBy([&] { request.finished({false, {}}); }), "\n");
    EXPECT_EQ(saidBy([&] { request.finished({false, u"no paper"_s}); }), "");
}

TEST_F(PrintViewControllerTest, TheDocumentIsMailedAsAFile)
{
    const std::string text = "no-break\u00a0space, \u2028, \r";
    addJoke({.joke = text});
    screen.viewDidLoad();
    screen.EmailFile();
    const QByteArray document = QByteArray::fromStdString(documentOf({text}));
    Mail expected;
    expected.subject = u"Giggle Archives"_s;
    expected.attachments = {{document, u"text/txt"_s, file()}};
    EXPECT_THAT(system.mailComposer.presented, ElementsAre(expected));
    EXPECT_EQ(readBytes(file()), document);

    // Not the file of last time.
    QFile::remove(file());
    ASSERT_TRUE(QDir().mkdir(file()));
    testing::internal::CaptureStderr();
    screen.EmailFile();
    EXPECT_THAT(testing::internal::GetCapturedStderr(), testing::HasSubstr("cannot be written"));
    EXPECT_TRUE(system.mailComposer.presented.back().attachments.empty());

    system.mailComposer.canSend = false;
    ASSERT_TRUE(QDir().rmdir(file()));
    screen.EmailFile();
    EXPECT_EQ(system.mailComposer.presented.size(), 2U);
    EXPECT_EQ(readBytes(file()), document);
    EXPECT_EQ(navigator.alerts.at(0).message, u"Email not Setup or Unavailable"_s);
}

} // namespace

} // namespace giggle
