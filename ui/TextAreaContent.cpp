// SPDX-License-Identifier: MIT
#include "ui/TextAreaContent.h"

#include "ui/DisplayText.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickTextDocument>
#include <QTextDocument>

#include <utility>

namespace giggle {

namespace {

bool isReturn(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isTabulator(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
}

/// Whether a key of that text types it, as Qt decides. Control and Alt together are AltGr on some keyboards.
bool isTyped(const QString& text, Qt::KeyboardModifiers modifiers)
{
    if (text.isEmpty())
        return false;
    const QChar first = text.front();
    if (first.category() == QChar::Other_Format)
        return true;
    const bool isCommand =
        modifiers == Qt::ControlModifier || modifiers == (Qt::ControlModifier | Qt::ShiftModifier);
    return !isCommand &&
           (first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse);
}

/// What a key would insert; empty for a key that inserts nothing.
QString insertedBy(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Paste))
        return QGuiApplication::clipboard()->text();
    if (isTabulator(event))
        return {};
    if (isReturn(event))
        return QStringLiteral("\n");
    return isTyped(event.text(), event.modifiers()) ? event.text() : QString();
}

} // namespace

void TextAreaContent::setTextArea(QQuickItem* textArea)
{
    if (m_textArea || !textArea)
        return;
    m_textArea = textArea;
    textArea->installEventFilter(this);
    // By name: the class that has the signal is private to Qt.
    connect(textArea, SIGNAL(textChanged()), this, SLOT(textAreaTextChanged()));
    setText(std::exchange(m_textToBe, {}));
    emit textAreaChanged();
}

QTextDocument* TextAreaContent::document() const
{
    if (!m_textArea)
        return nullptr;
    const auto* holder = m_textArea->property("textDocument").value<QQuickTextDocument*>();
    return holder ? holder->textDocument() : nullptr;
}

QString TextAreaContent::text() const
{
    const QTextDocument* contents = document();
    return contents ? contents->toRawText().replace(QChar::ParagraphSeparator, u'\n') : m_textToBe;
}

void TextAreaContent::setText(const QString& text)
{
    if (!m_textArea)
        m_textToBe = text;
    if (!m_textArea || text == this->text())
        return;
    setHasLongWord(holdsLongWord(text));
    m_textArea->setProperty("text", text);
}

void TextAreaContent::textAreaTextChanged()
{
    setHasLongWord(holdsLongWord(text()));
    emit textChanged();
}

void TextAreaContent::setHasLongWord(bool hasLongWord)
{
    if (hasLongWord == m_hasLongWord)
        return;
    m_hasLongWord = hasLongWord;
    emit hasLongWordChanged();
}

void TextAreaContent::setShouldChange(const QJSValue& function)
{
    m_shouldChange = function;
    emit shouldChangeChanged();
}

bool TextAreaContent::admit(const QString& replacement)
{
    if (!replacement.isEmpty() && m_shouldChange.isCallable() &&
        !m_shouldChange.call({QJSValue(replacement)}).toBool())
        return false;
    if (holdsLongWord(replacement))
        setHasLongWord(true);
    return true;
}

bool TextAreaContent::filterKey(const QKeyEvent& event)
{
    if (!admit(insertedBy(event)))
        return true;
    if (!isReturn(event) || !event.modifiers().testFlag(Qt::ShiftModifier))
        return false;
    // A line separator, which the key would insert with Shift, is no line break to anybody else.
    QKeyEvent plainReturn(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QCoreApplication::sendEvent(m_textArea, &plainReturn);
    return true;
}

bool TextAreaContent::filterInputMethod(const QInputMethodEvent& event)
{
    if (admit(event.commitString()))
        return false;
    QInputMethodEvent withdrawal;
    QCoreApplication::sendEvent(m_textArea, &withdrawal);
    return true;
}

bool TextAreaContent::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return filterKey(*static_cast<QKeyEvent*>(event));
    case QEvent::InputMethod:
        return filterInputMethod(*static_cast<QInputMethodEvent*>(event));
    case QEvent::MouseButtonRelease:
        // The middle button pastes what is selected elsewhere.
        return static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton &&
               !admit(QGuiApplication::clipboard()->text(QClipboard::Selection));
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace giggle
