#include "PantallaAltaArticulos.h"

#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/KeyCodes.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/UiSeam.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/clsArticulo_CBarra.h>
#include <Varnel_Controles/frmArticulos_Creacion.h>
#include <Varnel_Controles/frmBusqueda_Articulos_1.h>
#include <Varnel_Controles/kdArticulo.h>
#include <Varnel_Controles/kdFamilia.h>
#include <Varnel_Controles/kdProveedor.h>
#include <Varnel_Controles/kdTextBox.h>

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

using namespace Varnel_Controles;

PantallaAltaArticulos::PantallaAltaArticulos(Conexion *conexion, cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent)
    , m_conexion(conexion)
    , m_empresa(empresa)
    , lblCreado(new QLabel(this))
    , lblConsulta(new QLabel(this))
    , cmdBuscar(new QPushButton(QStringLiteral("Verlo en la &búsqueda de artículos…"), this))
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("El comprador da de alta artículos de uno en uno: en el formulario, F6 toma el siguiente "
                                            "código libre (o escriba uno e Intro), luego proveedor, referencia, familias, marca "
                                            "(F3 la busca), impuesto, cualidades y temporada; F9 acepta, F12 cancela el artículo. "
                                            "La descripción se compone sola con la referencia, la marca y la familia."),
                             this);
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *abrir = new QPushButton(QStringLiteral("&Alta rápida de artículos…"), this);
    connect(abrir, &QPushButton::clicked, this, [this] {
        std::unique_ptr<frmArticulos_Creacion> form(formulario());
        UiSeam::current().ShowModal(*form);
    });
    layout->addWidget(abrir, 0, Qt::AlignLeft);
    layout->addSpacing(12);
    layout->addWidget(new QLabel(QStringLiteral("Último artículo creado:"), this));
    for (QLabel *label : {lblCreado, lblConsulta}) {
        label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label->setTextFormat(Qt::PlainText);
        label->setMinimumHeight(28);
        label->setWordWrap(true);
    }
    lblCreado->setText(QStringLiteral("Todavía no se ha creado ningún artículo en esta sesión."));
    layout->addWidget(lblCreado);
    cmdBuscar->setEnabled(false);
    connect(cmdBuscar, &QPushButton::clicked, this, &PantallaAltaArticulos::buscar);
    layout->addWidget(cmdBuscar, 0, Qt::AlignLeft);
    layout->addSpacing(12);
    layout->addWidget(new QLabel(QStringLiteral("Consulta del artículo (por código, referencia y código de barras):"), this));
    auto *consultas = new QFormLayout;
    for (const QString &etiqueta : {QStringLiteral("Por código:"), QStringLiteral("Por referencia («.»):"),
                                    QStringLiteral("Por código de barras («/»):")}) {
        auto *box = new kdArticulo(this);
        box->setObjectName(QStringLiteral("txtConsulta%1").arg(m_consultas.size() + 1));
        box->setCEmpresa(m_empresa);
        box->setKeyEnterChangeFocus(true);
        box->setKeyUpChangeFocus(true);
        box->setMinimumWidth(480);
        consultas->addRow(etiqueta, box);
        m_consultas << box;
    }
    layout->addLayout(consultas);
    layout->addWidget(lblConsulta);
    layout->addStretch();
    consultar();
}

frmArticulos_Creacion *PantallaAltaArticulos::formulario()
{
    auto *form = new frmArticulos_Creacion(this);
    form->setCEmpresa(m_empresa);
    form->Cargar();
    connect(form, &frmArticulos_Creacion::ArticuloCreado, this, &PantallaAltaArticulos::creado);
    return form;
}

// What was saved: the principal reference and the principal barcode (the automatic one).
void PantallaAltaArticulos::creado(qint32 codigo)
{
    m_codigo = codigo;
    QString descripcion;
    trapErrors(QStringLiteral("PantallaAltaArticulos::creado"), [&] {
        Recordset rs;
        rs.open(QStringLiteral("SELECT a.Descripcion, r.Ref, r.Cod_Prov FROM Articulos a LEFT JOIN Articulos_Ref r ON r.Cod_Empresa = a.Cod_Empresa "
                               "AND r.Cod_Articulo = a.Codigo AND r.Principal = 1 WHERE a.Cod_Empresa =%1 AND a.Codigo =%2")
                    .arg(m_empresa->Codigo()).arg(codigo),
                m_conexion);
        if (!rs.eof()) {
            descripcion = rs.field(QStringLiteral("Descripcion")).toString();
            m_referencia = rs.field(QStringLiteral("Ref")).toString();
            m_proveedor = qint16(rs.field(QStringLiteral("Cod_Prov")).toInt());
        }
        rs.close();
        clsArticulo_CBarra barras;
        barras.setConexion(m_conexion);
        barras.setCEmpresa(m_empresa);
        m_codigoBarras = barras.Dev_CodigoBarraPrincipal(codigo);
        return true;
    });
    lblCreado->setText(QStringLiteral("%1 · %2 · referencia %3 · código de barras %4")
                           .arg(codigo)
                           .arg(descripcion, m_referencia, m_codigoBarras.isEmpty() ? QStringLiteral("(ninguno)") : m_codigoBarras));
    cmdBuscar->setEnabled(true);
    consultar();
}

