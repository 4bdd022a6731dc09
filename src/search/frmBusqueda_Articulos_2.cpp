#include "search/frmBusqueda_Articulos_2.h"

#include "data/ContextoDatos.h"
#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "input/kdTextBox.h"
#include "lookup/kdProveedor.h"
#include "platform/LegacyError.h"
#include "platform/UiSeam.h"
#include "report/clsListado.h"
#include "report/modListados.h"
#include "search/FiltroArticulos.h"
#include "search/SearchGrid.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace Varnel_Controles {

namespace {

const char *const kColumns[] = {"Codigo", "Descripcion", "Familia_1", "Familia_2", "Familia_3", "Cod_Barras",
                                "Ref", "Pvp1", "Pvp2", "Pvp3", "Stock_Actual"};

} // namespace

frmBusqueda_Articulos_2::frmBusqueda_Articulos_2(QWidget *parent)
    : frmBusqueda_Articulos(QStringLiteral("frmBusqueda_Articulos_2"), QStringLiteral("Búsqueda de Artículos"), 11, parent)
{
    setColumn(1, 3200, Qt::AlignLeft | Qt::AlignVCenter);
    setColumn(kBarcodeColumn, 1400, Qt::AlignLeft | Qt::AlignVCenter);
    setColumn(6, 1400, Qt::AlignLeft | Qt::AlignVCenter);
    for (int c = 7; c <= 9; ++c)
        setColumn(c, 1000, Qt::AlignRight | Qt::AlignVCenter);
    setColumn(10, 300, Qt::AlignRight | Qt::AlignVCenter);
    setReadsToEnd(true);
    searched();
    cmdImprimir = new QPushButton(QStringLiteral("&Imprimir"), this);
    cmdImprimir->setObjectName(QStringLiteral("cmdImprimir"));
    cmdImprimir->setAutoDefault(false);
    m_buttons->insertWidget(0, cmdImprimir);
    connect(cmdImprimir, &QPushButton::clicked, this, [this] {
        trapErrors(objectName() + QStringLiteral("::Imprimir"), [this] { return Imprimir(m_destino, m_impresora, m_fichero); });
    });
    resize(900, 560);
}

void frmBusqueda_Articulos_2::setDestino(qint32 value)
{
    if (value < kdPantalla || value > kdEMail)
        throw LegacyError(LegacyError::InvalidPropertyValue,
                          QStringLiteral("El valor de la propiedad no es válido: Destino %1 (1 Pantalla, 2 Impresora, "
                                         "3 Fichero, 4 eMail).")
                              .arg(value),
                          objectName() + QStringLiteral("::Destino"));
    m_destino = enmDestination(value);
}

clsListado frmBusqueda_Articulos_2::Listado() const
{
    clsListado listado(windowTitle());
    listado.setCriterio(m_ultimoCriterio);
    QStringList fields{QStringLiteral("Codigo"), QStringLiteral("Descripcion")};
    listado.AgregarColumna(QStringLiteral("Código"), 800);
    listado.AgregarColumna(QStringLiteral("Descripción"), 3200);
    if (MostrarCodBarras()) {
        listado.AgregarColumna(QStringLiteral("Cód. Barras"), 1400);
        fields << QStringLiteral("Cod_Barras");
    }
    listado.AgregarColumna(QStringLiteral("Ref. Princip."), 1400);
    fields << QStringLiteral("Ref");
    for (size_t i = 0; i < m_tarifas.size(); ++i) {
        listado.AgregarColumna(QStringLiteral("Tarifa ") + QString::number(m_tarifas[i].codigo), 1000, RightJustify);
        fields << QStringLiteral("Pvp%1").arg(i + 1);
    }
    // The stock's heading wants more room on paper than the grid's narrow column gives it.
    listado.AgregarColumna(QStringLiteral("Stock Alm ") + QString::number(Almacen()), 1100, RightJustify);
    fields << QStringLiteral("Stock_Actual");
    listado.setConsulta(m_ultimaInstruccion, fields);
    return listado;
}

bool frmBusqueda_Articulos_2::Imprimir(enmDestination destino, const QString &impresora, const QString &fichero)
{
    if (m_ultimaInstruccion.isEmpty()) {
        UiSeam::current().MsgBox(QStringLiteral("Haga primero una búsqueda: todavía no hay ningún listado que imprimir."),
                                 UiSeam::vbExclamation, objectName() + QStringLiteral("::Imprimir"));
        return false;
    }
    return modListados::Imprimir(Listado(), destino, impresora, fichero);
}

QString frmBusqueda_Articulos_2::tariffsStatement(qint16 empresa, qint16 almacen)
{
    const QString company = SqlText::empresa(empresa);
    return QStringLiteral("SELECT a.Cod_Tarifa,b.Decimales FROM Almacen_Tarifas a ")
        + QStringLiteral(" INNER JOIN Tarifas b ON b.Cod_Empresa=") + company
        + QStringLiteral(" AND b.Cod_Tarifa=a.Cod_Tarifa ") + QStringLiteral(" WHERE a.Cod_Empresa=") + company
        + QStringLiteral(" AND a.Cod_Almacen=") + QString::number(almacen) + QStringLiteral(" ORDER BY a.Cod_Tarifa");
}

