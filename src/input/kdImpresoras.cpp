#include "input/kdImpresoras.h"

#include "platform/ComboField.h"
#include "platform/PrinterSource.h"

namespace Varnel_Controles {

kdImpresoras::kdImpresoras(QWidget *parent)
    : kdCombo(QStringLiteral("cboImpresoras"), parent)
{
    fill();
}

// The default printer's position is the one the list gave it when it was added; the first
// printer is selected when the default is not among them.
void kdImpresoras::fill()
{
    const PrinterSource &source = PrinterSource::current();
    const QString defaultName = source.defaultPrinterName();
    int remembered = 0;
    for (const QString &name : source.printerNames()) {
        m_combo->addItem(name);
        if (name == defaultName)
            remembered = m_combo->count() - 1;
    }
    if (m_combo->count() == 0) {
        m_combo->setEnabled(false);
        m_combo->setCurrentIndex(-1);
    } else {
        m_combo->setCurrentIndex(remembered);
    }
}

void kdImpresoras::setList(qint32 index, const QString &text)
{
    m_combo->setItemText(index, text);
    notify("List");
}

qint16 kdImpresoras::ListIndex() const { return qint16(m_combo->currentIndex()); }

void kdImpresoras::setListIndex(qint16 index)
{
    m_combo->setCurrentIndex(index);
    notify("ListIndex");
}

// Enabled reaches the list too (also one disabled for want of printers).
void kdImpresoras::enabledChanged(bool enabled)
{
    m_combo->setEnabled(enabled);
}

void kdImpresoras::ReadProperties(const PropertyBag &bag) { readLook(bag, false); }
void kdImpresoras::WriteProperties(PropertyBag &bag) const { writeLook(bag, false); }

} // namespace Varnel_Controles
