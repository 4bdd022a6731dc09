#include "platform/TextField.h"

#include "platform/KeyCodes.h"
#include "platform/LegacyColor.h"
#include "platform/Twips.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QProxyStyle>

namespace Varnel_Controles {

namespace {

// Draws the field's own password character instead of the style's.
class PasswordStyle : public QProxyStyle
{
public:
    explicit PasswordStyle(QChar c) : m_char(c) {}
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_LineEdit_PasswordCharacter)
            return m_char.unicode();
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    QChar m_char;
};

} // namespace

TextField::TextField(QWidget *parent)
    : QLineEdit(parent)
    , m_backColor(LegacyColor::WindowBackground)
    , m_foreColor(LegacyColor::WindowText)
{
    connect(this, &QLineEdit::textChanged, this, [this] { Q_EMIT Change(); });
    applyColors();
}

void TextField::setBackColor(quint32 color)
{
    m_backColor = color;
    applyColors();
}

void TextField::setForeColor(quint32 color)
{
    m_foreColor = color;
    applyColors();
}

void TextField::applyColors()
{
    QPalette p = palette();
    const QColor back = LegacyColor::toQColor(m_backColor);
    const QColor fore = LegacyColor::toQColor(m_foreColor);
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(group, QPalette::Base, back);
        if (group != QPalette::Disabled)
            p.setColor(group, QPalette::Text, fore);
    }
    setPalette(p);
    update();
}

void TextField::setPasswordChar(const QString &character)
{
    m_passwordChar = character.left(1);
    QStyle *previous = m_passwordStyle;
    if (m_passwordChar.isEmpty()) {
        m_passwordStyle = nullptr;
        setStyle(nullptr);
        setEchoMode(QLineEdit::Normal);
    } else {
        m_passwordStyle = new PasswordStyle(m_passwordChar.at(0));
        m_passwordStyle->setParent(this);
        setStyle(m_passwordStyle);
        setEchoMode(QLineEdit::Password);
    }
    delete previous;
}

void TextField::setAppearance(qint16 value)
{
    m_appearance = value;
    applyFrame();
}

void TextField::setBorderStyle(qint16 value)
{
    m_borderStyle = value;
    applyFrame();
}

void TextField::applyFrame()
{
    setFrame(m_borderStyle != 0);
}

qint16 TextField::Alignment() const
{
    const Qt::Alignment a = alignment() & Qt::AlignHorizontal_Mask;
    if (a & Qt::AlignRight) return 1;
    if (a & Qt::AlignHCenter) return 2;
    return 0;
}

void TextField::setAlignment(qint16 value)
{
    const Qt::Alignment h = value == 1 ? Qt::AlignRight : value == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
    QLineEdit::setAlignment(h | Qt::AlignVCenter);
}

// The line edit's own limit stays off: it would also cut what the program writes.
void TextField::setMaxLength(qint32 value)
{
    m_maxLength = qMax(0, value);
}

qsizetype TextField::room() const
{
    if (m_maxLength == 0)
        return std::numeric_limits<qsizetype>::max();
    return qMax<qsizetype>(0, m_maxLength - text().size() + selectedText().size());
}

