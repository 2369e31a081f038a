// SPDX-License-Identifier: MIT
#include "platform/SystemFileDialog.h"
#include "tests/support/ScreenFixture.h"
#include "ui/DocumentChoice.h"
#include "ui/WindowDocumentPicker.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

using Kind = DocumentChoice::Kind;

/// A desktop's dialog that a test answers.
class FakeSystemFileDialog : public SystemFileDialog {
public:
    [[nodiscard]] bool isOffered() const override { return true; }

    void open(const Request& wanted, Answer whatToDo) override
    {
        request = wanted;
        answer = std::move(whatToDo);
    }

    void close() override { answer = {}; }

    Request request;
    Answer answer;
};

class DocumentPickerTest : public ScreenFixture {
protected:
    DocumentPickerTest()
    {
        QDir(root).mkdir(u"sub"_qs);
        for (const QString& name : {u"a.csv"_qs, u"~"_qs, u"50% #1?.csv"_qs, u" blank"_qs, u"sub/b.csv"_qs})
            writeBytes(folder.filePath(name), "ha");
        EXPECT_EQ(::mkfifo(QFile::encodeName(folder.filePath(u"pipe"_qs)).constData(), 0600), 0);
        QFile::link(u"nowhere"_qs, folder.filePath(u"dangling.txt"_qs));
    }

    QString root = QDir(folder.path()).absolutePath();
    WindowDocumentPicker picker{navigator};
    std::vector<QUrl> answers;
    const DocumentPicker::Answer answer = [this](const QUrl& chosen) { answers.push_back(chosen); };
};

TEST_F(DocumentPickerTest, ATypedTextIsANameAPathOrAnAddress)
{
    const QString address = QUrl::fromLocalFile(root + u"/50% #1?.csv"_qs).toString(QUrl::FullyEncoded);

    struct {
        QString text;
        Kind toLoad;
        Kind toSave;
        QString path; ///< below the folder, or absolute
    } const cases[] = {
        {u"a.csv"_qs, Kind::File, Kind::File, u"a.csv"_qs},
        {u" blank"_qs, Kind::File, Kind::File, u" blank"_qs},
        {u"50% #1?.csv"_qs, Kind::File, Kind::File, u"50% #1?.csv"_qs},
        {address, Kind::File, Kind::File, u"50% #1?.csv"_qs},
        {root + u"/sub/../a.csv"_qs, Kind::File, Kind::File, u"a.csv"_qs},
        {u"sub/b.csv"_qs, Kind::File, Kind::File, u"sub/b.csv"_qs},
        {u"~"_qs, Kind::File, Kind::File, u"~"_qs}, // a file, here
        {u"~/"_qs, Kind::Folder, Kind::Folder, QDir::homePath()},
        {u"sub"_qs, Kind::Folder, Kind::Folder, u"sub"_qs},
        {u"new.csv"_qs, Kind::Refused, Kind::File, u"new.csv"_qs},
        {u"new/a.csv"_qs, Kind::Refused, Kind::Refused, {}},
        {u"pipe"_qs, Kind::Refused, Kind::Refused, {}},
        {u"file:new.csv"_qs, Kind::Refused, Kind::File, u"new.csv"_qs},
        {u"file://elsewhere/a.csv"_qs, Kind::Refused, Kind::Refused, {}},
        {QString(300, u'x'), Kind::Refused, Kind::Refused, {}},
        {u"  "_qs, Kind::Refused, Kind::Refused, {}},
    };

    for (const auto& test : cases) {
        SCOPED_TRACE(test.text.toStdString());
        const std::pair<DocumentChoice, Kind> choices[] = {
            {DocumentChoice::toLoad(test.text, root), test.toLoad},
            {DocumentChoice::toSave(test.text, root), test.toSave}};
        for (const auto& [choice, kind] : choices) {
            EXPECT_EQ(choice.kind, kind);
            EXPECT_EQ(choice.problem.isEmpty(), kind != Kind::Refused) << choice.problem.toStdString();
            EXPECT_EQ(choice.path, kind == Kind::Refused ? QString() : QDir(root).filePath(test.path));
        }
    }
}

TEST_F(DocumentPickerTest, AFreeNameKeepsItsSuffix)
{
    writeBytes(folder.filePath(u"a 2.csv"_qs), "ha");
    writeBytes(folder.filePath(u".hidden"_qs), "ha");
    EXPECT_EQ(freeName(u"new.csv"_qs, root), u"new.csv"_qs);
    EXPECT_EQ(freeName(u"a.csv"_qs, root), u"a 3.csv"_qs);
    EXPECT_EQ(freeName(u"sub"_qs, root), u"sub 2"_qs);
    EXPECT_EQ(freeName(u".hidden"_qs, root), u".hidden 2"_qs);
    EXPECT_EQ(freeName(u"dangling.txt"_qs, root), u"dangling 2.txt"_qs);
}

TEST_F(DocumentPickerTest, TheDesktopsDialogComesFirstAndOursWhenItFails)
{
    FakeSystemFileDialog desktop;
    picker.setSystemDialog(&desktop);
    picker.pickPlace(u"a.csv"_qs, answer);
    EXPECT_FALSE(picker.isShown());
    EXPECT_EQ(desktop.request.suggestedName, u"a.csv"_qs);
    desktop.answer(QUrl::fromLocalFile(root + u"/a.csv"_qs));
    EXPECT_TRUE(navigator.alerts.empty()) << "that dialog has asked already";

    picker.pickDocument(answer);
    EXPECT_EQ(desktop.request.suggestedName, QString());
    EXPECT_EQ(desktop.request.folder, QUrl::fromLocalFile(root)) << "it begins where the last choice was";
    desktop.answer(QUrl());
    EXPECT_EQ(answers, (std::vector{QUrl::fromLocalFile(root + u"/a.csv"_qs), QUrl()}));

    picker.pickDocument(answer);
    desktop.answer(std::nullopt);
    EXPECT_TRUE(picker.isShown());
    EXPECT_EQ(answers.size(), 2U);
    picker.cancel();
    EXPECT_EQ(answers.size(), 3U);

    picker.pickDocument(answer);
    picker.pickDocument(answer);
    EXPECT_FALSE(desktop.answer) << "the first is given up";
    EXPECT_EQ(answers.size(), 4U);
    EXPECT_TRUE(picker.isShown());
}

} // namespace

} // namespace giggle
