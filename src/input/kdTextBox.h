// kdTextBox: the data-entry box for codes, names, references and quantities. It wraps one
// single-line field (`txtTexto`) and adds a numeric mode with a decimal comma and a sign
// toggle, forced upper case, refusal of the apostrophe, Enter/Up arrow focus moves and the
// light-cyan focus colour.
#pragma once

#include "platform/Enums.h"
#include "platform/UserControl.h"

namespace Varnel_Controles {

class TextField;

class kdTextBox : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(qint16 Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(qint16 Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(bool CausesValidation READ CausesValidation WRITE setCausesValidation)
    Q_PROPERTY(bool HideSelection READ HideSelection)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(bool MultiLine READ MultiLine)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE setPasswordChar)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength)
    Q_PROPERTY(qint16 ScrollBars READ ScrollBars)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(bool AceptDecimals READ AceptDecimals WRITE setAceptDecimals)
    Q_PROPERTY(qint32 TypeOfValues READ TypeOfValues WRITE setTypeOfValues)
    Q_PROPERTY(bool AceptNegative READ AceptNegative WRITE setAceptNegative)
    Q_PROPERTY(bool ConvertToUpper READ ConvertToUpper WRITE setConvertToUpper)
    Q_PROPERTY(bool SelectionOnFocus READ SelectionOnFocus WRITE setSelectionOnFocus)
    Q_PROPERTY(bool ChangeColorOnFocus READ ChangeColorOnFocus WRITE setChangeColorOnFocus)
    Q_PROPERTY(QString InitValue READ InitValue WRITE setInitValue)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(double Value READ Value)

public:
    explicit kdTextBox(QWidget *parent = nullptr);
    ~kdTextBox() override;

    /// Caret to 0 and the whole text selected.
    Q_INVOKABLE void SelectText();

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
    qint16 Alignment() const;
    void setAlignment(qint16 value);
    /// Stored for the host; the field does not act on it.
    bool CausesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool value);
    /// The field hides its selection when it loses the focus.
    bool HideSelection() const { return true; }
    bool Locked() const;
    void setLocked(bool value);
    /// 0 for no limit.
    qint32 MaxLength() const;
    void setMaxLength(qint32 value);
    bool MultiLine() const { return false; }
    QString PasswordChar() const;
    void setPasswordChar(const QString &value);
    bool RightToLeft() const;
    void setRightToLeft(bool value);
    qint32 SelStart() const;
    void setSelStart(qint32 value);
    qint32 SelLength() const;
    void setSelLength(qint32 value);
    qint16 ScrollBars() const { return 0; }
    QString ToolTipText() const;
    void setToolTipText(const QString &value);

    /// The field's text without leading and trailing blanks; setting trims too (never filtered).
    QString Text() const;
    void setText(const QString &value);
    bool AceptDecimals() const { return m_aceptDecimals; }
    void setAceptDecimals(bool value);
    /// 1 numeric; any other value filters as alphanumeric.
    qint32 TypeOfValues() const { return m_typeOfValues; }
    void setTypeOfValues(qint32 value);
    bool AceptNegative() const { return m_aceptNegative; }
    void setAceptNegative(bool value);
    bool ConvertToUpper() const { return m_convertToUpper; }
    void setConvertToUpper(bool value);
    /// On focus: select the text, or empty it when it reads as zero.
    bool SelectionOnFocus() const { return m_selectionOnFocus; }
    void setSelectionOnFocus(bool value);
    /// On focus: paint 0xFFFFC0, and the window colour again when the focus leaves.
    bool ChangeColorOnFocus() const { return m_changeColorOnFocus; }
    void setChangeColorOnFocus(bool value);
    /// Kept for the host; persisted as given, untrimmed.
    QString InitValue() const { return m_initValue; }
    void setInitValue(const QString &value);
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// Up arrow moves the focus back, with any Shift state.
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);
    /// The text as a number by the Spanish rules ("12,5" is 12.5); 0 when it is not numeric.
    double Value() const;

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

    QSize sizeHint() const override;

signals:
    void Click();
    void DblClick();
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    /// After the key filter; KeyAscii is 0 when the filter refused the key. The field
    /// receives what the slot leaves in KeyAscii.
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void Change();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enabledChanged(bool enabled) override;
    void fontChanged() override;

private:
    void onKeyDown(qint16 &keyCode, qint16 &shift);
    void onKeyPress(qint16 &keyAscii);
    void onGotFocus();
    void onLostFocus();

    TextField *txtTexto;
    qint32 m_typeOfValues = Alfanumeric;
    bool m_aceptDecimals = false;
    bool m_aceptNegative = false;
    bool m_selectionOnFocus = true;
    bool m_changeColorOnFocus = true;
    bool m_convertToUpper = true;
    QString m_initValue;
    bool m_keyUpChangeFocus = true;
    bool m_keyEnterChangeFocus = true;
    bool m_causesValidation = true;
};

} // namespace Varnel_Controles
