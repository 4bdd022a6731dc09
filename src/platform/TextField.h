// The plain single-line text box inside the controls (their `txtTexto` / `txtCodigo`).
// It raises the legacy events with by-reference arguments: a slot connected directly may
// change KeyCode, KeyAscii, Shift … and the field acts on what the slot left.
#pragma once

#include "varnel_controles_export.h"

#include <QLineEdit>

class QMenu;

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT TextField : public QLineEdit
{
    Q_OBJECT

public:
    explicit TextField(QWidget *parent = nullptr);

    /// Legacy colour value of the background (0x80000005 by default); painted at once.
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 color);
    /// Legacy colour value of the text (0x80000008 by default).
    quint32 ForeColor() const { return m_foreColor; }
    void setForeColor(quint32 color);
    /// The password character, "" for plain text.
    QString PasswordChar() const { return m_passwordChar; }
    void setPasswordChar(const QString &character);
    /// 0 flat, 1 three-dimensional; 0 or 1 border style. The frame is drawn unless BorderStyle is 0.
    qint16 Appearance() const { return m_appearance; }
    void setAppearance(qint16 value);
    qint16 BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(qint16 value);
    /// 0 left, 1 right, 2 centre.
    qint16 Alignment() const;
    void setAlignment(qint16 value);
    /// The typing limit, 0 for none: what the user types, pastes or drops stops there; text the
    /// program writes (setText) is never cut.
    qint32 MaxLength() const { return m_maxLength; }
    void setMaxLength(qint32 value);
    /// Caret position (start of the selection when there is one); setting it drops the selection.
    qint32 SelStart() const;
    void setSelStart(qint32 value);
    /// Selection length from SelStart.
    qint32 SelLength() const;
    void setSelLength(qint32 value);
    /// Whether the focus, when it last left, moved to another control of the same window (not
    /// to a popup, a dialog, a message box or another window, from which the user comes back).
    bool leftWithinWindow() const { return m_leftWithinWindow; }
    /// The context menu, in Spanish, its actions going through the field's own editing (the
    /// typing limit, the mask); the caller owns it.
    QMenu *createContextMenu();

Q_SIGNALS:
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void Click();
    void DblClick();
    /// Raised after Qt's own focus handling (which may have selected the text); not when a popup
    /// such as the context menu gives the focus back (nor LostFocus when it takes it).
    void GotFocus();
    void LostFocus();
    /// Any change of the text, typed or assigned.
    void Change();

protected:
    /// What the field does with a key once the events were raised (the line edit's editing).
    virtual void applyKey(QKeyEvent *event);
    /// A typed character other than the key's own (changed by a filter or the host).
    virtual void insertTyped(const QString &text);
    /// Room left under the typing limit for text replacing the selection.
    qsizetype room() const;
    /// The editing of the keys and the context menu: the clipboard through the typing limit.
    virtual void cutText();
    virtual void copyText();
    virtual void pasteText();
    /// Deletes the selection.
    virtual void deleteText();

    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void applyColors();
    void applyFrame();
    bool raiseMouse(QMouseEvent *event, void (TextField::*signal)(qint16 &, qint16 &, float &, float &));
    void deliverCharacter(QKeyEvent *original, qint16 keyAscii);

    quint32 m_backColor;
    quint32 m_foreColor;
    QString m_passwordChar;
    QStyle *m_passwordStyle = nullptr;
    qint16 m_appearance = 1;
    qint16 m_borderStyle = 1;
    bool m_pressedInside = false;
    bool m_leftWithinWindow = false;
    qint32 m_maxLength = 0;
};

} // namespace Varnel_Controles
