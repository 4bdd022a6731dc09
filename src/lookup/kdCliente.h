// kdCliente: a customer code, its name and trade name. 0 and 9999999 are open bounds
// ("0000000" / "9999999", "CLIENTE INICIAL" / "CLIENTE FINAL"); 99999 is an ordinary code.
#pragma once

#include "varnel_controles_export.h"

#include "kdLookup.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdCliente : public kdLookup
{
    Q_OBJECT
    Q_PROPERTY(QString NombreComercial READ NombreComercial)

public:
    explicit kdCliente(QWidget *parent = nullptr);

    /// The trade name of the last customer found by a lookup (a choice made with F3 keeps it).
    QString NombreComercial() const { return m_nombreComercial; }

    /// "SELECT Nombre, Nombre_Comercial FROM Clientes WHERE Cod_Empresa =1 AND Codigo = 1001".
    static QString statement(qint16 empresa, const QString &typed);

protected:
    QString lookupStatement(qint16 empresa, const QString &typed) const override { return statement(empresa, typed); }
    void showFound(const Recordset &recordset) override;
    Choice search(qint16 empresa) override;

private:
    QString m_nombreComercial;
};

} // namespace Varnel_Controles
