// kdImpresoras: the printers of the machine in a drop-down list (`cboImpresoras`), filled when
// the control is created, with the default printer selected. No printer: an empty, disabled list.
#pragma once

#include "varnel_controles_export.h"

#include "kdCombo.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdImpresoras : public kdCombo
{
    Q_OBJECT
    Q_PROPERTY(bool Sorted READ Sorted)
    Q_PROPERTY(qint16 ListIndex READ ListIndex WRITE setListIndex NOTIFY ListIndexChanged USER true)

public:
    explicit kdImpresoras(QWidget *parent = nullptr);

    /// The list is in the print system's order.
    bool Sorted() const { return false; }
    /// Replaces the text of entry `index` and notifies "List".
    Q_INVOKABLE void setList(qint32 index, const QString &text);
    /// The selected entry, -1 for none; setting it notifies "ListIndex".
    qint16 ListIndex() const;
    void setListIndex(qint16 index);

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

protected:
    void enabledChanged(bool enabled) override;

private:
    void fill();
};

} // namespace Varnel_Controles
