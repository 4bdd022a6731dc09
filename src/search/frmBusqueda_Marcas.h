// Brand search: brands (not filtered by company) whose name matches the filter pattern.
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Marcas : public frmBusqueda
{
    Q_OBJECT
    Q_PROPERTY(qint32 Codigo READ Codigo WRITE setCodigo)
    Q_PROPERTY(QString Nombre_Marca READ Nombre_Marca WRITE setNombre_Marca)

public:
    explicit frmBusqueda_Marcas(QWidget *parent = nullptr);

    /// Lists the brands matching `texto` ("*" anywhere is a wildcard, a prefix otherwise);
    /// may be called before the dialog is shown. Throws DbError when the query fails.
    void Recuperar_Registros(const QString &texto);
    /// The chosen brand's code, 0 when nothing was chosen.
    qint32 Codigo() const { return m_codigo; }
    void setCodigo(qint32 value) { m_codigo = value; }
    QString Nombre_Marca() const { return m_nombre; }
    void setNombre_Marca(const QString &value) { m_nombre = value; }
    /// The statement Recuperar_Registros runs for `texto`.
    static QString statement(const QString &texto);

protected:
    void searchFromFilters() override;
    QStringList rowCells(const Recordset &recordset) const override;

private:
    TextField *txtNombre;
};

} // namespace Varnel_Controles
