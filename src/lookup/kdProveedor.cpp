#include "lookup/kdProveedor.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/UiSeam.h"
#include "search/frmBusqueda_Proveedores.h"

namespace Varnel_Controles {

kdProveedor::kdProveedor(QWidget *parent)
    : kdLookup({QStringLiteral("kdProveedores"), QStringLiteral("00000"), QStringLiteral("99999"),
                QStringLiteral("PROVEEDOR INICIAL"), QStringLiteral("PROVEEDOR FINAL"),
                QStringLiteral("PROVEEDOR INEXISTENTE")},
               660, 735, parent)
{
}

void kdProveedor::setDejarEnBlanco(bool value)
{
    m_dejarEnBlanco = value;
    notify("Dejarenblanco");
}

QString kdProveedor::statement(qint16 empresa, const QString &typed)
{
    return QStringLiteral("SELECT Nombre FROM Proveedores WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Codigo =") + SqlText::codigo(typed);
}

void kdProveedor::showFound(const Recordset &rs)
{
    setName(rs.text(QStringLiteral("Nombre")));
}

kdLookup::Choice kdProveedor::search(qint16 empresa)
{
    frmBusqueda_Proveedores dialog(this);
    dialog.setEmpresa(empresa);
    UiSeam::current().ShowModal(dialog);
    return {dialog.Codigo(), dialog.Nombre_Proveedor()};
}

void kdProveedor::readExtraProperties(const PropertyBag &bag)
{
    m_dejarEnBlanco = readBool(bag, "Dejarenblanco", false);
}

void kdProveedor::writeExtraProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("Dejarenblanco"), m_dejarEnBlanco, false);
}

} // namespace Varnel_Controles
