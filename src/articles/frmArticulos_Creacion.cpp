#include "articles/frmArticulos_Creacion.h"

#include "articles/clsArticulo_CBarra.h"
#include "articles/kdTemporada.h"
#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "data/TransactionScope.h"
#include "input/kdCheckBox.h"
#include "input/kdTextBox.h"
#include "input/modTeclas.h"
#include "lookup/kdFamilia.h"
#include "lookup/kdProveedor.h"
#include "platform/ComboField.h"
#include "platform/Enums.h"
#include "platform/KeyCodes.h"
#include "platform/Legacy.h"
#include "platform/UiSeam.h"
#include "search/frmBusqueda_Marcas.h"
#include "platform/DialogButtons.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

namespace Varnel_Controles {

namespace {

const QString kCodigoAsignado = QStringLiteral("Este código ya está asignado a otro artículo.");
const QString kTituloValidar = QStringLiteral("Validando artículo...");

// Column sizes of the article's texts (the SQL Server schema's).
constexpr int kRef = 30, kDescripcion = 60, kDescTicket = 30, kTemporada = 10;

QString titulo(const char *procedure) { return QStringLiteral("frmArticulos_Creacion::") + QLatin1String(procedure); }

// A code typed in a numeric box as a statement takes it: its digits as they stand, or the value
// of its leading digits when it holds anything else.
QString numeroSql(const QString &typed)
{
    const QString t = Legacy::Trim(typed);
    bool digits = !t.isEmpty() && t.size() <= 9;
    for (QChar c : t)
        digits = digits && c >= u'0' && c <= u'9';
    return digits ? t : QString::number(Legacy::CLng(Legacy::Val(t)));
}

bool hayFila(const QString &statement, Conexion *c)
{
    Recordset rs;
    rs.open(statement, c);
    const bool found = !rs.eof();
    rs.close();
    return found;
}

kdTextBox *caja(QWidget *parent, const char *name, int maxLength, bool numeric = false)
{
    auto *box = new kdTextBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setMaxLength(maxLength);
    if (numeric)
        box->setTypeOfValues(Numeric);
    return box;
}

} // namespace

frmArticulos_Creacion::frmArticulos_Creacion(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmArticulos_Creacion"));
    setWindowTitle(QStringLiteral("Alta rápida de artículos"));
    // Created in the order the focus goes through them.
    txtCodigo = caja(this, "txtCodigo", 9, true);
    txtCodigo->setKeyEnterChangeFocus(false); // Enter takes the code; the box moves the focus itself
    txtProv = new kdProveedor(this);
    txtProv->setObjectName(QStringLiteral("txtProv"));
    txtProv->setVital(true);
    txtProv->setKeyEnterChangeFocus(true);
    txtProv->setKeyUpChangeFocus(true);
    txtRef = caja(this, "txtRef", kRef);
    txtDescripcion = caja(this, "txtDescripcion", kDescripcion);
    txtDesc_Ticket = caja(this, "txtDesc_Ticket", kDescTicket);
    txtFamilia = new kdFamilia(this);
    txtFamilia->setObjectName(QStringLiteral("txtFamilia"));
    txtMarca = caja(this, "txtMarca", 5, true);
    txtImpuesto = caja(this, "txtImpuesto", 5, true);
    cboCualX = new ComboField(this);
    cboCualY = new ComboField(this);
    cboCualX->setObjectName(QStringLiteral("cboCualX"));
    cboCualY->setObjectName(QStringLiteral("cboCualY"));
    txtTemporada = new kdTemporada(this);
    txtTemporada->setObjectName(QStringLiteral("txtTemporada"));
    chkNoGenerarSerieEAN = new kdCheckBox(this);
    chkNoGenerarSerieEAN->setObjectName(QStringLiteral("chkNoGenerarSerieEAN"));
    chkNoGenerarSerieEAN->setCaption(QStringLiteral("No Generar Series Automáticamente"));
    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    cmdCerrar = new QPushButton(QStringLiteral("Ce&rrar"), this);
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
    cmdCerrar->setObjectName(QStringLiteral("cmdCerrar"));
    cmdAceptar->setToolTip(QStringLiteral("F9"));
    cmdCancelar->setToolTip(QStringLiteral("F12"));
    for (QPushButton *b : {cmdAceptar, cmdCancelar, cmdCerrar})
        b->setAutoDefault(false); // Enter belongs to the fields
    lblMarca = new QLabel(this);
    lblMarca->setObjectName(QStringLiteral("lblMarca"));
    lblMarca->setTextFormat(Qt::PlainText);
    for (int n = 0; n < 3; ++n) {
        lblTFamilia[size_t(n)] = new QLabel(txtFamilia->Titulo(n + 1), this);
        lblTFamilia[size_t(n)]->setObjectName(QStringLiteral("lblTFamilia%1").arg(n + 1));
    }
    lblCualidades = {new QLabel(QStringLiteral("Cualidad X"), this), new QLabel(QStringLiteral("Cualidad Y"), this)};
    lblCualidades[0]->setObjectName(QStringLiteral("lblCualidadesX"));
    lblCualidades[1]->setObjectName(QStringLiteral("lblCualidadesY"));
    buildLayout();

    connect(txtCodigo, &kdTextBox::KeyDown, this, [this](qint16 &keyCode, qint16 &) {
        if (keyCode == KeyCodes::vbKeyF6)
            siguienteCodigo();
    });
    connect(txtCodigo, &kdTextBox::KeyPress, this, &frmArticulos_Creacion::onCodigoKeyPress);
    for (auto *box : {txtRef, txtMarca})
        connect(box, &kdTextBox::Change, this, &frmArticulos_Creacion::componer);
    connect(txtTemporada, &kdTemporada::Change, this, &frmArticulos_Creacion::componer);
    connect(txtFamilia, &kdFamilia::Change, this, &frmArticulos_Creacion::componer);
    connect(txtMarca, &kdTextBox::Change, this, [this] {
        if (txtMarca->Text() != m_marcaMostrada)
            mostrarMarca(QString(), QString()); // the name shown was the previous code's
    });
    connect(txtMarca, &kdTextBox::KeyDown, this, [this](qint16 &keyCode, qint16 &) {
        if (keyCode == KeyCodes::vbKeyF3)
            buscarMarca();
    });
    txtMarca->installEventFilter(this);
    for (QComboBox *combo : {cboCualX, cboCualY})
        connect(static_cast<ComboField *>(combo), &ComboField::KeyPress, this, [](qint16 &keyAscii) {
            if (keyAscii == 13)
                modTeclas::MoveFocusNext();
        });
    connect(cmdAceptar, &QPushButton::clicked, this, &frmArticulos_Creacion::aceptar);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmArticulos_Creacion::cancelar);
    connect(cmdCerrar, &QPushButton::clicked, this, &QDialog::reject);
    estadoVacio();
}

