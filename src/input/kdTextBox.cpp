#include "input/kdTextBox.h"

#include "input/TextBoxKeyFilter.h"
#include "input/modTeclas.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"

#include <limits>

namespace Varnel_Controles {

kdTextBox::kdTextBox(QWidget *parent)
    : kdTextControl(new TextField, parent)
{
    setAttribute(Qt::WA_InputMethodEnabled);
    connect(m_field, &TextField::MouseDown, this, &kdTextBox::MouseDown);
    connect(m_field, &TextField::MouseMove, this, &kdTextBox::MouseMove);
    connect(m_field, &TextField::MouseUp, this, &kdTextBox::MouseUp);
    connect(m_field, &TextField::Click, this, &kdTextBox::Click);
    connect(m_field, &TextField::DblClick, this, &kdTextBox::DblClick);
}

void kdTextBox::SelectText()
{
    m_field->setSelection(0, int(m_field->text().size()));
}

qint16 kdTextBox::Alignment() const { return m_field->Alignment(); }
void kdTextBox::setAlignment(qint16 value) { m_field->setAlignment(value); notify("Alignment"); }
bool kdTextBox::Locked() const { return m_field->isReadOnly(); }
void kdTextBox::setLocked(bool value) { m_field->setReadOnly(value); notify("Locked"); }
qint32 kdTextBox::MaxLength() const { return m_field->MaxLength(); }
void kdTextBox::setMaxLength(qint32 value) { m_field->setMaxLength(value); notify("MaxLength"); }
QString kdTextBox::PasswordChar() const { return m_field->PasswordChar(); }
void kdTextBox::setPasswordChar(const QString &value) { m_field->setPasswordChar(value); notify("PasswordChar"); }
bool kdTextBox::RightToLeft() const { return m_field->layoutDirection() == Qt::RightToLeft; }
void kdTextBox::setRightToLeft(bool value)
{
    m_field->setLayoutDirection(value ? Qt::RightToLeft : Qt::LeftToRight);
    notify("RightToLeft");
}
qint32 kdTextBox::SelStart() const { return m_field->SelStart(); }
void kdTextBox::setSelStart(qint32 value) { m_field->setSelStart(value); notify("SelStart"); }
qint32 kdTextBox::SelLength() const { return m_field->SelLength(); }
void kdTextBox::setSelLength(qint32 value) { m_field->setSelLength(value); notify("SelLength"); }

QString kdTextBox::Text() const { return Legacy::Trim(m_field->text()); }
void kdTextBox::setText(const QString &value) { m_field->setText(Legacy::Trim(value)); notify("Text"); }
void kdTextBox::setAceptDecimals(bool value) { m_aceptDecimals = value; notify("AceptDecimals"); }
void kdTextBox::setTypeOfValues(qint32 value) { m_typeOfValues = value; notify("TypeOfValues"); }
void kdTextBox::setAceptNegative(bool value) { m_aceptNegative = value; notify("AceptNegative"); }
void kdTextBox::setConvertToUpper(bool value) { m_convertToUpper = value; notify("ConvertToUpper"); }
void kdTextBox::setInitValue(const QString &value) { m_initValue = value; notify("InitValue"); }

double kdTextBox::Value() const
{
    return Legacy::CDbl(m_field->text());
}

void kdTextBox::onKeyPress(qint16 &keyAscii)
{
    const TextBoxKeyFilter::Settings settings{m_typeOfValues, m_aceptDecimals, m_aceptNegative,
                                              m_convertToUpper, m_keyEnterChangeFocus};
    const auto outcome = TextBoxKeyFilter::filter(keyAscii, settings, {m_field->text(), m_field->selectedText()});
    if (outcome.moveFocusNext)
        modTeclas::MoveFocusNext();
    if (outcome.text) {
        m_field->setText(*outcome.text);
        m_field->setCursorPosition(int(outcome.text->size()));
    }
    keyAscii = outcome.keyAscii;
    Q_EMIT KeyPress(keyAscii);
}

void kdTextBox::selectOnFocus()
{
    bool numeric = false;
    const double value = Legacy::CDbl(m_field->text(), &numeric);
    if (numeric && value == 0) {
        m_field->setText(QString()); // raises Change
        m_field->setCursorPosition(0);
    } else {
        SelectText();
    }
}

void kdTextBox::ReadProperties(const PropertyBag &bag)
{
    bag.requireRange(QStringLiteral("Alignment"), LeftJustify, Center);
    for (const char *key : {"MaxLength", "SelStart", "SelLength"})
        bag.requireRange(QString::fromLatin1(key), 0, std::numeric_limits<qint32>::max());
    const bool enabled = readLook(bag);
    m_field->setAlignment(qint16(bag.ReadProperty(QStringLiteral("Alignment"), 0).toInt()));
    m_causesValidation = readBool(bag, "CausesValidation", true);
    m_field->setReadOnly(readBool(bag, "Locked", false));
    m_field->setMaxLength(bag.ReadProperty(QStringLiteral("MaxLength"), 0).toInt());
    m_field->setPasswordChar(bag.ReadProperty(QStringLiteral("PasswordChar"), QString()).toString());
    m_field->setLayoutDirection(readBool(bag, "RightToLeft", false) ? Qt::RightToLeft : Qt::LeftToRight);
    m_field->setSelStart(bag.ReadProperty(QStringLiteral("SelStart"), 0).toInt());
    m_field->setSelLength(bag.ReadProperty(QStringLiteral("SelLength"), 0).toInt());
    m_field->setText(bag.ReadProperty(QStringLiteral("Text"), QString()).toString());
    m_field->setToolTip(bag.ReadProperty(QStringLiteral("ToolTipText"), QString()).toString());
    m_aceptDecimals = readBool(bag, "AceptDecimals", false);
    m_typeOfValues = bag.ReadProperty(QStringLiteral("TypeOfValues"), 0).toInt();
    m_aceptNegative = readBool(bag, "AceptNegative", false);
    m_selectionOnFocus = readBool(bag, "SelectionOnFocus", true);
    m_changeColorOnFocus = readBool(bag, "ChangeColorOnFocus", true);
    m_convertToUpper = readBool(bag, "ConvertToUpper", true);
    m_initValue = bag.ReadProperty(QStringLiteral("InitValue"), QString()).toString();
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    finishLoad(enabled);
}

void kdTextBox::WriteProperties(PropertyBag &bag) const
{
    writeLook(bag);
    bag.WriteProperty(QStringLiteral("Alignment"), Alignment(), 0);
    bag.WriteProperty(QStringLiteral("CausesValidation"), m_causesValidation, true);
    bag.WriteProperty(QStringLiteral("Locked"), Locked(), false);
    bag.WriteProperty(QStringLiteral("MaxLength"), MaxLength(), 0);
    bag.WriteProperty(QStringLiteral("PasswordChar"), PasswordChar(), QString());
    bag.WriteProperty(QStringLiteral("RightToLeft"), RightToLeft(), false);
    bag.WriteProperty(QStringLiteral("SelStart"), SelStart(), 0);
    bag.WriteProperty(QStringLiteral("SelLength"), SelLength(), 0);
    bag.WriteProperty(QStringLiteral("Text"), m_field->text(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText"), ToolTipText(), QString());
    // Written with their own types against 16-bit defaults: True (-1) never equals 1.
    bag.WriteProperty(QStringLiteral("AceptDecimals"), m_aceptDecimals, 0);
    bag.WriteProperty(QStringLiteral("TypeOfValues"), m_typeOfValues, 0);
    bag.WriteProperty(QStringLiteral("AceptNegative"), m_aceptNegative, 0);
    bag.WriteProperty(QStringLiteral("SelectionOnFocus"), m_selectionOnFocus, 1);
    bag.WriteProperty(QStringLiteral("ChangeColorOnFocus"), m_changeColorOnFocus, 1);
    bag.WriteProperty(QStringLiteral("ConvertToUpper"), m_convertToUpper, 1);
    bag.WriteProperty(QStringLiteral("InitValue"), m_initValue, QString());
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
}

} // namespace Varnel_Controles
