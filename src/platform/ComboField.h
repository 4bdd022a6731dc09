// The drop-down list inside the combo controls (`cboImpresoras`, `cboDisp`). It raises the
// legacy events with by-reference arguments before its own handling, and paints its legacy
// back and fore colours.
#pragma once

#include "varnel_controles_export.h"

#include <QComboBox>

namespace Varnel_Controles {

class VARNEL_CONTROLES_TESTS_EXPORT ComboField : public QComboBox
{
    Q_OBJECT

public:
    explicit ComboField(QWidget *parent = nullptr);

    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 color);
    quint32 ForeColor() const { return m_foreColor; }
    void setForeColor(quint32 color);
    qint16 Appearance() const { return m_appearance; }
    void setAppearance(qint16 value) { m_appearance = value; }

Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void applyColors();

    quint32 m_backColor;
    quint32 m_foreColor;
    qint16 m_appearance = 1;
};

} // namespace Varnel_Controles
