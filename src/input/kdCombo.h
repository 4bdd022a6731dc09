// What the two combo controls share: the drop-down list inside, its colours, font and
// appearance forwarded, its events re-raised, Enter moving on and Shift+Up moving back
// (Up alone moves through the list), and the control's height following the list's.
#pragma once

#include "varnel_controles_export.h"

#include "UserControl.h"

namespace Varnel_Controles {

class ComboField;

class VARNEL_CONTROLES_EXPORT kdCombo : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(qint16 Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(QString Text READ Text NOTIFY ListIndexChanged)
    Q_PROPERTY(qint16 ListCount READ ListCount)

public:
    ~kdCombo() override;

    quint32 BackColor() const;
    void setBackColor(quint32 color);
    quint32 ForeColor() const;
    void setForeColor(quint32 color);
    QFont Font() const;
    qint16 Appearance() const;
    void setAppearance(qint16 value);
    /// Repaints the list.
    Q_INVOKABLE void Refresh();
    /// The selected entry's text ("" when nothing is selected).
    QString Text() const;
    /// The text of entry `index` (from 0).
    Q_INVOKABLE QString List(qint32 index) const;
    qint16 ListCount() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);
    /// The selected entry changed, chosen by the user or set by the program.
    void ListIndexChanged();

protected:
    kdCombo(const QString &comboName, QWidget *parent);

    /// "BackColor", "ForeColor", [ "Enabled" ], "Font", "Appearance", in that order.
    void readLook(const PropertyBag &bag, bool withEnabled);
    void writeLook(PropertyBag &bag, bool withEnabled) const;
    void resizeEvent(QResizeEvent *event) override;
    void fontChanged() override;

    ComboField *m_combo;

private:
    void onKeyDown(qint16 &keyCode, qint16 &shift);
    void onKeyPress(qint16 &keyAscii);
};

} // namespace Varnel_Controles
