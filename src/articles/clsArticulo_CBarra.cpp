#include "articles/clsArticulo_CBarra.h"

#include "articles/EanCheckDigit.h"
#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "data/TransactionScope.h"
#include "platform/Legacy.h"
#include "platform/UiSeam.h"

namespace Varnel_Controles {

namespace {
const char *const kCargar = "clsCodigos_Barra::Cargar";
const char *const kExiste = "clsCodigos_Barra::Existe";
const char *const kInsertar = "clsCodigos_Barra::Insertar";
const char *const kModificar = "clsCodigos_Barra::Modificar";
const char *const kDevCheck = "clsCodigos_Barra::Dev_Check";
const char *const kCalcCheck = "clsCodigos_Barra::Calc_Check";
const char *const kCrearAuto = "clsCodigos_Barra::CrearAuto";
constexpr qint32 kDesbordamiento = 6; // the legacy runtime's overflow

QString n(qint64 value) { return QString::number(value); }
QString t(const QString &text) { return SqlText::texto(text); }

// The counter's number as stored: decimal digits, blanks around them allowed, no larger than
// the largest number an automatic code can carry. Anything else stops the numbering.
quint64 numeroContador(const QString &stored, const QString &company)
{
    const QString text = stored.trimmed();
    bool digits = !text.isEmpty() && text.size() <= 19;
    for (QChar ch : text)
        digits = digits && ch >= u'0' && ch <= u'9';
    if (!digits)
        throw DbError(kDesbordamiento,
                      QStringLiteral("El contador de códigos de barras automáticos de la empresa %1 guarda «%2», "
                                     "que no es un número entero de hasta 19 cifras.").arg(company, stored),
                      QString::fromLatin1(kCrearAuto));
    return text.toULongLong();
}
} // namespace

clsArticulo_CBarra::clsArticulo_CBarra(QObject *parent)
    : QObject(parent)
{
}

// Runs an operation; a failure reaches the caller with the operation's source text.
template <typename F>
auto clsArticulo_CBarra::rethrowAs(const char *source, F &&f) -> decltype(f())
{
    try {
        return f();
    } catch (const DbError &e) {
        throw e.withSource(QString::fromLatin1(source));
    } catch (const std::exception &e) {
        throw DbError(DbError::ProviderError, QString::fromUtf8(e.what()), QString::fromLatin1(source));
    }
}

void clsArticulo_CBarra::setKey(const QVariant &key)
{
    m_key = Legacy::CLng(key.toDouble());
}

void clsArticulo_CBarra::Cargar_Registro(const Recordset &rs)
{
    m_codArticulo = Legacy::CLng(rs.field(QStringLiteral("Cod_Articulo")).toDouble());
    m_codBarras = rs.text(QStringLiteral("Cod_Barras"));
    m_unidades = Legacy::CInt(rs.field(QStringLiteral("Unidades")).toDouble());
    m_fecha = FechaSQL::Leer(rs.field(QStringLiteral("Fecha")));
    m_principal = rs.field(QStringLiteral("Principal")).toInt() != 0;
    m_automatico = rs.field(QStringLiteral("Automatico")).toInt() != 0;
    m_key = m_codArticulo;
}

bool clsArticulo_CBarra::loadWith(Recordset &rs, const QString &statement)
{
    rs.open(statement, m_context.conexion());
    if (rs.eof())
        return false;
    Cargar_Registro(rs);
    return true;
}

bool clsArticulo_CBarra::Cargar(Recordset &rs, qint32 Key, Conexion *conexion)
{
    return rethrowAs(kCargar, [&] {
        if (conexion)
            setConexion(conexion);
        m_codArticulo = Key;
        return loadWith(rs, QStringLiteral("SELECT * FROM Articulos_CBarras WHERE Cod_Articulo = %1 and Cod_Empresa = %2 ORDER BY Principal DESC")
                                .arg(n(Key), n(m_context.empresa())));
    });
}

bool clsArticulo_CBarra::Cargar_Siguiente(Recordset &rs)
{
    return rethrowAs(kCargar, [&] {
        const QString e = n(m_context.empresa());
        return loadWith(rs, QStringLiteral("SELECT * From Articulos_CBarras WHERE Cod_Empresa=%1 and Cod_Articulo = (SELECT TOP 1 Cod_Articulo "
                                           "FROM Articulos_CBarras WHERE Cod_Empresa =%1 AND Cod_Articulo > %2 ORDER BY Cod_Articulo ASC) "
                                           "ORDER BY Principal DESC").arg(e, n(m_key)));
    });
}

bool clsArticulo_CBarra::Cargar_Anterior(Recordset &rs)
{
    return rethrowAs(kCargar, [&] {
        const QString e = n(m_context.empresa());
        return loadWith(rs, QStringLiteral("SELECT * From Articulos_CBarras WHERE Cod_Empresa=%1 and Cod_Articulo = (SELECT TOP 1 Cod_Articulo "
                                           "FROM Articulos_CBarras WHERE Cod_Empresa =%1 AND Cod_Articulo < %2 ORDER BY Cod_Articulo DESC) "
                                           "ORDER BY Principal DESC").arg(e, n(m_key)));
    });
}

bool clsArticulo_CBarra::Cargar_Primero(Recordset &rs)
{
    return rethrowAs(kCargar, [&] {
        return loadWith(rs, QStringLiteral("SELECT * From Articulos_CBarras WHERE Cod_Empresa=%1 and Cod_Articulo = (SELECT ISNULL(MIN(Cod_Articulo), '') "
                                           "FROM Articulos_CBarras WHERE Cod_Empresa =%1) ORDER BY Principal DESC").arg(n(m_context.empresa())));
    });
}

bool clsArticulo_CBarra::Cargar_Ultimo(Recordset &rs)
{
    return rethrowAs(kCargar, [&] {
        return loadWith(rs, QStringLiteral("SELECT * From Articulos_CBarras WHERE Cod_Empresa=%1 and Cod_Articulo = (SELECT ISNULL(MAX(Cod_Articulo), 0) "
                                           "FROM Articulos_CBarras WHERE Cod_Empresa =%1) ORDER BY Principal DESC").arg(n(m_context.empresa())));
    });
}

QString clsArticulo_CBarra::Dev_CodigoBarraPrincipal(qint32 Art)
{
    return rethrowAs(kExiste, [&] {
        Recordset rs;
        rs.open(QStringLiteral("SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = %1 AND Cod_Empresa = %2 AND Principal = 1")
                    .arg(n(Art), n(m_context.empresa())),
                m_context.conexion());
        return rs.eof() ? QString() : rs.text(QStringLiteral("Cod_Barras"));
    });
}

bool clsArticulo_CBarra::Existe(const QString &cbarra, qint32 &Cod_Art, QString &Nombre, qint16 &unid, bool &princ)
{
    return rethrowAs(kExiste, [&] {
        Recordset rs;
        rs.open(QStringLiteral("SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal FROM Articulos_CBarras a "
                               "LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = a.Cod_Articulo) "
                               "WHERE a.Cod_Barras = '%1' and a.Cod_Empresa = %2").arg(t(cbarra), n(m_context.empresa())),
                m_context.conexion());
        if (rs.eof())
            return false;
        Cod_Art = Legacy::CLng(rs.field(QStringLiteral("Cod_Articulo")).toDouble());
        Nombre = rs.text(QStringLiteral("Nombre"));
        unid = Legacy::CInt(rs.field(QStringLiteral("Unidades")).toDouble());
        princ = rs.field(QStringLiteral("Principal")).toInt() != 0;
        return true;
    });
}

void clsArticulo_CBarra::Insertar()
{
    rethrowAs(kInsertar, [&] {
        const QString e = n(m_context.empresa());
        Conexion *c = m_context.conexion();
        const QString insert = QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, Automatico) "
                                              "VALUES (%1, %2, '%3', %4, '%5', %6, %7)")
                                   .arg(e, n(m_codArticulo), t(m_codBarras), SqlText::bit(m_principal), FechaSQL::instance().Hoy(),
                                        n(m_unidades), SqlText::bit(m_automatico));
        TransactionScope transaction(c);
        if (m_principal)
            c->execute(QStringLiteral("UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =%1 AND Cod_Articulo =%2 AND Principal =1")
                           .arg(e, n(m_codArticulo)));
        c->execute(insert);
        transaction.commit();
    });
}

