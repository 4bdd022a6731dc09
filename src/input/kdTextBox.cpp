#include "input/kdTextBox.h"

#include "input/TextBoxKeyFilter.h"
#include "input/modTeclas.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"

#include <QEvent>
#include <QKeyEvent>

namespace Varnel_Controles {

kdTextBox::kdTextBox(QWidget *parent)
    : UserControl(parent)
    , txtTexto(new TextField(this))
{
    txtTexto->setObjectName(QStringLiteral("txtTexto"));
    setFocusProxy(txtTexto);
    setFocusPolicy(txtTexto->focusPolicy());
    setAttribute(Qt::WA_InputMethodEnabled);

    connect(txtTexto, &TextField::KeyDown, this, &kdTextBox::onKeyDown);
    connect(txtTexto, &TextField::KeyPress, this, &kdTextBox::onKeyPress);
    connect(txtTexto, &TextField::KeyUp, this, &kdTextBox::KeyUp);
    connect(txtTexto, &TextField::MouseDown, this, &kdTextBox::MouseDown);
    connect(txtTexto, &TextField::MouseMove, this, &kdTextBox::MouseMove);
    connect(txtTexto, &TextField::MouseUp, this, &kdTextBox::MouseUp);
    connect(txtTexto, &TextField::Click, this, &kdTextBox::Click);
    connect(txtTexto, &TextField::DblClick, this, &kdTextBox::DblClick);
    connect(txtTexto, &TextField::Change, this, &kdTextBox::Change);
    connect(txtTexto, &TextField::GotFocus, this, &kdTextBox::onGotFocus);
    connect(txtTexto, &TextField::LostFocus, this, &kdTextBox::onLostFocus);
}

// The inner field loses the focus while it is destroyed: its events must not reach a control
// that is already half gone.
kdTextBox::~kdTextBox()
{
    txtTexto->disconnect(this);
}

void kdTextBox::SelectText()
{
    txtTexto->setSelection(0, int(txtTexto->text().size()));
}

quint32 kdTextBox::BackColor() const { return txtTexto->BackColor(); }
void kdTextBox::setBackColor(quint32 color) { txtTexto->setBackColor(color); notify("BackColor"); }
quint32 kdTextBox::ForeColor() const { return txtTexto->ForeColor(); }
void kdTextBox::setForeColor(quint32 color) { txtTexto->setForeColor(color); notify("ForeColor"); }
QFont kdTextBox::Font() const { return txtTexto->font(); }
qint16 kdTextBox::Appearance() const { return txtTexto->Appearance(); }
void kdTextBox::setAppearance(qint16 value) { txtTexto->setAppearance(value); notify("Appearance"); }
qint16 kdTextBox::BorderStyle() const { return txtTexto->BorderStyle(); }
void kdTextBox::setBorderStyle(qint16 value) { txtTexto->setBorderStyle(value); notify("BorderStyle"); }
void kdTextBox::Refresh() { txtTexto->repaint(); }
qint16 kdTextBox::Alignment() const { return txtTexto->Alignment(); }
void kdTextBox::setAlignment(qint16 value) { txtTexto->setAlignment(value); notify("Alignment"); }
void kdTextBox::setCausesValidation(bool value) { m_causesValidation = value; notify("CausesValidation"); }
bool kdTextBox::Locked() const { return txtTexto->isReadOnly(); }
void kdTextBox::setLocked(bool value) { txtTexto->setReadOnly(value); notify("Locked"); }
qint32 kdTextBox::MaxLength() const { return txtTexto->MaxLength(); }
void kdTextBox::setMaxLength(qint32 value) { txtTexto->setMaxLength(value); notify("MaxLength"); }
QString kdTextBox::PasswordChar() const { return txtTexto->PasswordChar(); }
void kdTextBox::setPasswordChar(const QString &value) { txtTexto->setPasswordChar(value); notify("PasswordChar"); }
bool kdTextBox::RightToLeft() const { return txtTexto->layoutDirection() == Qt::RightToLeft; }
void kdTextBox::setRightToLeft(bool value)
{
    txtTexto->setLayoutDirection(value ? Qt::RightToLeft : Qt::LeftToRight);
    notify("RightToLeft");
}
qint32 kdTextBox::SelStart() const { return txtTexto->SelStart(); }
void kdTextBox::setSelStart(qint32 value) { txtTexto->setSelStart(value); notify("SelStart"); }
qint32 kdTextBox::SelLength() const { return txtTexto->SelLength(); }
void kdTextBox::setSelLength(qint32 value) { txtTexto->setSelLength(value); notify("SelLength"); }
QString kdTextBox::ToolTipText() const { return txtTexto->toolTip(); }
void kdTextBox::setToolTipText(const QString &value) { txtTexto->setToolTip(value); notify("ToolTipText"); }

QString kdTextBox::Text() const { return Legacy::Trim(txtTexto->text()); }
void kdTextBox::setText(const QString &value) { txtTexto->setText(Legacy::Trim(value)); notify("Text"); }
void kdTextBox::setAceptDecimals(bool value) { m_aceptDecimals = value; notify("AceptDecimals"); }
void kdTextBox::setTypeOfValues(qint32 value) { m_typeOfValues = value; notify("TypeOfValues"); }
void kdTextBox::setAceptNegative(bool value) { m_aceptNegative = value; notify("AceptNegative"); }
void kdTextBox::setConvertToUpper(bool value) { m_convertToUpper = value; notify("ConvertToUpper"); }
void kdTextBox::setSelectionOnFocus(bool value) { m_selectionOnFocus = value; notify("SelectionOnFocus"); }
void kdTextBox::setChangeColorOnFocus(bool value) { m_changeColorOnFocus = value; notify("ChangeColorOnFocus"); }
void kdTextBox::setInitValue(const QString &value) { m_initValue = value; notify("InitValue"); }
void kdTextBox::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdTextBox::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

double kdTextBox::Value() const
{
    return Legacy::CDbl(txtTexto->text());
}

void kdTextBox::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
        modTeclas::MoveFocusPrevious();
    emit KeyDown(keyCode, shift);
}

