#include "articles/frmCodBarra_Datos.h"

#include "data/Conexion.h"
#include "input/kdTextBox.h"
#include "lookup/kdArticulo.h"
#include "platform/Enums.h"
#include "platform/Legacy.h"
#include "platform/UiSeam.h"
#include "platform/DialogButtons.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace Varnel_Controles {

frmCodBarra_Datos::frmCodBarra_Datos(QWidget *parent)
    : QDialog(parent)
    , txtArticulo(new kdArticulo(this))
    , txtCB(new kdTextBox(this))
    , txtUnidades(new kdTextBox(this))
{
    setObjectName(QStringLiteral("frmCodBarra_Datos"));
    setWindowTitle(QStringLiteral("Código de barras"));
    auto *lblArticulo = new QLabel(QStringLiteral("&Artículo:"), this);
    auto *lblCb = new QLabel(QStringLiteral("Código de &barras:"), this);
    auto *Label1 = new QLabel(QStringLiteral("&Unidades:"), this);
    auto *cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    auto *cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    const std::pair<QObject *, const char *> names[] = {
        {txtArticulo, "txtArticulo"}, {txtCB, "txtCB"}, {txtUnidades, "txtUnidades"}, {lblArticulo, "lblArticulo"},
        {lblCb, "lblCb"}, {Label1, "Label1"}, {cmdAceptar, "cmdAceptar"}, {cmdCancelar, "cmdCancelar"}};
    for (const auto &[object, name] : names)
        object->setObjectName(QLatin1String(name));
    txtArticulo->setVital(true);
    txtArticulo->setKeyEnterChangeFocus(true);
    txtArticulo->setKeyUpChangeFocus(true);
    for (kdTextBox *box : {txtCB, txtUnidades}) {
        box->setKeyEnterChangeFocus(true);
        box->setKeyUpChangeFocus(true);
    }
    txtUnidades->setTypeOfValues(Numeric);
    txtUnidades->setMaxLength(5);
    cmdAceptar->setAutoDefault(false);
    cmdCancelar->setAutoDefault(false);

    auto *form = new QFormLayout(this);
    form->addRow(lblArticulo, txtArticulo);
    form->addRow(lblCb, txtCB);
    form->addRow(Label1, txtUnidades);
    QHBoxLayout *buttons = DialogButtons::row({cmdAceptar, cmdCancelar});
    form->addRow(buttons);
    lblArticulo->setBuddy(txtArticulo);
    lblCb->setBuddy(txtCB);
    Label1->setBuddy(txtUnidades);
    resize(520, sizeHint().height());

    connect(cmdAceptar, &QPushButton::clicked, this, &frmCodBarra_Datos::aceptar);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmCodBarra_Datos::reject);
    DialogButtons::acceptCancelKeys(this, &frmCodBarra_Datos::aceptar, &frmCodBarra_Datos::reject);
}

void frmCodBarra_Datos::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (m_loaded)
        return;
    m_loaded = true;
    txtArticulo->setCEmpresa(m_empresa);
    txtArticulo->setConexion(Conexion::shared());
    txtArticulo->setText(m_articulo);
    if (!m_articulo.isEmpty())
        txtArticulo->Refrescar_Datos();
    txtCB->setText(m_codBarra);
    if (m_unidades != 0)
        txtUnidades->setText(QString::number(m_unidades));
    (m_articulo.isEmpty() ? static_cast<QWidget *>(txtArticulo) : txtUnidades)->setFocus();
}

// The article and the code as the caller passed it are required; the article must exist.
void frmCodBarra_Datos::aceptar()
{
    const bool falta = Legacy::Trim(txtArticulo->Text()).isEmpty() || m_codBarra.isEmpty();
    if (falta || !txtArticulo->Refrescar_Datos()) {
        UiSeam::current().MsgBox(falta ? QStringLiteral("Debe especificar datos validos.")
                                       : QStringLiteral("El artículo especificado no existe."),
                                 UiSeam::vbExclamation, QStringLiteral("¡ Atención !"));
        if (!falta)
            txtArticulo->setFocus();
        return;
    }
    m_codBarra = txtCB->Text();
    m_articulo = txtArticulo->Text();
    m_unidades = Legacy::CInt(txtUnidades->Value());
    if (m_unidades == 0)
        m_unidades = 1;
    m_result = true;
    accept();
}

void frmCodBarra_Datos::reject()
{
    m_result = false;
    QDialog::reject();
}

} // namespace Varnel_Controles
