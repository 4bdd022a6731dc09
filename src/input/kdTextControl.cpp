#include "input/kdTextControl.h"

#include "input/modTeclas.h"
#include "platform/Enums.h"
#include "platform/KeyCodes.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"

#include <QKeyEvent>

namespace Varnel_Controles {

kdTextControl::kdTextControl(TextField *field, QWidget *parent)
    : UserControl(parent)
    , m_field(field)
{
    m_field->setParent(this);
    m_field->setObjectName(QStringLiteral("txtTexto"));
    setInnerField(m_field);
    connect(m_field, &TextField::KeyDown, this, &kdTextControl::onKeyDown);
    connect(m_field, &TextField::KeyPress, this, [this](qint16 &keyAscii) { onKeyPress(keyAscii); });
    connect(m_field, &TextField::KeyUp, this, &kdTextControl::KeyUp);
    connect(m_field, &TextField::Change, this, &kdTextControl::Change);
    connect(m_field, &TextField::GotFocus, this, &kdTextControl::onGotFocus);
    connect(m_field, &TextField::LostFocus, this, &kdTextControl::onLostFocus);
}

// The inner field loses the focus while it is destroyed: its events must not reach a control
// that is already half gone.
kdTextControl::~kdTextControl()
{
    m_field->disconnect(this);
}

quint32 kdTextControl::BackColor() const { return m_field->BackColor(); }
void kdTextControl::setBackColor(quint32 color) { m_field->setBackColor(color); notify("BackColor"); }
quint32 kdTextControl::ForeColor() const { return m_field->ForeColor(); }
void kdTextControl::setForeColor(quint32 color) { m_field->setForeColor(color); notify("ForeColor"); }
QFont kdTextControl::Font() const { return m_field->font(); }
qint16 kdTextControl::Appearance() const { return m_field->Appearance(); }
void kdTextControl::setAppearance(qint16 value) { m_field->setAppearance(value); notify("Appearance"); }
qint16 kdTextControl::BorderStyle() const { return m_field->BorderStyle(); }
void kdTextControl::setBorderStyle(qint16 value) { m_field->setBorderStyle(value); notify("BorderStyle"); }
void kdTextControl::Refresh() { m_field->repaint(); }
void kdTextControl::setCausesValidation(bool value) { m_causesValidation = value; notify("CausesValidation"); }
QString kdTextControl::ToolTipText() const { return m_field->toolTip(); }
void kdTextControl::setToolTipText(const QString &value) { m_field->setToolTip(value); notify("ToolTipText"); }
void kdTextControl::setSelectionOnFocus(bool value) { m_selectionOnFocus = value; notify("SelectionOnFocus"); }
void kdTextControl::setChangeColorOnFocus(bool value) { m_changeColorOnFocus = value; notify("ChangeColorOnFocus"); }
void kdTextControl::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdTextControl::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

void kdTextControl::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
        modTeclas::MoveFocusPrevious();
    Q_EMIT KeyDown(keyCode, shift);
}

void kdTextControl::onGotFocus()
{
    if (m_selectionOnFocus)
        selectOnFocus();
    if (m_changeColorOnFocus && Enabled()) {
        m_field->setBackColor(LegacyColor::FocusBackColor);
        Refresh();
    }
}

void kdTextControl::onLostFocus()
{
    if (m_changeColorOnFocus && Enabled())
        m_field->setBackColor(LegacyColor::WindowBackground);
}

// Enabled: the window colour (any host colour is replaced); disabled: light grey.
void kdTextControl::enabledChanged(bool enabled)
{
    m_field->setBackColor(enabled ? LegacyColor::WindowBackground : LegacyColor::DisabledBackColor);
    Refresh();
}

void kdTextControl::fontChanged() { m_field->setFont(font()); }

void kdTextControl::keyPressEvent(QKeyEvent *event)
{
    // Enter that moved the focus on is not handed to the host form (no default button).
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_keyEnterChangeFocus)
        event->accept();
    else
        UserControl::keyPressEvent(event);
}

void kdTextControl::resizeEvent(QResizeEvent *event)
{
    m_field->setGeometry(0, 0, width(), height());
    UserControl::resizeEvent(event);
}

QSize kdTextControl::sizeHint() const { return m_field->sizeHint(); }

bool kdTextControl::readLook(const PropertyBag &bag)
{
    bag.requireRange(QStringLiteral("Appearance"), Flat, ThreeD);
    bag.requireRange(QStringLiteral("BorderStyle"), None, FixedSingle);
    m_field->setBackColor(quint32(bag.ReadProperty(QStringLiteral("BackColor"), LegacyColor::WindowBackground).toLongLong()));
    m_field->setForeColor(quint32(bag.ReadProperty(QStringLiteral("ForeColor"), LegacyColor::WindowText).toLongLong()));
    const bool enabled = readBool(bag, "Enabled", true);
    readFont(bag);
    m_field->setAppearance(qint16(bag.ReadProperty(QStringLiteral("Appearance"), 1).toInt()));
    m_field->setBorderStyle(qint16(bag.ReadProperty(QStringLiteral("BorderStyle"), 1).toInt()));
    return enabled;
}

void kdTextControl::writeLook(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("BackColor"), QVariant::fromValue(BackColor()), LegacyColor::WindowBackground);
    bag.WriteProperty(QStringLiteral("ForeColor"), QVariant::fromValue(ForeColor()), LegacyColor::WindowText);
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    writeFont(bag, Font());
    bag.WriteProperty(QStringLiteral("Appearance"), Appearance(), 1);
    bag.WriteProperty(QStringLiteral("BorderStyle"), BorderStyle(), 1);
}

} // namespace Varnel_Controles
