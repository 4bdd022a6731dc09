#include "search/frmBusqueda_Articulos_1.h"

#include "data/ContextoDatos.h"
#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "platform/LegacyColor.h"
#include "search/FiltroArticulos.h"
#include "search/PagedRecordsetModel.h"
#include "search/SearchGrid.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace Varnel_Controles {

namespace {

constexpr quint32 kDarkRed = 192;       // 0x0000C0: RGB 192, 0, 0
constexpr quint32 kDarkBlue = 0xC00000; // RGB 0, 0, 192
constexpr qint64 kMaxPhotoBytes = 20 * 1024 * 1024;

QLabel *amount(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(QStringLiteral("0,00"), parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setMinimumWidth(90);
    return label;
}

// The picture in `path` when it is a regular file of at most 20 MB: a named pipe, a device or a
// huge file would hold the dialog (reading is synchronous), so they count as no picture.
QImage readPhoto(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > kMaxPhotoBytes)
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray bytes = file.read(kMaxPhotoBytes + 1);
    if (bytes.size() > kMaxPhotoBytes)
        return {};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    return reader.read();
}

void paint(QLabel *label, quint32 legacyColor)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, LegacyColor::toQColor(legacyColor));
    label->setPalette(palette);
}

} // namespace

frmBusqueda_Articulos_1::frmBusqueda_Articulos_1(QWidget *parent)
    : frmBusqueda_Articulos(QStringLiteral("frmBusqueda_Articulos_1"), QStringLiteral("Búsqueda de Artículos"), 6, parent)
    , fraExtendido(new QFrame(this))
    , txtObserv(new QPlainTextEdit(fraExtendido))
    , lblStock(amount(QStringLiteral("lblStock"), fraExtendido))
    , lblPendServir(amount(QStringLiteral("lblPendServir"), fraExtendido))
    , lblDisponible(amount(QStringLiteral("lblDisponible"), fraExtendido))
    , lblPendRecibir(amount(QStringLiteral("lblPendRecibir"), fraExtendido))
    , lblPvp(amount(QStringLiteral("lblPvp"), fraExtendido))
    , picFoto(new QLabel(fraExtendido))
    , lblFotoCargando(new QLabel(fraExtendido))
{
    setHeaders({QStringLiteral("Código"), QStringLiteral("Descripción"), QString(), QString(), QString(),
                QStringLiteral("Cód. Barras")});
    setColumn(1, 4100, Qt::AlignLeft | Qt::AlignVCenter);
    setColumn(kBarcodeColumn, 300, Qt::AlignLeft | Qt::AlignVCenter);

    fraExtendido->setObjectName(QStringLiteral("fraExtendido"));
    fraExtendido->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    fraExtendido->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); // the grid takes the rest
    txtObserv->setObjectName(QStringLiteral("txtObserv"));
    txtObserv->setReadOnly(true);
    txtObserv->setFixedHeight(120);
    txtObserv->setFocusPolicy(Qt::ClickFocus);
    txtObserv->setAccessibleName(QStringLiteral("Descripción larga"));
    picFoto->setObjectName(QStringLiteral("picFoto"));
    picFoto->setFixedSize(160, 120);
    picFoto->setAlignment(Qt::AlignCenter);
    picFoto->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    lblFotoCargando->setObjectName(QStringLiteral("lblFotoCargando"));
    lblFotoCargando->setAlignment(Qt::AlignCenter);
    lblFotoCargando->setWordWrap(true);

    auto *stock = new QGridLayout;
    const QList<QPair<QString, QLabel *>> amounts{{QStringLiteral("Stock:"), lblStock},
                                                   {QStringLiteral("Pend. servir:"), lblPendServir},
                                                   {QStringLiteral("Disponible:"), lblDisponible},
                                                   {QStringLiteral("Pend. recibir:"), lblPendRecibir},
                                                   {QStringLiteral("P.V.P.:"), lblPvp}};
    for (int i = 0; i < amounts.size(); ++i) {
        stock->addWidget(new QLabel(amounts[i].first, fraExtendido), i, 0);
        stock->addWidget(amounts[i].second, i, 1);
    }
    auto *photo = new QGridLayout;
    photo->addWidget(picFoto, 0, 0);
    photo->addWidget(lblFotoCargando, 0, 0); // over the picture
    auto *detail = new QHBoxLayout(fraExtendido);
    detail->addWidget(txtObserv, 1);
    detail->addLayout(stock);
    detail->addLayout(photo);
    m_layout->insertWidget(m_layout->indexOf(vsListado) + 1, fraExtendido);
    fraExtendido->setVisible(false);
    paint(lblDisponible, kDarkRed);
    setEndGoesToLastRead(true);
    resize(720, 620);

    connect(vsListado->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) {
                if (Extendido() && m_model->rowCount() > 0 && current.isValid())
                    DevPropiedades(current.row());
                else
                    clearDetail();
            });
    // Each search empties the grid first: the area is empty until a row is current again.
    connect(m_model, &QAbstractItemModel::modelReset, this, &frmBusqueda_Articulos_1::clearDetail);
}

