// SPDX-License-Identifier: MIT
#include "jokes/JokeComposition.h"
#include "tests/jokes/JokeListFixture.h"

namespace giggle {

namespace {

using namespace std::chrono_literals;

using JokeListShareTest = JokeListFixture;

TEST_F(JokeListShareTest, SharesAndPrintsTheJokesOnShowAsOneText)
{
    const std::string dashes = "\n" + std::string(34, '-') + "\n\n\n";

    const struct {
        std::vector<JokeValues> jokes;
        const char* search;
        std::string text;
    } cases[] = {
        {{}, "", ""},
        {{{.category = "b", .joke = "Don't \u00e9\n^"}, {.category = "a"}},
         "",
         dashes + "Don't \u00e9\n^" + dashes},
        {{{.category = "cat", .joke = "\ufeffmine"}}, "CAT", "\ufeffmine" + dashes},
    };

    for (const auto& one : cases) {
        for (const JokeValues& joke : one.jokes)
            addJoke(joke);
        NewMainListTableViewController screen(environment);
        screen.viewDidLoad();
        screen.setSearchText(QString::fromLatin1(one.search));
        screen.shareButtonClicked();
        ASSERT_FALSE(system.shareSheet.presented.empty());
        const auto& request = system.shareSheet.presented.back();
        EXPECT_EQ(std::get<SharedText>(request.items.at(0)).text.toStdString(), one.text);
        EXPECT_TRUE(request.excluded.empty());
        screen.PrintJokes();
        ASSERT_FALSE(system.printPanel.presented.empty());
        EXPECT_EQ(system.printPanel.presented.back().text.toStdString(), one.text);
    }
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(JokeListShareTest, WithoutTextMessagesAnAlertTakesThePlaceOfTheSheet)
{
    system.messageCapability.canSend = false;
    list.viewDidLoad();
    list.shareButtonClicked();
    EXPECT_TRUE(navigator.alerts.empty());
    mainQueue.advance(0ms);
    ASSERT_EQ(navigator.alerts.size(), 1U);
    EXPECT_EQ(navigator.alerts.front().title.toStdString(), "Can't Send Text Message");
    EXPECT_TRUE(system.shareSheet.presented.empty());
}

TEST_F(JokeListShareTest, TheCompositionIsLaidOutInTheMiddleWithJokesInLargeBoldType)
{
    const AttributedText composition = composeJokes({&addJoke({.joke = "a\nb"})}).attributedText();
    ASSERT_EQ(composition.runs().size(), 3U);
    const TextAttributes& joke = composition.runs().front().attributes;
    ASSERT_TRUE(joke.font && joke.foregroundColor);
    EXPECT_TRUE(joke.font->bold());
    EXPECT_EQ(joke.font->pixelSize(), 18);
    EXPECT_EQ(joke.foregroundColor, QColor(Qt::black));
    EXPECT_EQ(joke.alignment, Qt::AlignHCenter);
    EXPECT_EQ(composition.runs()[1].attributes.alignment, Qt::AlignHCenter);
}

} // namespace

} // namespace giggle
