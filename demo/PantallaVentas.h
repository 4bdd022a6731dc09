// The sales lines of a counter: a column of article boxes, each with the article's description
// beside it, and the quantity. A clerk types an article code, a supplier's reference after a
// full stop, the customer's reference after an asterisk, or scans a barcode; a reference or
// barcode the company does not have is offered for creation on the spot.
#pragma once

#include "DemoScreen.h"

class QLabel;
namespace Varnel_Controles { class Conexion; class cEmpresa; class kdArticulo; class kdCliente; class kdTextBox; }

class PantallaVentas : public DemoScreen
{
    Q_OBJECT

public:
    PantallaVentas(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Líneas de venta"); }
    QString slug() const override { return QStringLiteral("ventas"); }
    void prepareScreenshot() override;

private:
    void refresh();
    void enter(Varnel_Controles::kdArticulo *line, const QString &text);
    QString first(const QString &sql, const QString &column) const;

    Varnel_Controles::Conexion *m_conexion;
    Varnel_Controles::kdCliente *txtCliente;
    QList<Varnel_Controles::kdArticulo *> m_articulos;
    QList<Varnel_Controles::kdTextBox *> m_cantidades;
    QLabel *lblResumen;
};
