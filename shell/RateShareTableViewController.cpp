// SPDX-License-Identifier: MIT
#include "shell/RateShareTableViewController.h"

#include "platform/AddressOpener.h"
#include "platform/DeploymentAddresses.h"
#include "platform/MailComposer.h"
#include "platform/MessageCapability.h"
#include "platform/Platform.h"
#include "platform/ShareSheet.h"
#include "store/Console.h"
#include "store/FatalError.h"

#include <QUrlQuery>

#include <array>
#include <utility>

namespace giggle {

RateShareTableViewController::RateShareTableViewController(ScreenEnvironment& environment)
    : RateShareTableViewController(environment, DeploymentAddresses::storePage(),
                                   DeploymentAddresses::website().toString())
{
}

RateShareTableViewController::RateShareTableViewController(ScreenEnvironment& environment,
                                                           QUrl productAddress, const QString& website)
    : Screen(environment), m_productURL(std::move(productAddress))
{
    if (!m_productURL.isValid())
        fatalError(QStringLiteral("The address of the store page is no valid one: \"%1\"")
                       .arg(m_productURL.toString()),
                   __FILE__, __LINE__);
    m_website.append(website);
}

QStringList RateShareTableViewController::rows()
{
    return {QStringLiteral("Rate This App"), QStringLiteral("Share This App"),
            QStringLiteral("Share the Website"), QStringLiteral("Visit the Website"),
            QStringLiteral("Send Feedback")};
}

QString RateShareTableViewController::Instructions()
{
    return QStringLiteral("Click the following link to visit the Giggle Archives App website");
}

void RateShareTableViewController::didSelectRow(int row)
{
    static constexpr std::array Actions{
        &RateShareTableViewController::rate, &RateShareTableViewController::shareStoreLink,
        &RateShareTableViewController::shareWebsite, &RateShareTableViewController::visitWebsite,
        &RateShareTableViewController::sendFeedback};
    if (row >= 0 && std::cmp_less(row, Actions.size()))
        (this->*Actions[static_cast<std::size_t>(row)])();
}

void RateShareTableViewController::rate()
{
    QUrl page = m_productURL;
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("action"), QStringLiteral("write-review"));
    page.setQuery(query);
    open(page);
}

void RateShareTableViewController::shareStoreLink()
{
    if (canSendText())
        environment().platform.shareSheet->present({SharedText{m_productURL.toString()}}, {});
}

void RateShareTableViewController::shareWebsite()
{
    if (canSendText())
        environment().platform.shareSheet->present(
            {SharedText{Instructions()}, SharedText{m_website.plainText()}}, {});
}

void RateShareTableViewController::visitWebsite()
{
    open(QUrl(m_website.plainText()));
}

void RateShareTableViewController::sendFeedback()
{
    MailComposer& composer = environment().platform.mailComposer;
    if (!composer.canSendMail()) {
        environment().navigator.present(information(
            QStringLiteral("Can't Send Email"), QStringLiteral("Your Device is not able to send Email.")));
        return;
    }
    Mail mail;
    mail.recipients = {DeploymentAddresses::feedbackMailbox()};
    mail.body = QStringLiteral("<p>Enter your comments about the Giggle Archives app below: </p>");
    mail.isBodyHtml = true;
    composer.present(mail, [](const QString& failure) {
        if (!failure.isEmpty())
            printFailure(failure);
    });
}

bool RateShareTableViewController::canSendText()
{
    if (environment().platform.messageCapability.canSendText())
        return true;
    environment().navigator.present(
        information(QStringLiteral("Can't Send Text Message"),
                    QStringLiteral("Your Device is not able to send text messages.")));
    return false;
}

void RateShareTableViewController::open(const QUrl& address)
{
    if (address.isValid())
        (void)environment().platform.addressOpener.open(address);
}

} // namespace giggle
