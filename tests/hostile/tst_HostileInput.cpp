// Hostile text through every place where a clerk's or a host's text reaches SQL: the search
// filters, the NIF box, the lookup codes and the barcode operations. Each case checks that no
// row changed but the intended ones, that no other company's row shows, and that text SQL
// cannot hold is refused: a message for the clerk, a DbError for the caller of the barcodes.
#include "articles/clsArticulo_CBarra.h"
#include "data/DbError.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"

#include <QDate>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>
#include <cstdio>
#include <memory>
#include <string_view>

using namespace Varnel_Controles;
using namespace std::literals;

namespace {

// The first code unit SQL cannot hold (a NUL, half a surrogate pair, U+FFFE or U+FFFF), -1 for none.
qsizetype firstUnstorable(const QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t u = text[i].unicode();
        if (QChar::isHighSurrogate(u) && i + 1 < text.size() && QChar::isLowSurrogate(text[i + 1].unicode()))
            ++i;
        else if (u == 0 || u == 0xFFFE || u == 0xFFFF || QChar::isSurrogate(u))
            return i;
    }
    return -1;
}
bool unstorable(const QString &text) { return firstUnstorable(text) >= 0; }

QString refusal(const QString &text)
{
    return QStringLiteral("El texto contiene un carácter no válido en la posición %1: no se puede buscar ni guardar "
                          "en la base de datos.").arg(firstUnstorable(text) + 1);
}

QString u16(std::u16string_view s) { return QString(reinterpret_cast<const QChar *>(s.data()), qsizetype(s.size())); }

QList<std::pair<const char *, QString>> hostileTexts()
{
    return {
        {"apostrophe", u16(u"'")},
        {"two apostrophes", u16(u"''")},
        {"name with apostrophe", u16(u"O'BRIEN")},
        {"or 1=1 comment", u16(u"' OR 1=1 --")},
        {"or string equal", u16(u"' OR '1'='1")},
        {"stacked delete", u16(u"'; DELETE FROM Articulos_CBarras; --")},
        {"drop table", u16(u"'); DROP TABLE Marcas; --")},
        {"union Empresas", u16(u"' UNION SELECT Codigo, Nombre FROM Empresas --")},
        {"union three columns", u16(u"') UNION SELECT Codigo, Nombre, Nombre FROM Empresas --")},
        {"numeric or", u16(u"1 OR 1=1")},
        {"range of Calc_Check", u16(u"0 AND 99999 OR LEN(Cod_Barras) = 13 OR 0")},
        {"backslash escape", u16(u"\\' OR 1=1 --")},
        {"double quote", u16(u"\"; DELETE FROM Marcas; --")},
        {"percent", u16(u"%")},
        {"underscore", u16(u"_")},
        {"open bracket", u16(u"[")},
        {"bracket class", u16(u"[A-Z]%")},
        {"negated class", u16(u"[^A]")},
        {"close bracket", u16(u"]")},
        {"star", u16(u"*")},
        {"stars", u16(u"**")},
        {"percent injection", u16(u"%' OR '%'='")},
        {"comment dashes", u16(u"--")},
        {"comment open", u16(u"/*")},
        {"semicolon", u16(u";")},
        {"newline", u16(u"A\nB")},
        {"CRLF injection", u16(u"\r\n' OR 1=1 --")},
        {"tab", u16(u"A\tB")},
        {"control characters", u16(u"\x01\x02\x1B\x7F")},
        {"NUL alone", u16(u"\0"sv)},
        {"NUL inside", u16(u"A\0B"sv)},
        {"NUL after apostrophe", u16(u"'\0; DELETE FROM Articulos_CBarras"sv)},
        {"lone high surrogate", u16(u"\xD800")},
        {"lone low surrogate", u16(u"\xDC00")},
        {"attack: high, '', every row, NUL", u16(u"\xD800" u"'' OR 1=1 \0"sv)},
        {"attack: low, '', every row, NUL", u16(u"\xDC00" u"'' OR 1=1 \0"sv)},
        {"attack: high, '', every row, comment", u16(u"\xD83D" u"'' OR 1=1 --")},
        {"attack: high, '', company 2, NUL", u16(u"\xD800" u"'' OR c.Cod_Empresa = 2 \0"sv)},
        {"attack: high, '', union Empresas, NUL", u16(u"\xD800" u"'') UNION SELECT Codigo, Nombre FROM Empresas \0"sv)},
        {"attack: high, '', row for company 2, NUL", u16(u"\xD800" u"'', 1, 0, 1, 0), (2, 99, 666, 1, 0, 1, 0) \0"sv)},
        {"high surrogate last", u16(u"ABC\xD800")},
        {"pair reversed", u16(u"\xDC00\xD800")},
        {"high before apostrophe", u16(u"\xDBFF" u"'")},
        {"100k letters", QString(100000, u'A')},
        {"100k apostrophes", QString(100000, u'\'')},
        {"100k injection", u16(u"' OR 1=1 --").repeated(10000)},
        {"capitals and accents", u16(u"ÑANDÚ ÁGUILA")},
        {"small letters and accents", u16(u"ñandú águila ç")},
        {"emoji", u16(u"🙂😀")},
        {"emoji and apostrophe", u16(u"🙂'🙂")},
        {"CJK", u16(u"日本語")},
        {"right-to-left override", u16(u"\x202E' OR 1=1 --")},
        {"zero-width joiner", u16(u"A\x200D" u"B")},
        {"noncharacter FFFF", u16(u"\xFFFF")},
        {"byte order mark", u16(u"\xFEFF'")},
        {"N prefix", u16(u"N'X'")},
        {"collate", u16(u"' COLLATE NOCASE --")},
        {"blanks", u16(u"   ")},
        {"empty", QString()},
        {"modifier apostrophe", u16(u"\x02BC OR 1=1 --")},
        {"right single quote", u16(u"\x2019 OR 1=1 --")},
        {"fullwidth apostrophe", u16(u"\xFF07 OR 1=1 --")},
        {"valid pair", u16(u"\xD800\xDC00")},
        {"highest code point", u16(u"\xDBFF\xDFFF")},
        {"backslash percent", u16(u"\\%")},
    };
}

