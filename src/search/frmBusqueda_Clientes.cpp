#include "search/frmBusqueda_Clientes.h"

#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"
#include "search/SearchGrid.h"

#include <QHBoxLayout>
#include <QLabel>

namespace Varnel_Controles {

frmBusqueda_Clientes::frmBusqueda_Clientes(QWidget *parent)
    : frmBusqueda(QStringLiteral("frmBusqueda_Clientes"), QStringLiteral("Búsqueda de Clientes"),
                  3, 14, parent)
    , txtNombre(addNameFilter(QStringLiteral("1. &Escriba los primeros dígitos o letras que está buscando."),
                              QStringLiteral("2. &Haga click en una entrada y después en \"Aceptar\".")))
{
    auto *label2 = new QLabel(QStringLiteral("Nombre:"), this);
    label2->setObjectName(QStringLiteral("Label2"));
    auto *label1 = new QLabel(QStringLiteral("NIF:"), this);
    label1->setObjectName(QStringLiteral("Label1"));
    txtNif = addFilter(QStringLiteral("txtNif"), QStringLiteral("NIF"));
    txtNif->setMaximumWidth(130);
    m_filters->insertWidget(0, label2);
    m_filters->addWidget(label1);
    m_filters->addWidget(txtNif);
    setColumn(0, 800, Qt::AlignRight | Qt::AlignVCenter);
    setColumn(1, 4900, Qt::AlignLeft | Qt::AlignVCenter);
    setColumn(2, 0, Qt::AlignLeft | Qt::AlignVCenter);
    vsListado->setAlternatingRowColors(true);
    paintFocus(txtNombre);
    paintFocus(txtNif);
    resize(640, 430);
}

QString frmBusqueda_Clientes::statement(qint16 empresa, const QString &nombre, const QString &nif)
{
    const QString pattern = SqlText::patron(nombre);
    const QString company = SqlText::empresa(empresa);
    const QString nifCondition = nif.isEmpty() ? QString() : QStringLiteral(" AND c.Nif ='") + SqlText::texto(nif) + u'\'';
    return QStringLiteral("SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, Nif") + QStringLiteral(" FROM Clientes c")
        + QStringLiteral(" WHERE c.Cod_Empresa =") + company + QStringLiteral(" AND (c.Nombre LIKE '") + pattern
        + QStringLiteral("' OR c.Nombre_Comercial LIKE '") + pattern + QStringLiteral("')") + nifCondition
        + QStringLiteral(" UNION ")
        + QStringLiteral("SELECT ci.Cod_Cliente, ci.Nombre, '' AS Nombre_Comercial, '' AS Nif")
        + QStringLiteral(" FROM Clientes_Instalaciones ci") + QStringLiteral(" INNER JOIN Clientes c")
        + QStringLiteral(" ON c.Codigo = ci.Cod_Cliente AND c.Cod_Empresa = ci.Cod_Empresa")
        + QStringLiteral(" WHERE ci.Cod_Empresa =") + company + QStringLiteral(" AND (ci.Nombre LIKE '") + pattern
        + QStringLiteral("')") + nifCondition + QStringLiteral(" ORDER BY Nombre");
}

void frmBusqueda_Clientes::Recuperar_Registros(const QString &nombre, const QString &nif)
{
    search(statement(m_empresa, nombre, nif));
}

void frmBusqueda_Clientes::searchFromFilters()
{
    Recuperar_Registros(Legacy::Trim(txtNombre->text()), Legacy::Trim(txtNif->text()));
}

void frmBusqueda_Clientes::filterEnter(TextField *box)
{
    if (box == txtNombre)
        txtNif->setFocus(); // the name box passes on to the NIF; the NIF box searches
    else
        frmBusqueda::filterEnter(box);
}

void frmBusqueda_Clientes::filterKeyDown(TextField *box, qint16 keyCode)
{
    if (box == txtNif && keyCode == KeyCodes::vbKeyUp)
        txtNombre->setFocus();
}

QStringList frmBusqueda_Clientes::rowCells(const Recordset &rs) const
{
    const QVariant nif = rs.field(QStringLiteral("Nif"));
    return {rs.text(QStringLiteral("Codigo")),
            withTradeName(rs.text(QStringLiteral("Nombre")), rs.field(QStringLiteral("Nombre_Comercial"))),
            nif.isNull() ? QString() : nif.toString()};
}

} // namespace Varnel_Controles