void clsArticulo_CBarra::Cambia_Principal(const QString &cb)
{
    rethrowAs(kModificar, [&] {
        const QString e = n(m_context.empresa());
        Conexion *c = m_context.conexion();
        const QString promote = QStringLiteral("UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa =%1 AND Cod_Articulo =%2 AND Cod_Barras = '%3'")
                                    .arg(e, n(m_codArticulo), t(cb));
        TransactionScope transaction(c);
        c->execute(QStringLiteral("UPDATE Articulos_CBarras SET Principal=0 WHERE Cod_Empresa =%1 AND Cod_Articulo =%2 AND Principal = 1")
                       .arg(e, n(m_codArticulo)));
        c->execute(promote);
        transaction.commit();
    });
}

void clsArticulo_CBarra::Modificar(const QString &cbAnterior)
{
    rethrowAs(kModificar, [&] {
        m_context.conexion()->execute(
            QStringLiteral("UPDATE Articulos_CBarras SET Cod_Barras ='%1', Unidades =%2, Principal =%3 WHERE Cod_Empresa =%4 "
                           "AND Cod_Articulo =%5 AND Cod_Barras ='%6'")
                .arg(t(m_codBarras), n(m_unidades), SqlText::bit(m_principal), n(m_context.empresa()), n(m_key), t(cbAnterior)));
    });
}