frmArticulos_Creacion::~frmArticulos_Creacion()
{
    // The children lose the focus and change as they go: nothing of theirs reaches the form.
    txtMarca->removeEventFilter(this);
    const QList<QObject *> children = findChildren<QObject *>();
    for (QObject *child : children)
        child->disconnect(this);
    if (m_provisional != 0) {
        try {
            eliminarFilas(m_provisional);
        } catch (const std::exception &) {
        }
    }
}

void frmArticulos_Creacion::buildLayout()
{
    auto *grid = new QGridLayout;
    int row = 0;
    auto add = [&](const QString &caption, QWidget *field, QWidget *beside = nullptr) {
        auto *label = new QLabel(caption, this);
        label->setBuddy(field);
        grid->addWidget(label, row, 0);
        auto *line = new QHBoxLayout;
        line->addWidget(field, beside ? 0 : 1);
        if (beside)
            line->addWidget(beside, 1);
        grid->addLayout(line, row++, 1);
    };
    auto *ayuda = new QLabel(QStringLiteral("F6: siguiente código libre"), this);
    ayuda->setEnabled(false);
    txtCodigo->setFixedWidth(110);
    add(QStringLiteral("&Código:"), txtCodigo, ayuda);
    add(QStringLiteral("&Proveedor:"), txtProv);
    txtRef->setFixedWidth(260);
    add(QStringLiteral("&Referencia:"), txtRef, new QWidget(this));
    add(QStringLiteral("&Descripción:"), txtDescripcion);
    txtDesc_Ticket->setFixedWidth(260);
    add(QStringLiteral("Descripción &ticket:"), txtDesc_Ticket, new QWidget(this));

    // The family titles beside the picker's three levels.
    auto *titulos = new QVBoxLayout;
    titulos->setContentsMargins(0, 0, 0, 0);
    titulos->setSpacing(2);
    const int levelHeight = txtFamilia->findChild<QLineEdit *>(QStringLiteral("txtFamilia1"))->sizeHint().height();
    for (QLabel *label : lblTFamilia) {
        label->setFixedHeight(levelHeight);
        titulos->addWidget(label);
    }
    lblTFamilia[0]->setBuddy(txtFamilia);
    grid->addLayout(titulos, row, 0);
    grid->addWidget(txtFamilia, row++, 1);

    txtMarca->setFixedWidth(60);
    add(QStringLiteral("&Marca:"), txtMarca, lblMarca);
    txtImpuesto->setFixedWidth(60);
    add(QStringLiteral("Tipo de &impuesto:"), txtImpuesto, new QWidget(this));
    auto *cualidades = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        QComboBox *combo = i == 0 ? cboCualX : cboCualY;
        combo->setMinimumWidth(150);
        lblCualidades[size_t(i)]->setBuddy(combo);
        cualidades->addWidget(lblCualidades[size_t(i)]);
        cualidades->addWidget(combo);
        cualidades->addSpacing(12);
    }
    cualidades->addStretch();
    grid->addLayout(cualidades, row++, 0, 1, 2);
    add(QStringLiteral("T&emporada:"), txtTemporada);
    grid->addWidget(chkNoGenerarSerieEAN, row++, 1);
    grid->setColumnStretch(1, 1);

    QHBoxLayout *buttons = DialogButtons::row({cmdAceptar, cmdCancelar, cmdCerrar});
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(buttons);
    resize(620, 470);
}

