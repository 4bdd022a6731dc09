#include "PantallaCodigosBarras.h"

#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/FechaSQL.h>
#include <Varnel_Controles/Recordset.h>
#include <Varnel_Controles/SqlText.h>
#include <Varnel_Controles/cEmpresa.h>
#include <Varnel_Controles/kdTextBox.h>

#include <Varnel_Controles/UiSeam.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {
const QString kTitle = QStringLiteral("Códigos de barras");
}

PantallaCodigosBarras::PantallaCodigosBarras(Conexion *conexion, cEmpresa *empresa, QWidget *parent)
    : DemoScreen(parent), m_conexion(conexion), m_empresa(empresa)
{
    m_barcodes.setConexion(conexion);
    m_barcodes.setCEmpresa(empresa);

    auto *layout = new QVBoxLayout(this);
    auto *nav = new QHBoxLayout;
    lblArticulo = new QLabel(this);
    lblArticulo->setObjectName(QStringLiteral("lblArticulo"));
    QFont bold = lblArticulo->font();
    bold.setBold(true);
    lblArticulo->setFont(bold);
    nav->addWidget(lblArticulo, 1);
    const std::pair<const char *, bool (clsArticulo_CBarra::*)(Recordset &)> moves[] = {
        {"|<", &clsArticulo_CBarra::Cargar_Primero}, {"<", &clsArticulo_CBarra::Cargar_Anterior},
        {">", &clsArticulo_CBarra::Cargar_Siguiente}, {">|", &clsArticulo_CBarra::Cargar_Ultimo}};
    for (const auto &[text, move] : moves) {
        auto *b = new QPushButton(QString::fromLatin1(text), this);
        b->setFixedWidth(40);
        connect(b, &QPushButton::clicked, this, [this, move = move] { navigate(move); });
        nav->addWidget(b);
    }
    layout->addLayout(nav);

    vsCodigos = new QTableWidget(0, 5, this);
    vsCodigos->setObjectName(QStringLiteral("vsCodigos"));
    vsCodigos->setHorizontalHeaderLabels({QStringLiteral("Código de barras"), QStringLiteral("Principal"),
                                          QStringLiteral("Unidades"), QStringLiteral("Fecha"), QStringLiteral("Automático")});
    vsCodigos->setSelectionBehavior(QAbstractItemView::SelectRows);
    vsCodigos->setSelectionMode(QAbstractItemView::SingleSelection);
    vsCodigos->setEditTriggers(QAbstractItemView::NoEditTriggers);
    vsCodigos->verticalHeader()->hide();
    vsCodigos->horizontalHeader()->setStretchLastSection(true);
    vsCodigos->setColumnWidth(0, 160);
    layout->addWidget(vsCodigos, 1);

    auto *actions = new QHBoxLayout;
    for (const auto &[text, slot] : std::initializer_list<std::pair<const char *, void (PantallaCodigosBarras::*)()>>{
             {"Hacer principal", &PantallaCodigosBarras::makePrincipal},
             {"Eliminar", &PantallaCodigosBarras::remove},
             {"Código automático", &PantallaCodigosBarras::automatic}}) {
        auto *b = new QPushButton(QString::fromUtf8(text), this);
        connect(b, &QPushButton::clicked, this, slot);
        actions->addWidget(b);
    }
    actions->addStretch();
    layout->addLayout(actions);

    auto *addRow = new QHBoxLayout;
    addRow->addWidget(new QLabel(QStringLiteral("Nuevo código:"), this));
    txtCodigo = new kdTextBox(this);
    txtCodigo->setObjectName(QStringLiteral("txtCodigo"));
    txtCodigo->setMaxLength(20);
    txtCodigo->setFixedWidth(150);
    addRow->addWidget(txtCodigo);
    addRow->addWidget(new QLabel(QStringLiteral("Unidades:"), this));
    txtUnidades = new kdTextBox(this);
    txtUnidades->setObjectName(QStringLiteral("txtUnidades"));
    txtUnidades->setTypeOfValues(Numeric);
    txtUnidades->setText(QStringLiteral("1"));
    txtUnidades->setFixedWidth(50);
    addRow->addWidget(txtUnidades);
    chkPrincipal = new QCheckBox(QStringLiteral("Principal"), this);
    addRow->addWidget(chkPrincipal);
    auto *addButton = new QPushButton(QStringLiteral("Añadir"), this);
    connect(addButton, &QPushButton::clicked, this, &PantallaCodigosBarras::add);
    connect(txtUnidades, &kdTextBox::KeyPress, this, [this](qint16 &k) { if (k == 13) add(); });
    addRow->addWidget(addButton);
    addRow->addStretch();
    layout->addLayout(addRow);

    navigate(&clsArticulo_CBarra::Cargar_Primero);
}

bool PantallaCodigosBarras::guarded(const std::function<void()> &action)
{
    try {
        action();
        return true;
    } catch (const DbError &e) {
        reportError(e.Description(), e.Source().isEmpty() ? kTitle : e.Source());
        return false;
    }
}

void PantallaCodigosBarras::navigate(bool (clsArticulo_CBarra::*move)(Recordset &))
{
    guarded([&] {
        Recordset rs;
        if ((m_barcodes.*move)(rs))
            show(rs);
    });
}

void PantallaCodigosBarras::reload()
{
    guarded([&] {
        Recordset rs;
        m_barcodes.Cargar(rs, m_article);
        show(rs);
    });
}

