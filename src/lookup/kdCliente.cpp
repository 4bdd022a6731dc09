#include "lookup/kdCliente.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/UiSeam.h"
#include "search/frmBusqueda_Clientes.h"

namespace Varnel_Controles {

kdCliente::kdCliente(QWidget *parent)
    : kdLookup({QStringLiteral("kdClientes"), QStringLiteral("0000000"), QStringLiteral("9999999"),
                QStringLiteral("CLIENTE INICIAL"), QStringLiteral("CLIENTE FINAL"),
                QStringLiteral("CLIENTE INEXISTENTE")},
               810, 885, parent)
{
}

QString kdCliente::statement(qint16 empresa, const QString &typed)
{
    return QStringLiteral("SELECT Nombre, Nombre_Comercial FROM Clientes WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Codigo =") + SqlText::codigo(typed);
}

void kdCliente::showFound(const Recordset &rs)
{
    setName(rs.text(QStringLiteral("Nombre")));
    const QVariant trade = rs.field(QStringLiteral("Nombre_Comercial"));
    m_nombreComercial = trade.isNull() ? QString() : trade.toString();
}

kdLookup::Choice kdCliente::search(qint16 empresa)
{
    frmBusqueda_Clientes dialog(this);
    dialog.setEmpresa(empresa);
    UiSeam::current().ShowModal(dialog);
    return {dialog.Codigo(), dialog.Nombre_Cliente()};
}

} // namespace Varnel_Controles
