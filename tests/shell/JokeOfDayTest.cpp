// SPDX-License-Identifier: MIT
#include "shell/JokeOfDayViewController.h"
#include "tests/support/ScreenFixture.h"

#include <map>

namespace giggle {

namespace {

class JokeOfDayTest : public ScreenFixture {
protected:
    JokeOfDayViewController screen{environment};
};

TEST_F(JokeOfDayTest, EveryJokeIsAsLikelyAsAnyOther)
{
    constexpr int Jokes = 4;
    constexpr int Choices = 4000;
    for (const char* text : {"a", "b", "c'\xC3\xA9", "d"})
        addJoke({.category = "of", .joke = text});
    screen.viewDidLoad();
    std::map<QString, int> chosen;
    for (int i = 0; i < Choices; ++i) {
        screen.ShuffleJokes();
        ++chosen[screen.jokeTextView()];
    }
    EXPECT_EQ(chosen.size(), std::size_t(Jokes));
    EXPECT_EQ(chosen.count(QStringLiteral("c'é")), 1U);
    // A fair choice leaves this range about once in ten million runs.
    for (const auto& [joke, count] : chosen)
        EXPECT_NEAR(count, Choices / Jokes, 150) << joke.toStdString();
}

TEST_F(JokeOfDayTest, WhatIsUnsetShowsAsEmpty)
{
    addJoke({});
    screen.viewDidLoad();
    EXPECT_EQ(screen.categoryTextField() + screen.ratingTextField() + screen.jokeTextView(), QString());
}

TEST_F(JokeOfDayTest, AnEmptyCollectionEndsTheProgram)
{
    EXPECT_DEATH(screen.viewDidLoad(), "There is no joke to choose");
}

} // namespace

} // namespace giggle