void kdTextBox::onKeyPress(qint16 &keyAscii)
{
    const TextBoxKeyFilter::Settings settings{m_typeOfValues, m_aceptDecimals, m_aceptNegative,
                                              m_convertToUpper, m_keyEnterChangeFocus};
    const auto outcome = TextBoxKeyFilter::filter(keyAscii, settings,
                                                  {txtTexto->text(), txtTexto->selectedText()});
    if (outcome.moveFocusNext)
        modTeclas::MoveFocusNext();
    if (outcome.text) {
        txtTexto->setText(*outcome.text);
        txtTexto->setCursorPosition(int(outcome.text->size()));
    }
    keyAscii = outcome.keyAscii;
    emit KeyPress(keyAscii);
}

void kdTextBox::onGotFocus()
{
    if (m_selectionOnFocus) {
        bool numeric = false;
        const double value = Legacy::CDbl(txtTexto->text(), &numeric);
        if (numeric && value == 0) {
            txtTexto->setText(QString());
            txtTexto->setCursorPosition(0);
        } else {
            SelectText();
        }
    }
    if (m_changeColorOnFocus && Enabled()) {
        txtTexto->setBackColor(LegacyColor::FocusBackColor);
        Refresh();
    }
}

void kdTextBox::onLostFocus()
{
    if (m_changeColorOnFocus && Enabled())
        txtTexto->setBackColor(LegacyColor::WindowBackground);
}

// Enabled: the window colour (any host colour is replaced); disabled: light grey.
void kdTextBox::enabledChanged(bool enabled)
{
    txtTexto->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    Refresh();
}

void kdTextBox::fontChanged()
{
    txtTexto->setFont(font());
}

void kdTextBox::keyPressEvent(QKeyEvent *event)
{
    // Enter that moved the focus on is not handed to the host form (no default button).
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_keyEnterChangeFocus)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

void kdTextBox::resizeEvent(QResizeEvent *event)
{
    txtTexto->setGeometry(0, 0, width(), height());
    UserControl::resizeEvent(event);
}

QSize kdTextBox::sizeHint() const
{
    return txtTexto->sizeHint();
}