void clsArticulo_CBarra::ModificarPrincipal()
{
    rethrowAs(kModificar, [&] {
        qint32 otherArticle = 0;
        QString otherName;
        qint16 units = 0;
        bool otherPrincipal = false;
        const bool elsewhere = Existe(m_codBarras, otherArticle, otherName, units, otherPrincipal) && otherArticle != m_codArticulo;
        if (elsewhere) {
            const int answer = UiSeam::current().MsgBox(
                QStringLiteral("El EAN %1 existe en el artículo %2 - %3. ¿Desea Traspasarlo?").arg(m_codBarras, n(otherArticle), otherName),
                UiSeam::vbYesNo | UiSeam::vbQuestion | UiSeam::vbDefaultButton2, QStringLiteral("Confirme la operación..."));
            if (answer != UiSeam::vbYes)
                return;
        }
        // The question is asked before the transaction: no lock is held while the clerk reads it.
        TransactionScope transaction(m_context.conexion());
        if (elsewhere)
            Eliminar(m_codBarras, otherArticle, otherPrincipal);
        const int rows = m_context.conexion()->execute(
            QStringLiteral("UPDATE Articulos_CBarras SET Cod_Barras ='%1' WHERE Cod_Empresa =%2 AND Cod_Articulo =%3 AND Principal = 1")
                .arg(t(m_codBarras), n(m_context.empresa()), n(m_codArticulo)));
        if (rows == 0) {
            m_unidades = 1;
            Insertar();
        }
        transaction.commit();
    });
}

void clsArticulo_CBarra::Eliminar(const QString &cbarra, qint32 cart, bool princ)
{
    rethrowAs(kExiste, [&] {
        const QString e = n(m_context.empresa());
        Conexion *c = m_context.conexion();
        const QString remove = QStringLiteral("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = %1 and Cod_Articulo = %2 and Cod_Barras = '%3'")
                                   .arg(e, n(cart), t(cbarra));
        TransactionScope transaction(c);
        if (princ)
            c->execute(QStringLiteral("UPDATE Articulos_CBarras SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 "
                                      "and Cod_Empresa =%1 and Cod_Articulo =%2) as a Where a.Cod_Barras = Articulos_CBarras.Cod_Barras")
                           .arg(e, n(cart)));
        c->execute(remove);
        transaction.commit();
    });
}

