#include "input/kdMaskEdBox.h"

#include "input/MaskedField.h"
#include "input/modTeclas.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/LegacyColor.h"

#include <QKeyEvent>

namespace Varnel_Controles {

kdMaskEdBox::kdMaskEdBox(QWidget *parent)
    : UserControl(parent)
    , txtTexto(new MaskedField(this))
{
    txtTexto->setObjectName(QStringLiteral("txtTexto"));
    txtTexto->setMask(QStringLiteral("##/##/####"));
    txtTexto->setPromptChar(QStringLiteral(" "));
    txtTexto->setPromptInclude(false);
    setFocusProxy(txtTexto);
    setFocusPolicy(txtTexto->focusPolicy());
    connect(txtTexto, &TextField::KeyDown, this, &kdMaskEdBox::onKeyDown);
    connect(txtTexto, &TextField::KeyPress, this, &kdMaskEdBox::onKeyPress);
    connect(txtTexto, &TextField::KeyUp, this, &kdMaskEdBox::KeyUp);
    connect(txtTexto, &TextField::Change, this, &kdMaskEdBox::Change);
    connect(txtTexto, &TextField::GotFocus, this, &kdMaskEdBox::onGotFocus);
    connect(txtTexto, &TextField::LostFocus, this, &kdMaskEdBox::onLostFocus);
    connect(txtTexto, &MaskedField::ValidationError, this, &kdMaskEdBox::ValidationError);
}

// The inner field loses the focus while it is destroyed: its events must not reach a control
// that is already half gone.
kdMaskEdBox::~kdMaskEdBox()
{
    txtTexto->disconnect(this);
}

quint32 kdMaskEdBox::BackColor() const { return txtTexto->BackColor(); }
void kdMaskEdBox::setBackColor(quint32 color) { txtTexto->setBackColor(color); notify("BackColor"); }
quint32 kdMaskEdBox::ForeColor() const { return txtTexto->ForeColor(); }
void kdMaskEdBox::setForeColor(quint32 color) { txtTexto->setForeColor(color); notify("ForeColor"); }
QFont kdMaskEdBox::Font() const { return txtTexto->font(); }
qint16 kdMaskEdBox::Appearance() const { return txtTexto->Appearance(); }
void kdMaskEdBox::setAppearance(qint16 value) { txtTexto->setAppearance(value); notify("Appearance"); }
qint16 kdMaskEdBox::BorderStyle() const { return txtTexto->BorderStyle(); }
void kdMaskEdBox::setBorderStyle(qint16 value) { txtTexto->setBorderStyle(value); notify("BorderStyle"); }
void kdMaskEdBox::Refresh() { txtTexto->repaint(); }
bool kdMaskEdBox::AllowPrompt() const { return txtTexto->AllowPrompt(); }
void kdMaskEdBox::setAllowPrompt(bool value) { txtTexto->setAllowPrompt(value); notify("AllowPrompt"); }
bool kdMaskEdBox::AutoTab() const { return txtTexto->AutoTab(); }
void kdMaskEdBox::setAutoTab(bool value) { txtTexto->setAutoTab(value); notify("AutoTab"); }
void kdMaskEdBox::setCausesValidation(bool value) { m_causesValidation = value; notify("CausesValidation"); }
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
QString kdMaskEdBox::ToolTipText() const { return txtTexto->toolTip(); }
void kdMaskEdBox::setToolTipText(const QString &value) { txtTexto->setToolTip(value); notify("ToolTipText"); }
void kdMaskEdBox::setWhatsThisHelpID(qint32 value) { m_whatsThisHelpId = value; notify("WhatsThisHelpID"); }
void kdMaskEdBox::setSelectionOnFocus(bool value) { m_selectionOnFocus = value; notify("SelectionOnFocus"); }
void kdMaskEdBox::setChangeColorOnFocus(bool value) { m_changeColorOnFocus = value; notify("ChangeColorOnFocus"); }
void kdMaskEdBox::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdMaskEdBox::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

void kdMaskEdBox::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
        modTeclas::MoveFocusPrevious();
    emit KeyDown(keyCode, shift);
}

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
    emit KeyPress(keyAscii);
}

void kdMaskEdBox::onGotFocus()
{
    txtTexto->setCursorPosition(0);
    if (m_selectionOnFocus && !txtTexto->maskedText().isEmpty())
        txtTexto->setSelection(0, int(txtTexto->FormattedText().size()));
    if (m_changeColorOnFocus && Enabled()) {
        txtTexto->setBackColor(LegacyColor::FocusBackColor);
        Refresh();
    }
}

void kdMaskEdBox::onLostFocus()
{
    if (m_changeColorOnFocus && Enabled())
        txtTexto->setBackColor(LegacyColor::WindowBackground);
}

void kdMaskEdBox::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_keyEnterChangeFocus)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

void kdMaskEdBox::enabledChanged(bool enabled)
{
    txtTexto->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    Refresh();
}

void kdMaskEdBox::fontChanged() { txtTexto->setFont(font()); }

void kdMaskEdBox::resizeEvent(QResizeEvent *event)
{
    txtTexto->setGeometry(0, 0, width(), height());
    UserControl::resizeEvent(event);
}

QSize kdMaskEdBox::sizeHint() const { return txtTexto->sizeHint(); }

void kdMaskEdBox::ReadProperties(const PropertyBag &bag)
{
    txtTexto->setBackColor(quint32(bag.ReadProperty(QStringLiteral("BackColor"), LegacyColor::WindowBackground).toLongLong()));
    txtTexto->setForeColor(quint32(bag.ReadProperty(QStringLiteral("ForeColor"), LegacyColor::WindowText).toLongLong()));
    const bool enabled = readBool(bag, "Enabled", true);
    readFont(bag);
    txtTexto->setAppearance(qint16(bag.ReadProperty(QStringLiteral("Appearance"), 1).toInt()));
    txtTexto->setBorderStyle(qint16(bag.ReadProperty(QStringLiteral("BorderStyle"), 1).toInt()));
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
    applyEnabled(enabled); // the persisted back colour gives way to the enabled state's
}

void kdMaskEdBox::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("BackColor"), QVariant::fromValue(txtTexto->BackColor()), LegacyColor::WindowBackground);
    bag.WriteProperty(QStringLiteral("ForeColor"), QVariant::fromValue(txtTexto->ForeColor()), LegacyColor::WindowText);
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    writeFont(bag, Font());
    bag.WriteProperty(QStringLiteral("Appearance"), Appearance(), 1);
    bag.WriteProperty(QStringLiteral("BorderStyle"), BorderStyle(), 1);
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