void frmArticulos_Creacion::setCEmpresa(cEmpresa *company)
{
    m_context.setCEmpresa(company);
    txtProv->setCEmpresa(company);
    txtFamilia->setCEmpresa(company);
    txtTemporada->setCEmpresa(company);
}

bool frmArticulos_Creacion::Cargar()
{
    m_cargado = true;
    return trapErrors(titulo("Form_Load"), [this] {
        Conexion *c = m_context.conexion();
        const QString e = SqlText::empresa(m_context.empresa());
        Recordset rs;
        rs.open(QStringLiteral("SELECT FamiliaObligada, DirImagenArt, MargenReal_FArt_sUltimoPUC, MaxCodigoArt, "
                               "CualidadX_PorDefecto, CualidadY_PorDefecto, Series_Automaticas ")
                    + QStringLiteral(" FROM Empresas WHERE Codigo=") + e,
                c);
        Ajustes a;
        if (!rs.eof()) {
            a.familiaObligada = rs.field(QStringLiteral("FamiliaObligada")).toInt() != 0;
            a.maxCodigoArt = Legacy::CLng(rs.field(QStringLiteral("MaxCodigoArt")).toDouble());
            a.cualidadX = rs.field(QStringLiteral("CualidadX_PorDefecto")).toInt();
            a.cualidadY = rs.field(QStringLiteral("CualidadY_PorDefecto")).toInt();
            a.seriesAutomaticas = rs.field(QStringLiteral("Series_Automaticas")).toInt() != 0;
        }
        rs.close();
        m_ajustes = a;
        chkNoGenerarSerieEAN->setEnabled(a.seriesAutomaticas);

        cboCualX->clear();
        cboCualY->clear();
        rs.open(QStringLiteral("SELECT Codigo, Nombre FROM Cualidades WHERE Cod_Empresa =") + e + QStringLiteral(" ORDER BY Codigo"), c);
        for (; !rs.eof(); rs.moveNext())
            for (QComboBox *combo : {cboCualX, cboCualY})
                combo->addItem(rs.text(QStringLiteral("Nombre")), rs.field(QStringLiteral("Codigo")).toInt());
        rs.close();
        seleccionarDefectos();

        txtFamilia->Cargar(); // shows its own failure
        for (int n = 0; n < 3; ++n)
            lblTFamilia[size_t(n)]->setText(txtFamilia->Titulo(n + 1));
        m_ticket = leerComposicion(0);
        m_larga = leerComposicion(1);
        return true;
    });
}

