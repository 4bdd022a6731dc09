#include "input/MaskedField.h"

#include "input/modTeclas.h"
#include "platform/Legacy.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>

namespace Varnel_Controles {

MaskedField::MaskedField(QWidget *parent)
    : TextField(parent)
{
    setMaxLength(64);
    setDragEnabled(false);
    setAcceptDrops(false);
    // Whatever changes the display other than the mask (a drop, undo) is undone.
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!m_refreshing && m_engine.hasMask() && QLineEdit::text() != m_engine.display(m_prompt))
            refresh(cursorPosition());
    });
}

void MaskedField::refresh(int cursor)
{
    m_refreshing = true;
    if (QLineEdit::text() != m_engine.display(m_prompt))
        QLineEdit::setText(m_engine.display(m_prompt));
    setCursorPosition(qBound(0, cursor, int(QLineEdit::text().size())));
    m_refreshing = false;
}

void MaskedField::setMask(const QString &mask)
{
    m_engine.setMask(mask);
    if (m_engine.hasMask()) {
        setMaxLength(m_engine.length());
        refresh(0);
    } else {
        QLineEdit::setText(QString());
    }
}

void MaskedField::setPromptChar(const QString &prompt)
{
    m_prompt = prompt.isEmpty() ? u' ' : prompt.at(0);
    if (m_engine.hasMask())
        refresh(cursorPosition());
}

QString MaskedField::maskedText() const
{
    return m_engine.hasMask() ? m_engine.text(m_promptInclude, m_prompt) : QLineEdit::text();
}

void MaskedField::setMaskedText(const QString &text)
{
    if (!m_engine.hasMask()) {
        QLineEdit::setText(text);
        return;
    }
    const int bad = m_engine.setText(text, m_prompt);
    if (bad >= 0) {
        QString invalid = text;
        qint16 position = qint16(bad);
        Q_EMIT ValidationError(invalid, position);
        return;
    }
    refresh(0);
}

QString MaskedField::ClipText() const
{
    return m_engine.hasMask() ? m_engine.clipText() : QLineEdit::text();
}

QString MaskedField::FormattedText() const
{
    const QString shown = m_engine.hasMask() ? m_engine.display(m_prompt) : QLineEdit::text();
    if (m_format.isEmpty())
        return shown;
    if (m_format.contains(QRegularExpression(QStringLiteral("[dmy]"), QRegularExpression::CaseInsensitiveOption))) {
        const auto date = Legacy::CDate(shown);
        if (!date)
            return shown;
        QString qtFormat = m_format;
        qtFormat.replace(QStringLiteral("mm"), QStringLiteral("MM")).replace(QRegularExpression(QStringLiteral("(?<![Mm])m(?![Mm])")), QStringLiteral("M"));
        return date->toString(qtFormat);
    }
    bool numeric = false;
    const double value = Legacy::CDbl(shown, &numeric);
    if (!numeric)
        return shown;
    const int point = int(m_format.indexOf(u'.'));
    const int decimals = point < 0 ? 0 : int(m_format.size()) - point - 1;
    QLocale spanish(QLocale::Spanish, QLocale::Spain);
    if (!m_format.contains(u','))
        spanish.setNumberOptions(QLocale::OmitGroupSeparator);
    return spanish.toString(value, 'f', decimals);
}

void MaskedField::eraseSelectionOr(int from, int to)
{
    if (hasSelectedText()) {
        const int start = selectionStart();
        m_engine.erase(start, start + int(selectedText().size()));
        refresh(start);
    } else {
        m_engine.erase(from, to);
        refresh(from);
    }
}

void MaskedField::reject(QChar c, int position)
{
    QString invalid = QLineEdit::text();
    invalid.insert(position, c);
    qint16 start = qint16(position);
    Q_EMIT ValidationError(invalid, start);
}

void MaskedField::insertTyped(const QString &text)
{
    if (!m_engine.hasMask()) {
        TextField::insertTyped(text);
        return;
    }
    if (isReadOnly())
        return;
    for (QChar c : text) {
        int cursor = cursorPosition();
        if (hasSelectedText()) {
            cursor = selectionStart();
            m_engine.erase(cursor, cursor + int(selectedText().size()));
        }
        const MaskEngine::Typed typed = m_engine.type(cursor, c, m_prompt, m_allowPrompt);
        if (!typed.accepted) {
            refresh(cursor);
            reject(c, cursor);
            continue;
        }
        refresh(typed.cursor);
        if (m_autoTab && m_engine.isComplete() && typed.cursor >= m_engine.length())
            modTeclas::MoveFocusNext();
    }
}

void MaskedField::copyText()
{
    if (!m_engine.hasMask()) {
        TextField::copyText();
        return;
    }
    QString selected = selectedText();
    if (m_clipMode == 1) {
        MaskEngine part;
        part.setMask(m_engine.mask());
        part.setText(QLineEdit::text(), m_prompt);
        part.erase(0, selectionStart());
        part.erase(selectionStart() + int(selected.size()), part.length());
        selected = part.clipText();
    }
    QApplication::clipboard()->setText(selected);
}

void MaskedField::cutText()
{
    if (!m_engine.hasMask()) {
        TextField::cutText();
        return;
    }
    copyText();
    if (!isReadOnly())
        deleteText();
}

void MaskedField::deleteText()
{
    if (!m_engine.hasMask()) {
        TextField::deleteText();
        return;
    }
    if (!isReadOnly() && hasSelectedText())
        eraseSelectionOr(cursorPosition(), cursorPosition());
}

void MaskedField::applyKey(QKeyEvent *event)
{
    if (!m_engine.hasMask()) {
        TextField::applyKey(event);
        return;
    }
    const int cursor = cursorPosition();
    if (event->matches(QKeySequence::Paste)) {
        if (!isReadOnly())
            pasteText();
    } else if (event->matches(QKeySequence::Copy)) {
        copyText();
    } else if (event->matches(QKeySequence::Cut)) {
        cutText();
    } else if (event->key() == Qt::Key_Backspace && !isReadOnly()) {
        const int previous = m_engine.previousInput(cursor - 1);
        if (hasSelectedText())
            eraseSelectionOr(cursor, cursor);
        else if (previous >= 0)
            eraseSelectionOr(previous, previous + 1);
    } else if (event->key() == Qt::Key_Delete && !isReadOnly()) {
        const int next = m_engine.nextInput(cursor);
        eraseSelectionOr(cursor, next < 0 ? cursor : next + 1);
    } else if (!event->text().isEmpty() && event->text().at(0).unicode() >= 32
               && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        insertTyped(event->text());
    } else if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) {
        event->accept();
    } else {
        TextField::applyKey(event); // caret movement and the like; edits are undone by refresh
    }
}

} // namespace Varnel_Controles
