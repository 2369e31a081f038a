// SPDX-License-Identifier: MIT
#pragma once

#include "platform/AttributedText.h"
#include "platform/ShareSheet.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>
#include <vector>

namespace giggle {

class Navigator;
struct Platform;
struct PrintOutcome;

/// What a share sheet was opened for: its texts as one, each on lines of its own, and its files.
struct SharedThings {
    std::optional<QString> text;
    QStringList files;
};

/// The window's own share sheet. The window shows `choices` while `isShown` and reports what was chosen.
/// What an activity could not do is said in an alert.
class WindowShareSheet : public QObject, public ShareSheet {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool isShown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(QStringList choices READ choices NOTIFY shownChanged)
    Q_PROPERTY(QStringList icons READ icons NOTIFY shownChanged)

public:
    /// Both must outlive the sheet. What the platform lacks is missing in the sheet: it is asked each time.
    WindowShareSheet(Platform& platform, Navigator& navigator);

    void present(std::vector<SharedItem> items, const std::set<ShareActivity>& excluded) override;

    [[nodiscard]] bool isShown() const { return m_isShown; }

    /// The names of what is offered, and the icon of each. They stay when the sheet is put away, so that it
    /// can fade out.
    /// @{
    [[nodiscard]] QStringList choices() const;
    [[nodiscard]] QStringList icons() const;
    /// @}

    /// Puts the sheet away and does what the choice says.
    Q_INVOKABLE void choose(int index);

    Q_INVOKABLE void cancel();

signals:
    void shownChanged();

private:
    [[nodiscard]] bool works(ShareActivity activity) const;
    void perform(ShareActivity activity);
    /// Whether it is one thing that a file can hold.
    [[nodiscard]] bool isOneFile() const;
    [[nodiscard]] AttributedText textToPrint() const;
    void copy() const;
    void composeMail();
    void composeMessage();
    void save();
    [[nodiscard]] QString newTextFile() const;
    void openWith();
    [[nodiscard]] std::function<void(const PrintOutcome&)> pdfConfirmer() const;
    /// Says later what an activity could not do, if the sheet is still there and there is anything.
    [[nodiscard]] std::function<void(const QString& failure)> reporter(const QString& title);
    void report(const QString& title, const QString& failure);

    Platform& m_platform;
    Navigator& m_navigator;
    bool m_isShown = false;
    SharedThings m_things;
    std::vector<ShareActivity> m_activities;
};

} // namespace giggle
