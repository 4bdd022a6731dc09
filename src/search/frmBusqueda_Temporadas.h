// Season search: the company's seasons whose description matches the filter pattern, listed by
// description. The season picker opens it with F3 and lists every season at once.
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Temporadas : public frmBusqueda
{
    Q_OBJECT

public:
    explicit frmBusqueda_Temporadas(QWidget *parent = nullptr);

    void setEmpresa(qint16 value) { m_empresa = value; }
    /// Lists the seasons matching `texto`. Throws DbError when the query fails.
    void Recuperar_Registros(const QString &texto);
    /// The chosen season's code, empty when nothing was chosen.
    QString Codigo() const { return m_codigoTemporada; }
    QString Descripcion() const { return m_nombre; }
    /// "SELECT Codigo, Descripcion FROM Temporadas WHERE Cod_Empresa =1 AND Descripcion LIKE
    /// 'PRI%' ORDER BY Descripcion".
    static QString statement(qint16 empresa, const QString &texto);

protected:
    void searchFromFilters() override;
    QStringList rowCells(const Recordset &recordset) const override;
    void takeRow(int row) override;
    void clearResult() override;

private:
    TextField *txtNombre;
    qint16 m_empresa = 0;
    QString m_codigoTemporada;
};

} // namespace Varnel_Controles
