// kdProveedor: a supplier code and its name. 0 and 99999 are open bounds ("00000" / "99999",
// "PROVEEDOR INICIAL" / "PROVEEDOR FINAL"); DejarEnBlanco leaves such a code as typed.
#pragma once

#include "varnel_controles_export.h"

#include "kdLookup.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdProveedor : public kdLookup
{
    Q_OBJECT
    Q_PROPERTY(bool DejarEnBlanco READ DejarEnBlanco WRITE setDejarEnBlanco)

public:
    explicit kdProveedor(QWidget *parent = nullptr);

    /// An empty, zero or 99999 code stays as typed with an empty name (persisted as "Dejarenblanco").
    bool DejarEnBlanco() const { return m_dejarEnBlanco; }
    void setDejarEnBlanco(bool value);

    /// The statement of a lookup: "SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 123".
    static QString statement(qint16 empresa, const QString &typed);

protected:
    QString lookupStatement(qint16 empresa, const QString &typed) const override { return statement(empresa, typed); }
    void showFound(const Recordset &recordset) override;
    Choice search(qint16 empresa) override;
    bool leavesBlank() const override { return m_dejarEnBlanco; }
    void readExtraProperties(const PropertyBag &bag) override;
    void writeExtraProperties(PropertyBag &bag) const override;

private:
    bool m_dejarEnBlanco = false;
};

} // namespace Varnel_Controles
