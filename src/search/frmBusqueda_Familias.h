// Family search: the families of one level under one parent (level 1 under parent 0) whose
// description matches the filter pattern, listed by description. The family picker opens it
// with F3 and lists the level's families at once.
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Familias : public frmBusqueda
{
    Q_OBJECT

public:
    explicit frmBusqueda_Familias(QWidget *parent = nullptr);

    /// The company, the level (1-3) and the parent family whose families are listed.
    void setEmpresa(qint16 value) { m_empresa = value; }
    void setNivel(int value) { m_nivel = value; }
    void setPadre(qint16 value) { m_padre = value; }
    /// Lists the families matching `texto`. Throws DbError when the query fails.
    void Recuperar_Registros(const QString &texto);
    /// The chosen family, 0 when nothing was chosen.
    qint32 Codigo() const { return m_codigo; }
    QString Descripcion() const { return m_nombre; }
    /// "SELECT Codigo, Descripcion FROM Familias WHERE Cod_Empresa =1 AND Nivel =2 AND
    /// Cod_Padre =3 AND Descripcion LIKE 'CAM%' ORDER BY Descripcion".
    static QString statement(qint16 empresa, int nivel, qint16 padre, const QString &texto);

protected:
    void searchFromFilters() override;
    QStringList rowCells(const Recordset &recordset) const override;

private:
    TextField *txtNombre;
    qint16 m_empresa = 0;
    int m_nivel = 1;
    qint16 m_padre = 0;
};

} // namespace Varnel_Controles
