// SPDX-License-Identifier: MIT
#include "platform/linux/CupsPrinters.h"

#include "tests/platform/SpinUntil.h"
#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

const QString Daemon = u"/usr/sbin/cupsd"_qs;

/// What a printer's description says of one size.
QByteArray sizeLines(const QByteArray& name, const QByteArray& size, const QByteArray& area)
{
    return "*PageSize " + name + ": \"\"\n*PageRegion " + name + ": \"\"\n*ImageableArea " + name + ": \"" +
           area + "\"\n*PaperDimension " + name + ": \"" + size + "\"\n";
}

const QByteArray Description =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
    "*LanguageEncoding: ISOLatin1\n*PCFileName: \"A.PPD\"\n*Manufacturer: \"A\"\n*Product: \"(A)\"\n"
    "*ModelName: \"A\"\n*ShortNickName: \"A\"\n*NickName: \"A\"\n*PSVersion: \"(3010.000) 0\"\n"
    "*cupsFilter2: \"application/pdf application/pdf 0 -\"\n*DefaultPageSize: A5\n*DefaultPageRegion: A5\n"
    "*DefaultImageableArea: A5\n*DefaultPaperDimension: A5\n" +
    sizeLines("A4", "595 842", "18 18 577 824") + sizeLines("A5", "420 595", "18 18 402 577");

/// A printing service of its own, with one printer that keeps its jobs.
class CupsPrintersTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QFile::exists(Daemon))
            GTEST_SKIP() << "there is no " << Daemon.toStdString();
        QFile::setPermissions(m_folder.path(),
                              QFile::Permissions(0x7755)); // the service has a user of its own
        for (const QString& name : {u"spool/tmp"_qs, u"cache"_qs, u"state"_qs, u"ssl"_qs, u"ppd"_qs})
            QDir(m_folder.path()).mkpath(name);
        const QByteArray root = m_folder.path().toUtf8();
        writeBytes(m_folder.filePath(u"cupsd.conf"_qs),
                   "Listen " + root +
                       "/socket\nBrowsing Off\nDefaultAuthType None\nDirtyCleanInterval 0\n"
                       "<Location />\nAllow all\n</Location>\n"
                       "<Policy default>\n<Limit All>\nAllow all\n</Limit>\n</Policy>\n");
        QByteArray files = "FileDevice Yes\nServerRoot " + root + '\n';
        for (const char* place :
             {"RequestRoot @/spool", "TempDir @/spool/tmp", "CacheDir @/cache", "StateDir @/state",
              "ServerKeychain @/ssl", "ErrorLog @/log", "AccessLog @/log", "PageLog @/log"})
            files += QByteArray(place).replace('@', root) + '\n';
        writeBytes(m_folder.filePath(u"cups-files.conf"_qs), files);
        writeBytes(m_folder.filePath(u"printers.conf"_qs),
                   "<DefaultPrinter cellar>\nInfo In the Cellar\nDeviceURI file:///dev/null\n"
                   "State Stopped\nAccepting Yes\nShared No\n</DefaultPrinter>\n");
        writeBytes(m_folder.filePath(u"ppd/cellar.ppd"_qs), Description);
        m_service.start(Daemon, {u"-f"_qs, u"-c"_qs, m_folder.filePath(u"cupsd.conf"_qs), u"-s"_qs,
                                 m_folder.filePath(u"cups-files.conf"_qs)});
        const QString socket = m_folder.filePath(u"socket"_qs);
        ASSERT_TRUE(spinUntil([&] { return QFile::exists(socket); })) << m_service.readAll().toStdString();
        qputenv("CUPS_SERVER", socket.toUtf8());
    }

    ~CupsPrintersTest() override
    {
        m_service.terminate();
        if (m_service.state() != QProcess::NotRunning && !m_service.waitForFinished(5000))
            m_service.kill();
        m_service.waitForFinished(5000);
    }

    /// What the service remembers of its first job.
    [[nodiscard]] QByteArray firstJob() const
    {
        QFile file(m_folder.filePath(u"spool/c00001"_qs));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_folder;
    QProcess m_service;
    CupsPrinters m_printers;
};

/// Every thread has a connection of its own, to the service that was set when it began.
template <class Work>
void inNewThread(const Work& work)
{
    std::thread(work).join();
}

TEST_F(CupsPrintersTest, ListsPrintersAndHandsJobsOver)
{
    const QString file = m_folder.filePath(u"a.pdf"_qs);
    writeBytes(file, "%PDF-1.4\n%%EOF\n");
    inNewThread([&] {
        const std::vector<Printer> found = m_printers.available({});
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0].name, u"cellar"_qs);
        EXPECT_EQ(found[0].description, u"In the Cellar"_qs);
        EXPECT_TRUE(found[0].isDefault);
        ASSERT_EQ(found[0].papers.size(), 2U);
        EXPECT_EQ(found[0].papers[1].size.toSize(), QSize(595, 842));
        EXPECT_EQ(found[0].papers[0].media, u"iso_a5_148x210mm"_qs);

        EXPECT_EQ(m_printers.print({u"cellar"_qs, file, u"Jok\u00e9s"_qs, 3, u"iso_a5_148x210mm"_qs}, {}),
                  QString());
        EXPECT_NE(m_printers.print({u"attic"_qs, file, u"Jokes"_qs, 1, {}}, {}), QString()) << "not there";
        EXPECT_NE(m_printers.print({u"cellar"_qs, file + u'x', u"Jokes"_qs, 1, {}}, {}), QString())
            << "no file";
    });
    ASSERT_TRUE(spinUntil([&] { return !firstJob().isEmpty(); }));
    for (const QByteArray& part :
         {QByteArray("iso_a5_148x210mm"), QByteArray("Jok\u00e9s"), QByteArray("copies\0\4\0\0\0\3", 12)})
        EXPECT_TRUE(firstJob().contains(part)) << part.toStdString();
}

TEST_F(CupsPrintersTest, WithoutAServiceThereIsNoPrinter)
{
    qputenv("CUPS_SERVER", m_folder.filePath(u"nothing"_qs).toUtf8());
    inNewThread([&] {
        EXPECT_TRUE(m_printers.available({}).empty());
        EXPECT_NE(m_printers.print({u"cellar"_qs, u"/dev/null"_qs, u"Jokes"_qs, 1, {}}, {}), QString());
    });
}

TEST(SilentServiceTest, CallsEndWhenTheyAreStopped)
{
    const QTemporaryDir folder;
    const QByteArray place = folder.filePath(u"socket"_qs).toUtf8();
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    ASSERT_LT(std::size_t(place.size()), sizeof address.sun_path);
    std::copy(place.begin(), place.end(), address.sun_path);
    const int service = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(service, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(service, 8), 0); // connections are taken, and nothing is ever read
    qputenv("CUPS_SERVER", place);

    const std::function<void(const std::stop_token&)> calls[] = {
        [](const std::stop_token& stop) { EXPECT_TRUE(CupsPrinters().available(stop).empty()); },
        [](const std::stop_token& stop) {
            EXPECT_NE(CupsPrinters().print({u"cellar"_qs, u"/dev/null"_qs, u"Jokes"_qs, 1, {}}, stop),
                      QString());
        },
    };
    for (const auto& call : calls) {
        std::stop_source stop;
        std::atomic<bool> isOver = false;
        std::thread thread([&] {
            call(stop.get_token());
            isOver = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        EXPECT_FALSE(isOver) << "nothing was waited for";
        const auto start = std::chrono::steady_clock::now();
        stop.request_stop();
        thread.join();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)); // else 20 and more
    }
    close(service);
}

} // namespace

} // namespace giggle
