#include "input/kdCheckBox.h"

#include "input/modTeclas.h"
#include "platform/KeyCodes.h"

#include <QCheckBox>
#include <QKeyEvent>

namespace Varnel_Controles {

kdCheckBox::kdCheckBox(QWidget *parent)
    : UserControl(parent)
    , chkCasilla(new QCheckBox(this))
{
    chkCasilla->setObjectName(QStringLiteral("chkCasilla"));
    setInnerField(chkCasilla);
    connect(chkCasilla, &QCheckBox::toggled, this, [this] { Q_EMIT Change(); });
    connect(chkCasilla, &QCheckBox::clicked, this, &kdCheckBox::Click);
}

kdCheckBox::~kdCheckBox()
{
    chkCasilla->disconnect(this);
}

qint16 kdCheckBox::Value() const { return chkCasilla->isChecked() ? 1 : 0; }

void kdCheckBox::setValue(qint16 value)
{
    chkCasilla->setChecked(value != 0);
    notify("Value");
}

QString kdCheckBox::Caption() const { return chkCasilla->text(); }

void kdCheckBox::setCaption(const QString &value)
{
    chkCasilla->setText(value);
    notify("Caption");
}

void kdCheckBox::setKeyEnterChangeFocus(bool value) { m_keyEnterChangeFocus = value; notify("KeyEnterChangeFocus"); }
void kdCheckBox::setKeyUpChangeFocus(bool value) { m_keyUpChangeFocus = value; notify("KeyUpChangeFocus"); }

bool kdCheckBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == chkCasilla && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        qint16 keyCode = KeyCodes::keyCode(key);
        qint16 shift = KeyCodes::shiftState(key);
        if (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus)
            modTeclas::MoveFocusPrevious();
        Q_EMIT KeyDown(keyCode, shift);
        if (keyCode == 0 || (keyCode == KeyCodes::vbKeyUp && m_keyUpChangeFocus))
            return true;
        qint16 keyAscii = KeyCodes::keyAscii(key);
        if (keyAscii == 0)
            return UserControl::eventFilter(watched, event);
        if (keyAscii == 13 && m_keyEnterChangeFocus)
            modTeclas::MoveFocusNext();
        Q_EMIT KeyPress(keyAscii);
        // Enter is the control's (it never presses the host form's default button).
        return keyAscii == 0 || keyAscii == 13;
    }
    if (watched == chkCasilla && event->type() == QEvent::KeyRelease) {
        auto *key = static_cast<QKeyEvent *>(event);
        qint16 keyCode = KeyCodes::keyCode(key);
        qint16 shift = KeyCodes::shiftState(key);
        Q_EMIT KeyUp(keyCode, shift);
    }
    return UserControl::eventFilter(watched, event);
}

void kdCheckBox::resizeEvent(QResizeEvent *event)
{
    chkCasilla->setGeometry(rect());
    UserControl::resizeEvent(event);
}

QSize kdCheckBox::sizeHint() const { return chkCasilla->sizeHint(); }

void kdCheckBox::ReadProperties(const PropertyBag &bag)
{
    const bool enabled = readBool(bag, "Enabled", true);
    chkCasilla->setText(bag.ReadProperty(QStringLiteral("Caption"), QString()).toString());
    chkCasilla->setChecked(bag.ReadProperty(QStringLiteral("Value"), 0).toInt() != 0);
    m_keyEnterChangeFocus = readBool(bag, "KeyEnterChangeFocus", true);
    m_keyUpChangeFocus = readBool(bag, "KeyUpChangeFocus", true);
    applyEnabled(enabled);
}

void kdCheckBox::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("Caption"), Caption(), QString());
    bag.WriteProperty(QStringLiteral("Value"), Value(), 0);
    bag.WriteProperty(QStringLiteral("Enabled"), Enabled(), true);
    bag.WriteProperty(QStringLiteral("KeyEnterChangeFocus"), m_keyEnterChangeFocus, true);
    bag.WriteProperty(QStringLiteral("KeyUpChangeFocus"), m_keyUpChangeFocus, true);
}

} // namespace Varnel_Controles