frmBusqueda_Articulos_1::~frmBusqueda_Articulos_1() = default;

void frmBusqueda_Articulos_1::setExtendido(bool value)
{
    frmBusqueda_Articulos::setExtendido(value);
    fraExtendido->setVisible(value);
}

QString frmBusqueda_Articulos_1::statement(qint16 empresa, const QString &condiciones)
{
    return QStringLiteral("SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, "
                          "ISNULL(b.Cod_Barras,'') AS Cod_Barras ")
        + QStringLiteral(" FROM Articulos a ") + QStringLiteral(" LEFT JOIN Articulos_CBarras b")
        + QStringLiteral(" ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND b.Principal=1")
        + QStringLiteral(" WHERE a.Cod_Empresa =") + SqlText::empresa(empresa) + condiciones
        + QStringLiteral(" ORDER BY a.Descripcion");
}

QString frmBusqueda_Articulos_1::statement(qint16 empresa, const FiltroArticulos &filtro)
{
    return statement(empresa, filtro.condiciones(FiltroArticulos::Primera));
}

QStringList frmBusqueda_Articulos_1::rowCells(const Recordset &rs) const
{
    QStringList cells;
    for (const char *column : {"Codigo", "Descripcion", "Familia_1", "Familia_2", "Familia_3", "Cod_Barras"})
        cells << cellText(rs, QString::fromLatin1(column));
    return cells;
}

void frmBusqueda_Articulos_1::load(qint16 empresa)
{
    Recordset rs;
    rs.open(QStringLiteral("SELECT DirImagenArt FROM Empresas WHERE Codigo =") + SqlText::empresa(empresa),
            ContextoDatos().conexion());
    m_dirImagenArt = rs.eof() ? QString() : cellText(rs, QStringLiteral("DirImagenArt"));
    rs.close();
}

QString frmBusqueda_Articulos_1::importe(double value)
{
    QString digits = QString::number(qAbs(value), 'f', 2);
    const qsizetype point = digits.indexOf(u'.');
    digits[point] = u',';
    for (qsizetype at = point - 3; at > 0; at -= 3)
        digits.insert(at, u'.');
    return value < 0 && digits != QLatin1String("0,00") ? u'-' + digits : digits;
}

// No current article: amounts "0,00", no long description, no photo and nothing said of it.
void frmBusqueda_Articulos_1::clearDetail()
{
    for (QLabel *label : {lblStock, lblPendServir, lblDisponible, lblPendRecibir, lblPvp})
        label->setText(QStringLiteral("0,00"));
    paint(lblDisponible, kDarkRed);
    txtObserv->clear();
    picFoto->clear();
    lblFotoCargando->clear();
}

