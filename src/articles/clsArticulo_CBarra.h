// clsArticulo_CBarra: the barcodes of the articles (table Articulos_CBarras). An instance
// holds one barcode row in its fields, loads rows (directly or walking the articles that have
// barcodes), writes rows back with the principal-barcode rules, computes EAN check digits and
// issues in-house EAN-8 codes from a per-company counter. It keeps its own connection and
// raises every failure to its caller as a DbError whose Source() names the operation. Text
// SQL cannot store (see SqlText) is refused with a DbError before any statement runs.
#pragma once

#include "varnel_controles_export.h"

#include <QDate>
#include <QObject>
#include <QPointer>

#include "ContextoDatos.h"

namespace Varnel_Controles {

class Recordset;

class VARNEL_CONTROLES_EXPORT clsArticulo_CBarra : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qint32 Cod_Articulo READ Cod_Articulo WRITE setCod_Articulo)
    Q_PROPERTY(QString Cod_Barras READ Cod_Barras WRITE setCod_Barras)
    Q_PROPERTY(bool Principal READ Principal WRITE setPrincipal)
    Q_PROPERTY(bool Automatico READ Automatico WRITE setAutomatico)
    Q_PROPERTY(QDate Fecha READ Fecha WRITE setFecha)
    Q_PROPERTY(qint16 Unidades READ Unidades WRITE setUnidades)

public:
    explicit clsArticulo_CBarra(QObject *parent = nullptr);

    qint32 Cod_Articulo() const { return m_codArticulo; }
    void setCod_Articulo(qint32 value) { m_codArticulo = value; }
    QString Cod_Barras() const { return m_codBarras; }
    void setCod_Barras(const QString &value) { m_codBarras = value; }
    bool Principal() const { return m_principal; }
    void setPrincipal(bool value) { m_principal = value; }
    bool Automatico() const { return m_automatico; }
    void setAutomatico(bool value) { m_automatico = value; }
    /// Read from the rows; Insertar writes today's date instead.
    QDate Fecha() const { return m_fecha; }
    void setFecha(const QDate &value) { m_fecha = value; }
    qint16 Unidades() const { return m_unidades; }
    void setUnidades(qint16 value) { m_unidades = value; }

    void setCEmpresa(cEmpresa *company) { m_context.setCEmpresa(company); }
    /// This instance's connection; every assignment replaces the previous one.
    void setConexion(Conexion *connection) { m_context.setConexion(connection); }
    /// The article the object stands on (-1 at creation); navigation starts from it and
    /// Modificar finds its row by it. Each loaded row sets it to the row's article.
    void setKey(const QVariant &key);

    /// Loads the article's barcodes into `rs` (principal first) and the first into the fields;
    /// `rs` stays open for the caller. Cod_Articulo becomes `Key` even when nothing is found.
    bool Cargar(Recordset &rs, qint32 Key, Conexion *conexion = nullptr);
    /// The next / previous article (by code) that has barcodes; False leaves everything as it was.
    bool Cargar_Siguiente(Recordset &rs);
    bool Cargar_Anterior(Recordset &rs);
    /// The first / last article of the company that has barcodes.
    bool Cargar_Primero(Recordset &rs);
    bool Cargar_Ultimo(Recordset &rs);

    /// The article's principal barcode, "" when it has none.
    QString Dev_CodigoBarraPrincipal(qint32 Art);
    /// Whether `cbarra` is a barcode of the company (any article); on a hit the first row's
    /// article, description ("" when the article row is missing), units and principal flag.
    bool Existe(const QString &cbarra, qint32 &Cod_Art, QString &Nombre, qint16 &unid, bool &princ);

    /// Writes the fields as a new row dated today; a principal one first demotes the article's.
    /// Both writes or neither (nested in the caller's transaction when one is open).
    void Insertar();
    /// Makes `cb` the article's principal (the article has none if `cb` is not one of its codes);
    /// both writes or neither.
    void Cambia_Principal(const QString &cb);
    /// Rewrites the row of article Key whose code was `cbAnterior` (no other row is demoted).
    void Modificar(const QString &cbAnterior);
    /// Replaces the principal code of Cod_Articulo by Cod_Barras, first asking (No by default)
    /// whether to move it from another article that has it; inserts a row when there was none.
    /// The writes after the question succeed or fail together.
    void ModificarPrincipal();
    /// Deletes a barcode; deleting a principal first promotes another barcode of the article.
    /// Both writes or neither.
    void Eliminar(const QString &cbarra, qint32 cart, bool princ);

    /// The check digit of a payload; "" recomputes that of Cod_Barras without its last character.
    qint16 Dev_Check(const QString &strCodBarra);
    /// Short (under 7) and alphanumeric codes pass; all-digit codes must end in their check digit.
    bool Validar();
    /// Appends check digits to the 12-character codes of the article range (and to every
    /// 7-character code of the table), row by row; stops at the first failure. The range
    /// reaches the statement only as numbers.
    void Calc_Check(qint32 strArtI, qint32 strArtF);
    /// The article's automatic EAN-8 code: the one it has, or the next free number of the
    /// company's counter with its digit. Both are read under the counter's lock, which lasts
    /// to the end of the caller's transaction: store the code in it, and two workstations
    /// never give one article two codes. A counter that is not a whole number of up to 19
    /// digits, or cannot grow, raises DbError 6 with source "clsCodigos_Barra::CrearAuto".
    QString CrearAuto();

private:
    void Cargar_Registro(const Recordset &rs);
    bool loadWith(Recordset &rs, const QString &statement);
    template <typename F>
    auto rethrowAs(const char *source, F &&f) -> decltype(f());

    ContextoDatos m_context{ContextoDatos::OwnConnection};
    qint32 m_key = -1;
    qint32 m_codArticulo = 0;
    QString m_codBarras;
    bool m_principal = false;
    bool m_automatico = false;
    QDate m_fecha;
    qint16 m_unidades = 0;
};

} // namespace Varnel_Controles
