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
    constexpr int Choices = 4000;
    for (const OptionalText text :
         {OptionalText("a"), OptionalText("b"), OptionalText("c'\xC3\xA9"), OptionalText()})
        addJoke({.joke = text});
    screen.viewDidLoad();
    std::map<QString, int> chosen;
    for (int i = 0; i < Choices; ++i) {
        screen.ShuffleJokes();
        ++chosen[screen.jokeTextView()];
    }
    EXPECT_EQ(chosen.size(), 4U);
    EXPECT_TRUE(chosen.contains(u"c'é"_qs) && chosen.contains({}));
    // A fair choice leaves this range about once in ten million runs.
    for (const auto& [joke, count] : chosen)
        EXPECT_NEAR(count, Choices / 4, 150) << joke.toStdString();
}

TEST_F(JokeOfDayTest, AnEmptyCollectionEndsTheProgram)
{
    EXPECT_DEATH(screen.viewDidLoad(), "There is no joke to choose");
}

} // namespace

} // namespace giggle
