#include "articles/frmReferencias_Modificar.h"

#include "data/Conexion.h"
#include "input/kdTextBox.h"
#include "lookup/kdArticulo.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "platform/Legacy.h"
#include "platform/UiSeam.h"
#include "platform/DialogButtons.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Varnel_Controles {

frmReferencias_Modificar::frmReferencias_Modificar(QWidget *parent)
    : QDialog(parent)
    , txtArticulo(new kdArticulo(this))
    , txtProv(new kdProveedor(this))
    , txtCli(new kdCliente(this))
    , txtReferencia(new kdTextBox(this))
    , lblArticulo(new QLabel(QStringLiteral("&Artículo:"), this))
    , lblProv(new QLabel(QStringLiteral("&Proveedor:"), this))
    , lblReferencia(new QLabel(QStringLiteral("&Referencia:"), this))
    , lblCualidades(new QLabel(this))
{
    setObjectName(QStringLiteral("frmReferencias_Modificar"));
    setWindowTitle(QStringLiteral("Referencia del artículo"));
    auto *cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    auto *cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    const std::pair<QObject *, const char *> names[] = {
        {txtArticulo, "txtArticulo"}, {txtProv, "txtProv"}, {txtCli, "txtCli"}, {txtReferencia, "txtReferencia"},
        {lblArticulo, "lblArticulo"}, {lblProv, "lblProv"}, {lblReferencia, "lblReferencia"},
        {lblCualidades, "lblCualidades"}, {cmdAceptar, "cmdAceptar"}, {cmdCancelar, "cmdCancelar"}};
    for (const auto &[object, name] : names)
        object->setObjectName(QLatin1String(name));
    for (kdLookup *lookup : std::initializer_list<kdLookup *>{txtArticulo, txtProv, txtCli}) {
        lookup->setVital(true);
        lookup->setKeyEnterChangeFocus(true);
        lookup->setKeyUpChangeFocus(true);
    }
    txtReferencia->setKeyEnterChangeFocus(true);
    txtReferencia->setKeyUpChangeFocus(true);
    cmdAceptar->setAutoDefault(false);
    cmdCancelar->setAutoDefault(false);

    auto *form = new QFormLayout(this);
    form->addRow(lblArticulo, txtArticulo);
    form->addRow(QString(), lblCualidades);
    form->addRow(lblProv, txtProv);
    form->addRow(QString(), txtCli);
    form->addRow(lblReferencia, txtReferencia);
    QHBoxLayout *buttons = DialogButtons::row({cmdAceptar, cmdCancelar});
    form->addRow(buttons);
    lblArticulo->setBuddy(txtArticulo);
    lblReferencia->setBuddy(txtReferencia);
    resize(560, sizeHint().height());

    connect(cmdAceptar, &QPushButton::clicked, this, &frmReferencias_Modificar::aceptar);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmReferencias_Modificar::reject);
    DialogButtons::acceptCancelKeys(this, &frmReferencias_Modificar::aceptar, &frmReferencias_Modificar::reject);
    connect(txtArticulo, &kdLookup::NombreChanged, this, [this] {
        lblCualidades->setText(txtArticulo->TieneCualidad() ? QStringLiteral("Cualidades: %1 / %2")
                                                                   .arg(txtArticulo->Nombre_CualidadX(),
                                                                        txtArticulo->Nombre_CualidadY())
                                                             : QString());
    });
}

kdLookup *frmReferencias_Modificar::titular() const
{
    return m_esRefProveedor ? static_cast<kdLookup *>(txtProv) : txtCli;
}

void frmReferencias_Modificar::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_loaded)
        return;
    m_loaded = true;
    txtProv->setVisible(m_esRefProveedor);
    txtCli->setVisible(!m_esRefProveedor);
    lblProv->setText(m_esRefProveedor ? QStringLiteral("&Proveedor:") : QStringLiteral("C&liente:"));
    lblProv->setBuddy(titular());
    lblCualidades->setVisible(m_mostrarCualidades);
    const qint32 codigo = m_esRefProveedor ? m_proveedor : m_cliente;
    titular()->setCEmpresa(m_empresa);
    titular()->setConexion(Conexion::shared());
    if (codigo != 0) {
        titular()->setText(QString::number(codigo));
        titular()->Refrescar_Datos();
    }
    txtReferencia->setText(m_referencia);
    txtArticulo->setCEmpresa(m_empresa);
    txtArticulo->setConexion(Conexion::shared());
    if (!m_articulo.isEmpty()) {
        txtArticulo->setText(m_articulo);
        txtArticulo->Refrescar_Datos();
    }
    (m_articulo.isEmpty() ? static_cast<QWidget *>(txtArticulo) : codigo == 0 ? static_cast<QWidget *>(titular()) : txtReferencia)->setFocus();
}

bool frmReferencias_Modificar::Validar_Datos()
{
    QString mensaje;
    QWidget *foco = nullptr;
    const auto falta = [&](bool condicion, const char *texto, QWidget *box) {
        if (condicion) {
            mensaje = QString::fromUtf8(texto);
            foco = box;
        }
    };
    falta(Legacy::Trim(txtReferencia->Text()).isEmpty(), "Debe especificar la referencia del artículo", txtReferencia);
    falta(Legacy::Trim(txtArticulo->Text()).isEmpty(), "Debe especificar el código del artículo", txtArticulo);
    if (m_esRefProveedor) {
        falta(txtProv->Value() == 0, "Debe especificar el proveedor del artículo", txtProv);
        falta(mensaje.isEmpty() && !txtProv->Refrescar_Datos(), "El proveedor especificado no existe.", txtProv);
    } else {
        falta(txtCli->Value() == 0, "Debe especificar el cliente del artículo", txtCli);
        falta(mensaje.isEmpty() && !txtCli->Refrescar_Datos(), "El cliente especificado no existe.", txtCli);
    }
    falta(mensaje.isEmpty() && !txtArticulo->Refrescar_Datos(), "El artículo especificado no existe.", txtArticulo);
    if (mensaje.isEmpty())
        return true;
    UiSeam::current().MsgBox(mensaje, UiSeam::vbExclamation, QStringLiteral("¡ Atención !"));
    foco->setFocus();
    return false;
}

void frmReferencias_Modificar::aceptar()
{
    if (!Validar_Datos())
        return;
    (m_esRefProveedor ? m_proveedor : m_cliente) = titular()->Value();
    m_referencia = txtReferencia->Text();
    m_articulo = QString::number(txtArticulo->Value());
    m_result = 1;
    accept();
}

void frmReferencias_Modificar::reject()
{
    m_result = 0;
    QDialog::reject();
}

} // namespace Varnel_Controles
