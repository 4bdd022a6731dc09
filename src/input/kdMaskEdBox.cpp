#include "input/kdMaskEdBox.h"

#include "input/MaskedField.h"
#include "input/modTeclas.h"
#include "platform/Legacy.h"

namespace Varnel_Controles {

kdMaskEdBox::kdMaskEdBox(QWidget *parent)
    : kdTextControl(new MaskedField, parent)
{
    txtTexto = static_cast<MaskedField *>(m_field);
    txtTexto->setMask(QStringLiteral("##/##/####"));
    txtTexto->setPromptChar(QStringLiteral(" "));
    txtTexto->setPromptInclude(false);
    connect(txtTexto, &MaskedField::ValidationError, this, &kdMaskEdBox::ValidationError);
    // The caret goes to 0 whenever the focus arrives, whatever SelectionOnFocus says.
    connect(txtTexto, &TextField::GotFocus, this, [this] {
        if (!m_selectionOnFocus)
            txtTexto->setCursorPosition(0);
    });
}

bool kdMaskEdBox::AllowPrompt() const { return txtTexto->AllowPrompt(); }
void kdMaskEdBox::setAllowPrompt(bool value) { txtTexto->setAllowPrompt(value); notify("AllowPrompt"); }
bool kdMaskEdBox::AutoTab() const { return txtTexto->AutoTab(); }
void kdMaskEdBox::setAutoTab(bool value) { txtTexto->setAutoTab(value); notify("AutoTab"); }
qint16 kdMaskEdBox::ClipMode() const { return txtTexto->ClipMode(); }
void kdMaskEdBox::setClipMode(qint16 value) { txtTexto->setClipMode(value); notify("ClipMode"); }
QString kdMaskEdBox::Format() const { return txtTexto->Format(); }
void kdMaskEdBox::setFormat(const QString &value) { txtTexto->setFormat(value); notify("Format"); }
QString kdMaskEdBox::FormattedText() const { return txtTexto->FormattedText(); }
void kdMaskEdBox::setFunctionDate(bool value) { m_functionDate = value; notify("FunctionDate"); }
QString kdMaskEdBox::Mask() const { return txtTexto->Mask(); }
void kdMaskEdBox::setMask(const QString &value) { txtTexto->setMask(value); notify("Mask"); }
qint16 kdMaskEdBox::MaxLength() const { return qint16(txtTexto->MaxLength()); }
void kdMaskEdBox::setMaxLength(qint16 value)
{
    if (txtTexto->Mask().isEmpty())
        txtTexto->setMaxLength(value);
    notify("MaxLength");
}
QString kdMaskEdBox::PromptChar() const { return txtTexto->PromptChar(); }
void kdMaskEdBox::setPromptChar(const QString &value) { txtTexto->setPromptChar(value); notify("PromptChar"); }
bool kdMaskEdBox::PromptInclude() const { return txtTexto->PromptInclude(); }
void kdMaskEdBox::setPromptInclude(bool value) { txtTexto->setPromptInclude(value); notify("PromptInclude"); }
QString kdMaskEdBox::Text() const { return txtTexto->maskedText(); }
void kdMaskEdBox::setText(const QString &value) { txtTexto->setMaskedText(value); notify("Text"); }
void kdMaskEdBox::setWhatsThisHelpID(qint32 value) { m_whatsThisHelpId = value; notify("WhatsThisHelpID"); }

void kdMaskEdBox::onKeyPress(qint16 &keyAscii)
{
    if (keyAscii == 13) {
        bool moveOn = true;
        if (m_functionDate) {
            if (Legacy::Trim(txtTexto->maskedText()).isEmpty()) {
                const QDate date = Legacy::CDate(m_default).value_or(QDate::currentDate());
                txtTexto->setMaskedText(Legacy::FormatDate(date));
            } else if (const auto date = Legacy::CDate(txtTexto->FormattedText())) {
                txtTexto->setMaskedText(Legacy::FormatDate(*date));
            } else {
                txtTexto->setMaskedText(QString()); // no date: emptied, and the focus stays
                moveOn = false;
            }
        }
        if (moveOn && m_keyEnterChangeFocus)
            modTeclas::MoveFocusNext();
    }
    Q_EMIT KeyPress(keyAscii);
}

void kdMaskEdBox::selectOnFocus()
{
    txtTexto->setCursorPosition(0);
    if (!txtTexto->maskedText().isEmpty())
        txtTexto->setSelection(0, int(txtTexto->FormattedText().size()));
}

void kdMaskEdBox::ReadProperties(const PropertyBag &bag)
{
    bag.requireRange(QStringLiteral("ClipMode"), 0, 1);
    bag.requireRange(QStringLiteral("MaxLength"), 1, 64);
    const bool enabled = readLook(bag);
    txtTexto->setAllowPrompt(readBool(bag, "AllowPrompt", false));
    txtTexto->setAutoTab(readBool(bag, "AutoTab", false));
    m_causesValidation = readBool(bag, "CausesValidation", true);
    txtTexto->setClipMode(qint16(bag.ReadProperty(QStringLiteral("ClipMode"), 0).toInt()));
    txtTexto->setFormat(bag.ReadProperty(QStringLiteral("Format"), QString()).toString());
    txtTexto->setMask(bag.ReadProperty(QStringLiteral("Mask"), QString()).toString());
    if (txtTexto->Mask().isEmpty())
        txtTexto->setMaxLength(bag.ReadProperty(QStringLiteral("MaxLength"), 64).toInt());
    txtTexto->setPromptChar(bag.ReadProperty(QStringLiteral("PromptChar"), QStringLiteral("_")).toString());
    txtTexto->setPromptInclude(readBool(bag, "PromptInclude", true));
    txtTexto->setMaskedText(bag.ReadProperty(QStringLiteral("Text"), QString()).toString());
    txtTexto->setToolTip(bag.ReadProperty(QStringLiteral("ToolTipText"), QString()).toString());
    m_whatsThisHelpId = bag.ReadProperty(QStringLiteral("WhatsThisHelpID"), 0).toInt();
    m_selectionOnFocus = readBool(bag, "SelectionOnFocus", true);
    m_changeColorOnFocus = readBool(bag, "ChangeColorOnFocus", true);
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    m_functionDate = readBool(bag, "FunctionDate", true);
    finishLoad(enabled);
}

void kdMaskEdBox::WriteProperties(PropertyBag &bag) const
{
    writeLook(bag);
    bag.WriteProperty(QStringLiteral("AllowPrompt"), AllowPrompt(), false);
    bag.WriteProperty(QStringLiteral("AutoTab"), AutoTab(), false);
    bag.WriteProperty(QStringLiteral("CausesValidation"), m_causesValidation, true);
    bag.WriteProperty(QStringLiteral("ClipMode"), ClipMode(), 0);
    bag.WriteProperty(QStringLiteral("Format"), Format(), QString());
    bag.WriteProperty(QStringLiteral("Mask"), Mask(), QString());
    bag.WriteProperty(QStringLiteral("MaxLength"), MaxLength(), 64);
    bag.WriteProperty(QStringLiteral("PromptChar"), PromptChar(), QStringLiteral("_"));
    bag.WriteProperty(QStringLiteral("PromptInclude"), PromptInclude(), true);
    bag.WriteProperty(QStringLiteral("Text"), Text(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText"), ToolTipText(), QString());
    bag.WriteProperty(QStringLiteral("WhatsThisHelpID"), m_whatsThisHelpId, 0);
    bag.WriteProperty(QStringLiteral("SelectionOnFocus"), m_selectionOnFocus, 1);
    bag.WriteProperty(QStringLiteral("ChangeColorOnFocus"), m_changeColorOnFocus, 1);
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
    bag.WriteProperty(QStringLiteral("FunctionDate"), m_functionDate, true);
}

} // namespace Varnel_Controles