enum Entry {
    BrandFilter, SupplierFilter, CustomerName, CustomerNif, SupplierCode, CustomerCode, Existe,
    DevPrincipal, Insertar, Modificar, ModificarPrincipal, CambiaPrincipal, Eliminar, EntryCount
};
const char *const kEntryNames[EntryCount] = {
    "brand filter", "supplier filter", "customer name", "customer NIF", "kdProveedor code", "kdCliente code",
    "Existe", "Dev_CodigoBarraPrincipal", "Insertar", "Modificar", "ModificarPrincipal", "Cambia_Principal", "Eliminar"};

// The filter as a LIKE pattern, as the dialogs mean it.
QString pattern(QString filter)
{
    if (!filter.endsWith(u'*'))
        filter += u'*';
    return filter.replace(u'*', u'%');
}

struct Totals { int cases = 0, refused = 0, changed = 0, leaks = 0; };

// One case: a seeded database, the text, and for storable text rows that hold it in both
// companies (the second company's under other codes, so that a leak shows).
struct Case
{
    Testing::TestDatabase db;
    Testing::ScriptedUi ui;
    cEmpresa *empresa;
    QString text;
    bool refused = false;
    int leaks = 0;

    explicit Case(const QString &t) : empresa(db.empresa(1)), text(t)
    {
        QSqlQuery(db.conexion()->database()).exec(QStringLiteral("PRAGMA synchronous=OFF"));
        if (unstorable(text))
            return;
        bound("INSERT INTO Marcas (Codigo, Nombre) VALUES (9001, ?)", {text});
        bound("INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, 9001, ?), (2, 9002, ?)", {text, text});
        bound("INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nif) VALUES (1, 9001, ?, ?), (2, 9002, ?, ?)", {text, text, text, text});
        bound("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades) "
              "VALUES (1, 5, ?, 1, '2025-05-14', 1), (2, 6, ?, 1, '2025-05-14', 1)", {text, text});
    }
    // Runs a statement with bound values, outside the library and its trace; the rows it changed.
    int bound(const QString &sql, const QVariantList &values)
    {
        QSqlQuery q = prepared(sql, values);
        if (!q.exec())
            qWarning("%s", qPrintable(q.lastError().text()));
        return q.numRowsAffected();
    }
    QStringList column(const QString &sql, const QVariantList &values)
    {
        QSqlQuery q = prepared(sql, values);
        q.exec();
        QStringList out;
        while (q.next())
            out << q.value(0).toString();
        out.sort();
        return out;
    }

