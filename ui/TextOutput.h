// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "platform/MailComposer.h"
#include "platform/PrintPanel.h"
#include "ui/Alert.h"

#include <QString>

#include <functional>
#include <vector>

namespace giggle {

class LargeTextModel;
class Navigator;
class Screen;
struct ScreenEnvironment;

/// Shows @p alert once the event loop is reached, unless @p screen is gone by then.
void presentLater(Screen& screen, ScreenEnvironment& environment, Alert alert);

/// Opens the share sheet for the text that @p compose returns. On a device that cannot send text messages an
/// alert says so instead, later, and nothing is composed.
void shareText(Screen& screen, ScreenEnvironment& environment, const std::function<QString()>& compose);

/// Puts a joke's text on the clipboard, and says so in passing. An empty one leaves the clipboard as it is.
void copyText(ScreenEnvironment& environment, const QString& text);

/// Has every copying of @p text confirmed in passing. @p navigator must outlive the text.
void confirmCopies(const LargeTextModel& text, Navigator& navigator);

/// What is done after printing where nothing else is wanted: a failure is logged.
void logPrintFailure(const PrintOutcome& outcome);

/// Says in passing under which name a file was saved. With an empty name nothing happens.
void confirmSaved(Navigator& navigator, const QString& fileName);

/// Opens the print panel; what becomes of it goes to @p finished, which must refer to nothing that may be
/// gone by then. A PDF file is confirmed; the environment's navigator outlives the panel.
void printText(ScreenEnvironment& environment, AttributedText text,
               const std::function<void(const PrintOutcome&)>& finished = logPrintFailure);

/// Opens a mail with what @p compose returns. A failure is logged and said in an alert; the environment's
/// navigator outlives the mail program's answer. Where there is no mail program an alert says so instead, and
/// nothing is composed.
void sendMail(ScreenEnvironment& environment, const std::function<Mail()>& compose);

/// The file at @p path to go with a mail under @p fileName, or nothing when it cannot be read.
[[nodiscard]] std::vector<MailAttachment> attachmentOf(const QString& path, const QString& mimeType,
                                                       const QString& fileName);

} // namespace giggle