QList<DescripcionCompuesta::Campo> frmArticulos_Creacion::leerComposicion(int descLarga)
{
    QList<DescripcionCompuesta::Campo> campos;
    Recordset rs;
    rs.open(QStringLiteral("SELECT * FROM Formacion_Desc WHERE Desc_Larga=%1 ORDER BY Orden").arg(descLarga), m_context.conexion());
    for (; !rs.eof(); rs.moveNext())
        campos.append({Legacy::CInt(rs.field(QStringLiteral("Cod_Campo")).toDouble()),
                       Legacy::CInt(rs.field(QStringLiteral("Longitud")).toDouble())});
    rs.close();
    return campos;
}

void frmArticulos_Creacion::seleccionarDefectos()
{
    cboCualX->setCurrentIndex(cboCualX->findData(m_ajustes.cualidadX));
    cboCualY->setCurrentIndex(cboCualY->findData(m_ajustes.cualidadY));
}

qint32 frmArticulos_Creacion::codigoCualidad(const QComboBox *combo) const
{
    return combo->currentIndex() < 0 ? 0 : combo->currentData().toInt();
}

void frmArticulos_Creacion::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!m_cargado)
        Cargar();
    if (txtCodigo->isEnabled())
        txtCodigo->setFocus();
}

// ---- The code ----------------------------------------------------------------------------

bool frmArticulos_Creacion::existeCodigo(qint32 codigo)
{
    return hayFila(QStringLiteral("SELECT * FROM Articulos") + QStringLiteral(" WHERE Cod_Empresa =")
                       + SqlText::empresa(m_context.empresa()) + QStringLiteral(" AND Codigo =") + QString::number(codigo),
                   m_context.conexion());
}

bool frmArticulos_Creacion::Existe(qint32 Codigo)
{
    return trapErrors(titulo("Existe"), [&] { return existeCodigo(Codigo); });
}

void frmArticulos_Creacion::eliminarFilas(qint32 codigo)
{
    Conexion *c = m_context.conexion();
    const QString e = SqlText::empresa(m_context.empresa()), code = QString::number(codigo);
    TransactionScope transaction(c);
    c->execute(QStringLiteral("DELETE FROM Articulos") + QStringLiteral(" WHERE Cod_Empresa =") + e + QStringLiteral(" AND Codigo =") + code);
    c->execute(QStringLiteral("DELETE FROM Almacen_Articulos") + QStringLiteral(" WHERE Cod_Empresa =") + e
               + QStringLiteral(" AND Cod_Articulo =") + code);
    transaction.commit();
}

bool frmArticulos_Creacion::eliminar(qint32 codigo)
{
    return trapErrors(titulo("EliminarF6"), [&] { return eliminarFilas(codigo), true; });
}

void frmArticulos_Creacion::EliminarF6(qint32 Codigo) { eliminar(Codigo); }

bool frmArticulos_Creacion::leerSiguiente(qint32 &codigo)
{
    Recordset rs;
    rs.open(QStringLiteral("SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = ")
                + SqlText::empresa(m_context.empresa()),
            m_context.conexion());
    if (rs.eof())
        return false;
    bool numeric = false;
    const qlonglong maximo = rs.field(QStringLiteral("Codigo")).toString().toLongLong(&numeric);
    rs.close();
    if (!numeric || maximo < 0 || maximo >= std::numeric_limits<qint32>::max())
        throw DbError(13, QStringLiteral("No coinciden los tipos: los códigos de artículo no son números."));
    codigo = qint32(maximo + 1);
    return true;
}

// F6: the next free code, taken at once as Enter takes a typed one.
void frmArticulos_Creacion::siguienteCodigo()
{
    try {
        qint32 codigo = 0;
        if (leerSiguiente(codigo))
            txtCodigo->setText(QString::number(codigo));
    } catch (const std::exception &) {
        UiSeam::current().MsgBox(QStringLiteral("No esta disponible esta opción en códigos alfanuméricos"),
                                 UiSeam::vbExclamation, QStringLiteral("¡ Atención !"));
        return;
    }
    tomarCodigo(true);
}

void frmArticulos_Creacion::onCodigoKeyPress(qint16 &keyAscii)
{
    if (keyAscii != 13)
        return;
    keyAscii = 0; // Enter is the code's: it moves the focus only when the code is taken
    tomarCodigo(false);
}