void kdTextBox::ReadProperties(const PropertyBag &bag)
{
    txtTexto->setBackColor(quint32(bag.ReadProperty("BackColor", LegacyColor::WindowBackground).toLongLong()));
    txtTexto->setForeColor(quint32(bag.ReadProperty("ForeColor", LegacyColor::WindowText).toLongLong()));
    const bool enabled = readBool(bag, "Enabled", true);
    readFont(bag);
    txtTexto->setAppearance(qint16(bag.ReadProperty("Appearance", 1).toInt()));
    txtTexto->setBorderStyle(qint16(bag.ReadProperty("BorderStyle", 1).toInt()));
    txtTexto->setAlignment(qint16(bag.ReadProperty("Alignment", 0).toInt()));
    m_causesValidation = readBool(bag, "CausesValidation", true);
    txtTexto->setReadOnly(readBool(bag, "Locked", false));
    txtTexto->setMaxLength(bag.ReadProperty("MaxLength", 0).toInt());
    txtTexto->setPasswordChar(bag.ReadProperty("PasswordChar", QString()).toString());
    txtTexto->setLayoutDirection(readBool(bag, "RightToLeft", false) ? Qt::RightToLeft : Qt::LeftToRight);
    txtTexto->setSelStart(bag.ReadProperty("SelStart", 0).toInt());
    txtTexto->setSelLength(bag.ReadProperty("SelLength", 0).toInt());
    txtTexto->setText(bag.ReadProperty("Text", QString()).toString());
    txtTexto->setToolTip(bag.ReadProperty("ToolTipText", QString()).toString());
    m_aceptDecimals = readBool(bag, "AceptDecimals", false);
    m_typeOfValues = bag.ReadProperty("TypeOfValues", 0).toInt();
    m_aceptNegative = readBool(bag, "AceptNegative", false);
    m_selectionOnFocus = readBool(bag, "SelectionOnFocus", true);
    m_changeColorOnFocus = readBool(bag, "ChangeColorOnFocus", true);
    m_convertToUpper = readBool(bag, "ConvertToUpper", true);
    m_initValue = bag.ReadProperty("InitValue", QString()).toString();
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);

    // The persisted back colour always gives way to the enabled state's colour.
    applyEnabled(enabled);
}

void kdTextBox::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty("BackColor", QVariant::fromValue(txtTexto->BackColor()), LegacyColor::WindowBackground);
    bag.WriteProperty("ForeColor", QVariant::fromValue(txtTexto->ForeColor()), LegacyColor::WindowText);
    bag.WriteProperty("Enabled", Enabled(), true);
    writeFont(bag, Font());
    bag.WriteProperty("Appearance", Appearance(), 1);
    bag.WriteProperty("BorderStyle", BorderStyle(), 1);
    bag.WriteProperty("Alignment", Alignment(), 0);
    bag.WriteProperty("CausesValidation", m_causesValidation, true);
    bag.WriteProperty("Locked", Locked(), false);
    bag.WriteProperty("MaxLength", MaxLength(), 0);
    bag.WriteProperty("PasswordChar", PasswordChar(), QString());
    bag.WriteProperty("RightToLeft", RightToLeft(), false);
    bag.WriteProperty("SelStart", SelStart(), 0);
    bag.WriteProperty("SelLength", SelLength(), 0);
    bag.WriteProperty("Text", txtTexto->text(), QString());
    bag.WriteProperty("ToolTipText", ToolTipText(), QString());
    // Written with their own types against 16-bit defaults: True (-1) never equals 1.
    bag.WriteProperty("AceptDecimals", m_aceptDecimals, 0);
    bag.WriteProperty("TypeOfValues", m_typeOfValues, 0);
    bag.WriteProperty("AceptNegative", m_aceptNegative, 0);
    bag.WriteProperty("SelectionOnFocus", m_selectionOnFocus, 1);
    bag.WriteProperty("ChangeColorOnFocus", m_changeColorOnFocus, 1);
    bag.WriteProperty("ConvertToUpper", m_convertToUpper, 1);
    bag.WriteProperty("InitValue", m_initValue, QString());
    bag.WriteProperty("KeyUpChangeFocus", m_keyUpChangeFocus, true);
    bag.WriteProperty("KeyEnterChangeFocus", m_keyEnterChangeFocus, true);
}

} // namespace Varnel_Controles
