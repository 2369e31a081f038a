// SPDX-License-Identifier: MIT
#include "jokes/DefaultsViewController.h"
#include "store/PreferenceKeys.h"
#include "tests/support/ScreenFixture.h"

#include <QFile>

#include <optional>

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

    void choose(DefaultsViewController& screen, DefaultsViewController::Picker picker, const QString& name)
    {
        const QStringList& rows =
            picker == DefaultsViewController::FontPicker ? screen.fontList() : screen.colorList();
        screen.didSelectRow(static_cast<int>(rows.indexOf(name)), picker);
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

TEST_F(DefaultsTest, ShownSizeStepperAndPreviewForEveryStoredSize)
{
    const struct {
        double stored;
        QString shown;
        double stepper;
        QString afterLarger;
        double previewChange;
    } cases[] = {{18, u"18"_qs, 18, u"19.0"_qs, 1},    {15.5, u"15.5"_qs, 15.5, u"16.5"_qs, 1},
                 {100, u"100"_qs, 72, u"72.0"_qs, -1}, {2.25, u"2.25"_qs, 8, u"9.0"_qs, 1},
                 {72, u"72"_qs, 72, u"72.0"_qs, 0},    {-3, u"-3"_qs, 8, u"9.0"_qs, 1}};

    for (const auto& each : cases) {
        SCOPED_TRACE(each.stored);
        userDefaults.setReal(ListFontSize, each.stored);
        DefaultsViewController screen(environment);
        screen.viewDidLoad();
        EXPECT_EQ(screen.listFontTextSizeTextField(), each.shown);
        EXPECT_EQ(screen.listStepper(), each.stepper);
        const double preview = screen.sizePreview();
        screen.ListStepperChanged(screen.listStepper() + 1);
        EXPECT_EQ(screen.listFontTextSizeTextField(), each.afterLarger);
        EXPECT_EQ(screen.sizePreview(), preview + each.previewChange);
        EXPECT_EQ(stored().at(ListFontSize.toString()), PreferenceValue(each.afterLarger.toDouble()));
    }
}

TEST_F(DefaultsTest, AChoiceIsStoredWhenItsEditingEnds)
{
    using Screen = DefaultsViewController;

    const struct {
        const char* name;
        void (*end)(Screen&);
    } endings[] = {
        {"done", [](Screen& screen) { screen.endEditing(); }},
        {"the other field", [](Screen& screen) { screen.beginEditing(Screen::ColorPicker); }},
        {"a choice in the other field", [](Screen& screen) { screen.didSelectRow(0, Screen::ColorPicker); }},
        {"another page", [](Screen& screen) { screen.viewDidDisappear(); }}};

    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        userDefaults.remove(ListFontName);
        userDefaults.synchronize();
        Screen screen(environment);
        screen.viewDidLoad();
        screen.beginEditing(Screen::FontPicker);
        choose(screen, Screen::FontPicker, u"Zeta"_qs);
        EXPECT_EQ(screen.listFontTextField(), u"Zeta"_qs);
        EXPECT_EQ(screen.listFont().family(), u"Arial"_qs);
        EXPECT_FALSE(stored().contains(ListFontName.toString()));
        ending.end(screen);
        EXPECT_EQ(stored().at(ListFontName.toString()), PreferenceValue(u"Zeta"_qs));
        EXPECT_EQ(screen.listFont().family(), u"Zeta"_qs);
        EXPECT_EQ(screen.listFont().pixelSize(), 17);
    }
    {
        Screen screen(environment);
        screen.viewDidLoad();
        choose(screen, Screen::ColorPicker, u"red"_qs);
        EXPECT_NE(stored().at(ListFontColor.toString()), PreferenceValue(u"red"_qs));
    }
    EXPECT_EQ(stored().at(ListFontColor.toString()), PreferenceValue(u"red"_qs)) << "the window was closed";
}

TEST_F(DefaultsTest, ColorsOfFieldAndSwatch)
{
    const struct {
        QString name;
        std::optional<QColor> ink;
        QColor ground;
    } cases[] = {{u"black"_qs, Qt::black, Qt::white},
                 {u"blue"_qs, Qt::blue, Qt::white},
                 {u"white"_qs, Qt::white, Qt::blue},
                 {u"Blue"_qs, std::nullopt, {}},
                 {u"mauve"_qs, std::nullopt, {}}};

    for (const auto& each : cases) {
        SCOPED_TRACE(each.name.toStdString());
        userDefaults.setText(ListFontColor, each.name);
        DefaultsViewController screen(environment);
        screen.viewDidLoad();
        EXPECT_EQ(screen.fontColorTextField(), each.name);
        EXPECT_EQ(screen.hasColorLook(), each.ink.has_value());
        if (!each.ink)
            continue;
        EXPECT_EQ(screen.colorInk(), *each.ink);
        EXPECT_EQ(screen.colorGround(), each.ground);
    }
}

TEST_F(DefaultsTest, ValuesOfWrongTypesStopTheProgramButForOneThatIsNotUsed)
{
    userDefaults.setText(BgColor, u"pink"_qs);
    DefaultsViewController screen(environment);
    screen.viewDidLoad();
    userDefaults.setText(ListFontSize, u"big"_qs);
    EXPECT_DEATH(DefaultsViewController(environment).viewDidLoad(), "ListFontSize.* must be of type real");
    userDefaults.setInteger(ListFontSize, 20);
    userDefaults.setInteger(ListFontName, 1);
    EXPECT_DEATH(DefaultsViewController(environment).viewDidLoad(), "ListFontName.* must be of type text");
}

} // namespace

} // namespace giggle
