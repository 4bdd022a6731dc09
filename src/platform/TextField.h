// The plain single-line text box inside the controls (their `txtTexto` / `txtCodigo`).
// It raises the legacy events with by-reference arguments: a slot connected directly may
// change KeyCode, KeyAscii, Shift … and the field acts on what the slot left.
#pragma once

#include <QLineEdit>

namespace Varnel_Controles {

class TextField : public QLineEdit
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
    /// Maximum length, 0 for no limit.
    qint32 MaxLength() const;
    void setMaxLength(qint32 value);
    /// Caret position (start of the selection when there is one); setting it drops the selection.
    qint32 SelStart() const;
    void setSelStart(qint32 value);
    /// Selection length from SelStart.
    qint32 SelLength() const;
    void setSelLength(qint32 value);

signals:
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void Click();
    void DblClick();
    /// Raised after Qt's own focus handling (which may have selected the text).
    void GotFocus();
    void LostFocus();
    /// Any change of the text, typed or assigned.
    void Change();

protected:
    /// What the field does with a key once the events were raised (the line edit's editing).
    virtual void applyKey(QKeyEvent *event);
    /// A typed character other than the key's own (changed by a filter or the host).
    virtual void insertTyped(const QString &text);

    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

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
};

} // namespace Varnel_Controles
