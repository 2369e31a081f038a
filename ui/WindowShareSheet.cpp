// SPDX-License-Identifier: MIT
#include "ui/WindowShareSheet.h"

#include "platform/AddressOpener.h"
#include "platform/DocumentPicker.h"
#include "platform/FileOpener.h"
#include "platform/MailComposer.h"
#include "platform/MessageAddress.h"
#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "platform/PrintPanel.h"
#include "ui/AtomicFile.h"
#include "ui/Navigator.h"
#include "ui/TextOutput.h"

#include <QClipboard>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QMimeDatabase>
#include <QPointer>
#include <QTemporaryDir>
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
const QString TextTitle = QStringLiteral("Giggle Archives");

const QString MailTitle = QStringLiteral("Sending Email");

bool canBeMessage(const QString& text)
{
    return text.size() <= AddressOpener::LongestAddress &&
           messageAddress(text).toEncoded().size() <= AddressOpener::LongestAddress;
}

SharedThings sorted(std::vector<SharedItem> items)
{
    SharedThings things;
    for (SharedItem& item : items) {
        if (const auto* file = std::get_if<SharedFile>(&item))
            things.files += file->path;
        else if (QString& text = std::get<SharedText>(item).text; things.text)
            *things.text += u'\n' + text;
        else
            things.text = std::move(text);
    }
    return things;
}

QString fileName(const QString& path)
{
    return QFileInfo(path).fileName();
}

/// A file's bytes; @p failure says why there are none.
QByteArray bytesOf(const QString& path, QString& failure)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    failure = QStringLiteral("The file \"%1\" cannot be read: %2").arg(path, file.errorString());
    return {};
}

/// Writes one text or one file to @p path. Why it failed, or nothing.
QString writeTo(const QString& path, const SharedThings& things)
{
    QString failure;
    const QByteArray bytes = things.text ? things.text->toUtf8() : bytesOf(things.files.first(), failure);
    if (!failure.isEmpty())
        return failure;
    return writeAtomically(path, {bytes.data(), static_cast<std::size_t>(bytes.size())});
}

} // namespace

WindowShareSheet::WindowShareSheet(Platform& platform, Navigator& navigator)
    : m_platform(platform), m_navigator(navigator)
{
}

void WindowShareSheet::present(std::vector<SharedItem> items, const std::set<ShareActivity>& excluded)
{
    if (m_isShown)
        return;
    m_things = sorted(std::move(items));
    m_activities.clear();
    for (const ActivityLooks& looks : Looks)
        if (!excluded.contains(looks.activity) && works(looks.activity))
            m_activities.push_back(looks.activity);
    m_isShown = true;
    emit shownChanged();
}

bool WindowShareSheet::isOneFile() const
{
    return m_things.files.size() + (m_things.text ? 1 : 0) == 1;
}

bool WindowShareSheet::works(ShareActivity activity) const
{
    switch (activity) {
    case ShareActivity::Mail:
        return m_platform.mailComposer.canSendMail();
    case ShareActivity::Message:
        return m_things.files.isEmpty() && m_platform.messageCapability.canSendText() &&
               canBeMessage(*m_things.text);
    case ShareActivity::Print:
    case ShareActivity::SaveAsPdf:
        return m_things.files.isEmpty() && m_platform.printPanel;
    case ShareActivity::SaveToFiles:
        return isOneFile();
    case ShareActivity::OpenWith:
        return isOneFile() &&
               m_platform.fileOpener.canOpen(m_things.text ? TextFileName : m_things.files.first());
    case ShareActivity::Copy:
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
    m_things = {};
}

void WindowShareSheet::cancel()
{
    if (!std::exchange(m_isShown, false))
        return;
    m_things = {}; // a whole collection takes its room
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
        m_platform.printPanel->present(textToPrint(), TextTitle, pdfConfirmer());
        break;
    case ShareActivity::SaveAsPdf:
        m_platform.printPanel->makePdf(textToPrint(), TextTitle, pdfConfirmer());
        break;
    }
}

AttributedText WindowShareSheet::textToPrint() const
{
    AttributedText text;
    TextAttributes plain;
    plain.foregroundColor = QColor(Qt::black);
    text.append(*m_things.text, plain);
    return text;
}

void WindowShareSheet::copy() const
{
    auto* data = new QMimeData; // the clipboard's
    if (m_things.text)
        data->setText(*m_things.text);
    QList<QUrl> addresses;
    for (const QString& path : m_things.files)
        addresses += QUrl::fromLocalFile(path);
    if (!addresses.isEmpty())
        data->setUrls(addresses);
    QGuiApplication::clipboard()->setMimeData(data);
    m_navigator.confirm(QStringLiteral("Copied."));
}

void WindowShareSheet::composeMail()
{
    Mail mail;
    mail.subject = m_things.files.isEmpty() ? TextTitle : fileName(m_things.files.first());
    mail.body = m_things.text.value_or(QString());
    for (const QString& path : m_things.files) {
        QString failure;
        const QString type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
        mail.attachments.push_back({bytesOf(path, failure), type, fileName(path)});
        if (failure.isEmpty())
            continue;
        report(MailTitle, failure);
        return;
    }
    m_platform.mailComposer.present(mail, reporter(MailTitle));
}

void WindowShareSheet::composeMessage()
{
    if (!m_platform.addressOpener.open(messageAddress(*m_things.text)))
        report(QStringLiteral("Sending Message"), QStringLiteral("No program could be started for it."));
}

void WindowShareSheet::save()
{
    const QString name = m_things.text ? TextFileName : fileName(m_things.files.first());
    m_platform.documentPicker->pickPlace(name, [self = QPointer(this), things = m_things](const QUrl& place) {
        if (!self || place.isEmpty())
            return;
        const QString failure =
            place.isLocalFile()
                ? writeTo(place.toLocalFile(), things)
                : QStringLiteral("\"%1\" is no place on this device.").arg(place.toDisplayString());
        self->report(QStringLiteral("File Not Saved"), failure);
        if (failure.isEmpty())
            confirmSaved(self->m_navigator, place.fileName());
    });
}

QString WindowShareSheet::newTextFile() const
{
    // A text that was opened earlier may still be open there.
    QTemporaryDir folder(m_platform.temporaryFolder + QStringLiteral("/XXXXXX"));
    folder.setAutoRemove(false);
    return folder.filePath(TextFileName);
}

void WindowShareSheet::openWith()
{
    const QString path = m_things.text ? newTextFile() : m_things.files.first();
    const auto done = reporter(QStringLiteral("File Not Opened"));
    if (const QString failure = m_things.text ? writeTo(path, m_things) : QString(); !failure.isEmpty())
        done(failure);
    else
        m_platform.fileOpener.open(path, done);
}

/// The print panel itself says what fails.
std::function<void(const PrintOutcome&)> WindowShareSheet::pdfConfirmer() const
{
    return
        [&navigator = m_navigator](const PrintOutcome& outcome) { confirmSaved(navigator, outcome.savedAs); };
}

std::function<void(const QString&)> WindowShareSheet::reporter(const QString& title)
{
    return [self = QPointer(this), title](const QString& failure) {
        if (self)
            self->report(title, failure);
    };
}

void WindowShareSheet::report(const QString& title, const QString& failure)
{
    if (!failure.isEmpty())
        m_navigator.present(information(title, failure));
}

} // namespace giggle