// The next free code in the box, selected, for the clerk to take with Enter.
void frmArticulos_Creacion::ofrecerSiguiente()
{
    qint32 codigo = 0;
    bool leido = false;
    try {
        leido = leerSiguiente(codigo);
    } catch (const std::exception &) {
    }
    txtCodigo->setText(leido ? QString::number(codigo) : QString());
    txtCodigo->setFocus();
    txtCodigo->SelectText();
}

void frmArticulos_Creacion::tomarCodigo(bool ofrecer)
{
    if (txtCodigo->Text().isEmpty())
        return;
    const qint32 codigo = Legacy::CLng(Legacy::Val(txtCodigo->Text()));
    bool existe = false;
    if (!trapErrors(titulo("Existe"), [&] { existe = existeCodigo(codigo); return true; }))
        return;
    if (existe) {
        UiSeam::current().MsgBox(kCodigoAsignado, UiSeam::vbInformation, QStringLiteral("¡Atención!"));
        if (ofrecer) {
            ofrecerSiguiente();
        } else {
            txtCodigo->setText(QString());
            txtCodigo->setFocus();
        }
        return;
    }
    if (codigo < 1 || (m_ajustes.maxCodigoArt >= 1 && codigo > m_ajustes.maxCodigoArt)) {
        txtCodigo->setText(QString()); // deliberately without a message
        txtCodigo->setFocus();
        return;
    }
    switch (insertarProvisional(codigo)) {
    case Toma::Tomado:
        m_provisional = codigo;
        txtCodigo->setText(QString::number(codigo));
        txtCodigo->setEnabled(false);
        cmdCancelar->setEnabled(true);
        cmdAceptar->setEnabled(true);
        txtProv->setFocus();
        break;
    case Toma::Ocupado: // another workstation took it since the check
        UiSeam::current().MsgBox(kCodigoAsignado, UiSeam::vbInformation, QStringLiteral("¡Atención!"));
        ofrecerSiguiente();
        break;
    case Toma::Fallo:
        txtCodigo->setFocus();
        break;
    }
}

frmArticulos_Creacion::Toma frmArticulos_Creacion::insertarProvisional(qint32 codigo)
{
    bool ocupado = false;
    const bool tomado = trapErrors(titulo("txtCodigo_KeyPress"), [&] {
        Conexion *c = m_context.conexion();
        const QString e = SqlText::empresa(m_context.empresa()), code = QString::number(codigo);
        TransactionScope transaction(c);
        try {
            c->execute(QStringLiteral("INSERT INTO Articulos (Cod_Empresa, Codigo, FAlta, Mod_Ficha) VALUES (") + e + u','
                       + code + QStringLiteral(", '") + FechaSQL::Corta(QDate::currentDate()) + QStringLiteral("', ")
                       + QStringLiteral("0") + u')');
        } catch (const DbError &) {
            // Refused, and the code is there now (read inside the transaction, as the database
            // stands): another workstation took it since the check. Anything else is a failure.
            if (!(ocupado = existeCodigo(codigo)))
                throw;
            return false;
        }
        c->execute(QStringLiteral("INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo)")
                   + QStringLiteral(" SELECT ") + e + QStringLiteral(", Codigo, ") + code
                   + QStringLiteral(" FROM Almacenes WHERE Cod_Empresa =") + e);
        transaction.commit();
        return true;
    });
    return tomado ? Toma::Tomado : ocupado ? Toma::Ocupado : Toma::Fallo;
}

// ---- Validation --------------------------------------------------------------------------

bool frmArticulos_Creacion::Validar_Articulo()
{
    QString mensaje;
    QWidget *foco = nullptr;
    bool valido = false;
    if (!trapErrors(titulo("Validar_Articulo"), [&] { valido = validar(mensaje, foco); return true; }))
        return false;
    if (!mensaje.isEmpty())
        UiSeam::current().MsgBox(mensaje, UiSeam::vbExclamation, kTituloValidar);
    if (foco)
        foco->setFocus();
    return valido;
}

