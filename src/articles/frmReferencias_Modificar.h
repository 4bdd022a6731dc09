// frmReferencias_Modificar: the data of an article's reference, to create or change it: the
// article (`txtArticulo`), the supplier (`txtProv`; with EsRefProveedor False the customer,
// `txtCli`) and the reference (`txtReferencia`). Set the variables, show it, read them after it
// hides: Accept (or F9) validates and returns Result 1 with the values as entered; Cancel (F12,
// Esc, the close box) returns Result 0. It writes nothing.
#pragma once

#include "varnel_controles_export.h"

#include <QDialog>

class QLabel;

namespace Varnel_Controles {

class cEmpresa;
class kdArticulo;
class kdCliente;
class kdLookup;
class kdProveedor;
class kdTextBox;

class VARNEL_CONTROLES_EXPORT frmReferencias_Modificar : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QString Articulo READ Articulo WRITE setArticulo)
    Q_PROPERTY(qint32 Proveedor READ Proveedor WRITE setProveedor)
    Q_PROPERTY(qint32 Cliente READ Cliente WRITE setCliente)
    Q_PROPERTY(QString Referencia READ Referencia WRITE setReferencia)
    Q_PROPERTY(qint16 Result READ Result)
    Q_PROPERTY(bool EsRefProveedor READ EsRefProveedor WRITE setEsRefProveedor)
    Q_PROPERTY(bool MostrarCualidades READ MostrarCualidades WRITE setMostrarCualidades)

public:
    explicit frmReferencias_Modificar(QWidget *parent = nullptr);

    /// The company object, handed to the lookups of the dialog.
    void setCEmpresa(cEmpresa *company) { m_empresa = company; }
    /// The article's code as text ("" for none): shown as the dialog opens, as entered after Accept.
    QString Articulo() const { return m_articulo; }
    void setArticulo(const QString &value) { m_articulo = value; }
    /// The supplier (0 for none), in and out as Articulo.
    qint32 Proveedor() const { return m_proveedor; }
    void setProveedor(qint32 value) { m_proveedor = value; }
    /// The customer of a customer's reference (0 for none), in and out as Articulo.
    qint32 Cliente() const { return m_cliente; }
    void setCliente(qint32 value) { m_cliente = value; }
    QString Referencia() const { return m_referencia; }
    void setReferencia(const QString &value) { m_referencia = value; }
    /// 1 when accepted, 0 when cancelled.
    qint16 Result() const { return m_result; }
    /// True (the default): a supplier's reference; False: a customer's (the customer's box
    /// takes the supplier's place and messages).
    bool EsRefProveedor() const { return m_esRefProveedor; }
    void setEsRefProveedor(bool value) { m_esRefProveedor = value; }
    /// Shows the qualities of an article scanned into the article box (company setting
    /// Empresas.MostrarCualidades).
    bool MostrarCualidades() const { return m_mostrarCualidades; }
    void setMostrarCualidades(bool value) { m_mostrarCualidades = value; }

    /// Checks, each later finding replacing an earlier one: the reference, the article and the
    /// supplier given (so with all three empty the supplier is asked for), then the supplier and
    /// the article existing. Shows the one message left (exclamation, "¡ Atención !") and puts
    /// the focus on its box; True when there is none.
    Q_INVOKABLE bool Validar_Datos();

public Q_SLOTS:
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void aceptar();
    kdLookup *titular() const;

    kdArticulo *txtArticulo;
    kdProveedor *txtProv;
    kdCliente *txtCli;
    kdTextBox *txtReferencia;
    QLabel *lblArticulo, *lblProv, *lblReferencia, *lblCualidades;
    cEmpresa *m_empresa = nullptr;
    QString m_articulo, m_referencia;
    qint32 m_proveedor = 0, m_cliente = 0;
    qint16 m_result = 0;
    bool m_esRefProveedor = true;
    bool m_mostrarCualidades = false;
    bool m_loaded = false;
};

} // namespace Varnel_Controles
