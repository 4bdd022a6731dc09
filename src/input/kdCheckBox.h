// kdCheckBox: a check box (`chkCasilla`) with the house keys: Enter moves the focus to the next
// control and Up arrow to the previous one (each while its flag is True), the legacy Value
// (0 unchecked, 1 checked) with a Change event whenever it changes, by the clerk or the program,
// and its caption (an "&" marks the access key). Space and a click tick and untick it.
#pragma once

#include "varnel_controles_export.h"

#include "UserControl.h"

class QCheckBox;

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdCheckBox : public UserControl
{
    Q_OBJECT
    Q_PROPERTY(qint16 Value READ Value WRITE setValue NOTIFY Change USER true)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool KeyEnterChangeFocus READ KeyEnterChangeFocus WRITE setKeyEnterChangeFocus)
    Q_PROPERTY(bool KeyUpChangeFocus READ KeyUpChangeFocus WRITE setKeyUpChangeFocus)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)

public:
    explicit kdCheckBox(QWidget *parent = nullptr);
    ~kdCheckBox() override;

    /// 1 ticked, 0 not; setting any value other than 0 ticks it.
    qint16 Value() const;
    void setValue(qint16 value);
    QString Caption() const;
    void setCaption(const QString &value);
    /// True by default.
    bool KeyEnterChangeFocus() const { return m_keyEnterChangeFocus; }
    void setKeyEnterChangeFocus(bool value);
    /// True by default.
    bool KeyUpChangeFocus() const { return m_keyUpChangeFocus; }
    void setKeyUpChangeFocus(bool value);

    /// "Caption" (""), "Value" (0), "Enabled", "KeyEnterChangeFocus", "KeyUpChangeFocus" (True).
    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// Value changed.
    void Change();
    /// The clerk ticked or unticked it (mouse, Space or the access key).
    void Click();
    /// After the control's own handling (Up arrow); a host that sets KeyCode to 0 keeps the key
    /// from the check box.
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    /// After the control's own handling (Enter); a host that sets KeyAscii to 0 keeps the key
    /// from the check box (Space then does not tick it).
    void KeyPress(qint16 &KeyAscii);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QCheckBox *chkCasilla;
    bool m_keyEnterChangeFocus = true;
    bool m_keyUpChangeFocus = true;
};

} // namespace Varnel_Controles
