// kdMaskEdBox: the date box of the listing screens. A masked field on the text-field control
// (a zero is never emptied) and, with FunctionDate, date completion on Enter: an empty field
// takes Default (or today), a date typed short ("1/2/08") is written out as dd/mm/yyyy, and a
// field that holds no date is emptied and keeps the focus.
#pragma once

#include "varnel_controles_export.h"

#include "kdTextControl.h"

namespace Varnel_Controles {

class MaskedField;

class VARNEL_CONTROLES_EXPORT kdMaskEdBox : public kdTextControl
{
    Q_OBJECT
    Q_PROPERTY(QString Default READ Default WRITE setDefault)
    Q_PROPERTY(bool AllowPrompt READ AllowPrompt WRITE setAllowPrompt)
    Q_PROPERTY(bool AutoTab READ AutoTab WRITE setAutoTab)
    Q_PROPERTY(qint16 ClipMode READ ClipMode WRITE setClipMode)
    Q_PROPERTY(QString Format READ Format WRITE setFormat)
    Q_PROPERTY(QString FormattedText READ FormattedText NOTIFY Change)
    Q_PROPERTY(bool FunctionDate READ FunctionDate WRITE setFunctionDate)
    Q_PROPERTY(QString Mask READ Mask WRITE setMask)
    Q_PROPERTY(qint16 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(QString PromptChar READ PromptChar WRITE setPromptChar)
    Q_PROPERTY(bool PromptInclude READ PromptInclude WRITE setPromptInclude)
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change USER true)
    Q_PROPERTY(qint32 WhatsThisHelpID READ WhatsThisHelpID WRITE setWhatsThisHelpID)

public:
    /// A new box: mask "##/##/####", a blank prompt, PromptInclude False, FunctionDate False.
    explicit kdMaskEdBox(QWidget *parent = nullptr);

    /// The date an empty field takes on Enter in date mode (today when it is no date); not persisted.
    QString Default() const { return m_default; }
    void setDefault(const QString &value) { m_default = value; }
    bool AllowPrompt() const;
    void setAllowPrompt(bool value);
    bool AutoTab() const;
    void setAutoTab(bool value);
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
    /// A text the mask refuses raises ValidationError and changes nothing.
    QString Text() const;
    void setText(const QString &value);
    qint32 WhatsThisHelpID() const { return m_whatsThisHelpId; }
    void setWhatsThisHelpID(qint32 value);

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

Q_SIGNALS:
    /// A character or text the mask refused, and where.
    void ValidationError(QString &InvalidText, qint16 &StartPosition);

protected:
    /// Only Enter is treated (date completion, then the focus move); every key reaches the
    /// host as typed, Enter after the completion.
    void onKeyPress(qint16 &keyAscii) override;
    /// The caret goes to 0; a field holding text has its whole displayed text selected.
    void selectOnFocus() override;

private:
    MaskedField *txtTexto;
    QString m_default;
    bool m_functionDate = false;
    qint32 m_whatsThisHelpId = 0;
};

} // namespace Varnel_Controles
