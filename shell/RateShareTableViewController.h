// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "ui/Screen.h"

#include <QStringList>
#include <QUrl>

namespace giggle {

/// Five rows that lead out of the application: to its page in the store, to the share sheet, to the website
/// and to the mail program. What an opened address comes to is not reported.
///
/// Making the screen ends the program when the address of the store page is no valid one.
class RateShareTableViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QStringList rows READ rows CONSTANT)

public:
    explicit RateShareTableViewController(ScreenEnvironment& environment);

    /// The same for an application that is found in another place.
    RateShareTableViewController(ScreenEnvironment& environment, QUrl productAddress, const QString& website);

    [[nodiscard]] QString title() const override { return QStringLiteral("Rate / Share"); }

    [[nodiscard]] static QStringList rows();

    /// The application's page in the store.
    [[nodiscard]] const QUrl& productURL() const { return m_productURL; }

    /// What is shared before the website.
    [[nodiscard]] static QString Instructions();

    /// The website's address.
    [[nodiscard]] const AttributedText& website() const { return m_website; }

public slots:
    /// Does what the row says. Any other row than the five does nothing.
    void didSelectRow(int row);

private:
    void rate();
    void shareStoreLink();
    void shareWebsite();
    void visitWebsite();
    void sendFeedback();

    /// False, after an alert, on a device without text messages. It keeps the share sheet away as well, which
    /// would need none.
    [[nodiscard]] bool canSendText();
    void open(const QUrl& address);

    QUrl m_productURL;
    AttributedText m_website;
};

} // namespace giggle
