// A range report screen as hosts build it: suppliers from/to (an empty "from" is the first
// supplier, an empty "to" the last) and a customer with its trade name; the range the report
// would run on is shown as it resolves.
#pragma once

#include "DemoScreen.h"

class QLabel;
namespace Varnel_Controles { class kdCliente; class kdProveedor; class cEmpresa; }

class PantallaRangos : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaRangos(Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Informe por rangos"); }
    QString slug() const override { return QStringLiteral("rangos"); }
    void prepareScreenshot() override;

private:
    void refresh();

    Varnel_Controles::kdProveedor *txtProvDesde, *txtProvHasta;
    Varnel_Controles::kdCliente *txtCliente;
    QLabel *lblComercial, *lblRango;
};
