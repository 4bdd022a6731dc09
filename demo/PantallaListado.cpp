#include "PantallaListado.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/kdDispositivo.h>
#include <Varnel_Controles/kdImpresoras.h>
#include <Varnel_Controles/LegacyError.h>
#include <Varnel_Controles/modListados.h>

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Varnel_Controles;

PantallaListado::PantallaListado(cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent)
    , m_empresa(empresa)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("Los artículos de una familia, con su referencia principal, la tarifa 1 y el "
                                            "stock del almacén 1, a pantalla, a la impresora elegida, a un PDF o por "
                                            "correo. Más de 300 filas muestran el avance con Cancelar."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    layout->addLayout(form);

    cboFamilia = new QComboBox(this);
    cboFamilia->setObjectName(QStringLiteral("cboFamilia"));
    try {
        Recordset rs;
        rs.open(QStringLiteral("SELECT Codigo, Descripcion FROM Familias WHERE Cod_Empresa=%1 AND Nivel=1 ORDER BY Codigo")
                    .arg(empresa->Codigo()),
                Conexion::shared());
        for (; !rs.eof(); rs.moveNext())
            cboFamilia->addItem(QStringLiteral("%1 %2").arg(rs.text(QStringLiteral("Codigo")), rs.text(QStringLiteral("Descripcion"))),
                                rs.field(QStringLiteral("Codigo")));
    } catch (const DbError &e) {
        reportError(e.Description(), QStringLiteral("PantallaListado"));
    }
    cboDestino = new kdDispositivo(this);
    cboDestino->setObjectName(QStringLiteral("cboDestino"));
    cboDestino->setToEMail(true); // the host offers every destination
    cboDestino->setFixedWidth(160);
    cboImpresora = new kdImpresoras(this);
    cboImpresora->setObjectName(QStringLiteral("cboImpresora"));
    cboImpresora->setFixedWidth(260);
    form->addRow(QStringLiteral("Familia:"), cboFamilia);
    form->addRow(QStringLiteral("Destino:"), cboDestino);
    form->addRow(QStringLiteral("Impresora:"), cboImpresora);

    auto *button = new QPushButton(QStringLiteral("Listar"), this);
    connect(button, &QPushButton::clicked, this, &PantallaListado::listar);
    layout->addWidget(button, 0, Qt::AlignLeft);
    lblResumen = new QLabel(this);
    lblResumen->setWordWrap(true);
    layout->addWidget(lblResumen);
    layout->addStretch();
}

clsListado PantallaListado::documento()
{
    const QString empresa = QString::number(m_empresa->Codigo());
    const QString familia = cboFamilia->currentData().toString();
    const QString from = QStringLiteral(
        " FROM Articulos a "
        " LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa AND c.Cod_Articulo=a.Codigo AND c.Principal=1 "
        " LEFT JOIN Articulos_Tarifas d ON a.Cod_Empresa=d.Cod_Empresa AND d.Cod_Articulo=a.Codigo AND d.Cod_Tarifa=1 "
        " LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=%1 AND aa.Cod_Almacen=1 AND aa.Cod_Articulo=a.Codigo "
        " WHERE a.Cod_Empresa=%1 AND a.Familia_1=%2").arg(empresa, familia.isEmpty() ? QStringLiteral("0") : familia);
    clsListado listado(QStringLiteral("Artículos de la familia %1").arg(cboFamilia->currentText()));
    listado.setCriterio(QStringLiteral("Familia: %1 · Tarifa 1 · Almacén 1").arg(cboFamilia->currentText()));
    listado.AgregarColumna(QStringLiteral("Código"), 800);
    listado.AgregarColumna(QStringLiteral("Descripción"), 3600);
    listado.AgregarColumna(QStringLiteral("Ref. Princip."), 1600);
    listado.AgregarColumna(QStringLiteral("Tarifa 1"), 1000, RightJustify);
    listado.AgregarColumna(QStringLiteral("Stock Alm 1"), 1100, RightJustify);
    listado.setConsulta(QStringLiteral("SELECT a.Codigo, a.Descripcion, ISNULL(c.Ref,'') AS Ref, "
                                       "REPLACE(CONVERT(VARCHAR,ISNULL(d.Pvp,0)),'.',',') AS Pvp1, "
                                       "REPLACE(CONVERT(VARCHAR,ISNULL(aa.Stock_Actual,0)),'.',',') AS Stock")
                            + from + QStringLiteral(" ORDER BY a.Codigo"),
                        {QStringLiteral("Codigo"), QStringLiteral("Descripcion"), QStringLiteral("Ref"),
                         QStringLiteral("Pvp1"), QStringLiteral("Stock")});
    try {
        Recordset rs;
        rs.open(QStringLiteral("SELECT COUNT(*) AS Articulos, REPLACE(CONVERT(VARCHAR,ISNULL(SUM(aa.Stock_Actual),0)),'.',',') "
                               "AS Stock") + from,
                Conexion::shared());
        listado.setTotales({QString(), QStringLiteral("%1 artículos").arg(rs.text(QStringLiteral("Articulos"))), QString(),
                            QString(), rs.text(QStringLiteral("Stock"))});
    } catch (const DbError &e) {
        reportError(e.Description(), QStringLiteral("PantallaListado"));
    }
    return listado;
}

void PantallaListado::listar()
{
    QString fichero;
    try {
        if (cboDestino->Destination() == kdFichero) {
            fichero = QFileDialog::getSaveFileName(this, QStringLiteral("Guardar listado"),
                                                   QDir::home().filePath(QStringLiteral("listado-articulos.pdf")),
                                                   QStringLiteral("Documentos PDF (*.pdf)"));
            if (fichero.isEmpty())
                return;
        }
    } catch (const LegacyError &) {
    }
    const clsListado listado = documento();
    const bool entregado = modListados::Imprimir(listado, *cboDestino, *cboImpresora, fichero);
    lblResumen->setText(entregado ? QStringLiteral("«%1» entregado (%2).").arg(listado.Titulo(), cboDestino->Text())
                                  : QStringLiteral("No se ha entregado el listado."));
}

void PantallaListado::prepareScreenshot()
{
    cboFamilia->setCurrentIndex(qMin(1, cboFamilia->count() - 1));
    lblResumen->setText(QStringLiteral("Sin pantalla, la vista previa se guarda como PDF junto a las capturas."));
    cboDestino->setFocus();
}

QList<QPair<QString, QWidget *>> PantallaListado::screenshotDialogs()
{
    m_preview = documento();
    QPrintPreviewDialog *preview = modListados::VistaPrevia(m_preview);
    preview->resize(820, 1000);
    return {qMakePair(QStringLiteral("vista-previa"), static_cast<QWidget *>(preview))};
}

// The print preview's document, as the screen destination would show it.
QStringList PantallaListado::writeDocuments(const QString &stem)
{
    const QString pdf = stem + QStringLiteral(".pdf");
    return modListados::Imprimir(documento(), kdFichero, QString(), pdf) ? QStringList{pdf} : QStringList();
}
