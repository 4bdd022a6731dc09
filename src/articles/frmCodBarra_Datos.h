// frmCodBarra_Datos: the data of a barcode to store: its article (`txtArticulo`), the code
// (`txtCB`) and the units it stands for (`txtUnidades`). Set the variables, show it, read them
// after it hides: Accept (or F9) returns Result True with the code, article and units as entered
// (units 0 become 1); Cancel (F12, Esc, the close box) returns False. Opened with an empty
// CodBarra it refuses every Accept, whatever is typed. It writes nothing.
#pragma once

#include "varnel_controles_export.h"

#include <QDialog>

namespace Varnel_Controles {

class cEmpresa;
class kdArticulo;
class kdTextBox;

class VARNEL_CONTROLES_EXPORT frmCodBarra_Datos : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QString Articulo READ Articulo WRITE setArticulo)
    Q_PROPERTY(QString CodBarra READ CodBarra WRITE setCodBarra)
    Q_PROPERTY(bool Principal READ Principal WRITE setPrincipal)
    Q_PROPERTY(qint16 Unidades READ Unidades WRITE setUnidades)
    Q_PROPERTY(bool Result READ Result)

public:
    explicit frmCodBarra_Datos(QWidget *parent = nullptr);

    /// The company object, handed to the article box.
    void setCEmpresa(cEmpresa *company) { m_empresa = company; }
    /// The article's code as text: shown as the dialog opens, as entered after Accept.
    QString Articulo() const { return m_articulo; }
    void setArticulo(const QString &value) { m_articulo = value; }
    /// The barcode: shown as the dialog opens, as entered after Accept.
    QString CodBarra() const { return m_codBarra; }
    void setCodBarra(const QString &value) { m_codBarra = value; }
    /// Whether the barcode is to be the principal one; kept for the caller, the dialog never changes it.
    bool Principal() const { return m_principal; }
    void setPrincipal(bool value) { m_principal = value; }
    /// Units the barcode stands for (shown when not 0); 1 after an Accept with 0.
    qint16 Unidades() const { return m_unidades; }
    void setUnidades(qint16 value) { m_unidades = value; }
    /// True when accepted, False when cancelled.
    bool Result() const { return m_result; }

public Q_SLOTS:
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void aceptar();

    kdArticulo *txtArticulo;
    kdTextBox *txtCB, *txtUnidades;
    cEmpresa *m_empresa = nullptr;
    QString m_articulo, m_codBarra;
    bool m_principal = false;
    qint16 m_unidades = 0;
    bool m_result = false;
    bool m_loaded = false;
};

} // namespace Varnel_Controles
