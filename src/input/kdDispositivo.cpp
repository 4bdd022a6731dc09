#include "input/kdDispositivo.h"

#include "platform/ComboField.h"
#include "platform/LegacyError.h"
#include "platform/PrinterSource.h"

namespace Varnel_Controles {

kdDispositivo::kdDispositivo(QWidget *parent)
    : kdCombo(QStringLiteral("cboDisp"), parent)
{
    rebuild(true, true, true, true);
}

void kdDispositivo::rebuild(bool display, bool printer, bool file, bool email)
{
    m_combo->clear();
    if (display)
        m_combo->addItem(QStringLiteral("Pantalla"), qint32(kdPantalla));
    if (printer && !PrinterSource::current().printerNames().isEmpty())
        m_combo->addItem(QStringLiteral("Impresora"), qint32(kdImpresora));
    if (file)
        m_combo->addItem(QStringLiteral("Fichero"), qint32(kdFichero));
    if (email)
        m_combo->addItem(QStringLiteral("eMail"), qint32(kdEMail));
    m_combo->setCurrentIndex(m_combo->count() > 0 ? 0 : -1);
}

void kdDispositivo::setFlag(bool &flag, bool value, const char *key)
{
    flag = value;
    notify(key);
    rebuild(m_toDisplay, m_toPrinter, m_toFile, m_toEMail);
}

void kdDispositivo::setToDisplay(bool value) { setFlag(m_toDisplay, value, "ToDisplay"); }
void kdDispositivo::setToPrinter(bool value) { setFlag(m_toPrinter, value, "ToPrinter"); }
void kdDispositivo::setToFile(bool value) { setFlag(m_toFile, value, "ToFile"); }
void kdDispositivo::setToEMail(bool value) { setFlag(m_toEMail, value, "ToEMail"); }

enmDestination kdDispositivo::Destination() const
{
    const int index = m_combo->currentIndex();
    if (index < 0)
        throw LegacyError(LegacyError::InvalidPropertyArrayIndex, QStringLiteral("Índice de matriz de propiedades no válido"),
                          QStringLiteral("kdDispositivo::Destination"));
    return enmDestination(m_combo->itemData(index).toInt());
}

qint16 kdDispositivo::ListIndex() const { return qint16(m_combo->currentIndex()); }
void kdDispositivo::setListIndex(qint16 index) { m_combo->setCurrentIndex(index); }

void kdDispositivo::ReadProperties(const PropertyBag &bag)
{
    readLook(bag, true);
    m_toDisplay = readBool(bag, "ToDisplay", true);
    m_toPrinter = readBool(bag, "ToPrinter", true);
    m_toFile = readBool(bag, "ToFile", true);
    m_toEMail = readBool(bag, "ToEMail", false);
    rebuild(m_toDisplay, m_toPrinter, m_toFile, m_toEMail);
}

void kdDispositivo::WriteProperties(PropertyBag &bag) const
{
    writeLook(bag, true);
    bag.WriteProperty(QStringLiteral("ToDisplay"), m_toDisplay, true);
    bag.WriteProperty(QStringLiteral("ToPrinter"), m_toPrinter, true);
    bag.WriteProperty(QStringLiteral("ToFile"), m_toFile, true);
    bag.WriteProperty(QStringLiteral("ToEMail"), m_toEMail, false);
}

} // namespace Varnel_Controles