    // Texts are bound as UTF-8 and cast: SQLite drops a leading U+FEFF from bound UTF-16.
    QSqlQuery prepared(const QString &sql, const QVariantList &values)
    {
        QString statement;
        qsizetype n = 0;
        for (QChar ch : sql) {
            const bool isText = ch == u'?' && n < values.size() && values[n++].typeId() == QMetaType::QString;
            statement += isText ? QStringLiteral("CAST(? AS TEXT)") : QString(ch);
        }
        QSqlQuery q(db.conexion()->database());
        q.prepare(statement);
        for (const QVariant &v : values) {
            QByteArray utf8 = v.toString().toUtf8();
            q.addBindValue(v.typeId() == QMetaType::QString ? QVariant(utf8.isNull() ? QByteArray("", 0) : utf8) : v);
        }
        return q;
    }
};

void search(Case &c, Entry entry)
{
    std::unique_ptr<frmBusqueda> d;
    if (entry == BrandFilter) {
        d = std::make_unique<frmBusqueda_Marcas>();
    } else if (entry == SupplierFilter) {
        auto *suppliers = new frmBusqueda_Proveedores;
        suppliers->setEmpresa(1);
        d.reset(suppliers);
    } else {
        auto *customers = new frmBusqueda_Clientes;
        customers->setEmpresa(1);
        d.reset(customers);
    }
    auto *name = d->findChild<TextField *>(QStringLiteral("txtNombre"));
    auto *nif = d->findChild<TextField *>(QStringLiteral("txtNif"));
    TextField *box = entry == CustomerNif ? nif : name;
    box->setText(c.text);
    const QString typed = Legacy::Trim(box->text());
    QTest::keyClick(nif ? nif : name, Qt::Key_Return); // the customer dialog searches from its NIF box
    c.refused = unstorable(typed);

    auto *grid = d->findChild<SearchGrid *>(QStringLiteral("vsListado"));
    QStringList shown;
    for (int r = 0; r < grid->model()->rowCount(); ++r)
        shown << grid->model()->index(r, 0).data().toString();
    shown.sort();
    QStringList expected; // refused text shows nothing
    if (!c.refused) {
        const QString p = pattern(typed);
        const QString customers = QStringLiteral(
            "SELECT Codigo FROM (SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, c.Nif FROM Clientes c WHERE c.Cod_Empresa = 1 "
            "AND (c.Nombre LIKE ? OR c.Nombre_Comercial LIKE ?) %1 UNION SELECT ci.Cod_Cliente, ci.Nombre, '', '' "
            "FROM Clientes_Instalaciones ci INNER JOIN Clientes c ON c.Codigo = ci.Cod_Cliente AND c.Cod_Empresa = ci.Cod_Empresa "
            "WHERE ci.Cod_Empresa = 1 AND ci.Nombre LIKE ? %1)");
        if (entry == BrandFilter)
            expected = c.column("SELECT Codigo FROM Marcas WHERE Nombre LIKE ?", {p});
        else if (entry == SupplierFilter)
            expected = c.column("SELECT Codigo FROM Proveedores WHERE Cod_Empresa = 1 AND (Nombre LIKE ? OR Nombre_Comercial LIKE ?)", {p, p});
        else if (entry == CustomerName || typed.isEmpty())
            expected = c.column(customers.arg(QString()), {p, p, p});
        else
            expected = c.column(customers.arg(QStringLiteral("AND c.Nif = ?")), {pattern({}), pattern({}), typed, pattern({}), typed});
    }
    for (const QString &code : std::as_const(shown))
        c.leaks += !expected.contains(code);
    if (expected.size() <= d->pageSize())
        QCOMPARE(shown, expected);
    else
        QCOMPARE(shown.size(), d->pageSize());
    if (c.refused) {
        QCOMPARE(c.ui.messages.size(), 1);
        QCOMPARE(c.ui.messages[0].prompt, refusal(typed));
        QCOMPARE(c.ui.messages[0].style, 16);
        QCOMPARE(c.ui.messages[0].title, d->objectName() + QStringLiteral("::Recuperar_Registros"));
    } else {
        QCOMPARE(c.ui.messages.size(), 0);
    }
}

