// kdDispositivo: where a report goes, chosen from "Pantalla", "Impresora", "Fichero" and
// "eMail" (`cboDisp`). The host offers destinations with ToDisplay, ToPrinter, ToFile and
// ToEMail and reads the choice from Destination. "Impresora" appears only when the machine
// has a printer.
#pragma once

#include "varnel_controles_export.h"

#include "kdCombo.h"
#include "Enums.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdDispositivo : public kdCombo
{
    Q_OBJECT
    Q_PROPERTY(bool ToDisplay READ ToDisplay WRITE setToDisplay)
    Q_PROPERTY(bool ToPrinter READ ToPrinter WRITE setToPrinter)
    Q_PROPERTY(bool ToFile READ ToFile WRITE setToFile)
    Q_PROPERTY(bool ToEMail READ ToEMail WRITE setToEMail)
    Q_PROPERTY(qint16 ListIndex READ ListIndex WRITE setListIndex NOTIFY ListIndexChanged USER true)

public:
    /// A new control lists every destination (eMail too) until a To… flag is set or it is loaded.
    explicit kdDispositivo(QWidget *parent = nullptr);

    /// Each setting rebuilds the list and selects its first entry.
    bool ToDisplay() const { return m_toDisplay; }
    void setToDisplay(bool value);
    bool ToPrinter() const { return m_toPrinter; }
    void setToPrinter(bool value);
    bool ToFile() const { return m_toFile; }
    void setToFile(bool value);
    bool ToEMail() const { return m_toEMail; }
    void setToEMail(bool value);
    /// The selected destination. Throws LegacyError 381 when the list is empty.
    enmDestination Destination() const;
    qint16 ListIndex() const;
    void setListIndex(qint16 index);

    void ReadProperties(const PropertyBag &bag) override;
    void WriteProperties(PropertyBag &bag) const override;

private:
    void rebuild(bool display, bool printer, bool file, bool email);
    /// Stores a To… flag, notifies its key and rebuilds the list.
    void setFlag(bool &flag, bool value, const char *key);

    bool m_toDisplay = true;
    bool m_toPrinter = true;
    bool m_toFile = true;
    bool m_toEMail = false;
};

} // namespace Varnel_Controles
