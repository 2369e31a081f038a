// SPDX-License-Identifier: MIT
#include "exchange/ExportViewController.h"

#include "platform/DocumentPicker.h"
#include "tests/support/ScreenFixture.h"

#include <QDir>

#include <gmock/gmock.h>

namespace giggle {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class ExportViewControllerTest : public ScreenFixture {
protected:
    [[nodiscard]] QString path() const
    {
        return system.temporaryFolder.filePath(QStringLiteral("GiggleArchives.csv"));
    }

    [[nodiscard]] std::string shown() { return *screen.exportTextView()->text(); }

    ExportViewController screen{environment};
};

TEST_F(ExportViewControllerTest, ProgressFollowsTheJokesUpToTenOnceTheFileIsComplete)
{
    insertCategory(context(), "Puns");
    for (const double fraction : {0.0, 0.1, 1.0}) {
        while (context().count(Jokes::fetchRequest()) < std::size_t(fraction * 12))
            addJoke({.joke = "x"});
        ExportViewController one(environment);
        one.viewDidLoad();
        one.CreateUpdateFile();
        EXPECT_EQ(one.progressView(), 0);
        EXPECT_TRUE(one.isActivityIndicatorAnimating());
        mainQueue.advance(1ms);
        EXPECT_DOUBLE_EQ(one.progressView(), fraction);
        EXPECT_FALSE(one.isActivityIndicatorAnimating());
        mainQueue.advance(998ms);
        EXPECT_TRUE(navigator.alerts.empty());
        mainQueue.advance(1ms);
        EXPECT_EQ(std::exchange(navigator.alerts, {}).at(0).message.toStdString(),
                  "Process Complete - File Ready to Save to Files or Email");
    }
}

TEST_F(ExportViewControllerTest, TheFileIsShownSavedAndMailedByteForByte)
{
    // What a text widget would turn into something else.
    addJoke({.id = 1, .favorite = true, .joke = "no-break\u00a0space, \u2028, \r and ^"});
    const std::string text =
        "[GIGGLEARCHIVES]\n^^1^T^no-break\u00a0space, \u2028, \r and ~#~\n\n[CATEGORY]\n\n[RATING]\n";
    EXPECT_TRUE(screen.isExportButtonEnabled());
    EXPECT_FALSE(screen.isSaveButtonEnabled() || screen.isEmailButtonEnabled());
    screen.CreateUpdateFile();
    EXPECT_FALSE(screen.isExportButtonEnabled());
    EXPECT_TRUE(screen.isSaveButtonEnabled() && screen.isEmailButtonEnabled());
    EXPECT_EQ(shown(), text);

    screen.SaveToFiles();
    ASSERT_EQ(system.shareSheet.presented.size(), 1U);
    EXPECT_EQ(std::get<SharedFile>(system.shareSheet.presented.front().items.at(0)).path, path());
    EXPECT_THAT(system.shareSheet.presented.front().excluded,
                UnorderedElementsAre(ShareActivity::Copy, ShareActivity::Mail, ShareActivity::Message,
                                     ShareActivity::Print, ShareActivity::SaveAsPdf));
    EXPECT_EQ(readBytes(path()).toStdString(), text);

    screen.WriteTextFile();
    ASSERT_EQ(system.mailComposer.presented.size(), 1U);
    const Mail& mail = system.mailComposer.presented.front();
    EXPECT_EQ(mail.subject.toStdString(), "Giggle Archives Update Text File");
    EXPECT_EQ(mail.body.toStdString(), "Attachment: Giggle Archives Text File");
    EXPECT_THAT(mail.attachments,
                ElementsAre(MailAttachment{QByteArray::fromStdString(text), QStringLiteral("csv"),
                                           QStringLiteral("GiggleArchives.csv")}));
    EXPECT_EQ(shown(), text);
}

TEST_F(ExportViewControllerTest, APlaceThatCannotBeWrittenToIsLoggedAndTheWayGoesOn)
{
    screen.CreateUpdateFile();
    const std::string text = shown();
    ASSERT_TRUE(QDir().mkdir(path()));
    testing::internal::CaptureStderr();
    screen.SaveToFiles();
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
                testing::HasSubstr("GiggleArchives.csv\" cannot be written"));
    EXPECT_EQ(system.shareSheet.presented.size(), 1U);
    screen.WriteTextFile();
    ASSERT_EQ(system.mailComposer.presented.size(), 1U);
    EXPECT_TRUE(system.mailComposer.presented.front().attachments.empty());
    EXPECT_EQ(shown(), text);
}

TEST_F(ExportViewControllerTest, SavingWithoutAFileEndsTheProgram)
{
    EXPECT_DEATH(screen.SaveToFiles(), "no exported text");
}

} // namespace

} // namespace giggle