bool frmArticulos_Creacion::validar(QString &mensaje, QWidget *&foco)
{
    auto falla = [&](const QString &text, QWidget *control) {
        mensaje = text;
        foco = control;
        return false;
    };
    if (txtCodigo->Text().isEmpty())
        return falla(QStringLiteral("Especifique un código para el artículo"), txtCodigo);
    if (txtProv->Codigo() == 0)
        return falla(QStringLiteral("Especifique un proveedor para el artículo"), txtProv);
    if (txtRef->Text().isEmpty())
        return falla(QStringLiteral("Especifique una referencia para el artículo"), txtRef);
    if (m_ajustes.familiaObligada)
        for (int n = 1; n <= 3; ++n)
            if (txtFamilia->Familia(n) == 0)
                return falla(QStringLiteral("Especifique el valor de ") + lblTFamilia[size_t(n - 1)]->text()
                                 + QStringLiteral(" para el artículo"),
                             txtFamilia);
    for (int i = 0; i < 2; ++i) {
        QComboBox *combo = i == 0 ? cboCualX : cboCualY;
        if (combo->count() > 0 && combo->currentIndex() < 0)
            return falla(QStringLiteral("Especifique el valor para ") + lblCualidades[size_t(i)]->text(), combo);
    }
    // Text the program put beyond a column's size is refused, never cut.
    const struct { QString texto; int maximo; const char *nombre; QWidget *control; } longitudes[] = {
        {txtRef->Text(), kRef, "La referencia", txtRef},
        {txtDescripcion->Text(), kDescripcion, "La descripción", txtDescripcion},
        {txtDesc_Ticket->Text(), kDescTicket, "La descripción del ticket", txtDesc_Ticket},
        {txtTemporada->Codigo(), kTemporada, "La temporada", txtTemporada},
    };
    for (const auto &l : longitudes)
        if (l.texto.size() > l.maximo)
            return falla(QStringLiteral("%1 tiene %2 caracteres y no puede pasar de %3.")
                             .arg(QString::fromUtf8(l.nombre)).arg(l.texto.size()).arg(l.maximo),
                         l.control);
    // Codes that must name an existing brand, tax type and season (an empty one means none).
    Conexion *c = m_context.conexion();
    const qint16 empresa = m_context.empresa();
    if (Legacy::Val(txtMarca->Text()) != 0
        && !hayFila(QStringLiteral("SELECT * FROM Marcas WHERE Codigo=") + numeroSql(txtMarca->Text()), c))
        return falla(QStringLiteral("La marca especificada no existe."), txtMarca);
    if (Legacy::Val(txtImpuesto->Text()) != 0
        && !hayFila(QStringLiteral("SELECT * FROM TiposImpuesto WHERE Codigo=") + numeroSql(txtImpuesto->Text()), c))
        return falla(QStringLiteral("El tipo de impuesto especificado no existe."), txtImpuesto);
    if (!txtTemporada->Codigo().isEmpty() && !hayFila(kdTemporada::statement(empresa, txtTemporada->Codigo()), c))
        return falla(QStringLiteral("La temporada especificada no existe."), txtTemporada);
    if (txtDescripcion->Text().isEmpty()
        && UiSeam::current().MsgBox(QStringLiteral("El artículo no tiene descripción. ¿Desea continuar?"),
                                    UiSeam::vbYesNo | UiSeam::vbQuestion | UiSeam::vbDefaultButton2,
                                    QStringLiteral("Confirmar operación.."))
            != UiSeam::vbYes)
        return falla(QString(), txtDescripcion);
    if (hayFila(QStringLiteral("SELECT * FROM Articulos_Ref") + QStringLiteral(" WHERE Cod_Empresa =") + SqlText::empresa(empresa)
                    + QStringLiteral(" AND Cod_Prov =") + QString::number(txtProv->Codigo()) + QStringLiteral(" And Ref ='")
                    + SqlText::texto(txtRef->Text()) + u'\'' + QStringLiteral(" AND Cod_Articulo<>")
                    + QString::number(Legacy::CLng(Legacy::Val(txtCodigo->Text()))),
                c))
        return falla(QStringLiteral("La referencia especificada ya existe."), txtRef);
    return true;
}

// ---- Accept, cancel, close ----------------------------------------------------------------

