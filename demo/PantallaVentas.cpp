#include "PantallaVentas.h"

#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/kdArticulo.h>
#include <Varnel_Controles/kdCliente.h>
#include <Varnel_Controles/kdTextBox.h>

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {
constexpr int kLineas = 8;
}

PantallaVentas::PantallaVentas(Conexion *conexion, cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent), m_conexion(conexion)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral(
        "Escriba el código del artículo, «.» y la referencia del proveedor, «*» y la referencia del cliente, o pase el "
        "lector por el código de barras. Tres letras o más buscan por descripción; F3 abre la búsqueda. Una referencia o "
        "un código de barras que no existe se puede crear al momento."));
    intro->setWordWrap(true);
    layout->addWidget(intro);

    auto *grid = new QGridLayout;
    layout->addLayout(grid);
    txtCliente = new kdCliente(this);
    txtCliente->setObjectName(QStringLiteral("txtCliente"));
    txtCliente->setCEmpresa(empresa);
    txtCliente->setVital(true);
    txtCliente->setKeyEnterChangeFocus(true);
    txtCliente->setKeyUpChangeFocus(true);
    grid->addWidget(new QLabel(QStringLiteral("Cliente:")), 0, 0);
    grid->addWidget(txtCliente, 0, 1, 1, 2);
    connect(txtCliente, &kdLookup::NombreChanged, this, [this] {
        for (kdArticulo *line : std::as_const(m_articulos))
            line->setCliente(txtCliente->Existe() ? txtCliente->Codigo() : 0);
    });
    const QStringList headers{QStringLiteral("Línea"), QStringLiteral("Artículo y descripción"), QStringLiteral("Cantidad")};
    for (int c = 0; c < headers.size(); ++c) {
        auto *header = new QLabel(QStringLiteral("<b>%1</b>").arg(headers[c]));
        grid->addWidget(header, 1, c);
    }
    for (int i = 0; i < kLineas; ++i) {
        auto *line = new kdArticulo(this);
        line->setObjectName(QStringLiteral("txtArticulo%1").arg(i + 1));
        line->setCEmpresa(empresa);
        line->setVital(true);
        line->setKeyEnterChangeFocus(true);
        line->setKeyUpChangeFocus(true);
        line->setMinimumWidth(520);
        auto *cantidad = new kdTextBox(this);
        cantidad->setObjectName(QStringLiteral("txtCantidad%1").arg(i + 1));
        cantidad->setTypeOfValues(Numeric);
        cantidad->setAceptDecimals(true);
        cantidad->setKeyEnterChangeFocus(true);
        cantidad->setKeyUpChangeFocus(true);
        cantidad->setMaximumWidth(90);
        grid->addWidget(new QLabel(QString::number(i + 1)), i + 2, 0, Qt::AlignRight);
        grid->addWidget(line, i + 2, 1);
        grid->addWidget(cantidad, i + 2, 2);
        connect(line, &kdLookup::NombreChanged, this, &PantallaVentas::refresh);
        connect(cantidad, &kdTextBox::Change, this, &PantallaVentas::refresh);
        m_articulos << line;
        m_cantidades << cantidad;
    }
    grid->setColumnStretch(1, 1);
    lblResumen = new QLabel(this);
    lblResumen->setObjectName(QStringLiteral("lblResumen"));
    layout->addWidget(lblResumen);
    layout->addStretch();
    refresh();
}

void PantallaVentas::refresh()
{
    int lineas = 0;
    double unidades = 0;
    for (int i = 0; i < kLineas; ++i) {
        if (!m_articulos[i]->Existe())
            continue;
        ++lineas;
        unidades += m_cantidades[i]->Value();
    }
    lblResumen->setText(QStringLiteral("%1 líneas con artículo, %2 unidades.").arg(lineas).arg(QLocale(QLocale::Spanish).toString(unidades)));
}

// A line typed and Enter pressed, as the clerk does it.
void PantallaVentas::enter(kdArticulo *line, const QString &text)
{
    line->setText(text);
    QWidget *box = line->findChild<QWidget *>(QStringLiteral("txtCodigo"));
    box->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(box, &enter);
    QApplication::processEvents(); // the focus moves on to the quantity
}

QString PantallaVentas::first(const QString &sql, const QString &column) const
{
    try {
        Recordset rs;
        rs.open(sql, m_conexion);
        return rs.eof() ? QString() : rs.text(column);
    } catch (const DbError &) {
        return QString();
    }
}

// A code, a supplier's reference, a customer's reference and a scanned barcode of the demo company.
void PantallaVentas::prepareScreenshot()
{
    const QString refCli = QStringLiteral(" FROM Articulos_RefCli WHERE Cod_Empresa = 1 ORDER BY Ref");
    txtCliente->setText(first(QStringLiteral("SELECT TOP 1 Cod_Cli") + refCli, QStringLiteral("Cod_Cli")));
    txtCliente->Refrescar_Datos();
    enter(m_articulos[0], QStringLiteral("12"));
    enter(m_articulos[1], u'.' + first(QStringLiteral("SELECT TOP 1 Ref FROM Articulos_Ref WHERE Cod_Empresa = 1 AND Ref LIKE 'R0%' "
                                                      "ORDER BY Ref"), QStringLiteral("Ref")));
    enter(m_articulos[2], u'*' + first(QStringLiteral("SELECT TOP 1 Ref") + refCli, QStringLiteral("Ref")));
    enter(m_articulos[3], first(QStringLiteral("SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 40 "
                                               "AND Principal = 1"), QStringLiteral("Cod_Barras")));
    const QStringList cantidades{QStringLiteral("2"), QStringLiteral("1"), QStringLiteral("12"), QStringLiteral("3,5")};
    for (int i = 0; i < cantidades.size(); ++i)
        m_cantidades[i]->setText(cantidades[i]);
    m_articulos[4]->setText(QStringLiteral(".AB-"));
    m_articulos[4]->findChild<QWidget *>(QStringLiteral("txtCodigo"))->setFocus();
    refresh();
}
