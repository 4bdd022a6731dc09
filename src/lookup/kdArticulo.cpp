#include "lookup/kdArticulo.h"

#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "lookup/ArticuloServicios.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"
#include "platform/UiSeam.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "search/frmBusqueda_Articulos_2.h"

#include <algorithm>
#include <memory>

namespace Varnel_Controles {

namespace {

const QString kValidar = QStringLiteral("kdArticulos::Validar_Codigo");
const QString kAtencion = QStringLiteral("¡ Atención !");

// The first row's column as a number, 0 when there is no row.
qint32 primero(const QString &sql, Conexion *connection, const QString &column = QStringLiteral("Cod_Articulo"))
{
    Recordset rs;
    rs.open(sql, connection);
    return rs.eof() ? 0 : rs.field(column).toInt();
}

// A quality value as the barcode carried it: two digits.
QString dosCifras(qint16 value)
{
    return value >= 0 && value < 10 ? u'0' + QString::number(value) : QString::number(value);
}

ArticuloServicios &servicios()
{
    if (ArticuloServicios *s = ArticuloServicios::current())
        return *s;
    throw DbError(DbError::ProviderError, QStringLiteral("Los formularios de artículos no están disponibles."));
}

} // namespace

kdArticulo::kdArticulo(QWidget *parent)
    : kdLookup({QStringLiteral("kdArticulos"), QStringLiteral("0000000"), QStringLiteral("9999999"),
                QStringLiteral("ARTICULO INICIAL"), QStringLiteral("ARTICULO FINAL"),
                QStringLiteral("ARTICULO INEXISTENTE")},
               1400, 1475, parent)
{
    txtCodigo->setMaxLength(0); // references and barcodes are longer than any code
}

void kdArticulo::setMaxLength(qint16 value)
{
    txtCodigo->setMaxLength(qMax<qint16>(0, value));
    notify("MaxLength");
}

QString kdArticulo::statement(qint16 empresa, const QString &typed)
{
    return QStringLiteral("SELECT Descripcion FROM Articulos WHERE Cod_Empresa =") + SqlText::empresa(empresa)
        + QStringLiteral(" AND Codigo =") + SqlText::codigo(typed);
}

void kdArticulo::showFound(const Recordset &rs)
{
    const QVariant descripcion = rs.field(QStringLiteral("Descripcion"));
    setName(descripcion.isNull() ? QString() : descripcion.toString());
    m_articulo = txtCodigo->text();
}

// The entry's kind by its first character, then by its digits and length.
bool kdArticulo::resolveEntry(bool)
{
    setCualidades(0, 0, QString(), QString(), false);
    const QString typed = txtCodigo->text();
    const QString t = Legacy::Trim(typed);
    const QChar p = t.isEmpty() ? QChar() : t.front();
    if (t.size() > 1 && (p == u'.' || p == u'*'))
        return referencia(t.mid(1), p == u'.', typed);
    if (t.size() > 1 && (p == u'/' || p == u'-'))
        return codigoBarras(t.mid(1), typed);
    const bool digits = !t.isEmpty() && std::all_of(t.begin(), t.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (digits || Legacy::IsNumeric(t)) // a scan is digits: no need of the locale's rules
        return t.size() <= 7 || escaneado(t, typed);
    if (t.size() > 2)
        return textoLibre(t);
    return true; // one or two letters: no code (0), as an empty box
}

bool kdArticulo::referencia(const QString &ref, bool deProveedor, const QString &typed)
{
    const qint32 titular = deProveedor ? m_proveedor : m_cliente;
    qint32 articulo = 0;
    const bool ok = trapErrors(kValidar, [&] {
        const QString tabla = deProveedor ? QStringLiteral("Articulos_Ref") : QStringLiteral("Articulos_RefCli");
        const QString where = QStringLiteral(" WHERE Cod_Empresa =") + SqlText::empresa(context().empresa());
        const QString literal = SqlText::texto(ref);
        Conexion *cn = context().conexion();
        if (titular != 0) {
            articulo = primero(QStringLiteral("SELECT Cod_Articulo FROM ") + tabla + where
                                   + (deProveedor ? QStringLiteral(" AND Cod_Prov =") : QStringLiteral(" AND Cod_Cli ="))
                                   + QString::number(titular) + QStringLiteral(" And Ref ='") + literal + u'\'',
                               cn);
            return true;
        }
        const qint32 cantidad = primero(QStringLiteral("SELECT ISNULL(COUNT(Cod_Articulo), 0) AS Cantidad FROM ") + tabla
                                            + where + QStringLiteral(" AND Ref ='") + literal + u'\'',
                                        cn, QStringLiteral("Cantidad"));
        if (cantidad == 1)
            articulo = primero(QStringLiteral("SELECT Cod_Articulo FROM ") + tabla + where + QStringLiteral(" AND Ref ='")
                                   + literal + u'\'',
                               cn);
        else if (cantidad > 1)
            articulo = servicios().Elegir(this, context().empresa(), ref, deProveedor);
        return true;
    });
    return ok && resuelto(articulo, typed, Clave::Referencia, ref, deProveedor);
}

qint32 kdArticulo::porCodigoBarras(const QString &codigo) const
{
    return primero(QStringLiteral("SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =")
                       + SqlText::empresa(context().empresa()) + QStringLiteral(" AND Cod_Barras ='")
                       + SqlText::texto(codigo) + u'\'',
                   context().conexion());
}

bool kdArticulo::codigoBarras(const QString &codigo, const QString &typed)
{
    qint32 articulo = 0;
    const bool ok = trapErrors(kValidar, [&] {
        articulo = porCodigoBarras(codigo);
        return true;
    });
    return ok && resuelto(articulo, typed, Clave::CodigoBarras, codigo, true);
}

// The article found (-1: the choice was abandoned) goes into the box; a reference or barcode
// that does not exist may be created, and the article it was created for goes there instead.
bool kdArticulo::resuelto(qint32 articulo, const QString &typed, Clave clave, const QString &texto, bool deProveedor)
{
    if (articulo < 0)
        return false;
    if (articulo == 0) {
        UiSeam &ui = UiSeam::current();
        const bool barras = clave == Clave::CodigoBarras;
        // A barcode no scanner could read is never created: the clerk is told why.
        const auto legible = [&] {
            QString motivo;
            trapErrors(kValidar, [&] {
                motivo = servicios().MotivoRechazo(texto);
                return true;
            });
            if (!motivo.isEmpty())
                ui.MsgBox(motivo, UiSeam::vbExclamation, kAtencion);
            return motivo.isEmpty();
        };
        if (ui.MsgBox(barras ? QStringLiteral("El código de barras especificado no existe. ¿Desea crearlo?")
                             : QStringLiteral("La referencia especificada no existe. ¿Desea crearla?"),
                      UiSeam::vbYesNo | UiSeam::vbQuestion, kAtencion)
                == UiSeam::vbYes
            && (!barras || legible())) {
            const ArticuloServicios::Alta alta{this, context().company(), texto,
                                               Legacy::CLng(Legacy::Val(m_articulo)), deProveedor,
                                               deProveedor ? qint32(m_proveedor) : m_cliente};
            trapErrors(kValidar, [&] {
                articulo = barras ? servicios().CrearCodigoBarras(alta) : servicios().CrearReferencia(alta);
                return true;
            });
        }
        if (articulo <= 0) {
            txtCodigo->setText(typed);
            return false;
        }
    }
    txtCodigo->setText(QString::number(articulo));
    return true;
}

// A scanned barcode; without one, the article code and two quality values it may carry.
bool kdArticulo::escaneado(const QString &codigo, const QString &typed)
{
    enum { Codigo, Cualidades, Ninguno } fin = Codigo;
    const bool ok = trapErrors(kValidar, [&] {
        const qint32 articulo = porCodigoBarras(codigo);
        txtCodigo->setText(QString::number(articulo));
        const cEmpresa *empresa = context().company();
        if (articulo != 0 || !empresa->CBarrasConCualidades())
            return true;
        const qint32 base = Legacy::CLng(Legacy::Val(codigo.left(qMax(0, empresa->LongitudCodigoArticulo()))));
        qint16 x = Legacy::CInt(Legacy::Val(codigo.mid(8, 2))), y = Legacy::CInt(Legacy::Val(codigo.mid(10, 2)));
        if (empresa->CualidadesOrdenYX())
            std::swap(x, y);
        Recordset rs;
        rs.open(QStringLiteral("SELECT cd1.Nombre AS Nomb_CualidadX, cd2.Nombre AS Nomb_CualidadY FROM Articulos a ")
                    + QStringLiteral(" INNER JOIN Cualidades_Des cd1 ON a.Cod_Empresa=cd1.Cod_Empresa AND "
                                     "a.CualidadX=cd1.Cod_Cualidad AND cd1.Codigo=")
                    + dosCifras(x)
                    + QStringLiteral(" INNER JOIN Cualidades_Des cd2 ON a.Cod_Empresa=cd2.Cod_Empresa AND "
                                     "a.CualidadY=cd2.Cod_Cualidad AND cd2.Codigo=")
                    + dosCifras(y) + QStringLiteral(" WHERE a.Codigo=") + QString::number(base)
                    + QStringLiteral(" AND a.Cod_Empresa=") + SqlText::empresa(context().empresa()),
                context().conexion());
        if (rs.eof()) {
            fin = Ninguno;
            return true;
        }
        txtCodigo->setText(QString::number(base));
        setCualidades(x, y, rs.text(QStringLiteral("Nomb_CualidadX")), rs.text(QStringLiteral("Nomb_CualidadY")), true);
        fin = Cualidades;
        return true;
    });
    if (ok && fin != Ninguno)
        return true;
    // Neither a barcode nor an article with those qualities: the scan stays for the clerk to see.
    txtCodigo->setText(ok ? codigo : typed);
    if (ok)
        setName(QStringLiteral("ARTICULO INEXISTENTE"));
    return false;
}

bool kdArticulo::textoLibre(const QString &texto)
{
    m_busqueda.descripcion = texto;
    const Choice choice = buscarArticulo();
    if (choice.code == 0)
        return false;
    txtCodigo->setText(QString::number(choice.code));
    return true;
}

kdLookup::Choice kdArticulo::search(qint16) { return buscarArticulo(); }

// The company's article search, opened with the last criteria; a choice keeps the criteria the
// clerk left in it for the next search.
kdLookup::Choice kdArticulo::buscarArticulo()
{
    Choice choice;
    trapErrors(QStringLiteral("kdArticulos::Buscar"), [&] {
        Recordset rs;
        rs.open(QStringLiteral("SELECT BusquedaArticulos FROM Empresas WHERE Codigo=") + SqlText::empresa(context().empresa()),
                context().conexion());
        const bool segunda = !rs.eof() && rs.field(QStringLiteral("BusquedaArticulos")).toInt() == 1;
        rs.close();
        std::unique_ptr<frmBusqueda_Articulos> dialog;
        if (segunda)
            dialog = std::make_unique<frmBusqueda_Articulos_2>(this);
        else
            dialog = std::make_unique<frmBusqueda_Articulos_1>(this);
        Criterios &b = m_busqueda;
        dialog->setCEmpresa(context().company());
        dialog->setCliente(m_cliente);
        if (m_familias[0] != 0) {
            dialog->setFamilia_1(m_familias[0]);
            dialog->setFamilia_2(m_familias[1]);
            dialog->setFamilia_3(m_familias[2]);
            std::copy(std::begin(m_familias), std::end(m_familias), b.familias);
        }
        dialog->setBusqueda_Descripcion(b.descripcion);
        dialog->setBusqueda_Codigo(b.codigo);
        dialog->setBusqueda_Proveedor(b.proveedor);
        dialog->setBusqueda_Referencia(b.referencia);
        dialog->setBusqueda_Familia_1(b.familias[0]);
        dialog->setBusqueda_Familia_2(b.familias[1]);
        dialog->setBusqueda_Familia_3(b.familias[2]);
        UiSeam::current().ShowModal(*dialog);
        choice.code = Legacy::CLng(Legacy::Val(dialog->Codigo()));
        if (choice.code != 0) {
            choice.name = dialog->Descripcion();
            b = {dialog->Busqueda_Descripcion(), dialog->Busqueda_Codigo(), dialog->Busqueda_Referencia(),
                 dialog->Busqueda_Proveedor(),
                 {dialog->Busqueda_Familia_1(), dialog->Busqueda_Familia_2(), dialog->Busqueda_Familia_3()}};
        }
        return true;
    });
    return choice;
}

void kdArticulo::setCualidades(qint16 x, qint16 y, const QString &nombreX, const QString &nombreY, bool tiene)
{
    m_valor[0] = x;
    m_valor[1] = y;
    m_nombreCualidad[0] = nombreX;
    m_nombreCualidad[1] = nombreY;
    m_tieneCualidad = tiene;
}

void kdArticulo::ReadProperties(const PropertyBag &bag)
{
    bag.requireRange(QStringLiteral("MaxLength"), 0, 32767);
    kdLookup::ReadProperties(bag);
}

// The legacy form reads "Font" twice in a row; the second read gives the same font.
void kdArticulo::readFontKey(const PropertyBag &bag)
{
    readFont(bag);
    readFont(bag);
}

void kdArticulo::readKeysAfterLocked(const PropertyBag &bag)
{
    txtCodigo->setMaxLength(bag.ReadProperty(QStringLiteral("MaxLength"), 0).toInt());
}

void kdArticulo::writeKeysAfterLocked(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("MaxLength"), MaxLength(), 0);
}

void kdArticulo::readExtraProperties(const PropertyBag &bag)
{
    m_dejarEnBlanco = readBool(bag, "DejarEnBlanco", false);
}

void kdArticulo::writeExtraProperties(PropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("DejarEnBlanco"), m_dejarEnBlanco, false);
}

} // namespace Varnel_Controles
