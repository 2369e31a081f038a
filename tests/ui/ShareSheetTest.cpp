// SPDX-License-Identifier: MIT
#include "tests/support/ScreenFixture.h"
#include "ui/WindowShareSheet.h"

#include <QClipboard>
#include <QGuiApplication>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ShareSheetTest : public ScreenFixture {
protected:
    void choose(const std::vector<SharedItem>& items, const QString& name)
    {
        sheet.present(items, {});
        ASSERT_TRUE(sheet.choices().contains(name)) << name.toStdString();
        sheet.choose(int(sheet.choices().indexOf(name)));
        EXPECT_FALSE(sheet.isShown());
    }

    void saveTo(const std::vector<SharedItem>& items, const QUrl& place)
    {
        choose(items, u"Save to Files"_qs);
        system.documentPicker.answer(place);
    }

    WindowShareSheet sheet{system.platform, navigator};
    SharedText text{u"caf\u00e9 & 100% #+\nlines"_qs};
};

TEST_F(ShareSheetTest, OffersWhatWorksAndIsNotExcluded)
{
    const SharedText tooLong{QString(20000, u'\u00e9')};
    const SharedFile file{u"/a.csv"_qs};

    const struct {
        std::vector<SharedItem> items;
        bool canMail;
        bool canMessage;
        std::set<ShareActivity> excluded;
        QString choices;
    } cases[] = {
        {{text}, true, true, {}, "Copy, Mail, Message, Print, Save as PDF, Save to Files, Open With"},
        {{text}, false, false, {}, "Copy, Print, Save as PDF, Save to Files, Open With"},
        {{tooLong}, true, true, {ShareActivity::Copy}, "Mail, Print, Save as PDF, Save to Files, Open With"},
        {{file}, true, true, {ShareActivity::Mail}, "Copy, Save to Files, Open With"},
        {{text, text}, false, true, {}, "Copy, Message, Print, Save as PDF, Save to Files, Open With"},
        {{text, file}, true, true, {}, "Copy, Mail"},
    };

    for (const auto& one : cases) {
        system.mailComposer.canSend = one.canMail;
        system.messageCapability.canSend = one.canMessage;
        sheet.present(one.items, one.excluded);
        EXPECT_EQ(sheet.choices().join(u", "_qs), one.choices);
        EXPECT_EQ(sheet.icons().size(), sheet.choices().size());
        sheet.cancel();
    }
}

TEST_F(ShareSheetTest, ATextGoesWhereItIsChosenToGo)
{
    choose({text}, u"Copy"_qs);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text.text);
    choose({text, SharedText{u"website"_qs}}, u"Mail"_qs);
    EXPECT_EQ(system.mailComposer.presented.at(0).body, text.text + u"\nwebsite"_qs);
    choose({text}, u"Message"_qs);
    EXPECT_EQ(system.addressOpener.opened.back().toEncoded(),
              "sms:?body=caf%C3%A9%20%26%20100%25%20%23%2B%0Alines");
    choose({text}, u"Open With"_qs);
    EXPECT_EQ(readBytes(system.fileOpener.opened.at(0)), text.text.toUtf8());
    for (const QString& way : {u"Print"_qs, u"Save as PDF"_qs}) {
        choose({text}, way);
        EXPECT_EQ(system.printPanel.presented.back().text, text.text);
        EXPECT_EQ(system.printPanel.presented.back().isForPdf, way != u"Print"_qs);
    }
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(ShareSheetTest, WhatCannotBeDoneIsSaid)
{
    const SharedFile gone{folder.filePath(u"gone.csv"_qs)};
    choose({gone}, u"Mail"_qs);
    EXPECT_TRUE(system.mailComposer.presented.empty());
    saveTo({gone}, QUrl::fromLocalFile(folder.filePath(u"mine.csv"_qs)));
    saveTo({text}, QUrl::fromLocalFile(folder.filePath(u"no/folder/mine.txt"_qs)));
    choose({text}, u"Open With"_qs);
    system.fileOpener.finished(u"No program could be started."_qs);
    EXPECT_EQ(navigator.alerts.size(), 4U);
    saveTo({text}, {}); // cancelled
    EXPECT_EQ(navigator.alerts.size(), 4U);
}

} // namespace

} // namespace giggle
