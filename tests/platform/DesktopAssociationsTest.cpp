// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAssociations.h"

#include "tests/support/CollectionFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <map>

#include <gtest/gtest.h>

namespace giggle {

namespace {

using namespace Qt::StringLiterals;

std::string entry(const std::string& more = "Exec=mailer %u\n")
{
    return "[Desktop Action new]\nExec=nothing\n[Desktop Entry]\nType=Application\n"
           "MimeType=text/plain;x-scheme-handler/mailto;\n" +
           more;
}

std::string list(const std::string& group, const std::string& ids)
{
    return "# made up\n[" + group +
           "]\nx-scheme-handler/mailto-x=no.desktop\nx-scheme-handler/mailto = " + ids + "\n";
}

const std::string Defaults = "Default Applications";
const std::string Added = "Added Associations";
const std::string Removed = "Removed Associations";

const std::string A = "s/applications/a.desktop";
const std::string B = "s/applications/b.desktop";
const std::string SystemList = "s/applications/mimeapps.list";
const std::string UserList = "h/config/mimeapps.list";

/// A home and a system with these files, below `h` and `s`, and one program named "mailer".
const struct {
    const char* name;
    std::map<std::string, std::string> files;
    const char* handler;
} Cases[] = {
    {"nothing at all", {}, ""},
    {"a desktop file lists the scheme", {{A, entry()}}, "a.desktop"},
    {"one in a folder, which is part of its id",
     {{"s/applications/kde/a-b.desktop", entry()}, {UserList, list(Removed, "a-b.desktop")}},
     "kde-a-b.desktop"},
    {"its program is missing", {{A, entry("Exec=gone %u\n")}}, ""},
    {"what it tries is missing", {{A, entry("TryExec=gone\nExec=mailer\n")}}, ""},
    {"its program's name is quoted", {{A, entry("Exec=\"two \\\\$words\" --to %u\n")}}, "a.desktop"},
    {"another scheme, longer or shorter",
     {{A, "[Desktop Entry]\nExec=mailer\nMimeType=x-scheme-handler/mailto2;x-scheme/mail\n"}},
     ""},
    {"the user's own file says that it is gone",
     {{A, entry()}, {"h/data/applications/a.desktop", entry("Exec=mailer\nHidden=true\n")}},
     ""},
    {"the user has taken it away", {{A, entry()}, {UserList, list(Removed, "a.desktop;")}}, ""},
    {"the system has taken it away, the user has added it",
     {{A, entry()}, {SystemList, list(Removed, "a.desktop;")}, {UserList, list(Added, "a.desktop;")}},
     "a.desktop"},
    {"the user's default comes first, the system's next",
     {{A, entry()},
      {B, entry()},
      {"s/applications/c.desktop", "[Desktop Entry]\nExec=mailer\n"},
      {SystemList, list(Defaults, "b.desktop;")},
      {UserList, list(Defaults, "gone.desktop;c.desktop;b.desktop")}},
     "c.desktop"},
    {"a desktop's own default comes before the common one",
     {{A, entry()},
      {B, entry()},
      {"etc/mimeapps.list", list(Defaults, "a.desktop;")},
      {"etc/gnome-mimeapps.list", list(Defaults, "b.desktop;")}},
     "b.desktop"},
    {"a default outside of the folders",
     {{"a.desktop", entry()}, {UserList, list(Defaults, "../../a.desktop")}},
     ""},
};

TEST(DesktopAssociationsTest, FindsTheProgramThatTheUserWouldGet)
{
    for (const auto& test : Cases) {
        SCOPED_TRACE(test.name);
        const QTemporaryDir root;
        QDir(root.path()).mkdir(u"bin"_s);
        for (const QString& program : {u"bin/mailer"_s, u"bin/two $words"_s})
            QFile::link(u"/bin/sh"_s, root.filePath(program));
        for (const auto& [path, text] : test.files) {
            const QFileInfo file(root.filePath(QString::fromStdString(path)));
            QDir().mkpath(file.path());
            writeBytes(file.filePath(), QByteArray::fromStdString(text));
        }
        const std::map<std::string, QString> environment{
            {"HOME", root.filePath(u"h"_s)},
            {"PATH", u"relative:"_s + root.filePath(u"bin"_s)},
            {"XDG_CONFIG_HOME", root.filePath(u"h/config"_s)},
            {"XDG_CONFIG_DIRS", root.filePath(u"etc"_s)},
            {"XDG_DATA_HOME", root.filePath(u"h/data"_s)},
            {"XDG_DATA_DIRS", root.filePath(u"none:"_s) + root.filePath(u"s"_s)},
            {"XDG_CURRENT_DESKTOP", u"Other:GNOME"_s}};
        const DesktopAssociations associations(
            [&environment](const char* name) { return environment.at(name); });
        EXPECT_EQ(associations.handlerOfScheme(u"mailto"_s).toStdString(), test.handler);
    }
}

} // namespace

} // namespace giggle
