// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxFileOpener.h"
#include "platform/linux/LinuxMailComposer.h"
#include "tests/platform/FakePortal.h"
#include "tests/platform/PrivateBus.h"
#include "tests/support/CollectionFolder.h"
#include "tests/support/FakePlatform.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <map>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

/// A bus with or without a portal, an empty PATH, one program for mails and texts, and a desktop that writes
/// down what it opens.
class HandoverTest : public testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name :
             {"PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
            m_environment[name] = qgetenv(name);
            qputenv(name, QFile::encodeName(m_folder.filePath(QLatin1StringView(name))));
            QDir(m_folder.path()).mkdir(QLatin1StringView(name));
        }
        // Of the system only what tells files apart.
        QFile::link(u"/usr/share/mime"_s, m_folder.filePath(u"XDG_DATA_DIRS/mime"_s));
        m_applications.mkpath(u"."_s);
        writeBytes(m_applications.filePath(u"program.desktop"_s),
                   "[Desktop Entry]\nExec=/bin/sh\nMimeType=x-scheme-handler/mailto;text/plain;\n");
    }

    void TearDown() override
    {
        for (const auto& [name, value] : m_environment)
            value.isNull() ? qunsetenv(name) : qputenv(name, value);
    }

    /// A tool that writes its arguments down, one a line.
    void installTool(int status)
    {
        const QString tool = m_folder.filePath(u"PATH/xdg-email"_s);
        writeBytes(tool, "#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.arguments\"\nexit " +
                             QByteArray::number(status) + "\n");
        QFile::setPermissions(tool, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// What the tool has been asked since the last look.
    [[nodiscard]] QStringList toolArguments() const
    {
        QFile file(m_folder.filePath(u"PATH/xdg-email.arguments"_s));
        static_cast<void>(file.open(QIODevice::ReadOnly));
        const QString arguments = QString::fromUtf8(file.readAll());
        file.remove();
        return arguments.split(u'\n', Qt::SkipEmptyParts);
    }

    /// What is said of a handover in the end; null when nothing is.
    QString answerTo(const std::function<void()>& handover)
    {
        m_answers.clear();
        handover();
        EXPECT_TRUE(m_answers.isEmpty()) << "answered before the call returned";
        EXPECT_TRUE(spinUntil([this] { return !m_answers.isEmpty(); }));
        return m_answers.value(0);
    }

    QString compose(const Mail& mail)
    {
        return answerTo([&] { m_composer.present(mail, m_answer); });
    }

    PrivateBus m_bus;
    QTemporaryDir m_folder;
    QDir m_applications{m_folder.filePath(u"XDG_DATA_HOME/applications"_s)};
    /// As it was; meanwhile each has a folder of its own.
    std::map<const char*, QByteArray> m_environment;
    FakeAddressOpener m_desktop;
    QString m_outgoing = m_folder.filePath(u"cache/outgoing"_s);
    LinuxMailComposer m_composer{m_desktop, m_outgoing, m_bus.connect()};
    QStringList m_answers;
    const std::function<void(const QString&)> m_answer = [this](const QString& failure) {
        m_answers.append(failure);
    };
};

Mail exampleMail()
{
    return {.recipients = {u"a+b@example.org"_s},
            .subject = u"Zwölf\nWitze"_s,
            .body = u"50 % & \\n #1?\nend"_s,
            .attachments = {{QByteArray("a^b\0c\n", 6), u"csv"_s, u"/home/x/Jokes & more.csv"_s}}};
}

const QString ExampleAddress = QStringLiteral("mailto:a+b@example.org?subject=Zw%C3%B6lf%20Witze&"
                                              "body=50%20%25%20%26%20%5Cn%20%231%3F%0D%0Aend");

TEST_F(HandoverTest, ThePortalGetsTheMailAndItsFiles)
{
    FakePortal portal(m_bus.connect());
    EXPECT_EQ(compose(exampleMail()), QString());
    EXPECT_EQ(portal.method, u"org.freedesktop.portal.Email.ComposeEmail"_s);
    EXPECT_EQ(portal.options, (QVariantMap{{u"address"_s, u"a+b@example.org"_s},
                                           {u"subject"_s, u"Zwölf Witze"_s},
                                           {u"body"_s, exampleMail().body}}));
    ASSERT_EQ(portal.files.size(), 1);
    EXPECT_EQ(portal.contents, QByteArrayList{exampleMail().attachments[0].data});
    const QFileInfo& file = portal.files[0];
    EXPECT_EQ(file.fileName(), u"Jokes & more.csv"_s);
    EXPECT_TRUE(file.exists()) << "the mail program may read it later";
    for (const QString& path : {file.filePath(), file.path()})
        EXPECT_FALSE(QFile::permissions(path) & QFile::Permissions(0x77)) << "others may look into it";
}

TEST_F(HandoverTest, ThePortalGetsWhatItTakes)
{
    FakePortal portal(m_bus.connect());
    Mail mail;
    mail.subject = QString::fromUcs4(U"\U0001F600").repeated(300);
    mail.body = u"<p>Enter your comments: </p><p>&lt;3</p>"_s;
    mail.isBodyHtml = true;
    EXPECT_EQ(compose(mail), QString());
    EXPECT_EQ(portal.options[u"subject"_s].toString().toUcs4().size(), 200);
    EXPECT_EQ(portal.options[u"body"_s].toString(), u"Enter your comments: \n<3"_s);

    // No mail program would be reached by a body of this size, so it goes along as a file.
    mail = {};
    mail.body = u"é\n"_s.repeated(50'000);
    EXPECT_EQ(compose(mail), QString());
    EXPECT_FALSE(portal.options.contains(u"body"_s));
    EXPECT_EQ(portal.contents, QByteArrayList{mail.body.toUtf8()});
}

TEST_F(HandoverTest, ThePortalsAnswerIsAwaited)
{
    struct {
        const char* name;
        std::optional<uint> response; ///< else it goes away
        bool isOld;
        bool isToolAsked;
    } const cases[] = {
        {"done", 0, false, false},
        {"a request with a name of its own", 0, true, false},
        {"cancelled by the user", 1, false, false},
        {"failed", 2, false, true},
        {"went away", std::nullopt, false, true},
    };

    installTool(0);
    for (const auto& test : cases) {
        SCOPED_TRACE(test.name);
        m_answers.clear();
        FakePortal portal(m_bus.connect());
        portal.response.reset();
        portal.isOld = test.isOld;
        m_composer.present(exampleMail(), m_answer);
        ASSERT_TRUE(spinUntil([&portal] { return !portal.handle.isEmpty(); }));
        QTest::qWait(100);
        EXPECT_TRUE(m_answers.isEmpty());
        test.response ? portal.respond(*test.response) : portal.leave();
        EXPECT_TRUE(spinUntil([this] { return !m_answers.isEmpty(); }));
        EXPECT_EQ(m_answers, QStringList{QString()});
        EXPECT_EQ(!toolArguments().isEmpty(), test.isToolAsked);
        portal.leave();
    }
}

TEST_F(HandoverTest, TheToolIsAskedWithoutAPortalAndForAProgramThatLosesItsFiles)
{
    installTool(0);
    EXPECT_EQ(compose(exampleMail()), QString());
    const QStringList arguments = toolArguments();
    ASSERT_EQ(arguments.size(), 4);
    EXPECT_EQ(arguments[0] + u' ' + arguments[1], u"--utf8 --attach"_s);
    EXPECT_EQ(QFileInfo(arguments[2]).fileName(), u"Jokes & more.csv"_s);
    EXPECT_TRUE(QFileInfo(arguments[2]).isFile());
    EXPECT_EQ(arguments[3], ExampleAddress);
    EXPECT_TRUE(m_desktop.opened.isEmpty());

    const FakePortal portal(m_bus.connect());
    ASSERT_TRUE(m_applications.rename(u"program.desktop"_s, u"claws-mail.desktop"_s));
    EXPECT_EQ(compose(exampleMail()), QString());
    EXPECT_TRUE(toolArguments().contains(u"--attach"_s));
    EXPECT_TRUE(portal.method.isEmpty());
}

TEST_F(HandoverTest, WithoutAToolTheUserLearnsThatTheFileStayed)
{
    installTool(3); // it is there, and cannot either
    const QString told = compose(exampleMail());
    ASSERT_EQ(m_desktop.opened.size(), 1);
    EXPECT_EQ(m_desktop.opened[0].toEncoded(), ExampleAddress.toLatin1());
    const QString path = told.section(u'"', 1, 1);
    EXPECT_TRUE(QFileInfo(path).isFile()) << told.toStdString();
    EXPECT_TRUE(path.startsWith(m_outgoing));

    m_desktop.canOpen = false;
    EXPECT_EQ(compose({}), u"No mail program could be opened."_s);
    m_desktop.canOpen = true;
    EXPECT_TRUE(m_composer.canSendMail());
    m_applications.removeRecursively();
    EXPECT_FALSE(m_composer.canSendMail());
    EXPECT_EQ(compose({}), u"No mail program could be opened."_s);
}

TEST_F(HandoverTest, AFileIsOpenedThroughThePortalElseByItsAddress)
{
    LinuxFileOpener opener(m_desktop, m_bus.connect());
    const QString path = m_folder.filePath(u"a b#.txt"_s);
    const auto open = [&] { return answerTo([&] { opener.open(path, m_answer); }); };
    EXPECT_TRUE(opener.canOpen(path));
    EXPECT_FALSE(opener.canOpen(u"picture.png"_s));
    EXPECT_NE(open(), QString()); // there is no file yet
    writeBytes(path, "ha");

    EXPECT_EQ(open(), QString());
    EXPECT_EQ(m_desktop.opened, QList<QUrl>{QUrl::fromLocalFile(path)});
    m_desktop.canOpen = false;
    EXPECT_NE(open(), QString());

    const FakePortal portal(m_bus.connect());
    EXPECT_EQ(open(), QString());
    EXPECT_EQ(portal.method, u"org.freedesktop.portal.OpenURI.OpenFile"_s);
    EXPECT_EQ(portal.contents, QByteArrayList{"ha"});
    EXPECT_EQ(portal.options, (QVariantMap{{u"ask"_s, true}}));
}

} // namespace

} // namespace giggle
