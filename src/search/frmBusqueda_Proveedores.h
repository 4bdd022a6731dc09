// Supplier search: suppliers of a company whose name or trade name matches the pattern,
// listed by name with the trade name after " / ".
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Proveedores : public frmBusqueda
{
    Q_OBJECT

public:
    explicit frmBusqueda_Proveedores(QWidget *parent = nullptr);

    /// The company whose suppliers are listed; 0 lists every company's.
    void setEmpresa(qint16 value) { m_empresa = value; }
    /// Lists the suppliers matching `texto`. Throws DbError when the query fails.
    void Recuperar_Registros(const QString &texto);
    /// The chosen supplier, 0 when nothing was chosen.
    qint32 Codigo() const { return m_codigo; }
    /// The chosen row's name text, with " / " and the trade name when the row showed them.
    QString Nombre_Proveedor() const { return m_nombre; }
    static QString statement(qint16 empresa, const QString &texto);

protected:
    void searchFromFilters() override;
    QStringList rowCells(const Recordset &recordset) const override;

private:
    TextField *txtNombre;
    qint16 m_empresa = 0;
};

} // namespace Varnel_Controles