void frmArticulos_Creacion::aceptar()
{
    if (!Validar_Articulo())
        return;
    const qint32 codigo = Legacy::CLng(Legacy::Val(txtCodigo->Text()));
    const char *paso = "la grabación de sus datos";
    try {
        Conexion *c = m_context.conexion();
        const QString e = SqlText::empresa(m_context.empresa()), code = QString::number(codigo);
        const QString hoy = FechaSQL::Corta(QDate::currentDate());
        TransactionScope transaction(c);
        c->execute(QStringLiteral("UPDATE Articulos SET") + QStringLiteral(" Descripcion ='") + SqlText::texto(txtDescripcion->Text())
                   + QStringLiteral("', Desc_Ticket ='") + SqlText::texto(txtDesc_Ticket->Text())
                   + QStringLiteral("', Familia_1 =") + QString::number(txtFamilia->Familia_1())
                   + QStringLiteral(", Familia_2 =") + QString::number(txtFamilia->Familia_2())
                   + QStringLiteral(", Familia_3 =") + QString::number(txtFamilia->Familia_3())
                   + QStringLiteral(", Marca =") + SqlText::codigo(txtMarca->Text())
                   + QStringLiteral(", TipoImpuesto =") + SqlText::codigo(txtImpuesto->Text())
                   + QStringLiteral(", CualidadX =") + QString::number(codigoCualidad(cboCualX))
                   + QStringLiteral(", CualidadY =") + QString::number(codigoCualidad(cboCualY))
                   + QStringLiteral(", NoGenerarSerieEAN = ") + SqlText::bit(chkNoGenerarSerieEAN->Value() != 0)
                   + QStringLiteral(", Temporada ='") + SqlText::texto(txtTemporada->Codigo()) + QStringLiteral("', Mod_Ficha = 1")
                   + QStringLiteral(" WHERE Cod_Empresa =") + e + QStringLiteral(" AND Codigo =") + code);
        paso = "la grabación de su referencia principal";
        c->execute(QStringLiteral("INSERT INTO Articulos_Ref (Cod_Empresa,Cod_Articulo,Ref,Principal,Fecha,Cod_Prov) ")
                   + QStringLiteral("Values (") + e + u',' + code + QStringLiteral(",'") + SqlText::texto(txtRef->Text())
                   + QStringLiteral("',") + QStringLiteral("1") + QStringLiteral(",'") + hoy + QStringLiteral("',")
                   + QString::number(txtProv->Codigo()) + u')');
        paso = "la lectura de la configuración de la empresa";
        Recordset rs;
        rs.open(QStringLiteral("SELECT CodigoBarrasAuto FROM Empresas WHERE Codigo=") + e, c);
        const bool automatico = !rs.eof() && rs.field(QStringLiteral("CodigoBarrasAuto")).toInt() != 0;
        rs.close();
        if (automatico) {
            paso = "la creación de su código de barras automático";
            clsArticulo_CBarra barras;
            barras.setConexion(c);
            barras.setCEmpresa(m_context.company());
            barras.setCod_Articulo(codigo);
            const QString cbarra = barras.CrearAuto();
            if (!cbarra.isEmpty()) {
                barras.setPrincipal(true);
                barras.setCod_Articulo(codigo);
                barras.setCod_Barras(cbarra);
                barras.setAutomatico(true);
                barras.setFecha(QDate::currentDate());
                barras.setUnidades(1);
                barras.Insertar();
            }
        }
        paso = "la confirmación de los cambios";
        transaction.commit();
    } catch (const std::exception &error) {
        const auto *db = dynamic_cast<const DbError *>(&error);
        UiSeam::current().MsgBox(
            QStringLiteral("No se ha guardado el artículo %1: ha fallado %2.\n\n%3\n\nEl artículo sigue como estaba antes de "
                           "aceptar: corrija los datos y acepte de nuevo, o cancélelo.")
                .arg(codigo)
                .arg(QString::fromUtf8(paso), db ? db->Description() : QString::fromUtf8(error.what())),
            UiSeam::vbCritical, titulo("cmdAceptar_Click"));
        return;
    }
    m_provisional = 0;
    Q_EMIT ArticuloCreado(codigo);
    limpiar();
    estadoVacio();
    txtCodigo->setFocus();
}

void frmArticulos_Creacion::cancelar()
{
    if (m_provisional != 0) {
        if (!eliminar(m_provisional))
            return; // the article stays provisional: the clerk may try again or close
        m_provisional = 0;
    }
    limpiar();
    estadoVacio();
    txtCodigo->setFocus();
}

