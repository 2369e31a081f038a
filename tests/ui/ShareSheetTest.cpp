// SPDX-License-Identifier: MIT
#include "tests/support/CollectionFolder.h"
#include "tests/support/FakeNavigator.h"
#include "tests/support/FakePlatform.h"
#include "ui/WindowShareSheet.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

class ShareSheetTest : public testing::Test {
protected:
    void choose(const QString& name)
    {
        ASSERT_TRUE(sheet.choices().contains(name)) << name.toStdString();
        sheet.choose(int(sheet.choices().indexOf(name)));
        EXPECT_FALSE(sheet.isShown());
    }

    FakePlatform system;
    FakeNavigator navigator;
    WindowShareSheet sheet{system.platform, navigator};
    SharedText text{u"caf\u00e9 & more\nlines"_qs};
};

TEST_F(ShareSheetTest, OffersWhatWorksAndIsNotExcluded)
{
    const struct {
        std::vector<SharedItem> items;
        bool canMail;
        bool canMessage;
        std::set<ShareActivity> excluded;
        QStringList choices;
    } cases[] = {
        {{text},
         true,
         true,
         {},
         {u"Copy"_qs, u"Mail"_qs, u"Message"_qs, u"Print"_qs, u"Save as PDF"_qs, u"Save to Files"_qs,
          u"Open With"_qs}},
        {{text},
         false,
         false,
         {},
         {u"Copy"_qs, u"Print"_qs, u"Save as PDF"_qs, u"Save to Files"_qs, u"Open With"_qs}},
        {{SharedText{QString(20000, u'\u00e9')}},
         true,
         true,
         {ShareActivity::Copy, ShareActivity::Print}, // too long for a message
         {u"Mail"_qs, u"Save as PDF"_qs, u"Save to Files"_qs, u"Open With"_qs}},
        {{SharedFile{u"/a.csv"_qs}},
         true,
         true,
         {ShareActivity::Mail},
         {u"Copy"_qs, u"Save to Files"_qs, u"Open With"_qs}},
        {{text, text},
         false,
         true,
         {},
         {u"Copy"_qs, u"Message"_qs, u"Print"_qs, u"Save as PDF"_qs, u"Save to Files"_qs, u"Open With"_qs}},
        {{text, SharedFile{u"/a.csv"_qs}}, true, true, {}, {u"Copy"_qs, u"Mail"_qs}},
    };

    for (const auto& one : cases) {
        system.mailComposer.canSend = one.canMail;
        system.messageCapability.canSend = one.canMessage;
        sheet.present(one.items, one.excluded);
        EXPECT_EQ(sheet.choices(), one.choices);
        EXPECT_EQ(sheet.icons().size(), one.choices.size());
        sheet.cancel();
    }
}

TEST_F(ShareSheetTest, ATextGoesWhereItIsChosenToGo)
{
    sheet.present({text}, {});
    choose(u"Copy"_qs);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text.text);

    sheet.present({text, SharedText{u"website"_qs}}, {});
    choose(u"Mail"_qs);
    EXPECT_EQ(system.mailComposer.presented.at(0).body, text.text + u"\nwebsite"_qs);

    sheet.present({text}, {});
    choose(u"Message"_qs);
    EXPECT_EQ(system.addressOpener.opened.back().toEncoded(), "sms:?body=caf%C3%A9%20%26%20more%0Alines");

    sheet.present({text}, {});
    choose(u"Open With"_qs);
    EXPECT_EQ(readBytes(system.fileOpener.opened.at(0)), text.text.toUtf8());

    for (const QString& way : {u"Print"_qs, u"Save as PDF"_qs}) {
        sheet.present({text}, {});
        choose(way);
        EXPECT_EQ(system.printPanel.presented.back().text, text.text);
        EXPECT_EQ(system.printPanel.presented.back().isForPdf, way != u"Print"_qs);
    }

    CollectionFolder folder;
    sheet.present({text}, {});
    choose(u"Save to Files"_qs);
    EXPECT_EQ(system.documentPicker.suggestedNames.back(), u"Jokes.txt"_qs);
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"mine.txt"_qs)));
    EXPECT_EQ(readBytes(folder.filePath(u"mine.txt"_qs)), text.text.toUtf8());
    EXPECT_TRUE(navigator.alerts.empty());
}

TEST_F(ShareSheetTest, WhatCannotBeDoneIsSaid)
{
    CollectionFolder folder;
    const SharedFile gone{folder.filePath(u"gone.csv"_qs)};
    sheet.present({gone}, {});
    choose(u"Mail"_qs);
    EXPECT_TRUE(system.mailComposer.presented.empty());
    sheet.present({gone}, {});
    choose(u"Save to Files"_qs);
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"mine.csv"_qs)));
    sheet.present({text}, {});
    choose(u"Save to Files"_qs);
    system.documentPicker.answer(QUrl::fromLocalFile(folder.filePath(u"no/folder/mine.txt"_qs)));
    sheet.present({text}, {});
    choose(u"Open With"_qs);
    system.fileOpener.finished(u"No program could be started."_qs);
    EXPECT_EQ(navigator.alerts.size(), 4U);

    sheet.present({text}, {});
    choose(u"Save to Files"_qs);
    system.documentPicker.answer({}); // cancelled
    EXPECT_EQ(navigator.alerts.size(), 4U);
}

} // namespace

} // namespace giggle
