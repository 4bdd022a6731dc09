#include "search/frmBusqueda_Articulos.h"

#include "data/DbError.h"
#include "input/kdTextBox.h"
#include "lookup/kdFamilia.h"
#include "lookup/kdProveedor.h"
#include "platform/KeyCodes.h"
#include "search/FiltroArticulos.h"
#include "search/PagedRecordsetModel.h"
#include "search/SearchGrid.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

namespace Varnel_Controles {

namespace {

constexpr int kPageSize = 25;

QLabel *caption(const QString &text, QWidget *buddy, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setBuddy(buddy);
    return label;
}

} // namespace

frmBusqueda_Articulos::frmBusqueda_Articulos(const QString &name, const QString &caption_, int columns, QWidget *parent)
    : frmBusqueda(name, caption_, columns, kPageSize, parent)
    , fraFiltro(new QFrame(this))
    , txtNombre(new kdTextBox(fraFiltro))
    , txtCodigo(new kdTextBox(fraFiltro))
    , txtFamilia(new kdFamilia(fraFiltro))
    , txtProveedor(new kdProveedor(fraFiltro))
    , txtReferencia(new kdTextBox(fraFiltro))
{
    fraFiltro->setObjectName(QStringLiteral("fraFiltro"));
    fraFiltro->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    txtNombre->setObjectName(QStringLiteral("txtNombre"));
    txtCodigo->setObjectName(QStringLiteral("txtCodigo"));
    txtProveedor->setObjectName(QStringLiteral("txtProveedor"));
    txtReferencia->setObjectName(QStringLiteral("txtReferencia"));
    txtFamilia->setObjectName(QStringLiteral("txtFamilia"));
    // Enter moves from box to box in the frame's order (the focus order, as they were created);
    // in the reference, the last, and leaving the families it searches.
    txtReferencia->setKeyEnterChangeFocus(false);
    txtFamilia->setKeyEnterChangeFocus(false);
    txtProveedor->setVital(false);
    txtProveedor->setDejarEnBlanco(true);
    txtProveedor->setKeyEnterChangeFocus(true);
    txtProveedor->setKeyUpChangeFocus(true);
    txtNombre->setSelectionOnFocus(false); // the whole text is selected, a "0" too
    txtNombre->findChild<QWidget *>(QStringLiteral("txtTexto"))->installEventFilter(this);

    auto *grid = new QGridLayout(fraFiltro);
    grid->addWidget(caption(QStringLiteral("&Descripción:"), txtNombre, fraFiltro), 0, 0);
    grid->addWidget(txtNombre, 0, 1, 1, 3);
    grid->addWidget(caption(QStringLiteral("Códi&go:"), txtCodigo, fraFiltro), 1, 0);
    grid->addWidget(txtCodigo, 1, 1);
    auto *familias = caption(QStringLiteral("&Familia:"), txtFamilia, fraFiltro);
    familias->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(familias, 2, 0);
    grid->addWidget(txtFamilia, 2, 1, 1, 3);
    grid->addWidget(caption(QStringLiteral("&Proveedor:"), txtProveedor, fraFiltro), 3, 0);
    grid->addWidget(txtProveedor, 3, 1, 1, 3);
    grid->addWidget(caption(QStringLiteral("&Referencia:"), txtReferencia, fraFiltro), 4, 0);
    grid->addWidget(txtReferencia, 4, 1);
    auto *hint = new QLabel(QStringLiteral("F9: buscar"), fraFiltro);
    hint->setObjectName(QStringLiteral("lblF9"));
    grid->addWidget(hint, 4, 3, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    m_layout->addWidget(fraFiltro);
    addGrid();

    setStoresResultFirst(true);
    setColumn(0, 800, Qt::AlignLeft | Qt::AlignVCenter);
    for (int c = 2; c <= 4; ++c)
        vsListado->setColumnHidden(c, true);
    vsListado->setColumnHidden(kBarcodeColumn, true);
    resize(720, 560);

    auto *f9 = new QShortcut(QKeySequence(Qt::Key_F9), this);
    connect(f9, &QShortcut::activated, this, &frmBusqueda_Articulos::onF9);
    connect(txtNombre, &kdTextBox::KeyDown, this, [this](qint16 &keyCode, qint16 &) {
        if (keyCode == KeyCodes::vbKeyDown && m_model->rowCount() > 0) {
            focusGrid();
            keyCode = 0;
        }
    });
    connect(txtReferencia, &kdTextBox::KeyPress, this, [this](qint16 &keyAscii) {
        if (keyAscii == 13) {
            keyAscii = 0;
            searchReporting(QStringLiteral("::Recuperar_Registros"));
        }
    });
    connect(txtFamilia, &kdFamilia::KeyPress, this, [this](qint16 &keyAscii) {
        if (keyAscii == 13) {
            keyAscii = 0;
            searchReporting(QStringLiteral("::Recuperar_Registros"));
        }
    });
}

frmBusqueda_Articulos::~frmBusqueda_Articulos() = default;

void frmBusqueda_Articulos::setCEmpresa(cEmpresa *company)
{
    m_context.setCEmpresa(company);
    txtProveedor->setCEmpresa(company);
    txtFamilia->setCEmpresa(company);
    if (txtFamilia->Familia_1() != 0)
        txtFamilia->Cargar();
}

FiltroArticulos frmBusqueda_Articulos::filtro() const
{
    FiltroArticulos f;
    f.descripcion = txtNombre->Text();
    f.codigo = txtCodigo->Text();
    f.referencia = txtReferencia->Text();
    f.proveedor = txtProveedor->Codigo();
    f.familia1 = m_fijas[0] != 0 ? m_fijas[0] : txtFamilia->Familia_1();
    f.familia2 = m_fijas[1] != 0 ? m_fijas[1] : txtFamilia->Familia_2();
    f.familia3 = m_fijas[2] != 0 ? m_fijas[2] : txtFamilia->Familia_3();
    f.extendido = m_extendido;
    return f;
}

void frmBusqueda_Articulos::Recuperar_Registros()
{
    ensureLoaded(false);
    search(statement(empresa(), filtro()));
    searched();
}

void frmBusqueda_Articulos::searchFromFilters() { Recuperar_Registros(); }

void frmBusqueda_Articulos::searchReporting(const QString &procedure)
{
    try {
        Recuperar_Registros();
    } catch (const DbError &e) {
        reportError(e.Description(), objectName() + procedure);
    }
}

void frmBusqueda_Articulos::ensureLoaded(bool fromShow)
{
    if (m_loaded)
        return;
    m_loaded = true;
    const QString title = objectName() + QStringLiteral("::Form_Load");
    trapErrors(title, [this] {
        load(empresa());
        return true;
    });
    if (fromShow && m_preset)
        searchReporting(QStringLiteral("::Form_Load"));
}

void frmBusqueda_Articulos::showEvent(QShowEvent *event)
{
    frmBusqueda::showEvent(event);
    ensureLoaded(true);
}

void frmBusqueda_Articulos::onF9()
{
    if (!fraFiltro->isVisible()) {
        setMostrarFiltro(true);
        txtNombre->setFocus();
        return;
    }
    searchReporting(QStringLiteral("::Recuperar_Registros"));
}

// Entering the description selects its whole text.
bool frmBusqueda_Articulos::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn && watched->objectName() == QLatin1String("txtTexto"))
        txtNombre->SelectText();
    return frmBusqueda::eventFilter(watched, event);
}

