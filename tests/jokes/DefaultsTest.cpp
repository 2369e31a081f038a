// SPDX-License-Identifier: MIT
#include "jokes/DefaultsViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QFile>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;
using namespace PreferenceKeys;

class DefaultsTest : public ScreenFixture {
protected:
    void SetUp() override { system.fonts.installed = {u"Zeta"_qs, u"Arial"_qs, u"Beta"_qs, u"alpha"_qs}; }

    /// What is in the file, as the next start reads it.
    [[nodiscard]] PreferenceValues stored() const
    {
        QFile file(folder.filePath(u"preferences.json"_qs));
        return file.open(QIODevice::ReadOnly) ? parsePreferences(file.readAll()).values : PreferenceValues{};
    }
};

TEST_F(DefaultsTest, FirstVisitShowsTheDefaultsAndStoresTheSizeAlone)
{
    DefaultsViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.listFontTextField(), u"Arial"_qs);
    EXPECT_EQ(screen.listFontTextSizeTextField(), u"17"_qs);
    EXPECT_EQ(screen.fontColorTextField(), u"black"_qs);
    EXPECT_EQ(screen.fontList(), (QStringList{u"Arial"_qs, u"Beta"_qs, u"Zeta"_qs, u"alpha"_qs}));
    EXPECT_EQ(stored(), (PreferenceValues{{ListFontSize.toString(), PreferenceValue(qint64(17))}}));
}

TEST_F(DefaultsTest, ASizeBeyondTheStepperIsShownAndBroughtBack)
{
    userDefaults.setReal(ListFontSize, 100);
    DefaultsViewController screen(environment);
    screen.viewDidLoad();
    EXPECT_EQ(screen.listFontTextSizeTextField(), u"100"_qs);
    screen.ListStepperChanged(screen.listStepper() + 1);
    EXPECT_EQ(stored().at(ListFontSize.toString()), PreferenceValue(72.0));
}

TEST_F(DefaultsTest, AChoiceIsStoredWhenItsEditingEndsAtTheLatestWithTheWindow)
{
    auto screen = std::make_unique<DefaultsViewController>(environment);
    screen->viewDidLoad();
    screen->didSelectRow(2, DefaultsViewController::FontPicker);
    EXPECT_EQ(screen->listFontTextField(), u"Zeta"_qs);
    EXPECT_EQ(screen->listFont().family(), u"Arial"_qs);
    EXPECT_FALSE(stored().contains(ListFontName.toString()));
    screen->didSelectRow(1, DefaultsViewController::ColorPicker);
    EXPECT_EQ(screen->listFont().family(), u"Zeta"_qs);
    EXPECT_EQ(stored().at(ListFontName.toString()), PreferenceValue(u"Zeta"_qs));
    EXPECT_FALSE(stored().contains(ListFontColor.toString()));
    screen.reset();
    EXPECT_EQ(stored().at(ListFontColor.toString()), PreferenceValue(u"blue"_qs));
}

} // namespace

} // namespace giggle
