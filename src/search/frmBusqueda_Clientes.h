// Customer search: customers of a company by name, trade name or installation name, and by
// exact NIF; an installation is listed under its customer's code with its own name.
#pragma once

#include "varnel_controles_export.h"

#include "frmBusqueda.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT frmBusqueda_Clientes : public frmBusqueda
{
    Q_OBJECT

public:
    explicit frmBusqueda_Clientes(QWidget *parent = nullptr);

    /// The company whose customers are listed (always written into the statement, also 0).
    void setEmpresa(qint16 value) { m_empresa = value; }
    /// Lists customers and installations matching `nombre`, only those of `nif` when given.
    /// Throws DbError when the query fails.
    void Recuperar_Registros(const QString &nombre, const QString &nif);
    /// The chosen customer, 0 when nothing was chosen.
    qint32 Codigo() const { return m_codigo; }
    /// The chosen row's name text (an installation row gives the installation's name).
    QString Nombre_Cliente() const { return m_nombre; }
    static QString statement(qint16 empresa, const QString &nombre, const QString &nif);

protected:
    void searchFromFilters() override;
    void filterEnter(TextField *box) override;
    void filterKeyDown(TextField *box, qint16 keyCode) override;
    QStringList rowCells(const Recordset &recordset) const override;

private:
    TextField *txtNombre;
    TextField *txtNif;
    qint16 m_empresa = 0;
};

} // namespace Varnel_Controles