void PantallaCodigosBarras::show(Recordset &rs)
{
    m_article = m_barcodes.Cod_Articulo();
    Recordset article;
    article.open(QStringLiteral("SELECT Descripcion FROM Articulos WHERE Cod_Empresa =") + SqlText::empresa(m_empresa->Codigo())
                     + QStringLiteral(" AND Codigo =") + SqlText::numero(m_article),
                 m_conexion);
    const QString description = article.eof() ? QStringLiteral("(sin ficha de artículo)") : article.field(QStringLiteral("Descripcion")).toString();
    lblArticulo->setText(QStringLiteral("Artículo %1 · %2").arg(m_article).arg(description));
    vsCodigos->setRowCount(0);
    for (; !rs.eof(); rs.moveNext()) {
        const int row = vsCodigos->rowCount();
        vsCodigos->insertRow(row);
        const bool principal = rs.field(QStringLiteral("Principal")).toInt() != 0;
        const QStringList cells{rs.text(QStringLiteral("Cod_Barras")), principal ? QStringLiteral("Sí") : QString(),
                                rs.text(QStringLiteral("Unidades")),
                                FechaSQL::Corta(FechaSQL::Leer(rs.field(QStringLiteral("Fecha")))),
                                rs.field(QStringLiteral("Automatico")).toInt() ? QStringLiteral("Sí") : QString()};
        for (int c = 0; c < cells.size(); ++c)
            vsCodigos->setItem(row, c, new QTableWidgetItem(cells[c]));
    }
    if (vsCodigos->rowCount() > 0)
        vsCodigos->selectRow(0);
}

QString PantallaCodigosBarras::selectedCode(bool *principal) const
{
    const int row = vsCodigos->currentRow();
    if (row < 0)
        return QString();
    if (principal)
        *principal = !vsCodigos->item(row, 1)->text().isEmpty();
    return vsCodigos->item(row, 0)->text();
}

void PantallaCodigosBarras::add()
{
    clsArticulo_CBarra candidate;
    candidate.setCod_Barras(txtCodigo->Text());
    if (txtCodigo->Text().isEmpty())
        return;
    if (!candidate.Validar()) {
        UiSeam::current().MsgBox(QStringLiteral("El código de barras %1 no es válido: su dígito de control debería ser %2.")
                                     .arg(txtCodigo->Text())
                                     .arg(candidate.Dev_Check(QString())),
                                 UiSeam::vbExclamation, kTitle);
        return;
    }
    guarded([&] {
        qint32 other = 0;
        QString name;
        qint16 units = 0;
        bool principal = false;
        if (m_barcodes.Existe(txtCodigo->Text(), other, name, units, principal)) {
            UiSeam::current().MsgBox(QStringLiteral("El código de barras %1 ya está asignado al artículo %2 - %3.")
                                         .arg(txtCodigo->Text()).arg(other).arg(name),
                                     UiSeam::vbExclamation, kTitle);
            return;
        }
        m_barcodes.setCod_Articulo(m_article);
        m_barcodes.setCod_Barras(txtCodigo->Text());
        m_barcodes.setPrincipal(chkPrincipal->isChecked() || vsCodigos->rowCount() == 0);
        m_barcodes.setAutomatico(false);
        m_barcodes.setUnidades(qint16(qMax(1.0, txtUnidades->Value())));
        m_barcodes.Insertar();
        txtCodigo->setText(QString());
        reload();
    });
}

void PantallaCodigosBarras::makePrincipal()
{
    const QString code = selectedCode();
    if (code.isEmpty())
        return;
    guarded([&] {
        m_barcodes.setCod_Articulo(m_article);
        m_barcodes.Cambia_Principal(code);
        reload();
    });
}

void PantallaCodigosBarras::remove()
{
    bool principal = false;
    const QString code = selectedCode(&principal);
    if (code.isEmpty())
        return;
    if (UiSeam::current().MsgBox(QStringLiteral("¿Eliminar el código de barras %1 del artículo %2?").arg(code).arg(m_article),
                                 UiSeam::vbYesNo | UiSeam::vbQuestion | UiSeam::vbDefaultButton2, kTitle) != UiSeam::vbYes)
        return;
    guarded([&] {
        m_barcodes.Eliminar(code, m_article, principal);
        reload();
    });
}

void PantallaCodigosBarras::automatic()
{
    guarded([&] {
        m_barcodes.setCod_Articulo(m_article);
        const QString code = m_barcodes.CrearAuto();
        bool exists = false;
        for (int r = 0; r < vsCodigos->rowCount(); ++r)
            exists = exists || vsCodigos->item(r, 0)->text() == code;
        if (!exists) {
            m_barcodes.setCod_Barras(code);
            m_barcodes.setAutomatico(true);
            m_barcodes.setPrincipal(vsCodigos->rowCount() == 0);
            m_barcodes.setUnidades(1);
            m_barcodes.Insertar();
        }
        UiSeam::current().MsgBox(QStringLiteral("Código automático del artículo %1: %2").arg(m_article).arg(code),
                                 UiSeam::vbInformation, kTitle);
        reload();
    });
}

void PantallaCodigosBarras::prepareScreenshot()
{
    navigate(&clsArticulo_CBarra::Cargar_Primero);
    txtCodigo->setText(QStringLiteral("8412345678905"));
    txtCodigo->setFocus();
}