void lookup(Case &c, Entry entry)
{
    std::unique_ptr<kdLookup> l;
    if (entry == SupplierCode)
        l = std::make_unique<kdProveedor>();
    else
        l = std::make_unique<kdCliente>();
    l->setCEmpresa(c.empresa);
    l->setText(c.text);
    const double code = Legacy::Val(l->Text());
    const QStringList names = code == 0 ? QStringList()
        : c.column(entry == SupplierCode ? "SELECT Nombre FROM Proveedores WHERE Cod_Empresa = 1 AND Codigo = ?"
                                         : "SELECT Nombre FROM Clientes WHERE Cod_Empresa = 1 AND Codigo = ?", {code});
    QCOMPARE(l->Cargar(), !names.isEmpty());
    QCOMPARE(c.ui.messages.size(), 0);
    c.leaks += !names.isEmpty() && l->Nombre() != names.first();
    if (!names.isEmpty())
        QCOMPARE(l->Nombre(), names.first());
}

// Runs a barcode operation: refused text must come back as a DbError from `source`, anything
// else must go through. Returns whether it went through.
template <typename Operation>
bool barcodes(Case &c, const char *source, Operation &&operation)
{
    c.refused = unstorable(c.text);
    try {
        operation();
    } catch (const DbError &e) {
        if (!c.refused)
            qWarning("%s", qPrintable(e.Description()));
        [&] {
            QVERIFY(c.refused);
            QCOMPARE(e.Description(), refusal(c.text));
            QCOMPARE(e.Source(), QString::fromLatin1(source));
        }();
        return false;
    }
    [&] { QVERIFY2(!c.refused, "text that SQL cannot hold was used"); }();
    return !c.refused;
}