qint32 TextField::SelStart() const
{
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void TextField::setSelStart(qint32 value)
{
    deselect();
    setCursorPosition(qBound(0, value, int(text().size())));
}

qint32 TextField::SelLength() const
{
    return int(selectedText().size());
}

void TextField::setSelLength(qint32 value)
{
    const int start = SelStart();
    const int length = qBound(0, value, int(text().size()) - start);
    if (length == 0) {
        deselect();
        setCursorPosition(start);
    } else {
        setSelection(start, length);
    }
}

void TextField::keyPressEvent(QKeyEvent *event)
{
    qint16 keyCode = KeyCodes::keyCode(event);
    qint16 shift = KeyCodes::shiftState(event);
    const qint16 originalAscii = KeyCodes::keyAscii(event);
    Q_EMIT KeyDown(keyCode, shift);
    if (originalAscii == 0) {
        // A key that types nothing: the host may cancel its editing action by zeroing KeyCode.
        if (keyCode != 0)
            applyKey(event);
        else
            event->accept();
        return;
    }
    qint16 keyAscii = originalAscii;
    Q_EMIT KeyPress(keyAscii);
    if (keyAscii == originalAscii)
        applyKey(event);
    else
        deliverCharacter(event, keyAscii);
}

void TextField::applyKey(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste)) {
        if (!isReadOnly())
            pasteText();
        event->accept();
        return;
    }
    const bool types = !event->text().isEmpty() && event->text().at(0).unicode() >= 32
        && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (types && room() < event->text().size()) {
        event->accept(); // the typing limit is reached
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextField::insertTyped(const QString &text)
{
    if (room() > 0)
        insert(text.left(room()));
}

void TextField::cutText() { cut(); }
void TextField::copyText() { copy(); }
void TextField::pasteText() { insertTyped(QApplication::clipboard()->text()); }
void TextField::deleteText() { del(); }

QMenu *TextField::createContextMenu()
{
    auto *menu = new QMenu(this);
    const bool editable = !isReadOnly();
    const bool shown = echoMode() == QLineEdit::Normal; // a password is neither cut nor copied
    const auto add = [&](const QString &text, bool enabled, QKeySequence::StandardKey key, auto edit) {
        QAction *action = menu->addAction(text, this, edit);
        action->setEnabled(enabled);
        action->setShortcut(key);
        action->setShortcutVisibleInContextMenu(true);
    };
    if (editable) {
        add(QStringLiteral("&Deshacer"), isUndoAvailable(), QKeySequence::Undo, &QLineEdit::undo);
        add(QStringLiteral("&Rehacer"), isRedoAvailable(), QKeySequence::Redo, &QLineEdit::redo);
        menu->addSeparator();
        add(QStringLiteral("Cor&tar"), shown && hasSelectedText(), QKeySequence::Cut, &TextField::cutText);
    }
    add(QStringLiteral("&Copiar"), shown && hasSelectedText(), QKeySequence::Copy, &TextField::copyText);
    if (editable) {
        add(QStringLiteral("&Pegar"), !QApplication::clipboard()->text().isEmpty(), QKeySequence::Paste, &TextField::pasteText);
        add(QStringLiteral("&Eliminar"), hasSelectedText(), QKeySequence::UnknownKey, &TextField::deleteText);
    }
    menu->addSeparator();
    add(QStringLiteral("&Seleccionar todo"), !text().isEmpty() && selectedText() != text(), QKeySequence::SelectAll,
        &QLineEdit::selectAll);
    return menu;
}

void TextField::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = createContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void TextField::inputMethodEvent(QInputMethodEvent *event)
{
    if (event->commitString().size() <= room()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent cut(event->preeditString(), event->attributes());
    cut.setCommitString(event->commitString().left(room()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&cut);
}

// A drop that would go past the typing limit is refused whole.
void TextField::dropEvent(QDropEvent *event)
{
    if (event->mimeData()->hasText() && m_maxLength > 0
        && text().size() + event->mimeData()->text().size() > m_maxLength) {
        event->ignore();
        return;
    }
    QLineEdit::dropEvent(event);
}

// The field receives a character other than the one typed (changed by the filter or the host).
void TextField::deliverCharacter(QKeyEvent *original, qint16 keyAscii)
{
    original->accept();
    if (keyAscii == 0) {
        // Escape types nothing anyway: dropping its character leaves the key to the window
        // (a dialog's cancel), as the line edit itself does.
        if (original->key() == Qt::Key_Escape)
            original->ignore();
        return;
    }
    if (keyAscii == 8) {
        QKeyEvent backspace(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b"));
        applyKey(&backspace);
    } else if (keyAscii == 13) {
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        applyKey(&enter);
    } else if (keyAscii >= 32 && !isReadOnly()) {
        insertTyped(QString(QChar(char16_t(keyAscii))));
    }
}

void TextField::keyReleaseEvent(QKeyEvent *event)
{
    qint16 keyCode = KeyCodes::keyCode(event);
    qint16 shift = KeyCodes::shiftState(event);
    Q_EMIT KeyUp(keyCode, shift);
    QLineEdit::keyReleaseEvent(event);
}

bool TextField::raiseMouse(QMouseEvent *event, void (TextField::*signal)(qint16 &, qint16 &, float &, float &))
{
    qint16 button = KeyCodes::mouseButton(event->type() == QEvent::MouseMove ? event->buttons() : event->button());
    qint16 shift = KeyCodes::shiftState(event->modifiers());
    float x = float(Twips::fromPixels(event->position().x(), this));
    float y = float(Twips::fromPixels(event->position().y(), this));
    Q_EMIT (this->*signal)(button, shift, x, y);
    return true;
}

void TextField::mousePressEvent(QMouseEvent *event)
{
    m_pressedInside = true;
    raiseMouse(event, &TextField::MouseDown);
    QLineEdit::mousePressEvent(event);
}

void TextField::mouseMoveEvent(QMouseEvent *event)
{
    raiseMouse(event, &TextField::MouseMove);
    QLineEdit::mouseMoveEvent(event);
}

void TextField::mouseReleaseEvent(QMouseEvent *event)
{
    raiseMouse(event, &TextField::MouseUp);
    if (event->button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection()) {
        // The selection's paste, through the typing limit and the field's own editing.
        if (!isReadOnly()) {
            deselect();
            insertTyped(QApplication::clipboard()->text(QClipboard::Selection));
        }
    } else {
        QLineEdit::mouseReleaseEvent(event);
    }
    if (m_pressedInside && rect().contains(event->position().toPoint()))
        Q_EMIT Click();
    m_pressedInside = false;
}

void TextField::mouseDoubleClickEvent(QMouseEvent *event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    Q_EMIT DblClick();
}

// A popup (the context menu, a completer) taking the focus and giving it back is no focus
// change for the control: the clerk never left the field, and what was selected stays so.
void TextField::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT GotFocus();
}

void TextField::focusOutEvent(QFocusEvent *event)
{
    // The focus widget is already the one the focus goes to (none when a window takes it).
    const QWidget *next = QApplication::focusWidget();
    m_leftWithinWindow = event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason
        && (!next || next->window() == window());
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Q_EMIT LostFocus();
}

} // namespace Varnel_Controles
