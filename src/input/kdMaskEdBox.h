// kdMaskEdBox: the date box of the listing screens. A masked field (`txtTexto`) with the focus
// conventions of kdTextBox (without emptying a zero) and, with FunctionDate, date completion
// on Enter: an empty field takes Default (or today), a date typed short ("1/2/08") is written
// out as dd/mm/yyyy, and a field that holds no date is emptied and keeps the focus.
#pragma once

#include "platform/UserControl.h"

namespace Varnel_Controles {

class MaskedField;

class kdMaskEdBox : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(QString Default READ Default WRITE setDefault)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(qint16 Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(bool AllowPrompt READ AllowPrompt WRITE setAllowPrompt)
    Q_PROPERTY(bool AutoTab READ AutoTab WRITE setAutoTab)
    Q_PROPERTY(bool CausesValidation READ CausesValidation WRITE setCausesValidation)
    Q_PROPERTY(qint16 ClipMode READ ClipMode WRITE setClipMode)
    Q_PROPERTY(QString Format READ Format WRITE setFormat)
    Q_PROPERTY(QString FormattedText READ FormattedText)
    Q_PROPERTY(bool FunctionDate READ FunctionDate WRITE setFunctionDate)
    Q_PROPERTY(QString Mask READ Mask WRITE setMask)
    Q_PROPERTY(qint16 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(QString PromptChar READ PromptChar WRITE setPromptChar)
    Q_PROPERTY(bool PromptInclude READ PromptInclude WRITE setPromptInclude)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(qint32 WhatsThisHelpID READ WhatsThisHelpID WRITE setWhatsThisHelpID)
    Q_PROPERTY(bool SelectionOnFocus READ SelectionOnFocus WRITE setSelectionOnFocus)
    Q_PROPERTY(bool ChangeColorOnFocus READ ChangeColorOnFocus WRITE setChangeColorOnFocus)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)

public:
    /// A new box: mask "##/##/####", a blank prompt, PromptInclude False, FunctionDate False.
    explicit kdMaskEdBox(QWidget *parent = nullptr);
    ~kdMaskEdBox() override;

    /// The date an empty field takes on Enter in date mode (today when it is no date); not persisted.
    QString Default() const { return m_default; }
    void setDefault(const QString &value) { m_default = value; }
    quint32 BackColor() const;
    void setBackColor(quint32 color);
    quint32 ForeColor() const;
    void setForeColor(quint32 color);
    QFont Font() const;
    qint16 Appearance() const;
    void setAppearance(qint16 value);
    qint16 BorderStyle() const;
    void setBorderStyle(qint16 value);
    /// Repaints the field.
    Q_INVOKABLE void Refresh();
    bool AllowPrompt() const;
    void setAllowPrompt(bool value);
    bool AutoTab() const;
    void setAutoTab(bool value);
    bool CausesValidation() const { return m_causesValidation; }
    void setCausesValidation(bool value);
    qint16 ClipMode() const;
    void setClipMode(qint16 value);
    QString Format() const;
    void setFormat(const QString &value);
    /// The text as displayed (through Format when one is set).
    QString FormattedText() const;
    /// Enter completes dates.
    bool FunctionDate() const { return m_functionDate; }
    void setFunctionDate(bool value);
    QString Mask() const;
    void setMask(const QString &value);
    /// The field's length when it has no mask.
    qint16 MaxLength() const;
    void setMaxLength(qint16 value);
    QString PromptChar() const;
    void setPromptChar(const QString &value);
    bool PromptInclude() const;
    void setPromptInclude(bool value);
    QString Text() const;
    void setText(const QString &value);
    QString ToolTipText() const;
    void setToolTipText(const QString &value);
    qint32 WhatsThisHelpID() const { return m_whatsThisHelpId; }
    void setWhatsThisHelpID(qint32 value);
    /// On focus the whole displayed text is selected (a zero is never emptied).
    bool SelectionOnFocus() const { return m_selectionOnFocus; }
    void setSelectionOnFocus(bool value);
    bool ChangeColorOnFocus() const { return m_changeColorOnFocus; }
    void setChangeColorOnFocus(bool value);
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;
    QSize sizeHint() const override;

signals:
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    /// Every key reaches the host as typed; Enter after the date completion.
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    /// A character or text the mask refused, and where.
    void ValidationError(QString &InvalidText, qint16 &StartPosition);
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

    MaskedField *txtTexto;
    QString m_default;
    bool m_selectionOnFocus = true;
    bool m_changeColorOnFocus = true;
    bool m_keyUpChangeFocus = true;
    bool m_keyEnterChangeFocus = true;
    bool m_functionDate = false;
    bool m_causesValidation = true;
    qint32 m_whatsThisHelpId = 0;
};

} // namespace Varnel_Controles
