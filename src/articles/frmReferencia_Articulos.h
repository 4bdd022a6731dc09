// frmReferencia_Articulos: the choice among the articles that share a supplier's (or customer's)
// reference. As it is first shown it lists them (`vsLineas`: code and description under a header);
// Accept (or Enter in the list) takes the current article and hides the dialog, doing nothing
// while no article is current; Cancel, Esc and the close box leave Codigo 0 and hide it.
#pragma once

#include "varnel_controles_export.h"

#include <QDialog>

class QPushButton;
class QStandardItemModel;

namespace Varnel_Controles {

class SearchGrid;

class VARNEL_CONTROLES_EXPORT frmReferencia_Articulos : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QString Referencia READ Referencia WRITE setReferencia)
    Q_PROPERTY(bool EsRefProveedor READ EsRefProveedor WRITE setEsRefProveedor)
    Q_PROPERTY(qint32 Codigo READ Codigo)

public:
    explicit frmReferencia_Articulos(QWidget *parent = nullptr);

    /// The company whose references are listed.
    void setEmpresa(qint16 empresa) { m_empresa = empresa; }
    QString Referencia() const { return m_referencia; }
    void setReferencia(const QString &value) { m_referencia = value; }
    /// True (the default): the suppliers' references; False: the customers'.
    bool EsRefProveedor() const { return m_esRefProveedor; }
    void setEsRefProveedor(bool value) { m_esRefProveedor = value; }
    /// The chosen article; 0 when nothing was chosen.
    qint32 Codigo() const { return m_codigo; }

    /// Lists the articles carrying the reference; whether there is one. Throws DbError.
    bool Rellenar();

public Q_SLOTS:
    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void aceptar();

    SearchGrid *vsLineas;
    QStandardItemModel *m_model;
    QPushButton *cmdAceptar, *cmdCancelar;
    qint16 m_empresa = 0;
    QString m_referencia;
    bool m_esRefProveedor = true;
    qint32 m_codigo = 0;
    bool m_filled = false;
};

} // namespace Varnel_Controles
