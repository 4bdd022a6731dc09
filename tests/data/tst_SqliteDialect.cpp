#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/SqliteDialect.h"
#include "support/DbErrorOf.h"
#include "support/TestDatabase.h"

#include <QTest>

using namespace Varnel_Controles;
using namespace Qt::StringLiterals;

namespace {

// Every row of a statement run through the layer, as "a|b" lines.
QStringList run(Conexion *c, const QString &sql)
{
    Recordset rs;
    rs.open(sql, c);
    QStringList out;
    for (; !rs.eof(); rs.moveNext()) {
        QStringList cells;
        for (const QString &n : rs.fieldNames())
            cells << (rs.field(n).isNull() ? u"NULL"_s : rs.text(n));
        out << cells.join(u'|');
    }
    return out;
}

} // namespace

class tst_SqliteDialect : public QObject
{
    Q_OBJECT

private slots:
    // A statement is rewritten for SQLite, or refused with a DbError when it is cut short where
    // it is rewritten or holds text SQL cannot store: never a crash, never passed on unadapted.
    void adapt_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QString>("sqlite");
        const auto row = [](const char *name, const QString &tsql, const QString &sqlite) {
            QTest::newRow(name) << tsql << sqlite;
        };
        const QString max = QString::fromUcs4(U"\U0010FFFF", 1), high(QChar(0xD800)), nul(QChar(0));
        const QString top = u"Instrucción SQL mal formada: falta el número de filas detrás de TOP."_s;
        const QString bad = u"La instrucción SQL contiene un carácter no válido en la posición %1: no se ha "
                            "ejecutado."_s;
        row("isnull", "SELECT ISNULL(b.X,''), IsNull(Max(C), 0)", "SELECT IFNULL(b.X,''), IFNULL(Max(C), 0)");
        row("top", "SELECT TOP 1 * FROM T ORDER BY A", "SELECT * FROM T ORDER BY A LIMIT 1");
        row("top in parentheses", "SELECT TOP (3) A FROM T", "SELECT A FROM T LIMIT 3");
        row("top in subquery", "WHERE A = (SELECT TOP 1 A FROM T WHERE A > 3 ORDER BY A) ORDER BY B",
            "WHERE A = (SELECT A FROM T WHERE A > 3 ORDER BY A LIMIT 1) ORDER BY B");
        row("convert", "REPLACE(CONVERT(VARCHAR,ISNULL(Pvp,0)),'.',',')", "REPLACE(TSQL_VARCHAR(IFNULL(Pvp,0)),'.',',')");
        row("prefix like gains a range", "WHERE (Nombre like 'AB%')",
            "WHERE ((Nombre >= 'AB' AND Nombre < 'AB" + max + "' AND Nombre like 'AB%'))");
        row("qualified column", "AND a.Ref LIKE 'X_1'",
            "AND (a.Ref >= 'X' AND a.Ref < 'X" + max + "' AND a.Ref LIKE 'X_1')");
        row("integer code prefix: the numbers it starts, from the table of the fixed company",
            "FROM Articulos a WHERE a.Cod_Empresa =1 AND a.Codigo LIKE '12345678901234567%'",
            "FROM Articulos a WHERE a.Cod_Empresa =1 AND (a.Codigo IN (SELECT Codigo FROM Articulos WHERE Cod_Empresa=1 AND "
            "(Codigo BETWEEN 12345678901234567 AND 12345678901234567 OR Codigo BETWEEN 123456789012345670 AND "
            "123456789012345679 OR Codigo BETWEEN 1234567890123456700 AND 1234567890123456799)) AND a.Codigo LIKE "
            "'12345678901234567%')");
        QString nines = u"Codigo BETWEEN 9 AND 9"_s;
        for (QString low = u"9"_s, high = low; low.size() < 18;)
            nines += u" OR Codigo BETWEEN %1 AND %2"_s.arg(low += u'0', high += u'9');
        row("code prefix 9: the last range ends at the largest 64-bit integer", "WHERE Codigo LIKE '9%'",
            "WHERE ((" + nines + " OR Codigo BETWEEN 9000000000000000000 AND 9223372036854775807) AND Codigo LIKE '9%')");
        row("19-digit code prefix", "WHERE Codigo LIKE '9223372036854775807%'", "WHERE ((Codigo BETWEEN "
            "9223372036854775807 AND 9223372036854775807) AND Codigo LIKE '9223372036854775807%')");
        row("company not fixed beside an OR",
            "WHERE a.Cod_Empresa =1 OR a.Codigo IN (SELECT Cod_Articulo FROM R r WHERE r.Cod_Empresa=a.Cod_Empresa)",
            "WHERE a.Cod_Empresa =1 OR a.Codigo IN (SELECT Cod_Articulo FROM R r WHERE r.Cod_Empresa=a.Cod_Empresa)");
        row("contains like unchanged", "WHERE Nombre like '%AB%'", "WHERE Nombre like '%AB%'");
        row("words in literals untouched", "SELECT 'TOP 1 ISNULL(' AS X", "SELECT 'TOP 1 ISNULL(' AS X");
        row("short date", "AND Fecha_Inicial <=' 21/11/2026'", "AND Fecha_Inicial <='2026-11-21'");
        row("service date", "WHERE Fecha = '2026-11-21T00:00:00'", "WHERE Fecha = '2026-11-21'");
        row("date in insert", "INSERT INTO T (A, Fecha, Ref) VALUES ('01/02/2008', ' 1/2/2008', '01/02/2008')",
            "INSERT INTO T (A, Fecha, Ref) VALUES ('01/02/2008', '2008-02-01', '01/02/2008')");
        row("TOP ( at the end", "SELECT TOP (", top);
        row("TOP at the end", "SELECT DISTINCT TOP ", top);
        row("TOP unclosed", "SELECT TOP (5", top);
        row("TOP not closed by a parenthesis", "SELECT TOP (5 A FROM T", top);
        row("TOP not a number", "SELECT TOP A FROM T", top);
        row("TOP( in a subquery", "SELECT A FROM T WHERE A = (SELECT TOP(", top);
        row("lone high surrogate with ISNULL", "SELECT ISNULL(a,'') WHERE b = '" + high + "'", bad.arg(32));
        row("lone low surrogate with TOP", "SELECT TOP 1 a WHERE b = '" + QString(QChar(0xDC00)) + "'", bad.arg(27));
        row("NUL with LIKE", "WHERE b like 'A" + nul + "%'", bad.arg(16));
        row("NUL in a plain lookup", "WHERE b = 'A" + nul + "'", bad.arg(13));
        row("surrogate before a quote", "WHERE b = '" + high + "'''", bad.arg(12));
        row("noncharacter", "WHERE b = '" + QString(QChar(0xFFFF)) + "'", bad.arg(12));
    }
    void adapt()
    {
        QFETCH(QString, tsql);
        QString adapted;
        const QString error = Testing::dbErrorOf([&] { adapted = SqliteDialect::adapt(tsql); });
        QTEST(adapted.isNull() ? error : adapted, "sqlite");
    }

    void collation_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("order");
        QTest::newRow("case ignored") << "peña" << "PEÑA" << 0;
        QTest::newRow("accents matter") << "A" << "Á" << -1;
        QTest::newRow("n before ñ") << "NZ" << "ÑA" << -1;
        QTest::newRow("ñ before o") << "ÑZ" << "OA" << -1;
        QTest::newRow("accent is secondary") << "ÁB" << "AC" << -1;
        QTest::newRow("trailing blanks ignored") << "ACME  " << "acme" << 0;
        QTest::newRow("prefix first") << "AB" << "ABA" << -1;
        // The server's Windows collation: hyphens and apostrophes weigh only after the letters.
        QTest::newRow("O'BRIEN after OBRA") << "O'BRIEN" << "OBRA" << 1;
        QTest::newRow("apostrophe before hyphen") << "AB'C" << "AB-C" << -1;
        QTest::newRow("hyphen case ignored") << "ab-c" << "AB-C" << 0;
        QTest::newRow("accent before hyphen") << "AB-C" << "ÁBC" << -1;
        QTest::newRow("underscore before digits") << "AB_C" << "AB0C" << -1;
        QTest::newRow("other signs before digits") << "A@" << "A0" << -1;
        QTest::newRow("digits before letters") << "A9" << "AA" << -1;
    }
    void collation()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, order);
        QCOMPARE(qBound(-1, SqliteDialect::compare(a, b), 1), order);
        QCOMPARE(qBound(-1, SqliteDialect::compare(b, a), 1), -order);
    }

    void likeMatching_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<bool>("match");
        QTest::newRow("prefix any case") << "ÑANDÚ" << "ñan%" << true;
        QTest::newRow("n is not ñ") << "NANDO" << "ñan%" << false;
        QTest::newRow("accent sensitive") << "AGUJA" << "ág%" << false;
        QTest::newRow("underscore") << "ABC" << "A_C" << true;
        QTest::newRow("class") << "BOSQUE" << "[A-B]%" << true;
        QTest::newRow("negated class") << "ACME" << "[^A]%" << false;
        QTest::newRow("two wildcards") << "A-X-B" << "A%B%" << true;
        QTest::newRow("literal bracket") << "[X" << "[X" << true;
        QTest::newRow("no match") << "AB" << "ABC%" << false;
        QTest::newRow("hyphen matches only itself") << "ABC" << "AB-%" << false;
        QTest::newRow("hyphen in a prefix") << "AB-C" << "ab-%" << true;
        QTest::newRow("letters class leaves signs out") << "_X" << "[A-Z]%" << false;
    }
    void likeMatching()
    {
        QFETCH(QString, text);
        QFETCH(QString, pattern);
        QTEST(SqliteDialect::like(text, pattern), "match");
    }

    // Run on the seeded database with brands whose names hold hyphens and underscores (codes
    // from 100): the rows SQL Server gives, the statement traced as written; a prefix search
    // seeks its index by a range.
    void statementsGiveTheServersAnswers_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("index"); // empty: the plan is not checked
        const auto row = [](const char *name, const char *tsql, const QStringList &rows, const char *index = "") {
            QTest::newRow(name) << QString::fromUtf8(tsql) << rows << QString::fromUtf8(index);
        };
        row("ISNULL", "SELECT ISNULL(Nombre_Comercial, '-') AS NC FROM Proveedores WHERE Cod_Empresa =1 AND Codigo < 4 "
                      "ORDER BY Codigo",
            {"IBERTEX", "-", "abeto"});
        row("TOP", "SELECT TOP 2 Codigo FROM Marcas ORDER BY Nombre", {"104", "7"});
        row("LEN, LTRIM, RTRIM", "SELECT LEN('AB  ') AS L, LTRIM(RTRIM('  AB  ')) AS T", {"2|AB"});
        row("CONVERT inside REPLACE", "SELECT REPLACE(CONVERT(VARCHAR,ISNULL(Pvp,0)),'.',',') AS P FROM Articulos_Tarifas "
                                      "WHERE Cod_Empresa=1 ORDER BY Cod_Articulo, Cod_Tarifa",
            {"0,35", "12,5", "9,95", "1,23457e+006"});
        row("UNION merges equal rows, ignoring case", // ABC twice; ABETO and abeto
            "SELECT COUNT(*) AS N FROM (SELECT Nombre FROM Marcas WHERE Nombre LIKE 'AB%' UNION SELECT Nombre_Comercial "
            "FROM Proveedores WHERE Cod_Empresa =1 AND Nombre_Comercial LIKE 'ab%') AS u",
            {"10"});
        row("UNION orders as the server", "SELECT Nombre FROM Marcas WHERE Nombre LIKE 'ABA%' UNION SELECT Nombre FROM "
                                          "Proveedores WHERE Cod_Empresa =1 AND Nombre LIKE 'AB%' ORDER BY Nombre",
            {"ABAD MORENO, LUIS", "ABADÍA", "abastos del norte s.a."});
        row("sorted as on the server", "SELECT Nombre FROM Marcas WHERE Codigo >= 100 ORDER BY Nombre",
            {"AB_C", "ABB", "ABC", "AB-C", "AB-C-2", "ABD", "ABXC", "-OFERTA-"});
        row("LIKE with a pattern per row", "SELECT Codigo FROM Marcas WHERE 'abeto' LIKE Nombre", {"2"});
        row("= ignores case, keeps accents", "SELECT Codigo FROM Proveedores WHERE Nombre IN ('garcía y peña s.l.', "
                                             "'ñandu distribuciones s.a.')",
            {"1"});
        row("short date with blank", "SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Cliente =1001 AND Fecha_Inicial <=' "
                                     "15/06/2026' AND Fecha_Final >=' 15/06/2026'",
            {"11"});
        row("dates compare as dates, not text", "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND FAlta > '02/07/2025'",
            {"4711"});
        row("suppliers by name", "SELECT Codigo FROM Proveedores WHERE Cod_Empresa = 1 And (Nombre like 'ñan%')", {"2"},
            "IX_Proveedores_Nombre");
        row("a hyphen in the prefix", "SELECT Codigo FROM Marcas WHERE Nombre LIKE 'ab-%' ORDER BY Nombre", {"102", "106"},
            "IX_Marcas_Nombre");
        row("a hyphen first", "SELECT Codigo FROM Marcas WHERE Nombre LIKE '-%'", {"107"}, "IX_Marcas_Nombre");
    }
    void statementsGiveTheServersAnswers()
    {
        QFETCH(QString, tsql);
        QFETCH(QString, index);
        Testing::TestDatabase db;
        db.conexion()->execute(u"INSERT INTO Marcas (Codigo, Nombre) VALUES (100, 'ABD'), (101, 'ABXC'), (102, 'AB-C'), "
                               "(103, 'ABB'), (104, 'AB_C'), (105, 'ABC'), (106, 'AB-C-2'), (107, '-OFERTA-')"_s);
        db.statements.clear();
        QTEST(run(db.conexion(), tsql), "rows");
        QCOMPARE(db.statements, QStringList{tsql}); // traced as written, before adaptation
        const QString plan = db.rows("EXPLAIN QUERY PLAN " + db.conexion()->adapt(tsql)).join(u'\n');
        const bool seeks = plan.contains("SEARCH") && plan.contains(index) && plan.contains(">?") && plan.contains("<?");
        QVERIFY2(index.isEmpty() || seeks, qPrintable(plan));
    }

    void writesStoreWhatTheServerStores()
    {
        Testing::TestDatabase db;
        db.conexion()->execute(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, "
                               "Unidades, Automatico) VALUES (1, 5, '555', 0, '"_s
                               + FechaSQL::instance().Texto(QDate(2026, 2, 1)) + "', 1, 0)");
        db.conexion()->execute(u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal, Fecha) "
                               "VALUES (1, 5, 1, '01/02/2008', 0, ' 3/4/2026')"_s);
        QCOMPARE(db.rows(u"SELECT Fecha FROM Articulos_CBarras WHERE Cod_Barras='555'"_s), QStringList{"2026-02-01"});
        QCOMPARE(db.rows(u"SELECT Ref, Fecha FROM Articulos_Ref WHERE Cod_Articulo=5"_s),
                 QStringList{"01/02/2008|2026-04-03"});
        QCOMPARE(FechaSQL::Leer(u"2026-02-01"_s), QDate(2026, 2, 1));
    }
};

QTEST_GUILESS_MAIN(tst_SqliteDialect)
#include "tst_SqliteDialect.moc"
