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
    EXPECT_EQ(screen.colorList(),
              (QStringList{u"black"_qs, u"blue"_qs, u"green"_qs, u"magenta"_qs, u"red"_qs, u"white"_qs}));
    EXPECT_EQ(stored(), (PreferenceValues{{ListFontSize.toString(), PreferenceValue(qint64(17))}}));
}

TEST_F(DefaultsTest, ShownSizeAndStepperForEveryStoredSize)
{
    const struct {
        double stored;
        QString shown;
        double stepper;
        QString afterLarger;
    } cases[] = {{18, u"18"_qs, 18, u"19.0"_qs},
                 {15.5, u"15.5"_qs, 15.5, u"16.5"_qs},
                 {100, u"100"_qs, 72, u"72.0"_qs},
                 {-3, u"-3"_qs, 8, u"9.0"_qs}};

    for (const auto& each : cases) {
        SCOPED_TRACE(each.stored);
        userDefaults.setReal(ListFontSize, each.stored);
        DefaultsViewController screen(environment);
        screen.viewDidLoad();
        EXPECT_EQ(screen.listFontTextSizeTextField(), each.shown);
        EXPECT_EQ(screen.listStepper(), each.stepper);
        screen.ListStepperChanged(screen.listStepper() + 1);
        EXPECT_EQ(screen.listFontTextSizeTextField(), each.afterLarger);
        EXPECT_EQ(stored().at(ListFontSize.toString()), PreferenceValue(each.afterLarger.toDouble()));
    }
}

TEST_F(DefaultsTest, AChoiceIsStoredWhenItsEditingEnds)
{
    using Screen = DefaultsViewController;

    const struct {
        const char* name;
        void (*end)(std::unique_ptr<Screen>&);
    } endings[] = {
        {"done", [](auto& screen) { screen->endEditing(); }},
        {"the other field", [](auto& screen) { screen->beginEditing(Screen::ColorPicker); }},
        {"a choice in the other field", [](auto& screen) { screen->didSelectRow(0, Screen::ColorPicker); }},
        {"another page", [](auto& screen) { screen->viewDidDisappear(); }},
        {"the window is closed", [](auto& screen) { screen.reset(); }}};

    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        userDefaults.remove(ListFontName);
        userDefaults.synchronize();
        auto screen = std::make_unique<Screen>(environment);
        screen->viewDidLoad();
        screen->didSelectRow(2, Screen::FontPicker);
        EXPECT_EQ(screen->listFontTextField(), u"Zeta"_qs);
        EXPECT_EQ(screen->listFont().family(), u"Arial"_qs);
        EXPECT_FALSE(stored().contains(ListFontName.toString()));
        ending.end(screen);
        EXPECT_EQ(stored().at(ListFontName.toString()), PreferenceValue(u"Zeta"_qs));
        EXPECT_TRUE(!screen || screen->listFont().family() == u"Zeta"_qs);
    }
}

TEST_F(DefaultsTest, TheColorsNameStandsOnAGroundOnWhichItCanBeRead)
{
    const std::tuple<QString, bool, QColor, QColor> cases[] = {{u"black"_qs, true, Qt::black, Qt::white},
                                                               {u"white"_qs, true, Qt::white, Qt::blue},
                                                               {u"Blue"_qs, false, {}, {}}};
    for (const auto& [name, isColor, ink, ground] : cases) {
        userDefaults.setText(ListFontColor, name);
        DefaultsViewController screen(environment);
        screen.viewDidLoad();
        EXPECT_EQ(screen.fontColorTextField(), name);
        EXPECT_EQ(screen.hasColorLook(), isColor);
        EXPECT_TRUE(!isColor || (screen.colorInk() == ink && screen.colorGround() == ground))
            << name.toStdString();
    }
}

} // namespace

} // namespace giggle
