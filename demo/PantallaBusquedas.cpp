#include "PantallaBusquedas.h"

#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/kdTextBox.h>
#include <Varnel_Controles/KeyCodes.h>

#include <Varnel_Controles/UiSeam.h>
#include <Varnel_Controles/frmBusqueda_Clientes.h>
#include <Varnel_Controles/frmBusqueda_Marcas.h>
#include <Varnel_Controles/frmBusqueda_Proveedores.h>

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Varnel_Controles;

PantallaBusquedas::PantallaBusquedas(cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent), m_empresa(empresa)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("Pulse F3 en un campo (o el botón) para buscar por nombre. En la búsqueda: "
                                            "escriba, Intro, flechas para elegir e Intro para aceptar."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *grid = new QGridLayout;
    layout->addLayout(grid);
    layout->addStretch();
    m_grid = grid;
    m_marca = addRow(QStringLiteral("Marca:"), [this](Row r) { openMarca(r); });
    m_proveedor = addRow(QStringLiteral("Proveedor:"), [this](Row r) { openProveedor(r); });
    m_cliente = addRow(QStringLiteral("Cliente:"), [this](Row r) { openCliente(r); });
}

PantallaBusquedas::Row PantallaBusquedas::addRow(const QString &label, const std::function<void(Row)> &open)
{
    const int r = m_grid->rowCount();
    Row row{new kdTextBox(this), new QLabel(this)};
    row.code->setTypeOfValues(Numeric);
    row.code->setFixedWidth(90);
    row.code->setAlignment(RightJustify);
    row.name->setMinimumWidth(320);
    row.name->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto *button = new QPushButton(QStringLiteral("Buscar…"), this);
    button->setFocusPolicy(Qt::NoFocus);
    m_grid->addWidget(new QLabel(label, this), r, 0);
    m_grid->addWidget(row.code, r, 1);
    m_grid->addWidget(button, r, 2);
    m_grid->addWidget(row.name, r, 3);
    connect(button, &QPushButton::clicked, this, [row, open] { open(row); });
    connect(row.code, &kdTextBox::KeyDown, this, [row, open](qint16 &keyCode, qint16 &) {
        if (keyCode == KeyCodes::vbKeyF3)
            open(row);
    });
    return row;
}

// Shows a dialog modally and, when something was chosen, writes code and name into the row.
static void choose(frmBusqueda &dialog, qint32 (*code)(frmBusqueda &), QString (*name)(frmBusqueda &),
                   kdTextBox *box, QLabel *label)
{
    UiSeam::current().ShowModal(dialog);
    if (code(dialog) != 0) {
        box->setText(QString::number(code(dialog)));
        label->setText(name(dialog));
    }
}

void PantallaBusquedas::openMarca(Row row)
{
    frmBusqueda_Marcas dialog(this);
    choose(dialog, [](frmBusqueda &d) { return static_cast<frmBusqueda_Marcas &>(d).Codigo(); },
           [](frmBusqueda &d) { return static_cast<frmBusqueda_Marcas &>(d).Nombre_Marca(); }, row.code, row.name);
    if (dialog.Codigo() != 0)
        row.code->setText(QStringLiteral("%1").arg(dialog.Codigo(), 2, 10, QLatin1Char('0'))); // brand codes show as two digits
}

void PantallaBusquedas::openProveedor(Row row)
{
    frmBusqueda_Proveedores dialog(this);
    dialog.setEmpresa(m_empresa->Codigo());
    choose(dialog, [](frmBusqueda &d) { return static_cast<frmBusqueda_Proveedores &>(d).Codigo(); },
           [](frmBusqueda &d) { return static_cast<frmBusqueda_Proveedores &>(d).Nombre_Proveedor(); }, row.code, row.name);
}

void PantallaBusquedas::openCliente(Row row)
{
    frmBusqueda_Clientes dialog(this);
    dialog.setEmpresa(m_empresa->Codigo());
    choose(dialog, [](frmBusqueda &d) { return static_cast<frmBusqueda_Clientes &>(d).Codigo(); },
           [](frmBusqueda &d) { return static_cast<frmBusqueda_Clientes &>(d).Nombre_Cliente(); }, row.code, row.name);
}

void PantallaBusquedas::prepareScreenshot()
{
    m_marca.code->setText(QStringLiteral("03"));
    m_marca.name->setText(QStringLiteral("ÑANDÚ"));
    m_proveedor.code->setFocus();
}

QList<QPair<QString, QWidget *>> PantallaBusquedas::screenshotDialogs()
{
    QList<QPair<QString, QWidget *>> shots;
    try {
        auto *marcas = new frmBusqueda_Marcas;
        marcas->Recuperar_Registros(QString());
        shots << qMakePair(QStringLiteral("busqueda-marcas"), static_cast<QWidget *>(marcas));
        auto *proveedores = new frmBusqueda_Proveedores;
        proveedores->setEmpresa(m_empresa->Codigo());
        proveedores->Recuperar_Registros(QStringLiteral("DIS"));
        shots << qMakePair(QStringLiteral("busqueda-proveedores"), static_cast<QWidget *>(proveedores));
        auto *clientes = new frmBusqueda_Clientes;
        clientes->setEmpresa(m_empresa->Codigo());
        clientes->Recuperar_Registros(QStringLiteral("*TIENDA"), QString());
        shots << qMakePair(QStringLiteral("busqueda-clientes"), static_cast<QWidget *>(clientes));
    } catch (const DbError &) {
    }
    return shots;
}
