#include "PantallaEntrada.h"

#include <input/kdTextBox.h>

#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

using namespace Varnel_Controles;

PantallaEntrada::PantallaEntrada(QWidget *parent)
    : DemoScreen(parent)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral(
        "Escriba y pulse Intro para pasar al campo siguiente; flecha arriba para volver.\n"
        "La cantidad y el precio admiten coma decimal (el punto se convierte en coma); "
        "el signo menos cambia el signo de la cantidad."));
    intro->setWordWrap(true);
    layout->addWidget(intro);

    auto *form = new QFormLayout;
    txtCodigo = new kdTextBox(this);
    txtCodigo->setObjectName(QStringLiteral("txtCodigo"));
    txtCodigo->setTypeOfValues(Numeric);
    txtCodigo->setMaxLength(7);
    txtNombre = new kdTextBox(this);
    txtNombre->setObjectName(QStringLiteral("txtNombre"));
    txtNombre->setMaxLength(40);
    txtCantidad = new kdTextBox(this);
    txtCantidad->setObjectName(QStringLiteral("txtCantidad"));
    txtCantidad->setTypeOfValues(Numeric);
    txtCantidad->setAceptDecimals(true);
    txtCantidad->setAceptNegative(true);
    txtCantidad->setAlignment(RightJustify);
    txtPrecio = new kdTextBox(this);
    txtPrecio->setObjectName(QStringLiteral("txtPrecio"));
    txtPrecio->setTypeOfValues(Numeric);
    txtPrecio->setAceptDecimals(true);
    txtPrecio->setAlignment(RightJustify);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    txtCodigo->setFixedWidth(90);
    txtNombre->setFixedWidth(330);
    txtCantidad->setFixedWidth(110);
    txtPrecio->setFixedWidth(110);
    form->addRow(QStringLiteral("Código:"), txtCodigo);
    form->addRow(QStringLiteral("Nombre:"), txtNombre);
    form->addRow(QStringLiteral("Cantidad:"), txtCantidad);
    form->addRow(QStringLiteral("Precio:"), txtPrecio);
    layout->addLayout(form);

    auto *disabled = new kdTextBox(this);
    disabled->setText(QStringLiteral("CAMPO DESHABILITADO"));
    disabled->setEnabled(false);
    disabled->setFixedWidth(330);
    form->addRow(QStringLiteral("Inactivo:"), disabled);

    lblValores = new QLabel(this);
    lblValores->setObjectName(QStringLiteral("lblValores"));
    layout->addWidget(lblValores);
    layout->addStretch();

    for (auto *box : {txtCodigo, txtNombre, txtCantidad, txtPrecio})
        connect(box, &kdTextBox::Change, this, &PantallaEntrada::refresh);
    refresh();
}

void PantallaEntrada::refresh()
{
    const double importe = txtCantidad->Value() * txtPrecio->Value();
    const QLocale es(QLocale::Spanish, QLocale::Spain);
    lblValores->setText(QStringLiteral("Lo que lee el programa (Value): código %1 · cantidad %2 · precio %3 · importe %4")
                            .arg(es.toString(txtCodigo->Value()), es.toString(txtCantidad->Value()),
                                 es.toString(txtPrecio->Value()), es.toString(importe, 'f', 2)));
}

void PantallaEntrada::prepareScreenshot()
{
    txtCodigo->setText(QStringLiteral("4711"));
    txtNombre->setText(QStringLiteral("TORNILLO CABEZA HEXAGONAL M6"));
    txtCantidad->setText(QStringLiteral("-12,5"));
    txtPrecio->setText(QStringLiteral("0,35"));
    txtPrecio->setFocus();
}