qint16 clsArticulo_CBarra::Dev_Check(const QString &strCodBarra)
{
    return rethrowAs(kDevCheck, [&] {
        QString payload = strCodBarra;
        if (payload.isEmpty()) {
            if (m_codBarras.isEmpty())
                throw DbError(5, QStringLiteral("Llamada a procedimiento o argumento no válidos: no hay código de barras."));
            payload = m_codBarras.left(m_codBarras.size() - 1);
        }
        return qint16(EanCheckDigit::compute(payload));
    });
}

bool clsArticulo_CBarra::Validar()
{
    if (m_codBarras.size() < 7)
        return true;
    for (QChar c : std::as_const(m_codBarras))
        if (c < u'0' || c > u'9')
            return true;
    return m_codBarras.right(1) == QString::number(Dev_Check(QString()));
}

void clsArticulo_CBarra::Calc_Check(qint32 strArtI, qint32 strArtF)
{
    rethrowAs(kCalcCheck, [&] {
        Recordset rs;
        // Without parentheses: the 7-character codes of every company and article are selected too.
        rs.openKeyset(QStringLiteral("SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =%1 "
                                     "AND Cod_Articulo BETWEEN %2 AND %3 AND LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7")
                          .arg(n(m_context.empresa()), n(strArtI), n(strArtF)),
                      m_context.conexion(), QStringLiteral("Articulos_CBarras"),
                      {QStringLiteral("Cod_Empresa"), QStringLiteral("Cod_Articulo"), QStringLiteral("Cod_Barras")});
        while (!rs.eof()) {
            const QString code = rs.text(QStringLiteral("Cod_Barras"));
            rs.setField(QStringLiteral("Cod_Barras"), code + QString::number(EanCheckDigit::compute(code)));
            rs.update();
            rs.moveNext();
        }
        rs.close();
    });
}

QString clsArticulo_CBarra::CrearAuto()
{
    const QString e = n(m_context.empresa());
    Conexion *c = m_context.conexion();
    // The counter is locked first and the article's own code looked up under that lock, so a
    // workstation asking for the same article waits, then finds the code the first one took
    // (which the caller stores in the same transaction, as the article's save does).
    Recordset counter;
    counter.openLocked(QStringLiteral("SELECT * FROM Contador_CBarras WHERE Cod_Empresa=%1").arg(e), c,
                       QStringLiteral("Contador_CBarras"), {QStringLiteral("Cod_Empresa")});
    {
        Recordset own;
        own.open(QStringLiteral("SELECT * FROM Articulos_CBarras WHERE Cod_Empresa=%1 AND Cod_Articulo=%2 AND Automatico=1").arg(e, n(m_codArticulo)), c);
        if (!own.eof()) {
            const QString code = own.text(QStringLiteral("Cod_Barras"));
            own.close();
            counter.close();
            return code;
        }
    }
    QString number;
    if (counter.eof()) {
        number = QStringLiteral("9810001");
        counter.addNew({QStringLiteral("Cod_Empresa"), QStringLiteral("Cod_Barras")}, {QVariant(m_context.empresa()), number});
    } else {
        // With its check digit a number of 19 digits fills the 20 characters of a barcode.
        constexpr quint64 kMayor = 9999999999999999999ULL;
        quint64 value = numeroContador(counter.text(QStringLiteral("Cod_Barras")), e);
        qint32 article = 0;
        QString name;
        qint16 units = 0;
        bool principal = false;
        // Numbers already given to articles by hand are skipped.
        do {
            if (value == kMayor)
                throw DbError(kDesbordamiento,
                              QStringLiteral("El contador de códigos de barras automáticos de la empresa %1 ha llegado a %2: "
                                             "un código más no cabe en los 20 caracteres de un código de barras.").arg(e, QString::number(value)),
                              QString::fromLatin1(kCrearAuto));
            ++value;
        } while (Existe(QString::number(value) + QString::number(Dev_Check(QString::number(value))), article, name, units, principal));
        number = QString::number(value);
        counter.setField(QStringLiteral("Cod_Barras"), number);
        counter.update();
    }
    counter.close();
    return number + QString::number(Dev_Check(number));
}

} // namespace Varnel_Controles