// The article search, preset with the new code: it opens on the article just created.
void PantallaAltaArticulos::buscar()
{
    frmBusqueda_Articulos_1 busqueda(this);
    busqueda.setCEmpresa(m_empresa);
    busqueda.setBusqueda_Codigo(QString::number(m_codigo));
    UiSeam::current().ShowModal(busqueda);
}

// The new article as a clerk at the counter would type it: its code, its principal supplier
// reference after "." and its principal barcode after "/", each validated with Enter; the three
// boxes show the article's description when they resolve to it.
void PantallaAltaArticulos::consultar()
{
    if (m_codigo == 0) {
        lblConsulta->setText(QStringLiteral("Cree un artículo: aquí se consultará por su código, su referencia y su código de barras."));
        return;
    }
    const QStringList entradas{QString::number(m_codigo), u'.' + m_referencia,
                               m_codigoBarras.isEmpty() ? QString() : u'/' + m_codigoBarras};
    QStringList resueltas;
    for (int i = 0; i < m_consultas.size(); ++i) {
        kdArticulo *box = m_consultas[i];
        box->setProveedor(m_proveedor);
        box->setText(entradas[i]);
        if (entradas[i].isEmpty())
            continue;
        QWidget *field = box->findChild<QWidget *>(QStringLiteral("txtCodigo"));
        field->setFocus();
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
        QApplication::sendEvent(field, &enter);
        if (box->Existe() && box->Codigo() == m_codigo)
            resueltas << entradas[i];
    }
    QStringList tecleadas = entradas;
    tecleadas.removeAll(QString());
    lblConsulta->setText(resueltas == tecleadas
                             ? QStringLiteral("Tecleado %1: las tres consultas dan el artículo %2.")
                                   .arg(tecleadas.join(QStringLiteral(", ")))
                                   .arg(m_codigo)
                             : QStringLiteral("Solo dan el artículo %1: %2").arg(m_codigo).arg(resueltas.join(QStringLiteral(", "))));
}

namespace {

// F6 and what a buyer types next, on a form that need not be shown.
void rellenar(frmArticulos_Creacion *form, const QString &referencia)
{
    QKeyEvent f6(QEvent::KeyPress, Qt::Key_F6, Qt::NoModifier);
    QApplication::sendEvent(form->findChild<QWidget *>(QStringLiteral("txtCodigo"))->focusProxy(), &f6);
    auto *proveedor = form->findChild<kdProveedor *>(QStringLiteral("txtProv"));
    proveedor->setCodigo(1);
    proveedor->Cargar();
    form->findChild<kdTextBox *>(QStringLiteral("txtRef"))->setText(referencia);
    auto *familia = form->findChild<kdFamilia *>(QStringLiteral("txtFamilia"));
    for (qint16 nivel : {1, 2, 3})
        familia->setFamilia(nivel, nivel == 1 ? 1 : nivel == 2 ? 11 : 111);
    form->findChild<QWidget *>(QStringLiteral("txtTemporada"))->setProperty("Text", QStringLiteral("PV26"));
}

// Answers every message with Yes, showing nothing (the screenshots run without anyone to answer).
struct SinMensajes : UiSeam
{
    SinMensajes() { UiSeam::install(this); }
    ~SinMensajes() override { UiSeam::install(nullptr); }
    int MsgBox(const QString &, int, const QString &) override { return vbYes; }
    int ShowModal(QDialog &) override { return 0; }
};

const QString kReferenciaDemo = QStringLiteral("ALTA-DEMO");

} // namespace

// The screen after the buyer created an article: made through the form on the first run, the
// same article on the later ones.
void PantallaAltaArticulos::prepareScreenshot()
{
    qint32 codigo = 0;
    trapErrors(QStringLiteral("PantallaAltaArticulos::prepareScreenshot"), [&] {
        Recordset rs;
        rs.open(QStringLiteral("SELECT Cod_Articulo FROM Articulos_Ref WHERE Cod_Empresa =%1 AND Cod_Prov =1 AND Ref ='%2'")
                    .arg(m_empresa->Codigo()).arg(kReferenciaDemo),
                m_conexion);
        codigo = rs.eof() ? 0 : rs.field(QStringLiteral("Cod_Articulo")).toInt();
        rs.close();
        return true;
    });
    if (codigo != 0) {
        creado(codigo);
        return;
    }
    SinMensajes silencio;
    std::unique_ptr<frmArticulos_Creacion> form(formulario());
    rellenar(form.get(), kReferenciaDemo);
    QKeyEvent f9(QEvent::KeyPress, Qt::Key_F9, Qt::NoModifier);
    QApplication::sendEvent(form.get(), &f9);
}

// The form after F6 and some typing (its provisional article goes when the form is deleted), and
// the article search opened on the article created.
QList<QPair<QString, QWidget *>> PantallaAltaArticulos::screenshotDialogs()
{
    frmArticulos_Creacion *form = formulario();
    rellenar(form, QStringLiteral("TAL-2040"));
    QList<QPair<QString, QWidget *>> shots{qMakePair(QStringLiteral("alta-articulos"), static_cast<QWidget *>(form))};
    if (m_codigo != 0) {
        auto *busqueda = new frmBusqueda_Articulos_1(this);
        busqueda->setCEmpresa(m_empresa);
        busqueda->setBusqueda_Codigo(QString::number(m_codigo));
        try {
            busqueda->Recuperar_Registros();
        } catch (const DbError &) {
        }
        shots << qMakePair(QStringLiteral("busqueda-articulo-creado"), static_cast<QWidget *>(busqueda));
    }
    return shots;
}