QWidget *frmBusqueda_Articulos::firstFilter() const { return fraFiltro->isVisible() ? txtNombre : nullptr; }

void frmBusqueda_Articulos::takeRow(int row)
{
    m_codigoArticulo = cell(row, 0);
    m_nombre = cell(row, 1);
}

void frmBusqueda_Articulos::clearResult() { m_codigoArticulo.clear(); }

QString frmBusqueda_Articulos::Busqueda_Descripcion() const { return txtNombre->Text(); }
QString frmBusqueda_Articulos::Busqueda_Codigo() const { return txtCodigo->Text(); }
qint16 frmBusqueda_Articulos::Busqueda_Proveedor() const { return qint16(txtProveedor->Codigo()); }
QString frmBusqueda_Articulos::Busqueda_Referencia() const { return txtReferencia->Text(); }
qint16 frmBusqueda_Articulos::Busqueda_Familia_1() const { return txtFamilia->Familia_1(); }
qint16 frmBusqueda_Articulos::Busqueda_Familia_2() const { return txtFamilia->Familia_2(); }
qint16 frmBusqueda_Articulos::Busqueda_Familia_3() const { return txtFamilia->Familia_3(); }

void frmBusqueda_Articulos::setBusqueda_Descripcion(const QString &value)
{
    txtNombre->setText(value);
    m_preset = m_preset || !txtNombre->Text().isEmpty();
}

void frmBusqueda_Articulos::setBusqueda_Codigo(const QString &value)
{
    txtCodigo->setText(value);
    m_preset = m_preset || !txtCodigo->Text().isEmpty();
}

void frmBusqueda_Articulos::setBusqueda_Proveedor(qint16 value)
{
    txtProveedor->setCodigo(value);
    if (value != 0 && m_context.hasCompany())
        txtProveedor->Cargar();
    m_preset = m_preset || value != 0;
}

void frmBusqueda_Articulos::setBusqueda_Referencia(const QString &value)
{
    txtReferencia->setText(value);
    m_preset = m_preset || !txtReferencia->Text().isEmpty();
}

void frmBusqueda_Articulos::setBusqueda_Familia_1(qint16 value)
{
    if (m_fijas[0] == 0)
        txtFamilia->setFamilia_1(value);
    m_preset = m_preset || value != 0;
}

void frmBusqueda_Articulos::setBusqueda_Familia_2(qint16 value)
{
    if (m_fijas[1] == 0)
        txtFamilia->setFamilia_2(value);
    m_preset = m_preset || txtFamilia->Familia_2() != 0;
}

void frmBusqueda_Articulos::setBusqueda_Familia_3(qint16 value)
{
    if (m_fijas[2] == 0)
        txtFamilia->setFamilia_3(value);
    m_preset = m_preset || txtFamilia->Familia_3() != 0;
}

void frmBusqueda_Articulos::setFija(int nivel, qint16 value)
{
    m_fijas[size_t(nivel - 1)] = value;
    if (value != 0)
        txtFamilia->setFamilia(nivel, value);
    txtFamilia->setFija(nivel, value != 0);
}

void frmBusqueda_Articulos::setExtendido(bool value) { m_extendido = value; }

void frmBusqueda_Articulos::setMostrarCodBarras(bool value)
{
    m_mostrarCodBarras = value;
    vsListado->setColumnHidden(kBarcodeColumn, !value);
}

bool frmBusqueda_Articulos::MostrarFiltro() const { return !fraFiltro->isHidden(); }
void frmBusqueda_Articulos::setMostrarFiltro(bool value) { fraFiltro->setVisible(value); }

} // namespace Varnel_Controles
