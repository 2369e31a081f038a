// SPDX-License-Identifier: MIT
#include "checkbox/VaneCheckbox.h"

#include "tests/checkbox/Pictures.h"

#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <functional>

#include <gtest/gtest.h>

namespace giggle {

namespace {

/// Counts how often it is drawn.
class CountingBox : public VaneCheckbox {
public:
    using VaneCheckbox::VaneCheckbox;

    void paint(QPainter* painter) override
    {
        ++paints;
        VaneCheckbox::paint(painter);
    }

    int paints = 0;
};

class VaneCheckboxTest : public ::testing::Test {
protected:
    VaneCheckboxTest()
    {
        m_window.resize(100, 100);
        m_window.setColor(Qt::white);
        box = new CountingBox(m_window.contentItem());
        box->setPosition({20, 20});
        box->setSize({44, 44});
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    QImage shown() { return m_window.grabWindow(); }

    QQuickWindow m_window;
    CountingBox* box = nullptr;
};

using Action = std::function<void(VaneCheckbox&)>;

TEST_F(VaneCheckboxTest, StateIsWhatWasSetLast)
{
    const auto set = [](VaneCheckbox::CheckState state, bool animated) -> Action {
        return [=](VaneCheckbox& item) { item.setCheckState(state, animated); };
    };
    const Action toggle = [](VaneCheckbox& item) { item.toggle(); };
    const auto U = VaneCheckbox::Unchecked;
    const auto C = VaneCheckbox::Checked;
    const auto M = VaneCheckbox::Mixed;

    const struct {
        const char* name;
        VaneCheckbox::CheckState start;
        std::vector<Action> actions; // with time for a part of an animation between them
        VaneCheckbox::CheckState end;
        int clicks;
        bool animates; // after the last action
    } cases[] = {
        {"set", U, {set(C, false)}, C, 0, false},
        {"set animated", U, {set(M, true)}, M, 0, true},
        {"set to what it is", C, {set(C, true)}, C, 0, false},
        {"unknown", C, {set(VaneCheckbox::CheckState(3), true)}, C, 0, false},
        {"toggle", U, {toggle}, C, 1, true},
        {"toggle checked", C, {toggle}, U, 1, true},
        {"toggle mixed", M, {toggle}, C, 1, true},
        {"turned round", U, {toggle, toggle}, U, 2, true},
        {"cut short", U, {toggle, set(M, false)}, M, 0 + 1, false},
        {"cut short where it goes", U, {toggle, set(C, false)}, C, 1, false},
        {"asked for twice", U, {set(C, true), set(C, true)}, C, 0, true},
        {"other goal", U, {set(C, true), set(M, true)}, M, 0, true},
        {"other goal, from a mark", C, {set(M, true), set(U, true)}, U, 0, true},
        {"hidden", U, {toggle, [](VaneCheckbox& item) { item.setVisible(false); }}, C, 1, false},
        {"while hidden", U, {[](VaneCheckbox& item) { item.setVisible(false); }, set(C, true)}, C, 0, false},
        {"out of the window",
         U,
         {toggle, [](VaneCheckbox& item) { item.setParentItem(nullptr); }},
         C,
         1,
         false},
        {"disabled", U, {[](VaneCheckbox& item) { item.setEnabled(false); }, toggle}, U, 0, false},
        {"no time", U, {[](VaneCheckbox& item) { item.setAnimationDuration(0); }, toggle}, C, 1, false},
        {"no time any more",
         U,
         {toggle, [](VaneCheckbox& item) { item.setAnimationDuration(-1); }, toggle},
         U,
         2,
         false},
        {"other animation amid one",
         U,
         {toggle, [](VaneCheckbox& item) { item.setAnimation(VaneCheckbox::Dot); }, toggle},
         U,
         2,
         true},
    };

    for (const auto& [name, start, actions, end, clicks, animates] : cases) {
        SCOPED_TRACE(name);
        VaneCheckbox item(m_window.contentItem());
        item.setAnimationDuration(150);
        item.setCheckState(start);
        const QSignalSpy clicked(&item, &VaneCheckbox::clicked);
        for (const Action& action : actions) {
            QTest::qWait(30);
            action(item);
        }
        EXPECT_EQ(item.checkState(), end);
        EXPECT_EQ(clicked.count(), clicks);
        EXPECT_EQ(item.isAnimating(), animates);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !item.isAnimating(); }));
        EXPECT_EQ(item.checkState(), end);
        QImage drawn(24, 24, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        item.setSize({24, 24});
        item.paint(&painter);
        EXPECT_EQ(difference(drawn, picture(restFrame(BoxState(end)), CheckBoxStyle(), 24)), 0);
    }
}

TEST_F(VaneCheckboxTest, StatesHaveNames)
{
    for (const QString& name :
         {QStringLiteral("Mixed"), QStringLiteral("Checked"), QStringLiteral("Unchecked")}) {
        EXPECT_TRUE(box->setStateName(name));
        EXPECT_EQ(box->stateName(), name);
        EXPECT_EQ(box->isChecked(), name == u"Checked");
        EXPECT_EQ(box->isMixed(), name == u"Mixed");
    }
    EXPECT_FALSE(box->setStateName(QStringLiteral("checked")));
    EXPECT_EQ(box->checkState(), VaneCheckbox::Unchecked);
}

TEST_F(VaneCheckboxTest, TapsAndSpaceToggle)
{
    const QSignalSpy clicked(box, &VaneCheckbox::clicked);
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, {22, 22}); // beside the box, but within the item
    EXPECT_TRUE(box->isChecked());
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, {10, 10});
    QTest::mousePress(&m_window, Qt::LeftButton, {}, {40, 40});
    QTest::mouseRelease(&m_window, Qt::LeftButton, {}, {10, 10}); // slid off
    EXPECT_TRUE(box->isChecked());
    m_window.requestActivate();
    box->forceActiveFocus();
    QTest::keyClick(&m_window, Qt::Key_Space);
    EXPECT_FALSE(box->isChecked());
    QTest::keyClick(&m_window, Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(VaneCheckboxTest, DrawsOnlyWhatChanges)
{
    const auto paintsOf = [&](const Action& action) {
        shown();
        const int before = box->paints;
        action(*box);
        shown();
        return box->paints - before;
    };
    EXPECT_EQ(paintsOf([](VaneCheckbox& item) { item.setY(35); }), 0); // as in a list that scrolls
    EXPECT_EQ(paintsOf([](VaneCheckbox& item) { item.setCheckState(VaneCheckbox::Unchecked, true); }), 0);
    EXPECT_EQ(paintsOf([](VaneCheckbox& item) { item.setTintColor(item.tintColor()); }), 0);
    EXPECT_EQ(paintsOf([](VaneCheckbox& item) { item.setCheckState(VaneCheckbox::Checked); }), 1);
    EXPECT_EQ(paintsOf([](VaneCheckbox& item) { item.setTintColor(Qt::red); }), 1);
}

TEST_F(VaneCheckboxTest, IsDrawnSharplyAtEveryScale)
{
    box->setCheckState(VaneCheckbox::Checked);
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const int side = int(44 * scale);
        QImage drawn(side, side, QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        painter.scale(scale, scale);
        box->paint(&painter);
        painter.end();
        // From the left, in the middle: clear pixels, the line's black ones, and the ground, none between.
        int black = 0;
        for (int x = 0; x < int(13 * scale); ++x) {
            const QColor color = drawn.pixelColor(x, side / 2);
            black += color == QColor(Qt::black);
            EXPECT_TRUE(color.alpha() == 0 || color == QColor(Qt::black) || color == box->tintColor())
                << "scale " << scale << ", pixel " << x << ", " << color.name(QColor::HexArgb).toStdString();
        }
        EXPECT_EQ(black, std::lround(2 * scale)) << scale;
    }
}

TEST_F(VaneCheckboxTest, AnimationIsSeenAndEndsAtRest)
{
    const QImage start = shown();
    box->setAnimationDuration(120);
    box->toggle();
    int between = 0;
    QImage last = start;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const QImage now = shown();
        between += now != last;
        last = now;
        return !box->isAnimating();
    }));
    EXPECT_GE(between, 2);
    const QImage end = shown();
    EXPECT_EQ(end.pixelColor(42, 50), box->tintColor()); // within the box, below the mark
    const int paints = box->paints;
    QTest::qWait(50);
    shown();
    EXPECT_EQ(box->paints, paints);
}

TEST_F(VaneCheckboxTest, CanBeDestroyedAmidAnAnimation)
{
    box->toggle();
    QTest::qWait(30);
    ASSERT_TRUE(box->isAnimating());
    delete box;
    QTest::qWait(30);
    EXPECT_FALSE(shown().isNull());
}

} // namespace

} // namespace giggle
