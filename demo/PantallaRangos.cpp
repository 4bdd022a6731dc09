#include "PantallaRangos.h"

#include <Varnel_Controles/kdCliente.h>
#include <Varnel_Controles/kdProveedor.h>

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Varnel_Controles;

PantallaRangos::PantallaRangos(cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("Deje vacío «Desde» para empezar por el primer proveedor y «Hasta» para "
                                            "llegar al último. F3 busca por nombre. Intro valida y pasa al campo siguiente."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *form = new QFormLayout;
    layout->addLayout(form);

    txtProvDesde = new kdProveedor(this);
    txtProvDesde->setObjectName(QStringLiteral("txtProvDesde"));
    txtProvHasta = new kdProveedor(this);
    txtProvHasta->setObjectName(QStringLiteral("txtProvHasta"));
    txtCliente = new kdCliente(this);
    txtCliente->setObjectName(QStringLiteral("txtCliente"));
    for (kdLookup *lookup : std::initializer_list<kdLookup *>{txtProvDesde, txtProvHasta, txtCliente}) {
        lookup->setCEmpresa(empresa);
        lookup->setKeyEnterChangeFocus(true);
        lookup->setKeyUpChangeFocus(true);
        lookup->setMinimumWidth(420);
        connect(lookup, &kdLookup::Change, this, &PantallaRangos::refresh);
        connect(lookup, &kdLookup::KeyPress, this, [this](qint16 &) { refresh(); });
    }
    txtProvDesde->setInicial(true);
    txtProvHasta->setInicial(false);
    form->addRow(QStringLiteral("Proveedor desde:"), txtProvDesde);
    form->addRow(QStringLiteral("Proveedor hasta:"), txtProvHasta);
    form->addRow(QStringLiteral("Cliente:"), txtCliente);
    lblComercial = new QLabel(this);
    form->addRow(QStringLiteral("Nombre comercial:"), lblComercial);

    auto *button = new QPushButton(QStringLiteral("Preparar informe"), this);
    connect(button, &QPushButton::clicked, this, &PantallaRangos::refresh);
    layout->addWidget(button, 0, Qt::AlignLeft);
    lblRango = new QLabel(this);
    lblRango->setObjectName(QStringLiteral("lblRango"));
    lblRango->setWordWrap(true);
    layout->addWidget(lblRango);
    layout->addStretch();
    refresh();
}

void PantallaRangos::refresh()
{
    lblComercial->setText(txtCliente->NombreComercial());
    QString cliente = QStringLiteral("todos los clientes");
    if (txtCliente->Existe())
        cliente = QStringLiteral("el cliente %1 (%2)").arg(txtCliente->Codigo()).arg(txtCliente->Nombre());
    lblRango->setText(QStringLiteral("El informe recorrerá los proveedores del %1 al %2, para %3.")
                          .arg(txtProvDesde->Text(), txtProvHasta->Text(), cliente));
}

void PantallaRangos::prepareScreenshot()
{
    txtProvDesde->setText(QString());
    txtProvDesde->setFocus();
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    QApplication::sendEvent(txtProvDesde->findChild<QWidget *>(QStringLiteral("txtCodigo")), &enter); // empty: the first supplier
    txtProvHasta->setText(QStringLiteral("12"));
    txtProvHasta->Refrescar_Datos();
    txtCliente->setText(QStringLiteral("1003"));
    txtCliente->Refrescar_Datos();
    refresh();
    txtCliente->setFocus();
}
