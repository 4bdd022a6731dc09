// Hostile text through every place where a clerk's or a host's text reaches SQL: the search
// filters, the NIF box, the lookup codes and the barcode operations. Each case checks that no
// row changed but the intended ones, that no other company's row shows, and that text SQL
// cannot hold is refused: a message for the clerk, a DbError for the caller of the barcodes.
#include "articles/clsArticulo_CBarra.h"
#include "data/DbError.h"
#include "data/SqlText.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "platform/Legacy.h"
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "support/DbErrorOf.h"
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
using namespace Qt::StringLiterals;
using namespace std::literals;

namespace {

// Text SQL cannot hold, and the refusal that names its first such code unit (both pinned by tst_SqlText).
bool unstorable(const QString &text) { return !SqlText::storable(text); }
QString refusal(const QString &text) { return Testing::dbErrorOf([&] { SqlText::texto(text); }); }

QString u16(std::u16string_view s) { return QString(reinterpret_cast<const QChar *>(s.data()), qsizetype(s.size())); }

QList<std::pair<const char *, QString>> hostileTexts()
{
    return {
        {"apostrophe", u16(u"'")},
        {"two apostrophes", u16(u"''")},
        {"name with apostrophe", u16(u"O'BRIEN")},
        {"or 1=1 comment", u16(u"' OR 1=1 --")},
        {"stacked delete", u16(u"'; DELETE FROM Articulos_CBarras; --")},
        {"drop table", u16(u"'); DROP TABLE Marcas; --")},
        {"union Empresas", u16(u"' UNION SELECT Codigo, Nombre FROM Empresas --")},
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
        {"percent injection", u16(u"%' OR '%'='")},
        {"comment dashes", u16(u"--")},
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
        {"100k apostrophes", QString(100000, u'\'')},
        {"100k injection", u16(u"' OR 1=1 --").repeated(10000)},
        {"capitals and accents", u16(u"ÑANDÚ ÁGUILA")},
        {"emoji and apostrophe", u16(u"🙂'🙂")},
        {"right-to-left override", u16(u"\x202E' OR 1=1 --")},
        {"noncharacter FFFF", u16(u"\xFFFF")},
        {"byte order mark", u16(u"'\xFEFF'")},
        {"collate", u16(u"' COLLATE NOCASE --")},
        {"blanks", u16(u"   ")},
        {"empty", u16(u"")},
        {"modifier apostrophe", u16(u"\x02BC OR 1=1 --")},
        {"right single quote", u16(u"\x2019 OR 1=1 --")},
        {"valid pair", u16(u"\xD800\xDC00")},
        {"highest code point", u16(u"\xDBFF\xDFFF")},
    };
}

enum Entry {
    BrandFilter, SupplierFilter, CustomerName, CustomerNif, SupplierCode, CustomerCode, Existe,
    DevPrincipal, Insertar, Modificar, ModificarPrincipal, CambiaPrincipal, Eliminar, EntryCount
};
const char *const kEntryNames[EntryCount] = {
    "brand filter", "supplier filter", "customer name", "customer NIF", "kdProveedor code", "kdCliente code",
    "Existe", "Dev_CodigoBarraPrincipal", "Insertar", "Modificar", "ModificarPrincipal", "Cambia_Principal", "Eliminar"};

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
    QStringList errors; // "source: description" of each DbError a barcode operation threw