QString frmBusqueda_Articulos_2::statement(qint16 empresa, qint16 almacen, const std::array<qint16, 3> &tarifas,
                                           const QString &condiciones)
{
    const QString company = SqlText::empresa(empresa);
    QString sql = QStringLiteral("SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, "
                                 "ISNULL(b.Cod_Barras,'') AS Cod_Barras, ")
        + QStringLiteral(" ISNULL(c.Ref,'') AS Ref, REPLACE(CONVERT(VARCHAR,ISNULL(d.Pvp,0)),'.',',') AS Pvp1, "
                         "REPLACE(CONVERT(VARCHAR,ISNULL(e.Pvp,0)),'.',',') AS Pvp2, "
                         "REPLACE(CONVERT(VARCHAR,ISNULL(f.Pvp,0)),'.',',') AS Pvp3, ")
        + QStringLiteral(" REPLACE(CONVERT(VARCHAR,ISNULL(aa.Stock_Actual,0)),'.',',') AS Stock_Actual, ")
        + QStringLiteral(" ISNULL(d.Pvp,0) AS Pvp1_Num, ISNULL(e.Pvp,0) AS Pvp2_Num, ISNULL(f.Pvp,0) AS Pvp3_Num, ")
        + QStringLiteral(" ISNULL(aa.Stock_Actual,0) AS Stock_Actual_Num ") + QStringLiteral(" FROM Articulos a ")
        + QStringLiteral(" LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa ")
        + QStringLiteral(" AND b.Cod_Articulo=a.Codigo AND b.Principal=1 ")
        + QStringLiteral(" LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa ")
        + QStringLiteral(" AND c.Cod_Articulo=a.Codigo AND c.Principal=1 ");
    const char *const aliases[] = {"d", "e", "f"};
    for (int i = 0; i < 3; ++i)
        sql += QStringLiteral(" LEFT JOIN Articulos_Tarifas %1 ON a.Cod_Empresa=%1.Cod_Empresa ").arg(QLatin1String(aliases[i]))
            + QStringLiteral(" AND %1.Cod_Articulo=a.Codigo AND %1.Cod_Tarifa=").arg(QLatin1String(aliases[i]))
            + QString::number(tarifas[size_t(i)]);
    return sql + QStringLiteral(" LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=") + company
        + QStringLiteral(" AND aa.Cod_Almacen=") + QString::number(almacen)
        + QStringLiteral(" AND aa.Cod_Articulo=a.Codigo ") + QStringLiteral(" WHERE a.Cod_Empresa =") + company
        + condiciones + QStringLiteral(" ORDER BY a.Codigo");
}

QString frmBusqueda_Articulos_2::statement(qint16 empresa, const FiltroArticulos &filtro)
{
    if (m_tarifasAlmacen != Almacen()) { // the dialog reused for another warehouse: its tariffs
        trapErrors(objectName() + QStringLiteral("::Recuperar_Registros"), [&] {
            load(empresa);
            return true;
        });
    }
    m_ultimaInstruccion = statement(empresa, Almacen(), {m_tarifas[0].codigo, m_tarifas[1].codigo, m_tarifas[2].codigo},
                                    filtro.condiciones(FiltroArticulos::Segunda));
    m_ultimoCriterio = DevCriterio();
    return m_ultimaInstruccion;
}

QStringList frmBusqueda_Articulos_2::rowCells(const Recordset &rs) const
{
    QStringList cells;
    for (const char *column : kColumns)
        cells << cellText(rs, QString::fromLatin1(column));
    return cells;
}

void frmBusqueda_Articulos_2::load(qint16 empresa)
{
    // Read once per warehouse: when it fails the search goes on with no tariffs, told once.
    m_tarifas = {};
    m_tarifasAlmacen = Almacen();
    Recordset rs;
    rs.open(tariffsStatement(empresa, m_tarifasAlmacen), ContextoDatos().conexion());
    for (size_t i = 0; i < m_tarifas.size() && !rs.eof(); ++i, rs.moveNext())
        m_tarifas[i] = {qint16(rs.field(QStringLiteral("Cod_Tarifa")).toInt()),
                        qint16(rs.field(QStringLiteral("Decimales")).toInt())};
    rs.close();
}

// The headers name the tariffs and the warehouse of the search.
void frmBusqueda_Articulos_2::searched()
{
    QStringList headers{QStringLiteral("Código"), QStringLiteral("Descripción"), QString(), QString(), QString(),
                        QStringLiteral("Cód. Barras"), QStringLiteral("Ref. Princip.")};
    for (const Tarifa &t : m_tarifas)
        headers << QStringLiteral("Tarifa ") + QString::number(t.codigo);
    headers << QStringLiteral("Stock Alm ") + QString::number(Almacen());
    setHeaders(headers);
}

QString frmBusqueda_Articulos_2::DevCriterio() const
{
    QStringList parts;
    if (!txtNombre->Text().isEmpty())
        parts << QStringLiteral("Desc: ") + txtNombre->Text();
    if (txtProveedor->Codigo() != 0)
        parts << (QStringLiteral("Prov: ") + QString::number(txtProveedor->Codigo()) + u' ' + txtProveedor->Nombre()).trimmed();
    if (!txtReferencia->Text().isEmpty())
        parts << QStringLiteral("Ref: ") + txtReferencia->Text();
    return parts.join(QStringLiteral("  "));
}

} // namespace Varnel_Controles
