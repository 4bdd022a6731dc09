// A data-entry form as host screens build it: code, name, quantity and price boxes that
// Enter walks like Tab, with the values the host reads back.
#pragma once

#include "DemoScreen.h"

class QLabel;
namespace Varnel_Controles { class kdTextBox; }

class PantallaEntrada : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaEntrada(QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Entrada de datos"); }
    QString slug() const override { return QStringLiteral("entrada-datos"); }
    void prepareScreenshot() override;

private:
    void refresh();

    Varnel_Controles::kdTextBox *txtCodigo, *txtNombre, *txtCantidad, *txtPrecio;
    QLabel *lblValores;
};