void frmArticulos_Creacion::done(int result)
{
    // The provisional rows go first; when they cannot (the failure was shown), the form closes
    // all the same and keeps the code, to try again when it is destroyed or closed again.
    if (m_provisional != 0 && eliminar(m_provisional)) {
        m_provisional = 0;
        limpiar();
        estadoVacio();
    }
    QDialog::done(result);
}

void frmArticulos_Creacion::estadoVacio()
{
    txtCodigo->setText(QString());
    txtCodigo->setEnabled(true);
    cmdAceptar->setEnabled(false);
    cmdCancelar->setEnabled(false);
}

void frmArticulos_Creacion::limpiar()
{
    txtProv->setCodigo(0);
    for (kdTextBox *box : {txtRef, txtDescripcion, txtDesc_Ticket, txtMarca, txtImpuesto})
        box->setText(QString());
    txtFamilia->setFamilia_1(0);
    mostrarMarca(QString(), QString());
    txtTemporada->setCodigo(QString());
    chkNoGenerarSerieEAN->setValue(0);
    seleccionarDefectos();
    txtDescripcion->setText(QString());
    txtDesc_Ticket->setText(QString());
}

void frmArticulos_Creacion::keyPressEvent(QKeyEvent *event)
{
    switch (KeyCodes::keyCode(event)) {
    case KeyCodes::vbKeyEscape:
        if (cmdCancelar->isEnabled())
            cancelar();
        else
            reject();
        break;
    case KeyCodes::vbKeyF9:
        if (cmdAceptar->isEnabled())
            aceptar();
        break;
    case KeyCodes::vbKeyF12:
        if (cmdCancelar->isEnabled())
            cancelar();
        break;
    default:
        QDialog::keyPressEvent(event);
        return;
    }
    event->accept();
}

// ---- Descriptions and brand ---------------------------------------------------------------

void frmArticulos_Creacion::componer()
{
    DescripcionCompuesta::Datos datos{lblMarca->text(), txtRef->Text(), txtTemporada->Codigo(), {}};
    for (int n = 1; n <= 3; ++n)
        if (txtFamilia->Familia(n) > 0)
            datos.familias[size_t(n - 1)] = txtFamilia->Descripcion(n);
    if (!m_ticket.isEmpty())
        txtDesc_Ticket->setText(DescripcionCompuesta::Componer(m_ticket, datos));
    if (!m_larga.isEmpty())
        txtDescripcion->setText(DescripcionCompuesta::Componer(m_larga, datos));
}

void frmArticulos_Creacion::mostrarMarca(const QString &codigo, const QString &nombre)
{
    m_marcaMostrada = codigo;
    if (lblMarca->text() == nombre)
        return;
    lblMarca->setText(nombre);
    componer();
}

// F3: the brand search; the chosen brand as "00", its name, and the focus moves on.
void frmArticulos_Creacion::buscarMarca()
{
    frmBusqueda_Marcas dialog(this);
    UiSeam::current().ShowModal(dialog);
    if (dialog.Codigo() == 0)
        return;
    const QString codigo = Legacy::Format00(dialog.Codigo());
    txtMarca->setText(codigo);
    mostrarMarca(codigo, dialog.Nombre_Marca());
    modTeclas::MoveFocusNext();
}

// Leaving the brand box: the brand's name, or none for an unknown code.
void frmArticulos_Creacion::comprobarMarca()
{
    const QString codigo = txtMarca->Text();
    if (codigo == m_marcaMostrada)
        return;
    QString nombre;
    if (Legacy::Val(codigo) != 0)
        trapErrors(titulo("txtMarca_LostFocus"), [&] {
            Recordset rs;
            rs.open(QStringLiteral("SELECT * FROM Marcas WHERE Codigo=") + numeroSql(codigo), m_context.conexion());
            if (!rs.eof())
                nombre = rs.text(QStringLiteral("Nombre"));
            rs.close();
            return true;
        });
    mostrarMarca(codigo, nombre);
}

bool frmArticulos_Creacion::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtMarca && event->type() == QEvent::FocusOut) {
        // Leaving for another control of the form; a dialog or another window taking the focus
        // is not leaving (the clerk comes back to the box).
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            comprobarMarca();
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace Varnel_Controles