// The detail area of grid row `row`: long description, stock, price and photo.
void frmBusqueda_Articulos_1::DevPropiedades(int row)
{
    clearDetail();
    const QString codeText = cell(row, 0);
    trapErrors(objectName() + QStringLiteral("::DevPropiedades"), [&] {
        const qint16 e = empresa();
        const QString code = SqlText::codigo(codeText);
        Conexion *conexion = ContextoDatos().conexion();
        Recordset rs;
        rs.open(QStringLiteral("SELECT Desc_Memo FROM Articulos WHERE Cod_Empresa=") + SqlText::empresa(e)
                    + QStringLiteral(" AND Codigo =") + code,
                conexion);
        if (!rs.eof())
            txtObserv->setPlainText(cellText(rs, QStringLiteral("Desc_Memo")));
        rs.close();
        rs.open(QStringLiteral("SELECT Stock_Actual, Pend_Servir, Pend_Recibir")
                    + QStringLiteral(" FROM Almacen_Articulos WHERE Cod_Empresa=") + SqlText::empresa(e)
                    + QStringLiteral(" AND Cod_Almacen =") + QString::number(Almacen())
                    + QStringLiteral(" AND Cod_Articulo =") + code,
                conexion);
        if (!rs.eof()) {
            const double stock = rs.field(QStringLiteral("Stock_Actual")).toDouble();
            const double toServe = rs.field(QStringLiteral("Pend_Servir")).toDouble();
            const double available = stock - toServe;
            lblStock->setText(importe(stock));
            lblPendServir->setText(importe(toServe));
            lblPendRecibir->setText(importe(rs.field(QStringLiteral("Pend_Recibir")).toDouble()));
            lblDisponible->setText(importe(available));
            paint(lblDisponible, available <= 0 ? kDarkRed : kDarkBlue);
        }
        rs.close();
        lblPvp->setText(importe(price(e, code)));
        return true;
    });
    showPhoto(codeText);
}

// The customer's own price in force today; else the customer's promotional tariff, else its
// normal tariff; a zero tariff price never counts. 0 when there is none.
double frmBusqueda_Articulos_1::price(qint16 e, const QString &code)
{
    Conexion *conexion = ContextoDatos().conexion();
    const QString company = SqlText::empresa(e), customer = QString::number(Cliente());
    const QString today = FechaSQL::Corta(QDate::currentDate());
    Recordset rs;
    rs.open(QStringLiteral(" SELECT Pvp FROM Clientes_Art_PVP") + QStringLiteral(" WHERE Cod_Empresa =") + company
                + QStringLiteral(" AND Cod_Cliente =") + customer + QStringLiteral(" AND Cod_Articulo =") + code
                + QStringLiteral(" AND Fecha_Inicial <=' ") + today + u'\'' + QStringLiteral(" AND Fecha_Final >=' ")
                + today + u'\'',
            conexion);
    if (!rs.eof())
        return rs.field(QStringLiteral("Pvp")).toDouble();
    rs.close();
    rs.open(QStringLiteral("SELECT Tarifa_Pvp, Tarifa_Promoc FROM Clientes WHERE Cod_Empresa =") + company
                + QStringLiteral(" AND Codigo =") + customer,
            conexion);
    if (rs.eof())
        return 0;
    const qint64 tariffs[] = {rs.field(QStringLiteral("Tarifa_Promoc")).toLongLong(),
                              rs.field(QStringLiteral("Tarifa_Pvp")).toLongLong()};
    rs.close();
    for (const qint64 tariff : tariffs) {
        if (tariff <= 0)
            continue;
        rs.open(QStringLiteral("SELECT Pvp FROM Articulos_Tarifas") + QStringLiteral(" WHERE Cod_Empresa =") + company
                    + QStringLiteral(" AND Cod_Articulo =") + code + QStringLiteral(" AND Cod_Tarifa =")
                    + QString::number(tariff) + QStringLiteral(" AND Pvp > 0"),
                conexion);
        if (!rs.eof())
            return rs.field(QStringLiteral("Pvp")).toDouble();
        rs.close();
    }
    return 0;
}

// The photo: "<<< Cargando imagen >>>" while it is read, then the picture alone; a file that
// is missing, unreadable, not a picture, not a regular file or over 20 MB leaves the picture
// empty and says so.
void frmBusqueda_Articulos_1::showPhoto(const QString &code)
{
    picFoto->clear();
    QImage image;
    if (!m_dirImagenArt.isEmpty() && !code.isEmpty()) {
        lblFotoCargando->setText(QStringLiteral("<<< Cargando imagen >>>"));
        lblFotoCargando->repaint();
        image = readPhoto(m_dirImagenArt + code + QStringLiteral(".jpg"));
    }
    if (image.isNull()) {
        lblFotoCargando->setText(QStringLiteral("<<< Imagen no disponible >>>"));
        return;
    }
    picFoto->setPixmap(QPixmap::fromImage(
        image.scaled(picFoto->contentsRect().size(), Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    lblFotoCargando->clear();
}

} // namespace Varnel_Controles
