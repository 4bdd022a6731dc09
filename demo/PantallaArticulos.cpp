#include "PantallaArticulos.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/KeyCodes.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/SqlText.h>
#include <Varnel_Controles/UiSeam.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/frmBusqueda_Articulos_1.h>
#include <Varnel_Controles/frmBusqueda_Articulos_2.h>
#include <Varnel_Controles/kdCliente.h>
#include <Varnel_Controles/kdDispositivo.h>
#include <Varnel_Controles/kdFamilia.h>
#include <Varnel_Controles/kdImpresoras.h>
#include <Varnel_Controles/kdTextBox.h>

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {
constexpr int kPhotos = 8; // articles 1 to 8 have a photo
}

PantallaArticulos::PantallaArticulos(Conexion *conexion, cEmpresa *empresa, const QString &databasePath, QWidget *parent)
    : DemoScreen(parent)
    , m_conexion(conexion)
    , m_empresa(empresa)
    , txtDescripcion(new kdTextBox(this))
    , txtFamilia(new kdFamilia(this))
    , txtCliente(new kdCliente(this))
    , cboDestino(new kdDispositivo(this))
    , cboImpresoras(new kdImpresoras(this))
    , chkExtendido(new QCheckBox(QStringLiteral("Modo &extendido (descripción larga, existencias, precio y foto)"), this))
    , chkCodBarras(new QCheckBox(QStringLiteral("Columna de código de &barras"), this))
    , lblElegido(new QLabel(this))
{
    drawPhotos(QFileInfo(databasePath).absolutePath() + QStringLiteral("/fotos/"));
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("Escriba el principio de la descripción y pulse F3 (o un botón). En la búsqueda: "
                                            "F9 busca, Intro en la referencia o al salir de las familias también; "
                                            "flechas e Intro para aceptar."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *form = new QFormLayout;
    form->addRow(QStringLiteral("&Descripción:"), txtDescripcion);
    form->addRow(QStringLiteral("&Familia:"), txtFamilia);
    form->addRow(QStringLiteral("&Cliente (precios):"), txtCliente);
    form->addRow(QStringLiteral("&Imprimir en:"), cboDestino);
    form->addRow(QStringLiteral("I&mpresora:"), cboImpresoras);
    layout->addLayout(form);
    layout->addWidget(chkExtendido);
    layout->addWidget(chkCodBarras);
    auto *buttons = new QHBoxLayout;
    for (int l : {1, 2}) {
        auto *button = new QPushButton(l == 1 ? QStringLiteral("Búsqueda, &primera disposición…")
                                              : QStringLiteral("Búsqueda, &segunda disposición…"), this);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QPushButton::clicked, this, [this, l] { open(l); });
        buttons->addWidget(button);
    }
    buttons->addStretch();
    layout->addLayout(buttons);
    lblElegido->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblElegido->setMinimumHeight(28);
    layout->addWidget(new QLabel(QStringLiteral("Artículo elegido:"), this));
    layout->addWidget(lblElegido);
    layout->addStretch();

    txtFamilia->setCEmpresa(empresa);
    txtFamilia->setMostrarTitulos(true);
    txtFamilia->Cargar();
    txtCliente->setCEmpresa(empresa);
    connect(txtDescripcion, &kdTextBox::KeyDown, this, [this](qint16 &keyCode, qint16 &) {
        if (keyCode != KeyCodes::vbKeyF3)
            return;
        // The company says which layout its clerks use.
        int layout = 1;
        trapErrors(QStringLiteral("PantallaArticulos::Buscar"), [&] {
            Recordset rs;
            rs.open(QStringLiteral("SELECT BusquedaArticulos FROM Empresas WHERE Codigo=") + SqlText::empresa(m_empresa->Codigo()),
                    m_conexion);
            layout = !rs.eof() && rs.field(QStringLiteral("BusquedaArticulos")).toInt() == 1 ? 2 : 1;
            return true;
        });
        open(layout);
    });
}

// A few photos drawn once: a product card with the article's description.
void PantallaArticulos::drawPhotos(const QString &folder)
{
    trapErrors(QStringLiteral("PantallaArticulos::Fotos"), [&] {
        QDir().mkpath(folder);
        Recordset rs;
        rs.open(QStringLiteral("SELECT Codigo, Descripcion FROM Articulos WHERE Cod_Empresa =1 AND Codigo <= ")
                    + QString::number(kPhotos),
                m_conexion);
        for (; !rs.eof(); rs.moveNext()) {
            const QString file = folder + rs.text(QStringLiteral("Codigo")) + QStringLiteral(".jpg");
            if (QFileInfo::exists(file))
                continue;
            QImage photo(320, 240, QImage::Format_RGB32);
            const int code = rs.field(QStringLiteral("Codigo")).toInt();
            photo.fill(QColor::fromHsv((code * 47) % 360, 60, 235));
            QPainter p(&photo);
            p.setRenderHint(QPainter::Antialiasing);
            p.setBrush(QColor::fromHsv((code * 47) % 360, 160, 170));
            p.setPen(Qt::NoPen);
            p.drawRoundedRect(QRectF(70, 30, 180, 120), 18, 18);
            p.setPen(Qt::white);
            QFont font = p.font();
            font.setPixelSize(56);
            font.setBold(true);
            p.setFont(font);
            p.drawText(QRect(70, 30, 180, 120), Qt::AlignCenter, QString::number(code));
            p.setPen(Qt::black);
            font.setPixelSize(17);
            font.setBold(false);
            p.setFont(font);
            p.drawText(QRect(10, 160, 300, 70), Qt::AlignCenter | Qt::TextWordWrap, rs.text(QStringLiteral("Descripcion")));
            p.end();
            photo.save(file, "JPG", 85);
        }
        rs.close();
        m_conexion->execute(QStringLiteral("UPDATE Empresas SET DirImagenArt = '") + SqlText::texto(folder)
                            + QStringLiteral("' WHERE Codigo = 1"));
        return true;
    });
}

