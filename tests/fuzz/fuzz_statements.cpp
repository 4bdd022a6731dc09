// User text through the library's statement builders. Each statement is prepared by SQLite, as
// Qt's driver prepares it (UTF-16, after the dialect), on an in-memory database with the
// schema: it must be exactly one statement, and one of its string constants must be the text.
// Text the library refuses must really be text SQL cannot hold.
//
// Input: the first byte picks the builder, the rest is the text as UTF-16 code units
// (little-endian), so that NULs and lone surrogates are as easy to reach as letters.
#include "FuzzInput.h"
#include "articles/clsArticulo_CBarra.h"
#include "data/DbError.h"
#include "data/SqliteDialect.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "DemoData.h"

#include <QCoreApplication>
#include <QSqlDriver>
#include <optional>
#include <sqlite3.h>

using namespace Varnel_Controles;

namespace {

Conexion *conexion = nullptr;
cEmpresa *empresa = nullptr;
sqlite3 *handle = nullptr;
QStringList traced;

[[noreturn]] void fail(const char *what, const QString &text, const QString &statement)
{
    std::fprintf(stderr, "%s\n  text (UTF-16): %s\n  statement: %s\n", what,
                 QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2).toHex(' ').constData(),
                 qPrintable(statement.left(2000)));
    std::abort();
}

// Prepares `sql` exactly as Qt's driver does; returns its string constants. Fails unless it is
// one whole statement.
QList<QByteArray> stringConstants(const QString &text, const QString &tsql)
{
    const QString explain = "EXPLAIN " + SqliteDialect::adapt(tsql);
    sqlite3_stmt *stmt = nullptr;
    const void *tail = nullptr;
    if (sqlite3_prepare16_v2(handle, explain.utf16(), int((explain.size() + 1) * 2), &stmt, &tail) != SQLITE_OK)
        fail(sqlite3_errmsg(handle), text, explain);
    const auto *end = reinterpret_cast<const char16_t *>(explain.utf16()) + explain.size();
    if (!QStringView(static_cast<const char16_t *>(tail), end).trimmed().isEmpty())
        fail("the statement ends before its text does", text, explain);
    QList<QByteArray> constants;
    while (sqlite3_step(stmt) == SQLITE_ROW)
        if (qstrcmp(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 1)), "String8") == 0)
            constants << QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(stmt, 5)),
                                    sqlite3_column_bytes(stmt, 5));
    sqlite3_finalize(stmt);
    return constants;
}

// Runs one builder on `text`, then checks every statement it produced.
void check(int builder, const QString &text)
{
    const bool storable = !text.contains(QChar(0)) && !text.contains(QChar(0xFFFE)) && !text.contains(QChar(0xFFFF))
        && QStringView(text).isValidUtf16();
    const QString pattern = QString(text.endsWith(u'*') ? text : text + u'*').replace(u'*', u'%');
    // The string constant one of the statements must hold: the filter as a pattern, the NIF or
    // barcode as typed; none for codes (numbers) or an empty NIF (no condition).
    std::optional<QString> literal = builder == 0 || builder == 1 || builder == 3 ? pattern : text;
    if (builder == 4 || (builder == 2 && text.isEmpty()))
        literal.reset();
    traced.clear();
    clsArticulo_CBarra cb;
    cb.setConexion(conexion);
    cb.setCEmpresa(empresa);
    cb.setCod_Articulo(1);
    cb.setKey(1);
    cb.setCod_Barras(text);
    cb.setPrincipal(true);
    qint32 art;
    QString name;
    qint16 units;
    bool principal;
    try {
        switch (builder) {
        case 0: traced << frmBusqueda_Marcas::statement(text); break;
        case 1: traced << frmBusqueda_Proveedores::statement(1, text); break;
        case 2: traced << frmBusqueda_Clientes::statement(1, QString(), text); break;
        case 3: traced << frmBusqueda_Clientes::statement(1, text, QString()); break;
        case 4: traced << kdProveedor::statement(1, text) << kdCliente::statement(1, text); break;
        case 5: cb.Existe(text, art, name, units, principal); break;
        case 6: cb.Insertar(); break;
        case 7: cb.Modificar(text); break;
        case 8: cb.Cambia_Principal(text); break;
        default: cb.Eliminar(text, 1, true); break;
        }
    } catch (const DbError &e) {
        if (traced.isEmpty() && storable)
            fail(qPrintable("refused text SQL can hold: " + e.Description()), text, QString());
    }
    sqlite3_exec(handle, "DELETE FROM Articulos_CBarras", nullptr, nullptr, nullptr);
    bool holds = !literal || traced.isEmpty();
    for (const QString &statement : std::as_const(traced))
        holds = stringConstants(text, statement).contains(literal.value_or(QString()).toUtf8()) || holds;
    if (!holds)
        fail("no string constant of the statements holds the text", text, traced.join(u'\n'));
    if (literal && !storable && !traced.isEmpty()) // codes reach SQL as numbers: any text will do
        fail("a statement was built with text SQL cannot hold", text, traced.last());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static QCoreApplication app(*argc, *argv);
    conexion = Conexion::open(QStringLiteral("sqlite::memory:"));
    handle = *static_cast<sqlite3 *const *>(conexion->database().driver()->handle().constData());
    sqlite3_exec(handle, Demo::sqliteSchema().toUtf8().constData(), nullptr, nullptr, nullptr);
    sqlite3_exec(handle, "INSERT INTO Empresas (Codigo, Nombre) VALUES (1, 'EMPRESA'), (2, 'OTRA')", nullptr, nullptr,
                 nullptr);
    Conexion::setShared(conexion);
    empresa = cEmpresa::Cargar(conexion, 1);
    QObject::connect(conexion, &Conexion::Statement, [](const QString &sql) { traced << sql; });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size > 0)
        check(data[0] % 10, fuzz::utf16(data + 1, size - 1));
    return 0;
}
