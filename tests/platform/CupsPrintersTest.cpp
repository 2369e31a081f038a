// SPDX-License-Identifier: MIT
#include "platform/linux/CupsPrinters.h"

#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QFile>
#include <QLocalServer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString Daemon = u"/usr/sbin/cupsd"_qs;

/// A printing service with one stopped printer for A4 and A5, which keeps its jobs; @ is its folder.
const std::pair<const char*, QByteArray> ServiceFiles[] = {
    {"cupsd.conf", "Listen @/socket\nDirtyCleanInterval 0\n<Location />\nAllow all\n</Location>\n"
                   "<Policy default>\n<Limit All>\n</Limit>\n</Policy>\n"},
    {"cups-files.conf", "ServerRoot @\nRequestRoot @\nTempDir @/tmp\nCacheDir @\nStateDir @\n"
                        "ServerKeychain @\nErrorLog stderr\nAccessLog stderr\n"},
    {"printers.conf", "<DefaultPrinter cellar>\nInfo In the Cellar\nDeviceURI socket://none\nState Stopped\n"
                      "Accepting Yes\n</DefaultPrinter>\n"},
    {"ppd/cellar.ppd",
     "*PPD-Adobe: \"4.3\"\n*cupsFilter2: \"application/pdf application/pdf 0 -\"\n*DefaultPageSize: A5\n"
     "*PageSize A4: \"\"\n*ImageableArea A4: \"18 18 577 824\"\n*PaperDimension A4: \"595 842\"\n"
     "*PageSize A5: \"\"\n*ImageableArea A5: \"18 18 402 577\"\n*PaperDimension A5: \"420 595\"\n"},
};

/// Every thread has a connection of its own, to the service that was set when it began.
void inNewThread(const std::function<void()>& work)
{
    std::thread(work).join();
}

TEST(CupsPrintersTest, ListsPrintersAndHandsJobsOver)
{
    if (!QFile::exists(Daemon))
        GTEST_SKIP() << "there is no " << Daemon.toStdString();
    const QTemporaryDir folder;
    // The service has a user of its own.
    QFile::setPermissions(folder.path(), QFile::Permissions(0x7755));
    for (const QString& name : {u"tmp"_qs, u"ppd"_qs})
        QDir(folder.path()).mkdir(name);
    for (auto [name, text] : ServiceFiles)
        writeBytes(folder.filePath(QString::fromLatin1(name)), text.replace('@', folder.path().toUtf8()));
    QProcess service;
    service.start(Daemon, {u"-f"_qs, u"-c"_qs, folder.filePath(u"cupsd.conf"_qs), u"-s"_qs,
                           folder.filePath(u"cups-files.conf"_qs)});
    qputenv("CUPS_SERVER", QFile::encodeName(folder.filePath(u"socket"_qs)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(folder.filePath(u"socket"_qs)); }))
        << service.readAllStandardError().toStdString();

    const QString file = folder.filePath(u"a.pdf"_qs);
    writeBytes(file, "%PDF-1.4\n%%EOF\n");
    inNewThread([&file] {
        CupsPrinters printers;
        const std::vector<Printer> found = printers.available({});
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].name, u"cellar"_qs);
        EXPECT_EQ(found[0].description, u"In the Cellar"_qs);
        EXPECT_TRUE(found[0].isDefault);
        EXPECT_EQ(found[0].defaultMedia, u"iso_a5_148x210mm"_qs);
        ASSERT_EQ(found[0].papers.size(), 2U);
        EXPECT_EQ(found[0].papers[1].size.toSize(), QSize(595, 842));

        const QString a4 = found[0].papers[1].media;
        EXPECT_EQ(printers.print({u"cellar"_qs, file, u"Jok\u00e9s"_qs, 3, a4}, {}), QString());
        EXPECT_NE(printers.print({u"attic"_qs, file, u"Jokes"_qs, 1, {}}, {}), QString()) << "not there";
        EXPECT_NE(printers.print({u"cellar"_qs, file + u'x', u"Jokes"_qs, 1, {}}, {}), QString());
    });
    const QString job = folder.filePath(u"c00001"_qs);
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFileInfo(job).size() > 0; }));
    for (const QByteArray& part :
         {QByteArray("iso_a4_210x297mm"), QByteArray("Jok\u00e9s"), QByteArray("copies\0\4\0\0\0\3", 12)})
        EXPECT_TRUE(readBytes(job).contains(part)) << part.toStdString();
    service.terminate();
    service.waitForFinished(5000);
}

TEST(CupsPrintersTest, CallsFailWithoutAServiceAndEndWhenTheyAreStoppedWithASilentOne)
{
    const std::function<void(const std::stop_token&)> calls[] = {
        [](const std::stop_token& stop) { EXPECT_TRUE(CupsPrinters().available(stop).empty()); },
        [](const std::stop_token& stop) {
            EXPECT_NE(CupsPrinters().print({u"cellar"_qs, u"/dev/null"_qs, u"Jokes"_qs, 1, {}}, stop),
                      QString());
        },
    };
    const QTemporaryDir folder;
    const QString socket = folder.filePath(u"socket"_qs);
    qputenv("CUPS_SERVER", QFile::encodeName(socket));
    for (const auto& call : calls)
        inNewThread([&call] { call({}); });
    QLocalServer service; // connections are taken by the system, and nothing is ever read
    ASSERT_TRUE(service.listen(socket));
    for (const auto& call : calls) {
        std::atomic<bool> isOver = false;
        std::jthread thread([&](const std::stop_token& stop) {
            call(stop);
            isOver = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        EXPECT_FALSE(isOver) << "nothing was waited for";
        const auto start = std::chrono::steady_clock::now();
        thread.request_stop();
        thread.join();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)); // else 20 and more
    }
}

} // namespace

} // namespace giggle