// Runs the entry point, then undoes the change it was meant to make (by bound statements that
// must each find their rows), so that whatever still differs changed when it should not have.
void run(Case &c, Entry entry)
{
    clsArticulo_CBarra cb;
    cb.setConexion(c.db.conexion());
    cb.setCEmpresa(c.empresa);
    const QString t = c.text;
    const QString hoy = QDate::currentDate().toString(Qt::ISODate);
    switch (entry) {
    case BrandFilter: case SupplierFilter: case CustomerName: case CustomerNif:
        search(c, entry);
        break;
    case SupplierCode: case CustomerCode:
        lookup(c, entry);
        break;
    case Existe: {
        qint32 art = 0; QString name; qint16 units = 0; bool principal = false;
        bool found = false;
        if (barcodes(c, "clsCodigos_Barra::Existe", [&] { found = cb.Existe(t, art, name, units, principal); })) {
            QVERIFY(found);
            c.leaks += art != 5;
            QCOMPARE(art, 5);
            QCOMPARE(name, QStringLiteral("ÁGUILA DE BRONCE"));
        }
        break;
    }
    case DevPrincipal: {
        // The argument is a number: the text comes back from the row planted with it.
        const QString own = cb.Dev_CodigoBarraPrincipal(5), other = cb.Dev_CodigoBarraPrincipal(6);
        c.leaks += !other.isEmpty();
        QCOMPARE(own, unstorable(t) ? QString() : t);
        QCOMPARE(other, QString());
        break;
    }
    case Insertar:
        cb.setCod_Articulo(1);
        cb.setCod_Barras(t);
        cb.setPrincipal(true);
        cb.setUnidades(1);
        if (barcodes(c, "clsCodigos_Barra::Insertar", [&] { cb.Insertar(); })) {
            QCOMPARE(c.bound("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 AND Cod_Barras = ? "
                             "AND Principal = 1 AND Fecha = ? AND Unidades = 1 AND Automatico = 0", {t, hoy}), 1);
            QCOMPARE(c.bound("UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa = 1 AND Cod_Barras = '8412345678905'", {}), 1);
        }
        break;
    case Modificar:
        if (!unstorable(t))
            c.bound("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Unidades) VALUES (1, 4, ?, 0, 1)", {t});
        cb.setKey(4);
        cb.setCod_Barras(t);
        cb.setUnidades(7);
        if (barcodes(c, "clsCodigos_Barra::Modificar", [&] { cb.Modificar(t); }))
            QCOMPARE(c.bound("UPDATE Articulos_CBarras SET Unidades = 1 WHERE Cod_Empresa = 1 AND Cod_Articulo = 4 AND Cod_Barras = ? "
                             "AND Unidades = 7", {t}), 1);
        if (!unstorable(t))
            c.bound("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 4 AND Cod_Barras = ?", {t});
        break;
    case ModificarPrincipal:
        cb.setCod_Articulo(4711);
        cb.setCod_Barras(t);
        cb.setPrincipal(true);
        c.ui.answerMessages({UiSeam::vbYes});
        if (barcodes(c, "clsCodigos_Barra::Modificar", [&] { cb.ModificarPrincipal(); })) {
            QCOMPARE(c.ui.messages.size(), 1);
            QCOMPARE(c.ui.messages[0].prompt,
                     QStringLiteral("El EAN %1 existe en el artículo 5 - ÁGUILA DE BRONCE. ¿Desea Traspasarlo?").arg(t));
            QCOMPARE(c.bound("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades) "
                             "VALUES (1, 5, ?, 1, '2025-05-14', 1)", {t}), 1);
            QCOMPARE(c.bound("UPDATE Articulos_CBarras SET Cod_Barras = '8470001234561' WHERE Cod_Empresa = 1 AND Cod_Articulo = 4711 "
                             "AND Cod_Barras = ? AND Principal = 1", {t}), 1);
        }
        break;
    case CambiaPrincipal:
        if (!unstorable(t))
            c.bound("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Unidades) VALUES (1, 1, ?, 0, 1)", {t});
        cb.setCod_Articulo(1);
        if (barcodes(c, "clsCodigos_Barra::Modificar", [&] { cb.Cambia_Principal(t); })) {
            QCOMPARE(c.bound("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 AND Cod_Barras = ? AND Principal = 1", {t}), 1);
            QCOMPARE(c.bound("UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa = 1 AND Cod_Barras = '8412345678905'", {}), 1);
        } else if (!unstorable(t)) {
            c.bound("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 AND Cod_Barras = ?", {t});
        }
        break;
    case Eliminar:
        if (!unstorable(t))
            c.bound("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Unidades) VALUES (1, 4, ?, 1, 1)", {t});
        if (barcodes(c, "clsCodigos_Barra::Existe", [&] { cb.Eliminar(t, 4, true); }))
            QCOMPARE(c.bound("UPDATE Articulos_CBarras SET Principal = 0 WHERE Cod_Empresa = 1 AND Cod_Barras = '98765432'", {}), 1);
        else if (!unstorable(t))
            c.bound("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 4 AND Cod_Barras = ?", {t});
        break;
    case EntryCount:
        break;
    }
}

} // namespace

class tst_HostileInput : public QObject
{
    Q_OBJECT

    Totals m_totals;

private Q_SLOTS:
    void everyEntryPoint_data()
    {
        QTest::addColumn<int>("entry");
        QTest::addColumn<QString>("text");
        for (const auto &[name, text] : hostileTexts())
            for (int e = 0; e < EntryCount; ++e)
                QTest::addRow("%s / %s", kEntryNames[e], name) << e << text;
    }
    void everyEntryPoint()
    {
        QFETCH(int, entry);
        QFETCH(QString, text);
        Case c(text);
        const QStringList before = c.db.snapshot();
        run(c, Entry(entry));
        const int changed = Testing::TestDatabase::changedRows(before, c.db.snapshot());
        ++m_totals.cases;
        m_totals.refused += c.refused;
        m_totals.changed += changed;
        m_totals.leaks += c.leaks;
        QCOMPARE(changed, 0);
        QCOMPARE(c.leaks, 0);
    }

    void cleanupTestCase()
    {
        std::printf("hostile inputs: %d texts x %d entry points = %d cases run; refused (message or DbError): %d; "
                    "rows changed that should not be: %d; rows shown that should not be: %d\n",
                    int(hostileTexts().size()), int(EntryCount), m_totals.cases, m_totals.refused, m_totals.changed,
                    m_totals.leaks);
    }
};

QTEST_MAIN(tst_HostileInput)
#include "tst_HostileInput.moc"
