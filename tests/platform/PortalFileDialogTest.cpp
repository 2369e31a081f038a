// SPDX-License-Identifier: MIT
#include "platform/linux/PortalFileDialog.h"

#include "tests/platform/FakePortal.h"
#include "tests/platform/PrivateBus.h"

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString FileChooser = u"org.freedesktop.portal.FileChooser"_qs;
const QVariantMap HasFileChooser{{FileChooser + u" version"_qs, 3U}};

class PortalFileDialogTest : public testing::Test {
protected:
    /// What comes of a request; fails when nothing does.
    std::optional<QUrl> open(PortalFileDialog& dialog, const SystemFileDialog::Request& request)
    {
        std::optional<std::optional<QUrl>> answer;
        dialog.open(request, [&](const std::optional<QUrl>& chosen) { answer = chosen; });
        EXPECT_FALSE(answer.has_value()) << "answered before the call returned";
        EXPECT_TRUE(spinUntil([&] { return answer.has_value(); }));
        return answer.value_or(std::nullopt);
    }

    PrivateBus m_bus;
};

TEST_F(PortalFileDialogTest, IsOfferedByAPortalThatHasIt)
{
    PortalFileDialog dialog(m_bus.connect());
    const auto isOffered = [&] { return dialog.isOffered(); };
    EXPECT_FALSE(isOffered()) << "there is no portal yet";
    FakePortal portal(m_bus.connect(), HasFileChooser);
    EXPECT_TRUE(spinUntil(isOffered));
    portal.leave();
    EXPECT_TRUE(spinUntil([&] { return !isOffered(); }));

    FakePortal other(m_bus.connect(), {{u"org.freedesktop.portal.Email version"_qs, 3U}});
    EXPECT_TRUE(spinUntil([&] { return other.valuesAsked >= 1; }));
    QTest::qWait(100);
    EXPECT_FALSE(isOffered());
}

TEST_F(PortalFileDialogTest, BringsWhatIsChosen)
{
    FakePortal portal(m_bus.connect(), HasFileChooser);
    PortalFileDialog dialog(m_bus.connect());
    portal.results = {{u"uris"_qs, QStringList{u"file:///tmp/50%25%20%231.csv"_qs}}};
    const QUrl file = QUrl::fromLocalFile(u"/tmp/50% #1.csv"_qs);
    EXPECT_EQ(open(dialog, {u"Load File"_qs, QUrl::fromLocalFile(u"/tmp"_qs), {}}), file);
    EXPECT_EQ(portal.method, FileChooser + u".OpenFile"_qs);
    EXPECT_EQ(portal.options.value(u"current_folder"_qs).toByteArray(), QByteArray("/tmp\0", 5));
    EXPECT_FALSE(portal.options.contains(u"current_name"_qs));

    EXPECT_EQ(open(dialog, {u"Save to Files"_qs, {}, u"a.csv"_qs}), file);
    EXPECT_EQ(portal.method, FileChooser + u".SaveFile"_qs);
    EXPECT_EQ(portal.options.value(u"current_name"_qs).toString(), u"a.csv"_qs);
}

TEST_F(PortalFileDialogTest, TellsACancelFromAFailure)
{
    const SystemFileDialog::Request request{u"Load File"_qs, {}, {}};
    FakePortal portal(m_bus.connect(), HasFileChooser);
    PortalFileDialog dialog(m_bus.connect());
    portal.response = 1;
    EXPECT_EQ(open(dialog, request), QUrl());
    portal.response = 2;
    EXPECT_EQ(open(dialog, request), std::nullopt);
    portal.response = 0; // and yet no file, or one that is elsewhere
    EXPECT_EQ(open(dialog, request), std::nullopt);
    portal.results = {{u"uris"_qs, QStringList{u"sftp://host/a.csv"_qs}}};
    EXPECT_EQ(open(dialog, request), std::nullopt);
    portal.response.reset();
    dialog.open(request, [](const std::optional<QUrl>&) { ADD_FAILURE() << "it was closed"; });
    dialog.close();
    EXPECT_TRUE(spinUntil([&] { return portal.method.endsWith(u".Close"_qs); }));
    portal.leave();
    EXPECT_EQ(open(dialog, request), std::nullopt);
}

} // namespace

} // namespace giggle
