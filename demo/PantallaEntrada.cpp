#include "PantallaEntrada.h"

#include <QLocale>

using namespace Varnel_Controles;

PantallaEntrada::PantallaEntrada(QWidget *parent)
    : DemoScreen(parent)
{
    ui.setupUi(this);
    for (kdTextBox *box : {ui.txtCodigo, ui.txtNombre, ui.txtCantidad, ui.txtPrecio})
        connect(box, &kdTextBox::Change, this, &PantallaEntrada::refresh);
    refresh();
}

void PantallaEntrada::refresh()
{
    const double importe = ui.txtCantidad->Value() * ui.txtPrecio->Value();
    const QLocale es(QLocale::Spanish, QLocale::Spain);
    ui.lblValores->setText(QStringLiteral("Lo que lee el programa (Value): código %1 · cantidad %2 · precio %3 · importe %4")
                               .arg(es.toString(ui.txtCodigo->Value()), es.toString(ui.txtCantidad->Value()),
                                    es.toString(ui.txtPrecio->Value()), es.toString(importe, 'f', 2)));
}

void PantallaEntrada::prepareScreenshot()
{
    ui.txtCodigo->setText(QStringLiteral("4711"));
    ui.txtNombre->setText(QStringLiteral("TORNILLO CABEZA HEXAGONAL M6"));
    ui.txtCantidad->setText(QStringLiteral("-12,5"));
    ui.txtPrecio->setText(QStringLiteral("0,35"));
    ui.txtPrecio->setFocus();
}
