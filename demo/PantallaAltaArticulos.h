// The quick creation of articles as a buyer's host screen offers it: the creation form opens from
// here (F6 there gives the next free code), and the last article created is shown with its
// reference and automatic barcode, found again through the article search and resolved by the
// article lookup from its code, its reference and its barcode.
#pragma once

#include "DemoScreen.h"

class QLabel;
class QPushButton;
namespace Varnel_Controles { class Conexion; class cEmpresa; class frmArticulos_Creacion; class kdArticulo; }

class PantallaAltaArticulos : public DemoScreen
{
    Q_OBJECT

public:
    PantallaAltaArticulos(Varnel_Controles::Conexion *conexion, Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Alta rápida de artículos"); }
    QString slug() const override { return QStringLiteral("alta-articulos"); }
    void prepareScreenshot() override;
    QList<QPair<QString, QWidget *>> screenshotDialogs() override;

private:
    /// A creation form of the company, loaded; the screen hears of each article it creates.
    Varnel_Controles::frmArticulos_Creacion *formulario();
    void creado(qint32 codigo);
    void buscar();
    void consultar();

    Varnel_Controles::Conexion *m_conexion;
    Varnel_Controles::cEmpresa *m_empresa;
    qint32 m_codigo = 0;
    qint16 m_proveedor = 0;
    QString m_referencia, m_codigoBarras;
    QList<Varnel_Controles::kdArticulo *> m_consultas; // by code, by reference, by barcode
    QLabel *lblCreado, *lblConsulta;
    QPushButton *cmdBuscar;
};
