// Barcode maintenance as a host screen builds it on clsArticulo_CBarra: walk the articles that
// have barcodes, list an article's barcodes (principal first), add one (its check digit must be
// right), make one principal, delete one, or give the article its automatic in-house EAN-8.
#pragma once

#include "DemoScreen.h"

#include <Varnel_Controles/clsArticulo_CBarra.h>

class QCheckBox;
class QLabel;
class QTableWidget;
namespace Varnel_Controles { class kdTextBox; class Recordset; }

class PantallaCodigosBarras : public DemoScreen
{
    Q_OBJECT

public:
    PantallaCodigosBarras(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Códigos de barras"); }
    QString slug() const override { return QStringLiteral("codigos-barras"); }
    void prepareScreenshot() override;

private:
    void navigate(bool (Varnel_Controles::clsArticulo_CBarra::*move)(Varnel_Controles::Recordset &));
    void show(Varnel_Controles::Recordset &rs);
    void reload();
    void add();
    void makePrincipal();
    void remove();
    void automatic();
    QString selectedCode(bool *principal = nullptr) const;
    bool guarded(const std::function<void()> &action);

    Varnel_Controles::clsArticulo_CBarra m_barcodes;
    Varnel_Controles::Conexion *m_conexion;
    Varnel_Controles::cEmpresa *m_empresa;
    qint32 m_article = 0;
    QLabel *lblArticulo;
    QTableWidget *vsCodigos;
    Varnel_Controles::kdTextBox *txtCodigo, *txtUnidades;
    QCheckBox *chkPrincipal;
};
