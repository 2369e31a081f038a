// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace giggle {

/// What is said in passing at the bottom of the window: that something was done, and an offer to undo what
/// was just done, which takes an older confirmation's place. Either stands until the next of its kind, until
/// the screen is left, or until the window, which knows whether somebody is about to answer, takes it away
/// after a while.
class PassingNotices : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The navigation controller has the only ones.")
    Q_PROPERTY(QString confirmation READ confirmation NOTIFY confirmationChanged)
    Q_PROPERTY(QString undoOffer READ undoOffer NOTIFY undoOfferChanged)

public:
    /// Empty when there is none, here as below.
    [[nodiscard]] const QString& confirmation() const { return m_confirmation; }

    [[nodiscard]] const QString& undoOffer() const { return m_undoOffer; }

    void confirm(const QString& text);

    /// @p undo is called at most once, and never after the offer is gone.
    void offerUndo(const QString& text, std::function<void()> undo);

    Q_INVOKABLE void dismissConfirmation();

    /// Takes the offer up. Without one nothing happens.
    Q_INVOKABLE void undo();

    Q_INVOKABLE void withdrawUndoOffer();

    /// The screen is left.
    void clear();

signals:
    void confirmationChanged();
    void undoOfferChanged();

private:
    QString m_confirmation;
    QString m_undoOffer;
    std::function<void()> m_undo;
};

} // namespace giggle
