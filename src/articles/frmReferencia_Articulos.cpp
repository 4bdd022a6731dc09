#include "articles/frmReferencia_Articulos.h"

#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/Legacy.h"
#include "search/SearchGrid.h"
#include "platform/DialogButtons.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace Varnel_Controles {

frmReferencia_Articulos::frmReferencia_Articulos(QWidget *parent)
    : QDialog(parent)
    , vsLineas(new SearchGrid(this))
    , m_model(new QStandardItemModel(0, 2, this))
    , cmdAceptar(new QPushButton(QStringLiteral("&Aceptar"), this))
    , cmdCancelar(new QPushButton(QStringLiteral("&Cancelar"), this))
{
    setObjectName(QStringLiteral("frmReferencia_Articulos"));
    setWindowTitle(QStringLiteral("Artículos con la misma referencia"));
    vsLineas->setObjectName(QStringLiteral("vsLineas"));
    vsLineas->setAccessibleName(QStringLiteral("Artículos"));
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
    m_model->setHorizontalHeaderLabels({QStringLiteral("Código"), QStringLiteral("Descripción")});
    vsLineas->setModel(m_model);
    vsLineas->horizontalHeader()->show();
    vsLineas->setColWidth(0, 1000);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(vsLineas, 1);
    QHBoxLayout *buttons = DialogButtons::row({cmdAceptar, cmdCancelar});
    layout->addLayout(buttons);
    resize(520, 300);
    connect(cmdAceptar, &QPushButton::clicked, this, &frmReferencia_Articulos::aceptar);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmReferencia_Articulos::reject);
    connect(vsLineas, &SearchGrid::KeyPress, this, [this](qint16 &keyAscii) {
        if (keyAscii == 13)
            aceptar();
    });
}

bool frmReferencia_Articulos::Rellenar()
{
    m_model->removeRows(0, m_model->rowCount());
    Recordset rs;
    rs.open(QStringLiteral("SELECT b.Codigo, b.Descripcion FROM ")
                + (m_esRefProveedor ? QStringLiteral("Articulos_Ref") : QStringLiteral("Articulos_RefCli"))
                + QStringLiteral(" a INNER JOIN Articulos b ON a.Cod_Empresa = b.Cod_Empresa And a.Cod_Articulo = "
                                 "b.Codigo WHERE a.Cod_Empresa =")
                + SqlText::empresa(m_empresa) + QStringLiteral(" AND a.Ref ='") + SqlText::texto(m_referencia) + u'\'',
            Conexion::shared());
    for (; !rs.eof(); rs.moveNext()) {
        const QVariant descripcion = rs.field(QStringLiteral("Descripcion"));
        m_model->appendRow({new QStandardItem(rs.text(QStringLiteral("Codigo"))),
                            new QStandardItem(descripcion.isNull() ? QString() : descripcion.toString())});
    }
    vsLineas->setRow(0);
    return m_model->rowCount() > 0;
}

void frmReferencia_Articulos::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_filled)
        return;
    m_filled = true;
    trapErrors(QStringLiteral("frmReferencia_Articulos::Rellenar"), [this] { return Rellenar(); });
    vsLineas->setFocus();
}

void frmReferencia_Articulos::aceptar()
{
    const int row = vsLineas->Row();
    if (row < 0)
        return;
    m_codigo = Legacy::CLng(Legacy::Val(m_model->item(row, 0)->text()));
    accept();
}

void frmReferencia_Articulos::reject()
{
    m_codigo = 0;
    QDialog::reject();
}

} // namespace Varnel_Controles
