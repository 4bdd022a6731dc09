// The article search screen: what to look for (a description, families, the customer whose
// prices the detail area shows), the options of the search (extended mode, barcode column) and
// a button per layout; F3 in the description opens the company's layout. The chosen article is
// shown below. The demo's photos of a handful of articles are drawn on first use in a folder next
// to the database, which becomes the company's image folder.
#pragma once

#include "DemoScreen.h"

class QCheckBox;
class QLabel;
namespace Varnel_Controles {
class Conexion; class cEmpresa; class frmBusqueda_Articulos; class kdCliente; class kdDispositivo; class kdFamilia;
class kdImpresoras; class kdTextBox;
}

class PantallaArticulos : public DemoScreen
{
    Q_OBJECT

public:
    PantallaArticulos(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa,
                      const QString &databasePath, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Búsqueda de artículos"); }
    QString slug() const override { return QStringLiteral("articulos"); }
    void prepareScreenshot() override;
    QList<QPair<QString, QWidget *>> screenshotDialogs() override;
    /// The second layout's printed list of the screenshot's search, as a PDF.
    QStringList writeDocuments(const QString &stem) override;

private:
    void open(int layout);
    /// A dialog of `layout` with the screen's criteria set.
    Varnel_Controles::frmBusqueda_Articulos *dialog(int layout);
    void drawPhotos(const QString &folder);

    Varnel_Controles::Conexion *m_conexion;
    Varnel_Controles::cEmpresa *m_empresa;
    Varnel_Controles::kdTextBox *txtDescripcion;
    Varnel_Controles::kdFamilia *txtFamilia;
    Varnel_Controles::kdCliente *txtCliente;
    Varnel_Controles::kdDispositivo *cboDestino;   // where the second layout's Imprimir sends its list
    Varnel_Controles::kdImpresoras *cboImpresoras;
    QCheckBox *chkExtendido, *chkCodBarras;
    QLabel *lblElegido;
};
