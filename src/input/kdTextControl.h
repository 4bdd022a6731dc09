// What the text-field controls (kdTextBox, kdMaskEdBox) share: the inner field `txtTexto`
// filling the control, its colours, font, appearance and tool tip forwarded, the light-cyan
// focus colour, grey when disabled, Up arrow moving the focus back and Enter (when the
// control moves on) kept from the host form's default button.
#pragma once

#include "varnel_controles_export.h"

#include "UserControl.h"

namespace Varnel_Controles {

class TextField;

class VARNEL_CONTROLES_EXPORT kdTextControl : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(qint16 Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool CausesValidation READ CausesValidation WRITE setCausesValidation)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(bool SelectionOnFocus READ SelectionOnFocus WRITE setSelectionOnFocus)
    Q_PROPERTY(bool ChangeColorOnFocus READ ChangeColorOnFocus WRITE setChangeColorOnFocus)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)

public:
    ~kdTextControl() override;

    quint32 BackColor() const;
    void setBackColor(quint32 color);
    quint32 ForeColor() const;
    void setForeColor(quint32 color);
    /// The field's font; QWidget::setFont sets it (and notifies "Font").
    QFont Font() const;
    qint16 Appearance() const;
    void setAppearance(qint16 value);
    qint16 BorderStyle() const;
    void setBorderStyle(qint16 value);
    /// Repaints the field.
    Q_INVOKABLE void Refresh();
    /// Stored for the host; the field does not act on it.
    bool CausesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool value);
    QString ToolTipText() const;
    void setToolTipText(const QString &value);
    /// On focus: the text is selected (see each control).
    bool SelectionOnFocus() const { return m_selectionOnFocus; }
    void setSelectionOnFocus(bool value);
    /// On focus: 0xFFFFC0, and the window colour again when the focus leaves (replacing any
    /// colour the host had set).
    bool ChangeColorOnFocus() const { return m_changeColorOnFocus; }
    void setChangeColorOnFocus(bool value);
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// Up arrow moves the focus back, with any Shift state.
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);

    QSize sizeHint() const override;

Q_SIGNALS:
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void Change();

protected:
    /// Takes `field` as the control's `txtTexto`.
    kdTextControl(TextField *field, QWidget *parent);

    /// A character key, before the host's KeyPress (which the subclass raises).
    virtual void onKeyPress(qint16 &keyAscii) = 0;
    /// The selection when the focus arrives (SelectionOnFocus is True).
    virtual void selectOnFocus() = 0;

    /// "BackColor", "ForeColor", "Enabled", "Font", "Appearance", "BorderStyle"; returns the
    /// loaded enabled state, to be applied once every key is read.
    bool readLook(const PropertyBag &bag);
    void writeLook(PropertyBag &bag) const;
    /// Loading ends here: the persisted back colour gives way to the enabled state's.
    void finishLoad(bool enabled) { applyEnabled(enabled); }

    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enabledChanged(bool enabled) override;
    void fontChanged() override;

    TextField *m_field;
    bool m_selectionOnFocus = true;
    bool m_changeColorOnFocus = true;
    bool m_keyUpChangeFocus = true;
    bool m_keyEnterChangeFocus = true;
    bool m_causesValidation = true;

private:
    void onKeyDown(qint16 &keyCode, qint16 &shift);
    void onGotFocus();
    void onLostFocus();
};

} // namespace Varnel_Controles
