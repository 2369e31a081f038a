// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopAssociations.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <map>

#include <gtest/gtest.h>

namespace giggle {

namespace {

/// A home and a system with these files, below `h` and `s`, and one program named "mailer".
struct Case {
    const char* name;
    std::map<std::string, std::string> files;
    const char* handler;
};

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

const Case Cases[] = {
    {"nothing at all", {}, ""},
    {"a desktop file lists the scheme", {{"s/applications/a.desktop", entry()}}, "a.desktop"},
    {"one that menus do not show",
     {{"s/applications/a.desktop", entry("NoDisplay=true\nExec=mailer\n")}},
     "a.desktop"},
    {"one in a folder, which is part of its id",
     {{"s/applications/kde/sub/a.desktop", entry()}, {"h/config/mimeapps.list", list(Removed, "a.desktop")}},
     "kde-sub-a.desktop"},
    {"a folder's is found by its id",
     {{"s/applications/x-y/a-b.desktop", entry()},
      {"h/config/mimeapps.list", list(Defaults, "x-y-a-b.desktop")}},
     "x-y-a-b.desktop"},
    {"its program is missing", {{"s/applications/a.desktop", entry("Exec=gone %u\n")}}, ""},
    {"what it tries is missing", {{"s/applications/a.desktop", entry("TryExec=gone\nExec=mailer\n")}}, ""},
    {"its program cannot be executed", {{"s/applications/a.desktop", entry("Exec=data\n")}}, ""},
    {"its program's name is quoted",
     {{"s/applications/a.desktop", entry("Exec=\"two \\\\$words\" --to %u\n")}},
     "a.desktop"},
    {"no program is named", {{"s/applications/a.desktop", entry("")}}, ""},
    {"another scheme, longer or shorter",
     {{"s/applications/a.desktop",
       "[Desktop Entry]\nExec=mailer\nMimeType=x-scheme-handler/mailto2;x-scheme/mail\n"}},
     ""},
    {"the cache is not trusted",
     {{"s/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/mailto=a.desktop;\n"}},
     ""},
    {"the user's own file says that it is gone",
     {{"s/applications/a.desktop", entry()},
      {"h/data/applications/a.desktop", entry("Exec=mailer\nHidden=true\n")}},
     ""},
    {"the user has taken it away",
     {{"s/applications/a.desktop", entry()}, {"h/config/mimeapps.list", list(Removed, "a.desktop;")}},
     ""},
    {"the system has taken it away, the user has added it",
     {{"s/applications/a.desktop", entry()},
      {"s/applications/mimeapps.list", list(Removed, "a.desktop;")},
      {"h/config/mimeapps.list", list(Added, "a.desktop;")}},
     "a.desktop"},
    {"a desktop's list cannot take away",
     {{"s/applications/a.desktop", entry()}, {"h/config/gnome-mimeapps.list", list(Removed, "a.desktop;")}},
     "a.desktop"},
    {"the user's default comes first, the system's next",
     {{"s/applications/a.desktop", entry()},
      {"s/applications/b.desktop", entry()},
      {"s/applications/c.desktop", "[Desktop Entry]\nExec=mailer\n"},
      {"s/applications/mimeapps.list", list(Defaults, "b.desktop;")},
      {"h/config/mimeapps.list", list(Defaults, "gone.desktop;c.desktop;b.desktop")}},
     "c.desktop"},
    {"a desktop's own default comes before the common one",
     {{"s/applications/a.desktop", entry()},
      {"s/applications/b.desktop", entry()},
      {"etc/mimeapps.list", list(Defaults, "a.desktop;")},
      {"etc/gnome-mimeapps.list", list(Defaults, "b.desktop;")},
      {"etc/kde-mimeapps.list", list(Defaults, "a.desktop;")}},
     "b.desktop"},
    {"a default outside of the folders",
     {{"a.desktop", entry()}, {"h/config/mimeapps.list", list(Defaults, "../../a.desktop")}},
     ""},
};

void write(const QString& path, const std::string& text, bool isProgram = false)
{
    ASSERT_TRUE(QDir().mkpath(path.section(u'/', 0, -2)));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.c_str());
    if (isProgram)
        file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther);
}

TEST(DesktopAssociationsTest, FindsTheProgramThatTheUserWouldGet)
{
    for (const Case& test : Cases) {
        SCOPED_TRACE(test.name);
        const QTemporaryDir root;
        write(root.filePath(QStringLiteral("bin/mailer")), "#!/bin/sh\n", true);
        write(root.filePath(QStringLiteral("bin/two $words")), "#!/bin/sh\n", true);
        write(root.filePath(QStringLiteral("bin/data")), "");
        for (const auto& [path, text] : test.files)
            write(root.filePath(QString::fromStdString(path)), text);
        const std::map<std::string, QString> environment{
            {"HOME", root.filePath(QStringLiteral("h"))},
            {"PATH", QStringLiteral("relative:") + root.filePath(QStringLiteral("bin"))},
            {"XDG_CONFIG_HOME", root.filePath(QStringLiteral("h/config"))},
            {"XDG_CONFIG_DIRS", root.filePath(QStringLiteral("etc"))},
            {"XDG_DATA_HOME", root.filePath(QStringLiteral("h/data"))},
            {"XDG_DATA_DIRS", root.filePath(QStringLiteral("none:")) + root.filePath(QStringLiteral("s"))},
            {"XDG_CURRENT_DESKTOP", QStringLiteral("Other:GNOME")}};
        const DesktopAssociations associations([&environment](const char* name) {
            const auto found = environment.find(name);
            return found == environment.end() ? QString() : found->second;
        });
        EXPECT_EQ(associations.handlerOfScheme(QStringLiteral("mailto")).toStdString(), test.handler);
    }
}

} // namespace

} // namespace giggle
