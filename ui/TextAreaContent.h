// SPDX-License-Identifier: MIT
#pragma once

#include <QJSValue>
#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class QInputMethodEvent;
class QKeyEvent;
class QTextDocument;

namespace giggle {

/// The text of a TextArea as it is, to the last code point, and the say over what is typed or pasted into it.
///
/// A TextArea's own `text` turns no-break spaces into blanks and line separators into line feeds; what a
/// joke keeps must not be decided there.
class TextAreaContent : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem* textArea READ textArea WRITE setTextArea NOTIFY textAreaChanged REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool hasLongWord READ hasLongWord NOTIFY hasLongWordChanged)
    Q_PROPERTY(QJSValue shouldChange READ shouldChange WRITE setShouldChange NOTIFY shouldChangeChanged)

public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* textArea() const { return m_textArea; }

    /// Once.
    void setTextArea(QQuickItem* textArea);

    /// Line breaks are line feeds.
    [[nodiscard]] QString text() const;

    /// Setting another text than is there moves the cursor to the beginning.
    void setText(const QString& text);

    /// Whether the TextArea should wrap anywhere: see holdsLongWord(). Known before a long text comes in.
    [[nodiscard]] bool hasLongWord() const { return m_hasLongWord; }

    /// A function that is given a replacement and says whether it may be typed or pasted. Anything else
    /// refuses nothing.
    [[nodiscard]] QJSValue shouldChange() const { return m_shouldChange; }

    void setShouldChange(const QJSValue& function);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void textAreaChanged();
    void textChanged();
    void hasLongWordChanged();
    void shouldChangeChanged();

private slots:
    void textAreaTextChanged();

private:
    [[nodiscard]] QTextDocument* document() const;

    /// Whether the text may come in; prepares for it, if so.
    [[nodiscard]] bool admit(const QString& replacement);
    void setHasLongWord(bool hasLongWord);

    bool filterKey(const QKeyEvent& event);
    bool filterInputMethod(const QInputMethodEvent& event);

    QPointer<QQuickItem> m_textArea;
    QJSValue m_shouldChange;
    bool m_hasLongWord = false;
    QString m_textToBe; // until there is a TextArea
};

} // namespace giggle
