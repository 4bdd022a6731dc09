// User text through the library's statement builders. Each statement is prepared by SQLite, as
// Qt's driver prepares it (UTF-16, after the dialect), on an in-memory database with the
// schema: it must be exactly one statement, and one of its string constants must be the text.
// Text the library refuses must really be text SQL cannot hold.
//
// Input: the first byte picks the builder, the rest is the text as UTF-16 code units
// (little-endian), so that NULs and lone surrogates are as easy to reach as letters.
#include "articles/clsArticulo_CBarra.h"
#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/SqliteDialect.h"
#include "data/cEmpresa.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "DemoData.h"

#include <QCoreApplication>
#include <QSqlDriver>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <sqlite3.h>

using namespace Varnel_Controles;

namespace {

struct Database
{
    Conexion *conexion = nullptr;
    cEmpresa *empresa = nullptr;
    sqlite3 *handle = nullptr;
    QStringList traced;
};

Database &database()
{
    static Database d = [] {
        Database db;
        db.conexion = Conexion::open(QStringLiteral("sqlite::memory:"));
        db.handle = *static_cast<sqlite3 *const *>(db.conexion->database().driver()->handle().constData());
        sqlite3_exec(db.handle, Demo::sqliteSchema().toUtf8().constData(), nullptr, nullptr, nullptr);
        sqlite3_exec(db.handle, "INSERT INTO Empresas (Codigo, Nombre) VALUES (1, 'EMPRESA'), (2, 'OTRA')", nullptr, nullptr, nullptr);
        Conexion::setShared(db.conexion);
        db.empresa = cEmpresa::Cargar(db.conexion, 1);
        QObject::connect(db.conexion, &Conexion::Statement, [](const QString &sql) { database().traced << sql; });
        return db;
    }();
    return d;
}

[[noreturn]] void fail(const char *what, const QString &text, const QString &statement)
{
    std::fprintf(stderr, "%s\n  text (UTF-16): %s\n  statement: %s\n", what,
                 QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2).toHex(' ').constData(),
                 qPrintable(statement.left(2000)));
    std::abort();
}

// What SQL cannot hold: a NUL, U+FFFE, U+FFFF, or UTF-16 that does not decode.
bool unstorable(const QString &text)
{
    return text.contains(QChar(0)) || text.contains(QChar(0xFFFE)) || text.contains(QChar(0xFFFF))
        || !QStringView(text).isValidUtf16();
}

// Prepares `sql` exactly as Qt's driver does; returns its string constants. Fails unless it is
// one whole statement.
QList<QByteArray> stringConstants(const QString &text, const QString &tsql)
{
    const QString sql = SqliteDialect::adapt(tsql);
    sqlite3 *db = database().handle;
    const QString explain = QStringLiteral("EXPLAIN ") + sql;
    sqlite3_stmt *stmt = nullptr;
    const void *tail = nullptr;
    if (sqlite3_prepare16_v2(db, explain.utf16(), int((explain.size() + 1) * 2), &stmt, &tail) != SQLITE_OK)
        fail(sqlite3_errmsg(db), text, sql);
    const auto *end = reinterpret_cast<const char16_t *>(explain.utf16()) + explain.size();
    for (auto *p = static_cast<const char16_t *>(tail); p < end; ++p)
        if (!QChar::isSpace(*p))
            fail("the statement ends before its text does", text, sql);
    QList<QByteArray> constants;
    while (sqlite3_step(stmt) == SQLITE_ROW)
        if (qstrcmp(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 1)), "String8") == 0)
            constants << QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 5)), sqlite3_column_bytes(stmt, 5));
    sqlite3_finalize(stmt);
    return constants;
}

QString likePattern(QString filter)
{
    if (!filter.endsWith(u'*'))
        filter += u'*';
    return filter.replace(u'*', u'%');
}

// Runs one builder on `text`, then checks every statement it produced.
void check(int builder, const QString &text)
{
    Database &db = database();
    db.traced.clear();
    std::optional<QString> literal = text; // the string constant one of the statements must hold
    try {
        switch (builder) {
        case 0: db.traced << frmBusqueda_Marcas::statement(text); literal = likePattern(text); break;
        case 1: db.traced << frmBusqueda_Proveedores::statement(1, text); literal = likePattern(text); break;
        case 2: db.traced << frmBusqueda_Clientes::statement(1, QString(), text); if (text.isEmpty()) literal.reset(); break;
        case 3: db.traced << frmBusqueda_Clientes::statement(1, text, QString()); literal = likePattern(text); break;
        case 4: db.traced << kdProveedor::statement(1, text) << kdCliente::statement(1, text); literal.reset(); break;
        default: {
            clsArticulo_CBarra cb;
            cb.setConexion(db.conexion);
            cb.setCEmpresa(db.empresa);
            cb.setCod_Articulo(1);
            cb.setKey(1);
            cb.setCod_Barras(text);
            cb.setPrincipal(true);
            qint32 art; QString name; qint16 units; bool principal;
            switch (builder) {
            case 5: cb.Existe(text, art, name, units, principal); break;
            case 6: cb.Insertar(); break;
            case 7: cb.Modificar(text); break;
            case 8: cb.Cambia_Principal(text); break;
            default: cb.Eliminar(text, 1, true); break;
            }
        }
        }
    } catch (const DbError &e) {
        if (db.traced.isEmpty() && !unstorable(text))
            fail(qPrintable(QStringLiteral("refused text SQL can hold: ") + e.Description()), text, QString());
    }
    sqlite3_exec(db.handle, "DELETE FROM Articulos_CBarras", nullptr, nullptr, nullptr);
    bool holds = !literal || db.traced.isEmpty();
    for (const QString &statement : std::as_const(db.traced))
        holds = stringConstants(text, statement).contains(literal.value_or(QString()).toUtf8()) || holds;
    if (!holds)
        fail("no string constant of the statements holds the text", text, db.traced.join(u'\n'));
    if (literal && unstorable(text) && !db.traced.isEmpty()) // codes reach SQL as numbers: any text will do
        fail("a statement was built with text SQL cannot hold", text, db.traced.last());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv);
    database();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    QString text(qsizetype((size - 1) / 2), Qt::Uninitialized);
    std::memcpy(text.data(), data + 1, size_t(text.size()) * 2);
    check(data[0] % 10, text);
    return 0;
}
