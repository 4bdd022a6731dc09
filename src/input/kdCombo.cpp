#include "input/kdCombo.h"

#include "input/modTeclas.h"
#include "platform/ComboField.h"
#include "platform/Enums.h"
#include "platform/KeyCodes.h"
#include "platform/LegacyColor.h"

namespace Varnel_Controles {

kdCombo::kdCombo(const QString &comboName, QWidget *parent)
    : UserControl(parent)
    , m_combo(new ComboField(this))
{
    m_combo->setObjectName(comboName);
    setInnerField(m_combo);
    connect(m_combo, &ComboField::Click, this, &kdCombo::Click);
    connect(m_combo, &QComboBox::currentIndexChanged, this, &kdCombo::ListIndexChanged);
    connect(m_combo, &ComboField::DblClick, this, &kdCombo::DblClick);
    connect(m_combo, &ComboField::KeyDown, this, &kdCombo::onKeyDown);
    connect(m_combo, &ComboField::KeyPress, this, &kdCombo::onKeyPress);
    connect(m_combo, &ComboField::KeyUp, this, &kdCombo::KeyUp);
    setFixedHeight(m_combo->sizeHint().height());
}

kdCombo::~kdCombo()
{
    m_combo->disconnect(this);
}

quint32 kdCombo::BackColor() const { return m_combo->BackColor(); }
void kdCombo::setBackColor(quint32 color) { m_combo->setBackColor(color); notify("BackColor"); }
quint32 kdCombo::ForeColor() const { return m_combo->ForeColor(); }
void kdCombo::setForeColor(quint32 color) { m_combo->setForeColor(color); notify("ForeColor"); }
QFont kdCombo::Font() const { return m_combo->font(); }
qint16 kdCombo::Appearance() const { return m_combo->Appearance(); }
void kdCombo::setAppearance(qint16 value) { m_combo->setAppearance(value); notify("Appearance"); }
void kdCombo::Refresh() { m_combo->repaint(); }
QString kdCombo::Text() const { return m_combo->currentIndex() < 0 ? QString() : m_combo->currentText(); }
QString kdCombo::List(qint32 index) const { return m_combo->itemText(index); }
qint16 kdCombo::ListCount() const { return qint16(m_combo->count()); }

void kdCombo::onKeyDown(qint16 &keyCode, qint16 &shift)
{
    // Up alone moves through the list; Shift+Up (Shift alone) moves the focus back.
    if (keyCode == KeyCodes::vbKeyUp && shift == KeyCodes::ShiftMask)
        modTeclas::MoveFocusPrevious();
    Q_EMIT KeyDown(keyCode, shift);
}

void kdCombo::onKeyPress(qint16 &keyAscii)
{
    if (keyAscii == 13)
        modTeclas::MoveFocusNext();
    Q_EMIT KeyPress(keyAscii);
}

void kdCombo::fontChanged()
{
    setFixedHeight(m_combo->sizeHint().height());
}

void kdCombo::resizeEvent(QResizeEvent *event)
{
    m_combo->setGeometry(0, 0, width(), m_combo->sizeHint().height());
    UserControl::resizeEvent(event);
}

QSize kdCombo::sizeHint() const { return m_combo->sizeHint(); }

void kdCombo::readLook(const PropertyBag &bag, bool withEnabled)
{
    bag.requireRange(QStringLiteral("Appearance"), Flat, ThreeD);
    m_combo->setBackColor(quint32(bag.ReadProperty(QStringLiteral("BackColor"), LegacyColor::WindowBackground).toLongLong()));
    m_combo->setForeColor(quint32(bag.ReadProperty(QStringLiteral("ForeColor"), LegacyColor::WindowText).toLongLong()));
    if (withEnabled)
        applyEnabled(readBool(bag, "Enabled", true));
    readFont(bag);
    m_combo->setAppearance(qint16(bag.ReadProperty(QStringLiteral("Appearance"), 1).toInt()));
}

void kdCombo::writeLook(PropertyBag &bag, bool withEnabled) const
{
    bag.WriteProperty(QStringLiteral("BackColor"), QVariant::fromValue(BackColor()), LegacyColor::WindowBackground);
    bag.WriteProperty(QStringLiteral("ForeColor"), QVariant::fromValue(ForeColor()), LegacyColor::WindowText);
    if (withEnabled)
        bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    writeFont(bag, Font());
    bag.WriteProperty(QStringLiteral("Appearance"), Appearance(), 1);
}

} // namespace Varnel_Controles
