// kdTextBox: the data-entry box for codes, names, references and quantities. On top of the
// text-field control it adds a numeric mode with a decimal comma and a sign toggle, forced
// upper case and refusal of the apostrophe, and it empties a zero when the focus arrives.
#pragma once

#include "varnel_controles_export.h"

#include "kdTextControl.h"
#include "Enums.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdTextBox : public kdTextControl
{
    Q_OBJECT
    Q_PROPERTY(qint16 Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(bool HideSelection READ HideSelection)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(bool MultiLine READ MultiLine)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE setPasswordChar)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength)
    Q_PROPERTY(qint16 ScrollBars READ ScrollBars)
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change USER true)
    Q_PROPERTY(bool AceptDecimals READ AceptDecimals WRITE setAceptDecimals)
    Q_PROPERTY(qint32 TypeOfValues READ TypeOfValues WRITE setTypeOfValues)
    Q_PROPERTY(bool AceptNegative READ AceptNegative WRITE setAceptNegative)
    Q_PROPERTY(bool ConvertToUpper READ ConvertToUpper WRITE setConvertToUpper)
    Q_PROPERTY(QString InitValue READ InitValue WRITE setInitValue)
    Q_PROPERTY(double Value READ Value NOTIFY Change)

public:
    explicit kdTextBox(QWidget *parent = nullptr);

    /// Caret to 0 and the whole text selected.
    Q_INVOKABLE void SelectText();

    qint16 Alignment() const;
    void setAlignment(qint16 value);
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
    /// Kept for the host; persisted as given, untrimmed.
    QString InitValue() const { return m_initValue; }
    void setInitValue(const QString &value);
    /// The text as a number by the Spanish rules ("12,5" is 12.5); 0 when it is not numeric.
    double Value() const;

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

Q_SIGNALS:
    void Click();
    void DblClick();
    void MouseDown(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseMove(qint16 &Button, qint16 &Shift, float &X, float &Y);
    void MouseUp(qint16 &Button, qint16 &Shift, float &X, float &Y);

protected:
    /// The key filter; KeyPress reaches the host with KeyAscii 0 when the filter refused the key,
    /// and the field receives what the host leaves in it.
    void onKeyPress(qint16 &keyAscii) override;
    /// A text reading as zero is emptied; any other is selected.
    void selectOnFocus() override;

private:
    qint32 m_typeOfValues = Alfanumeric;
    bool m_aceptDecimals = false;
    bool m_aceptNegative = false;
    bool m_convertToUpper = true;
    QString m_initValue;
};

} // namespace Varnel_Controles