frmBusqueda_Articulos *PantallaArticulos::dialog(int layout)
{
    frmBusqueda_Articulos *d = layout == 1 ? static_cast<frmBusqueda_Articulos *>(new frmBusqueda_Articulos_1(this))
                                           : new frmBusqueda_Articulos_2(this);
    d->setCEmpresa(m_empresa);
    d->setCliente(txtCliente->Codigo());
    d->setExtendido(chkExtendido->isChecked());
    d->setMostrarCodBarras(chkCodBarras->isChecked());
    d->setBusqueda_Descripcion(txtDescripcion->Text());
    d->setBusqueda_Familia_1(txtFamilia->Familia_1());
    d->setBusqueda_Familia_2(txtFamilia->Familia_2());
    d->setBusqueda_Familia_3(txtFamilia->Familia_3());
    if (auto *second = qobject_cast<frmBusqueda_Articulos_2 *>(d)) { // its Imprimir button prints there
        second->setDestino(cboDestino->ListCount() > 0 ? cboDestino->Destination() : kdPantalla);
        second->setImpresora(cboImpresoras->Text());
        second->setFichero(QDir::home().filePath(QStringLiteral("articulos.pdf")));
    }
    return d;
}

void PantallaArticulos::open(int layout)
{
    std::unique_ptr<frmBusqueda_Articulos> d(dialog(layout));
    UiSeam::current().ShowModal(*d);
    if (d->Codigo().isEmpty())
        return;
    lblElegido->setText(d->Codigo() + QStringLiteral(" · ") + d->Descripcion());
    txtDescripcion->setText(d->Busqueda_Descripcion()); // the next search opens where this one ended
}

void PantallaArticulos::prepareScreenshot()
{
    txtDescripcion->setText(QStringLiteral("TORNILLO"));
    txtCliente->setCodigo(1001);
    txtCliente->Cargar();
    chkExtendido->setChecked(true);
    txtDescripcion->setFocus();
}

QStringList PantallaArticulos::writeDocuments(const QString &stem)
{
    txtDescripcion->setText(QStringLiteral("TORNILLO"));
    std::unique_ptr<frmBusqueda_Articulos> d(dialog(2));
    auto *second = static_cast<frmBusqueda_Articulos_2 *>(d.get());
    const QString pdf = stem + QStringLiteral(".pdf");
    try {
        second->Recuperar_Registros();
    } catch (const DbError &) {
        return {};
    }
    return second->Imprimir(kdFichero, QString(), pdf) ? QStringList{pdf} : QStringList();
}

QList<QPair<QString, QWidget *>> PantallaArticulos::screenshotDialogs()
{
    QList<QPair<QString, QWidget *>> shots;
    try {
        // The first layout in extended mode, on the row of an article with a photo.
        QString description;
        Recordset rs;
        rs.open(QStringLiteral("SELECT Descripcion FROM Articulos WHERE Cod_Empresa =1 AND Codigo = 1"), m_conexion);
        if (!rs.eof())
            description = rs.text(QStringLiteral("Descripcion"));
        rs.close();
        txtDescripcion->setText(description);
        chkExtendido->setChecked(true);
        chkCodBarras->setChecked(true);
        frmBusqueda_Articulos *first = dialog(1);
        first->Recuperar_Registros();
        auto *grid = first->findChild<QTableView *>(QStringLiteral("vsListado"));
        for (int row = 0; row < grid->model()->rowCount(); ++row)
            if (grid->model()->index(row, 0).data().toInt() == 1)
                grid->setCurrentIndex(grid->model()->index(row, 0));
        shots << qMakePair(QStringLiteral("busqueda-articulos-1"), static_cast<QWidget *>(first));
        txtDescripcion->setText(description.section(u' ', 0, 0));
        frmBusqueda_Articulos *second = dialog(2);
        second->Recuperar_Registros();
        shots << qMakePair(QStringLiteral("busqueda-articulos-2"), static_cast<QWidget *>(second));
    } catch (const DbError &) {
    }
    return shots;
}
