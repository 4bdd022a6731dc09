// A listing screen as hosts lay it out: a date range (the first date defaults to the first day
// of the month, the second to today), the output destination and the printer.
#pragma once

#include "DemoScreen.h"

class QLabel;
namespace Varnel_Controles { class kdDispositivo; class kdImpresoras; class kdMaskEdBox; }

class PantallaListado : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaListado(QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Listado de ventas"); }
    QString slug() const override { return QStringLiteral("listado"); }
    void prepareScreenshot() override;

private:
    void describe();

    Varnel_Controles::kdMaskEdBox *txtDesde, *txtHasta;
    Varnel_Controles::kdDispositivo *cboDestino;
    Varnel_Controles::kdImpresoras *cboImpresora;
    QLabel *lblResumen;
};
