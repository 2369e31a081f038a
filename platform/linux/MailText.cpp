// SPDX-License-Identifier: MIT
#include "platform/linux/MailText.h"

#include "platform/AddressOpener.h"

#include <QTextDocumentFragment>

namespace giggle::MailText {

namespace {

QByteArray encoded(QString text)
{
    text.remove(QChar::Null);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\n', QStringLiteral("\r\n"));
    return QUrl::toPercentEncoding(text);
}

} // namespace

QString plainBody(const Mail& mail)
{
    QString body = mail.isBodyHtml ? QTextDocumentFragment::fromHtml(mail.body).toPlainText() : mail.body;
    return body.remove(QChar::Null);
}

QString shortSubject(const QString& subject, int longest)
{
    const QString line = subject.simplified().remove(QChar::Null);
    const QList<uint> codePoints = line.toUcs4();
    if (codePoints.size() <= longest)
        return line;
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(codePoints.constData()), longest - 1) +
           QChar(0x2026);
}

QUrl address(const QStringList& recipients, const QString& subject, const QString& body)
{
    QByteArray address = "mailto:";
    for (qsizetype i = 0; i < recipients.size(); ++i)
        address += (i > 0 ? "," : "") + QUrl::toPercentEncoding(recipients[i], "@+");
    char separator = '?';
    const auto add = [&address, &separator](const char* name, const QByteArray& value) {
        if (value.isEmpty())
            return;
        address += separator + QByteArray(name) + '=' + value;
        separator = '&';
    };
    add("subject", encoded(subject.simplified()));
    add("body", encoded(body));
    return QUrl::fromEncoded(address, QUrl::StrictMode);
}

bool fitsIntoAddress(const QString& body)
{
    return encoded(body).size() <= AddressOpener::LongestAddress;
}

} // namespace giggle::MailText
