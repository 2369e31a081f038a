// SPDX-License-Identifier: MIT
// guide_maker <guide.html> <folder for pictures> <guide.pdf>
// Walks through the application's real screens, takes a picture of each, and sets the guide with them.
#include "tests/interface/InterfaceFixture.h"
#include "tools/guide/GuidePages.h"

#include <QDir>
#include <QGuiApplication>
#include <QTest>

#include <cstdio>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

QDir pictures;

class GuidePictures : public InterfaceFixture {
protected:
    void take(const QString& name)
    {
        QTest::qWait(600); // for what slides and fades
        ASSERT_TRUE(window().grabWindow().save(pictures.filePath(name + u".png"_qs)));
    }

    /// A picture of an area's first page; none of an area that this build does not have.
    void takeArea(const QString& button, const QString& name)
    {
        if (!enter(button))
            return;
        take(name);
        leave();
    }

    bool enter(const QString& button)
    {
        press(QAccessible::Button, u"Menu"_qs);
        QAccessibleInterface* area = waitFor(QAccessible::Button, button);
        if (!area || !area->text(QAccessible::Description).isEmpty()) {
            std::printf("left out: %s\n", qPrintable(button));
            press(QAccessible::Button, u"Menu"_qs);
            return false;
        }
        press(QAccessible::Button, u"Menu"_qs);
        QTest::qWait(400);
        openArea(button);
        QTest::qWait(400);
        return true;
    }

    /// Back to the menu, however many pages above it.
    void leave()
    {
        for (int pages = 0; pages < 5 && !find(QAccessible::Button, u"Menu"_qs); ++pages) {
            press(QAccessible::Button, u"Back"_qs);
            QTest::qWait(600);
        }
        ASSERT_TRUE(find(QAccessible::Button, u"Menu"_qs));
    }

    QString firstRow()
    {
        const QStringList rows = names(QAccessible::ListItem);
        return rows.isEmpty() ? QString() : rows.first();
    }

    void takeJokes()
    {
        ASSERT_TRUE(enter(u"Joke List"_qs));
        press(QAccessible::CheckBox, u"Favorite"_qs);
        take(u"list"_qs);
        press(QAccessible::ListItem, firstRow());
        waitFor(QAccessible::Button, u"Larger text"_qs);
        take(u"edit"_qs);
        leave();
        ASSERT_TRUE(enter(u"Add Joke"_qs));
        press(QAccessible::EditableText, u"Category"_qs);
        waitFor(QAccessible::List, u"Category choices"_qs);
        take(u"add"_qs);
        leave();
    }

    void takeGroups()
    {
        ASSERT_TRUE(enter(u"Jokes by Category"_qs));
        take(u"groups"_qs);
        press(QAccessible::ListItem, firstRow());
        take(u"breakdown"_qs);
        leave();
    }

    void takeExchange()
    {
        ASSERT_TRUE(enter(u"Import / Export"_qs));
        press(QAccessible::Button, u"Export Jokes"_qs);
        press(QAccessible::Button, u"Export"_qs);
        press(QAccessible::Button, u"OK"_qs);
        take(u"export"_qs);
        press(QAccessible::Button, u"Back"_qs);
        press(QAccessible::Button, u"Import Jokes"_qs);
        take(u"import"_qs);
        leave();
    }

    void takeSettings()
    {
        ASSERT_TRUE(enter(u"Default Settings"_qs));
        press(QAccessible::EditableText, u"Font"_qs);
        press(QAccessible::ListItem, u"Liberation Sans"_qs);
        take(u"settings"_qs);
        leave();
    }
};

TEST_F(GuidePictures, AreTaken)
{
    system().fonts.installed = {u"Arial"_qs,           u"Courier New"_qs,      u"Liberation Mono"_qs,
                                u"Liberation Sans"_qs, u"Liberation Serif"_qs, u"Times New Roman"_qs};
    openWindow();
    press(QAccessible::Button, u"Ok"_qs);
    press(QAccessible::Button, u"Menu"_qs);
    take(u"menu"_qs);
    press(QAccessible::Button, u"Menu"_qs);
    takeJokes();
    takeGroups();
    takeArea(u"Joke of the Day"_qs, u"day"_qs);
    takeArea(u"Print"_qs, u"print"_qs);
    takeExchange();
    takeSettings();
    takeArea(u"Rate / Share"_qs, u"rate"_qs);
}

} // namespace

} // namespace giggle

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("guide_maker <guide.html> <folder for pictures> <guide.pdf>\n", stderr);
        return 2;
    }
    giggle::pictures.setPath(arguments[2]);
    const QStringList old = giggle::pictures.entryList({QStringLiteral("*.png")}, QDir::Files);
    for (const QString& each : old)
        giggle::pictures.remove(each);
    if (const int status = RUN_ALL_TESTS(); status != 0)
        return status;
    const QString failure = giggle::setGuide(arguments[1], giggle::pictures, arguments[3]);
    if (!failure.isEmpty())
        std::fprintf(stderr, "%s\n", qPrintable(failure));
    return failure.isEmpty() ? 0 : 1;
}
