// SPDX-License-Identifier: MIT
#include "exchange/ExportViewController.h"

#include "tests/support/ScreenFixture.h"

#include <QDir>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

class ExportViewControllerTest : public ScreenFixture {
protected:
    [[nodiscard]] std::string shown() { return *screen.exportTextView()->text(); }

    const QString path = system.temporaryFolder.filePath(u"GiggleArchives.csv"_qs);
    ExportViewController screen{environment};
};

TEST_F(ExportViewControllerTest, TheFileIsShownSavedAndMailedByteForByte)
{
    // What a text widget would turn into something else.
    addJoke({.id = 1, .favorite = true, .joke = "no-break\u00a0space, \u2028, \r and ^"});
    const std::string text =
        "[GIGGLEARCHIVES]\n^^1^T^no-break\u00a0space, \u2028, \r and ~#~\n\n[CATEGORY]\n\n[RATING]\n";
    screen.CreateUpdateFile();
    EXPECT_EQ(shown(), text);

    screen.SaveToFiles();
    const FakeShareSheet::Request sheet = system.shareSheet.presented.at(0);
    EXPECT_EQ(std::get<SharedFile>(sheet.items.at(0)).path, path);
    EXPECT_THAT(sheet.excluded,
                UnorderedElementsAre(ShareActivity::Copy, ShareActivity::Mail, ShareActivity::Message,
                                     ShareActivity::Print, ShareActivity::SaveAsPdf));
    EXPECT_EQ(readBytes(path).toStdString(), text);

    screen.WriteTextFile();
    Mail expected;
    expected.subject = u"Giggle Archives Update Text File"_qs;
    expected.body = u"Attachment: Giggle Archives Text File"_qs;
    expected.attachments = {{QByteArray::fromStdString(text), u"csv"_qs, u"GiggleArchives.csv"_qs}};
    EXPECT_THAT(system.mailComposer.presented, ElementsAre(expected));
    EXPECT_EQ(shown(), text);
}

TEST_F(ExportViewControllerTest, APlaceThatCannotBeWrittenToIsLoggedAndTheWayGoesOn)
{
    screen.CreateUpdateFile();
    const std::string text = shown();
    ASSERT_TRUE(QDir().mkdir(path));
    testing::internal::CaptureStderr();
    screen.SaveToFiles();
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("GiggleArchives.csv\" cannot be written"));
    EXPECT_EQ(system.shareSheet.presented.size(), 1U);
    screen.WriteTextFile();
    EXPECT_TRUE(system.mailComposer.presented.at(0).attachments.empty());
    EXPECT_EQ(shown(), text);
}

TEST_F(ExportViewControllerTest, SavingWithoutAFileEndsTheProgram)
{
    EXPECT_DEATH(screen.SaveToFiles(), "no exported text");
}

} // namespace

} // namespace giggle
