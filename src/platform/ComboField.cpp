#include "platform/ComboField.h"

#include "platform/KeyCodes.h"
#include "platform/LegacyColor.h"

#include <QKeyEvent>

namespace Varnel_Controles {

ComboField::ComboField(QWidget *parent)
    : QComboBox(parent)
    , m_backColor(LegacyColor::WindowBackground)
    , m_foreColor(LegacyColor::WindowText)
{
    // A choice made with the mouse or the keyboard is a click, as in a list box.
    connect(this, &QComboBox::activated, this, [this] { Q_EMIT Click(); });
    applyColors();
}

void ComboField::setBackColor(quint32 color)
{
    m_backColor = color;
    applyColors();
}

void ComboField::setForeColor(quint32 color)
{
    m_foreColor = color;
    applyColors();
}

void ComboField::applyColors()
{
    QPalette p = palette();
    for (auto group : {QPalette::Active, QPalette::Inactive}) {
        p.setColor(group, QPalette::Base, LegacyColor::toQColor(m_backColor));
        p.setColor(group, QPalette::Button, LegacyColor::toQColor(m_backColor));
        p.setColor(group, QPalette::Text, LegacyColor::toQColor(m_foreColor));
        p.setColor(group, QPalette::ButtonText, LegacyColor::toQColor(m_foreColor));
    }
    setPalette(p);
}

void ComboField::keyPressEvent(QKeyEvent *event)
{
    qint16 keyCode = KeyCodes::keyCode(event);
    qint16 shift = KeyCodes::shiftState(event);
    Q_EMIT KeyDown(keyCode, shift);
    qint16 keyAscii = KeyCodes::keyAscii(event);
    if (keyAscii != 0) {
        Q_EMIT KeyPress(keyAscii);
        if (keyAscii == 0 || keyAscii == 13) { // Enter was the control's (it moved the focus)
            event->accept();
            return;
        }
    }
    if (keyCode == 0)
        event->accept();
    else
        QComboBox::keyPressEvent(event);
}

void ComboField::keyReleaseEvent(QKeyEvent *event)
{
    qint16 keyCode = KeyCodes::keyCode(event);
    qint16 shift = KeyCodes::shiftState(event);
    Q_EMIT KeyUp(keyCode, shift);
    QComboBox::keyReleaseEvent(event);
}

void ComboField::mouseDoubleClickEvent(QMouseEvent *event)
{
    QComboBox::mouseDoubleClickEvent(event);
    Q_EMIT DblClick();
}

} // namespace Varnel_Controles