    explicit Case(const QString &t) : empresa(db.empresa(1)), text(t)
    {
        exec(u"PRAGMA synchronous=OFF"_s, {});
        if (unstorable(text))
            return;
        exec(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (9001, ?)"_s, {text});
        exec(u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, 9001, ?), (2, 9002, ?)"_s, {text, text});
        exec(u"INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nif) VALUES (1, 9001, ?, ?), (2, 9002, ?, ?)"_s,
             {text, text, text, text});
        plant(u"(1, 5, ?, 1, '2025-05-14', 1), (2, 6, ?, 1, '2025-05-14', 1)"_s, {text, text});
    }
    // Runs a statement with bound values, outside the library and its trace.
    QSqlQuery exec(const QString &sql, const QVariantList &values)
    {
        QSqlQuery q(db.conexion()->database());
        q.prepare(sql);
        for (const QVariant &v : values)
            q.addBindValue(v);
        if (!q.exec())
            qWarning("%s", qPrintable(q.lastError().text()));
        return q;
    }
    int changes(const QString &sql, const QVariantList &values) { return exec(sql, values).numRowsAffected(); }
    QStringList column(const QString &sql, const QVariantList &values)
    {
        QSqlQuery q = exec(sql, values);
        QStringList out;
        while (q.next())
            out << q.value(0).toString();
        out.sort();
        return out;
    }
    // Barcode rows holding the text: "(Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades)".
    int plant(const QString &rows, const QVariantList &values)
    {
        return changes("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades) "
                       "VALUES " + rows, values);
    }
    // A barcode row of company 1 holding storable text, planted for an operation to find, then removed.
    void plant(qint32 article, bool principal)
    {
        if (!unstorable(text))
            plant(u"(1, %1, ?, %2, NULL, 1)"_s.arg(article).arg(int(principal)), {text});
    }
    void unplant(qint32 article)
    {
        if (!unstorable(text))
            changes(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = ? AND Cod_Barras = ?"_s,
                    {article, text});
    }
    // Runs a barcode operation; whether it went through. Text that SQL cannot hold must come back
    // as a DbError (checked with `errors` by the test), anything else must go through.
    template <typename Operation>
    bool barcodes(Operation &&operation)
    {
        refused = unstorable(text);
        try {
            operation();
            return true;
        } catch (const DbError &e) {
            errors << e.Source() + u": "_s + e.Description();
            return false;
        }
    }
};

std::unique_ptr<frmBusqueda> dialog(Entry entry)
{
    if (entry == BrandFilter)
        return std::make_unique<frmBusqueda_Marcas>();
    if (entry == SupplierFilter) {
        auto suppliers = std::make_unique<frmBusqueda_Proveedores>();
        suppliers->setEmpresa(1);
        return suppliers;
    }
    auto customers = std::make_unique<frmBusqueda_Clientes>();
    customers->setEmpresa(1);
    return customers;
}

// The codes a search for `typed` must show, by bound statements outside the library.
QStringList matches(Case &c, Entry entry, const QString &typed)
{
    const QString p = QString(typed.endsWith(u'*') ? typed : typed + u'*').replace(u'*', u'%'); // as the dialogs mean it
    const QString customers = u"SELECT Codigo FROM (SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, c.Nif FROM Clientes c "
        "WHERE c.Cod_Empresa = 1 AND (c.Nombre LIKE ? OR c.Nombre_Comercial LIKE ?) %1 UNION SELECT ci.Cod_Cliente, "
        "ci.Nombre, '', '' FROM Clientes_Instalaciones ci INNER JOIN Clientes c ON c.Codigo = ci.Cod_Cliente AND "
        "c.Cod_Empresa = ci.Cod_Empresa WHERE ci.Cod_Empresa = 1 AND ci.Nombre LIKE ? %1)"_s;
    if (c.refused) // refused text shows nothing
        return {};
    if (entry == BrandFilter)
        return c.column(u"SELECT Codigo FROM Marcas WHERE Nombre LIKE ?"_s, {p});
    if (entry == SupplierFilter)
        return c.column(u"SELECT Codigo FROM Proveedores WHERE Cod_Empresa = 1 AND (Nombre LIKE ? OR Nombre_Comercial "
                        "LIKE ?)"_s, {p, p});
    if (entry == CustomerName || typed.isEmpty())
        return c.column(customers.arg(QString()), {p, p, p});
    return c.column(customers.arg(u"AND c.Nif = ?"_s), {u"%"_s, u"%"_s, typed, u"%"_s, typed});
}

void search(Case &c, Entry entry)
{
    const std::unique_ptr<frmBusqueda> d = dialog(entry);
    auto *name = d->findChild<TextField *>(u"txtNombre"_s);
    auto *nif = d->findChild<TextField *>(u"txtNif"_s);
    (entry == CustomerNif ? nif : name)->setText(c.text);
    const QString typed = Legacy::Trim((entry == CustomerNif ? nif : name)->text());
    QTest::keyClick(nif ? nif : name, Qt::Key_Return); // the customer dialog searches from its NIF box
    c.refused = unstorable(typed);
    const QStringList expected = matches(c, entry, typed);
    auto *grid = d->findChild<SearchGrid *>(u"vsListado"_s);
    for (int r = 0; r < grid->model()->rowCount(); ++r)
        c.leaks += !expected.contains(grid->model()->index(r, 0).data().toString());
    QCOMPARE(grid->model()->rowCount(), qMin(expected.size(), d->pageSize()));
    QStringList messages;
    for (const auto &m : std::as_const(c.ui.messages))
        messages << u"%1 (%2): %3"_s.arg(m.title).arg(m.style).arg(m.prompt);
    const QString refused = d->objectName() + u"::Recuperar_Registros (16): "_s + refusal(typed);
    QCOMPARE(messages, c.refused ? QStringList{refused} : QStringList());
}

void lookup(Case &c, Entry entry)
{
    const std::unique_ptr<kdLookup> l(entry == SupplierCode ? static_cast<kdLookup *>(new kdProveedor) : new kdCliente);
    l->setCEmpresa(c.empresa);
    l->setText(c.text);
    const double code = Legacy::Val(l->Text());
    const QStringList names = code == 0 ? QStringList()
        : c.column(u"SELECT Nombre FROM %1 WHERE Cod_Empresa = 1 AND Codigo = ?"_s
                       .arg(entry == SupplierCode ? "Proveedores" : "Clientes"), {code});
    QCOMPARE(l->Cargar(), !names.isEmpty());
    QCOMPARE(c.ui.messages.size(), 0);
    c.leaks += l->Nombre() != names.value(0);
}

// Runs the entry point, then undoes the change it was meant to make (by bound statements that
// must each find their rows), so that whatever still differs changed when it should not have.
void run(Case &c, Entry entry)
{
    clsArticulo_CBarra cb;
    cb.setConexion(c.db.conexion());
    cb.setCEmpresa(c.empresa);
    const QString t = c.text;
    cb.setCod_Articulo(1);
    cb.setCod_Barras(t);
    cb.setPrincipal(true);
    cb.setUnidades(1);
    const QString restorePrincipal = u"UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa = 1 AND Cod_Barras = "
                                     "'8412345678905'"_s;
    switch (entry) {
    case BrandFilter: case SupplierFilter: case CustomerName: case CustomerNif:
        search(c, entry);
        break;
    case SupplierCode: case CustomerCode:
        lookup(c, entry);
        break;
    case Existe: {
        qint32 art = 0;
        QString name;
        qint16 units = 0;
        bool principal = false, found = false;
        if (c.barcodes([&] { found = cb.Existe(t, art, name, units, principal); })) {
            QVERIFY(found);
            c.leaks += art != 5;
            QCOMPARE(name, u"ÁGUILA DE BRONCE"_s);
        }
        break;
    }
    case DevPrincipal: // the argument is a number: the text comes back from the row planted with it
        c.leaks += !cb.Dev_CodigoBarraPrincipal(6).isEmpty();
        QCOMPARE(cb.Dev_CodigoBarraPrincipal(5), unstorable(t) ? QString() : t);
        break;
    case Insertar:
        if (c.barcodes([&] { cb.Insertar(); })) {
            QCOMPARE(c.changes(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 AND Cod_Barras = "
                               "? AND Principal = 1 AND Fecha = ? AND Unidades = 1 AND Automatico = 0"_s,
                               {t, QDate::currentDate().toString(Qt::ISODate)}), 1);
            QCOMPARE(c.changes(restorePrincipal, {}), 1);
        }
        break;
    case Modificar:
        c.plant(4, false);
        cb.setKey(4);
        cb.setUnidades(7);
        if (c.barcodes([&] { cb.Modificar(t); }))
            QCOMPARE(c.changes(u"UPDATE Articulos_CBarras SET Unidades = 1 WHERE Cod_Empresa = 1 AND Cod_Articulo = 4 AND "
                               "Cod_Barras = ? AND Unidades = 7"_s, {t}), 1);
        c.unplant(4);
        break;
    case ModificarPrincipal:
        cb.setCod_Articulo(4711);
        c.ui.answerMessages({UiSeam::vbYes});
        if (c.barcodes([&] { cb.ModificarPrincipal(); })) {
            QCOMPARE(c.ui.messages.size(), 1);
            QCOMPARE(c.ui.messages[0].prompt,
                     u"El EAN %1 existe en el artículo 5 - ÁGUILA DE BRONCE. ¿Desea Traspasarlo?"_s.arg(t));
            QCOMPARE(c.plant(u"(1, 5, ?, 1, '2025-05-14', 1)"_s, {t}), 1);
            QCOMPARE(c.changes(u"UPDATE Articulos_CBarras SET Cod_Barras = '8470001234561' WHERE Cod_Empresa = 1 AND "
                               "Cod_Articulo = 4711 AND Cod_Barras = ? AND Principal = 1"_s, {t}), 1);
        }
        break;
    case CambiaPrincipal:
        c.plant(1, false);
        if (c.barcodes([&] { cb.Cambia_Principal(t); })) {
            QCOMPARE(c.changes(restorePrincipal, {}), 1);
            QCOMPARE(c.changes(u"UPDATE Articulos_CBarras SET Principal = 0 WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 "
                               "AND Cod_Barras = ? AND Principal = 1"_s, {t}), 1);
        }
        c.unplant(1);
        break;
    case Eliminar:
        c.plant(4, true);
        if (c.barcodes([&] { cb.Eliminar(t, 4, true); }))
            QCOMPARE(c.changes(u"UPDATE Articulos_CBarras SET Principal = 0 WHERE Cod_Empresa = 1 AND Cod_Barras = "
                               "'98765432'"_s, {}), 1);
        else
            c.unplant(4);
        break;
    case EntryCount:
        break;
    }
}

} // namespace

class tst_HostileInput : public QObject
{
    Q_OBJECT

    int m_cases = 0, m_refused = 0, m_changed = 0, m_leaks = 0;

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
        ++m_cases;
        m_refused += c.refused;
        m_changed += changed;
        m_leaks += c.leaks;
        // A barcode operation refuses under the source text of the legacy class.
        const char *source = entry == Insertar ? "Insertar" : entry == Existe || entry == Eliminar ? "Existe" : "Modificar";
        const QString refused = u"clsCodigos_Barra::%1: "_s.arg(source) + refusal(text);
        QCOMPARE(c.errors, c.refused && entry >= Existe ? QStringList{refused} : QStringList());
        QCOMPARE(changed, 0);
        QCOMPARE(c.leaks, 0);
    }

    void cleanupTestCase()
    {
        std::printf("hostile inputs: %d texts x %d entry points = %d cases run; refused (message or DbError): %d; "
                    "rows changed that should not be: %d; rows shown that should not be: %d\n",
                    int(hostileTexts().size()), int(EntryCount), m_cases, m_refused, m_changed, m_leaks);
    }
};

QTEST_MAIN(tst_HostileInput)
#include "tst_HostileInput.moc"
