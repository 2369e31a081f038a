// SPDX-License-Identifier: MIT
#include "ui/WindowShareSheet.h"

#include "platform/AddressOpener.h"
#include "platform/DocumentPicker.h"
#include "platform/MailComposer.h"
#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "ui/AtomicFile.h"
#include "ui/Navigator.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QMimeDatabase>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <array>
#include <utility>

namespace giggle {

namespace {

struct ActivityLooks {
    ShareActivity activity;
    const char* name;
    const char* icon;
};

// In the order in which they are offered.
constexpr std::array Looks{
    ActivityLooks{ShareActivity::Copy, "Copy", "copy"},
    ActivityLooks{ShareActivity::Mail, "Mail", "mail"},
    ActivityLooks{ShareActivity::Message, "Message", "message"},
    ActivityLooks{ShareActivity::Print, "Print", "print"},
    ActivityLooks{ShareActivity::SaveAsPdf, "Save as PDF", "pdf"},
    ActivityLooks{ShareActivity::SaveToFiles, "Save to Files", "save"},
    ActivityLooks{ShareActivity::OpenWith, "Open With", "open"},
};

const QString TextFileName = QStringLiteral("Jokes.txt");

// What a shared text is called in a mail's subject.
const QString TextTitle = QStringLiteral("Jokes");

// A program is handed the message as one argument, and the system takes none of 128 KiB.
constexpr qsizetype LongestMessageAddress = 100'000;

QUrl messageAddress(const QString& text)
{
    return QUrl::fromEncoded("sms:?body=" + QUrl::toPercentEncoding(text));
}

bool canBeMessage(const QString& text)
{
    return text.size() <= LongestMessageAddress &&
           messageAddress(text).toEncoded().size() <= LongestMessageAddress;
}

QString nameOf(const SharedItem& item)
{
    const auto* file = std::get_if<SharedFile>(&item);
    return file ? QFileInfo(file->path).fileName() : TextFileName;
}

/// The item as it goes into a file. @p failure says why there is nothing.
QByteArray bytesOf(const SharedItem& item, QString& failure)
{
    if (const auto* text = std::get_if<SharedText>(&item))
        return text->text.toUtf8();
    QFile file(std::get<SharedFile>(item).path);
    if (!file.open(QIODevice::ReadOnly)) {
        failure =
            QStringLiteral("The file \"%1\" cannot be read: %2").arg(file.fileName(), file.errorString());
        return {};
    }
    return file.readAll();
}

/// Writes the item to a file. Why it failed, or nothing.
QString writeTo(const QString& path, const SharedItem& item)
{
    QString failure;
    const QByteArray bytes = bytesOf(item, failure);
    if (!failure.isEmpty())
        return failure;
    return writeAtomically(path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
}

} // namespace

WindowShareSheet::WindowShareSheet(Platform& platform, Navigator& navigator)
    : m_platform(platform), m_navigator(navigator)
{
}

void WindowShareSheet::present(SharedItem item, const std::set<ShareActivity>& excluded)
{
    if (m_isShown)
        return;
    m_item = std::move(item);
    m_activities.clear();
    for (const ActivityLooks& looks : Looks)
        if (!excluded.contains(looks.activity) && works(looks.activity))
            m_activities.push_back(looks.activity);
    m_isShown = true;
    emit shownChanged();
}

bool WindowShareSheet::works(ShareActivity activity) const
{
    const auto* text = std::get_if<SharedText>(&m_item);
    switch (activity) {
    case ShareActivity::Mail:
        return m_platform.mailComposer.canSendMail();
    case ShareActivity::Message:
        return text && m_platform.messageCapability.canSendText() && canBeMessage(text->text);
    case ShareActivity::Print:
    case ShareActivity::SaveAsPdf:
        return false; // the platform has no print panel
    case ShareActivity::Copy:
    case ShareActivity::SaveToFiles:
    case ShareActivity::OpenWith:
        break;
    }
    return true;
}

QStringList WindowShareSheet::choices() const
{
    QStringList names;
    for (const ShareActivity activity : m_activities)
        names += QLatin1StringView(std::ranges::find(Looks, activity, &ActivityLooks::activity)->name);
    return names;
}

QStringList WindowShareSheet::icons() const
{
    QStringList names;
    for (const ShareActivity activity : m_activities)
        names += QLatin1StringView(std::ranges::find(Looks, activity, &ActivityLooks::activity)->icon);
    return names;
}

void WindowShareSheet::choose(int index)
{
    if (!m_isShown || index < 0 || std::cmp_greater_equal(index, m_activities.size()))
        return;
    const ShareActivity activity = m_activities[static_cast<std::size_t>(index)];
    m_isShown = false;
    emit shownChanged();
    perform(activity);
    m_item = {};
}

void WindowShareSheet::cancel()
{
    if (!std::exchange(m_isShown, false))
        return;
    m_item = {}; // a whole collection takes its room
    emit shownChanged();
}

void WindowShareSheet::perform(ShareActivity activity)
{
    switch (activity) {
    case ShareActivity::Copy:
        copy();
        break;
    case ShareActivity::Mail:
        composeMail();
        break;
    case ShareActivity::Message:
        composeMessage();
        break;
    case ShareActivity::SaveToFiles:
        save();
        break;
    case ShareActivity::OpenWith:
        openWith();
        break;
    case ShareActivity::Print:
    case ShareActivity::SaveAsPdf:
        break; // never offered
    }
}

void WindowShareSheet::copy() const
{
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (const auto* text = std::get_if<SharedText>(&m_item)) {
        clipboard.setText(text->text);
        return;
    }
    auto* data = new QMimeData; // the clipboard's
    data->setUrls({QUrl::fromLocalFile(std::get<SharedFile>(m_item).path)});
    clipboard.setMimeData(data);
}

void WindowShareSheet::composeMail()
{
    Mail mail;
    QString failure;
    if (const auto* text = std::get_if<SharedText>(&m_item)) {
        mail.subject = TextTitle;
        mail.body = text->text;
    } else {
        const QString name = nameOf(m_item);
        mail.subject = name;
        mail.attachments.push_back(
            {bytesOf(m_item, failure), QMimeDatabase().mimeTypeForFile(name).name(), name});
    }
    if (!failure.isEmpty()) {
        report(QStringLiteral("Sending Email"), failure);
        return;
    }
    m_platform.mailComposer.present(mail, [self = QPointer(this)](const QString& reason) {
        if (self)
            self->report(QStringLiteral("Sending Email"), reason);
    });
}

void WindowShareSheet::composeMessage()
{
    if (!m_platform.addressOpener.open(messageAddress(std::get<SharedText>(m_item).text)))
        report(QStringLiteral("Sending Message"), QStringLiteral("No program could be started for it."));
}

void WindowShareSheet::save()
{
    m_platform.documentPicker->pickPlace(
        nameOf(m_item), [self = QPointer(this), item = m_item](const QUrl& place) {
            if (!self || place.isEmpty())
                return;
            const QString failure =
                place.isLocalFile()
                    ? writeTo(place.toLocalFile(), item)
                    : QStringLiteral("\"%1\" is no place on this device.").arg(place.toDisplayString());
            self->report(QStringLiteral("File Not Saved"), failure);
        });
}

void WindowShareSheet::openWith()
{
    const auto* file = std::get_if<SharedFile>(&m_item);
    const QString path = file ? file->path : QDir(m_platform.temporaryFolder).filePath(TextFileName);
    QString failure = file ? QString() : writeTo(path, m_item);
    if (failure.isEmpty() && !m_platform.addressOpener.open(QUrl::fromLocalFile(path)))
        failure = QStringLiteral("No program could be started for it.");
    report(QStringLiteral("File Not Opened"), failure);
}

void WindowShareSheet::report(const QString& title, const QString& failure)
{
    if (!failure.isEmpty())
        m_navigator.present({title, failure, {{QStringLiteral("OK"), {}}}});
}

} // namespace giggle
