#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/SqliteDialect.h"
#include "support/TestDatabase.h"

#include <QSqlQuery>
#include <QTest>

using namespace Varnel_Controles;

namespace {

// Every row of a statement run through the layer, as "a|b" lines.
QStringList run(Conexion *c, const QString &sql)
{
    Recordset rs;
    rs.open(sql, c);
    QStringList out;
    const QStringList names = rs.fieldNames();
    while (!rs.eof()) {
        QStringList cells;
        for (const QString &n : names)
            cells << (rs.field(n).isNull() ? QStringLiteral("NULL") : rs.text(n));
        out << cells.join(u'|');
        rs.moveNext();
    }
    return out;
}

// Brands whose names hold hyphens and underscores, codes from 100.
void addBrands(Testing::TestDatabase &db)
{
    db.conexion()->execute(QStringLiteral("INSERT INTO Marcas (Codigo, Nombre) VALUES (100, 'ABD'), (101, 'ABXC'), (102, 'AB-C'), "
                                          "(103, 'ABB'), (104, 'AB_C'), (105, 'ABC'), (106, 'AB-C-2'), (107, '-OFERTA-')"));
}

} // namespace

class tst_SqliteDialect : public QObject
{
    Q_OBJECT

private slots:
    void rewrites_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QString>("sqlite");
        QTest::newRow("isnull") << "SELECT ISNULL(b.X,'') AS X, IsNull(Max(C), 0)"
                                << "SELECT IFNULL(b.X,'') AS X, IFNULL(Max(C), 0)";
        QTest::newRow("top") << "SELECT TOP 1 * FROM T ORDER BY A" << "SELECT * FROM T ORDER BY A LIMIT 1";
        QTest::newRow("top in parentheses") << "SELECT TOP (3) A FROM T" << "SELECT A FROM T LIMIT 3";
        QTest::newRow("top in subquery")
            << "SELECT * FROM T WHERE A = (SELECT TOP 1 A FROM T WHERE A > 3 ORDER BY A ASC) ORDER BY B"
            << "SELECT * FROM T WHERE A = (SELECT A FROM T WHERE A > 3 ORDER BY A ASC LIMIT 1) ORDER BY B";
        QTest::newRow("convert") << "REPLACE(CONVERT(VARCHAR,ISNULL(d.Pvp,0)),'.',',')"
                                 << "REPLACE(TSQL_VARCHAR(IFNULL(d.Pvp,0)),'.',',')";
        QTest::newRow("prefix like gains a range")
            << "WHERE (Nombre like 'AB%')"
            << QStringLiteral("WHERE ((Nombre >= 'AB' AND Nombre < 'AB") + QString::fromUcs4(U"\U0010FFFF", 1) + "' AND Nombre like 'AB%'))";
        QTest::newRow("qualified column") << "AND a.Ref LIKE 'X_1'"
                                          << QStringLiteral("AND (a.Ref >= 'X' AND a.Ref < 'X") + QString::fromUcs4(U"\U0010FFFF", 1) + "' AND a.Ref LIKE 'X_1')";
        QTest::newRow("contains like unchanged") << "WHERE Nombre like '%AB%'" << "WHERE Nombre like '%AB%'";
        QTest::newRow("words in literals untouched") << "SELECT 'TOP 1 ISNULL(' AS X" << "SELECT 'TOP 1 ISNULL(' AS X";
        QTest::newRow("short date") << "AND Fecha_Inicial <=' 21/11/2026'" << "AND Fecha_Inicial <='2026-11-21'";
        QTest::newRow("service date") << "WHERE Fecha = '2026-11-21T00:00:00'" << "WHERE Fecha = '2026-11-21'";
        QTest::newRow("date in insert")
            << "INSERT INTO T (A, Fecha, Ref) VALUES ('01/02/2008', ' 1/2/2008', '01/02/2008')"
            << "INSERT INTO T (A, Fecha, Ref) VALUES ('01/02/2008', '2008-02-01', '01/02/2008')";
    }
    void rewrites()
    {
        QFETCH(QString, tsql);
        QFETCH(QString, sqlite);
        QCOMPARE(SqliteDialect::adapt(tsql), sqlite);
    }

    // A statement cut short where it is rewritten, or holding text that is not valid UTF-16
    // or a NUL, is a DbError: never a crash, never passed on unadapted.
    void unadaptableStatementIsAnError_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QString>("message");
        const QString top = QStringLiteral("TOP"), invalid = QStringLiteral("La instrucción SQL contiene un carácter no válido");
        QTest::newRow("TOP (") << "SELECT TOP (" << top;
        QTest::newRow("TOP(") << "SELECT TOP(" << top;
        QTest::newRow("TOP at the end") << "SELECT DISTINCT TOP " << top;
        QTest::newRow("unclosed") << "SELECT TOP (5" << top;
        QTest::newRow("not closed by a parenthesis") << "SELECT TOP (5 A FROM T" << top;
        QTest::newRow("not a number") << "SELECT TOP A FROM T" << top;
        QTest::newRow("in a subquery") << "SELECT A FROM T WHERE A = (SELECT TOP (" << top;
        const QString high(QChar(0xD800)), low(QChar(0xDC00)), nul(QChar(0));
        QTest::newRow("lone high surrogate with ISNULL") << "SELECT ISNULL(a,'') FROM T WHERE b = '" + high + "'" << invalid;
        QTest::newRow("lone low surrogate with TOP") << "SELECT TOP 1 a FROM T WHERE b = '" + low + "'" << invalid;
        QTest::newRow("NUL with LIKE") << "SELECT a FROM T WHERE b like 'A" + nul + "%'" << invalid;
        QTest::newRow("NUL in a plain lookup") << "SELECT a FROM T WHERE b = 'A" + nul + "'" << invalid;
        QTest::newRow("surrogate before a quote") << "SELECT a FROM T WHERE b = '" + high + "'''" << invalid;
        QTest::newRow("noncharacter") << "SELECT a FROM T WHERE b = '" + QString(QChar(0xFFFF)) + "'" << invalid;
    }
    void unadaptableStatementIsAnError()
    {
        QFETCH(QString, tsql);
        QFETCH(QString, message);
        try {
            SqliteDialect::adapt(tsql);
            QFAIL("adapted");
        } catch (const DbError &e) {
            QVERIFY2(e.Description().contains(message), qPrintable(e.Description()));
        }
    }

    void collation_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("order");
        QTest::newRow("case ignored") << "peña" << "PEÑA" << 0;
        QTest::newRow("accent case ignored") << "á" << "Á" << 0;
        QTest::newRow("accents matter") << "A" << "Á" << -1;
        QTest::newRow("n before ñ") << "NZ" << "ÑA" << -1;
        QTest::newRow("ñ before o") << "ÑZ" << "OA" << -1;
        QTest::newRow("accent is secondary") << "ÁB" << "AC" << -1;
        QTest::newRow("trailing blanks ignored") << "ACME  " << "acme" << 0;
        QTest::newRow("prefix first") << "AB" << "ABA" << -1;
        // The server's Windows collation: hyphens and apostrophes weigh only after the letters.
        QTest::newRow("ABB before AB-C") << "ABB" << "AB-C" << -1;
        QTest::newRow("AB-C before ABD") << "AB-C" << "ABD" << -1;
        QTest::newRow("O'BRIEN after OBRA") << "O'BRIEN" << "OBRA" << 1;
        QTest::newRow("hyphen breaks the tie") << "ABC" << "AB-C" << -1;
        QTest::newRow("apostrophe before hyphen") << "AB'C" << "AB-C" << -1;
        QTest::newRow("hyphen case ignored") << "ab-c" << "AB-C" << 0;
        QTest::newRow("accent before hyphen") << "AB-C" << "ÁBC" << -1;
        QTest::newRow("underscore before letters") << "AB_C" << "ABXC" << -1;
        QTest::newRow("underscore before digits") << "AB_C" << "AB0C" << -1;
        QTest::newRow("other signs before digits") << "A@" << "A0" << -1;
        QTest::newRow("digits before letters") << "A9" << "AA" << -1;
    }
    void collation()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, order);
        const int c = SqliteDialect::compare(a, b);
        QCOMPARE(c < 0 ? -1 : c > 0 ? 1 : 0, order);
        const int back = SqliteDialect::compare(b, a);
        QCOMPARE(back < 0 ? -1 : back > 0 ? 1 : 0, -order);
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
        QTest::newRow("contains") << "CAMISA MANGA" << "%MANGA%" << true;
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
        QFETCH(bool, match);
        QCOMPARE(SqliteDialect::like(text, pattern), match);
    }

    void floatToText()
    {
        QCOMPARE(SqliteDialect::floatToVarchar(12.5), QStringLiteral("12.5"));
        QCOMPARE(SqliteDialect::floatToVarchar(0.35), QStringLiteral("0.35"));
        QCOMPARE(SqliteDialect::floatToVarchar(1234567), QStringLiteral("1.23457e+006"));
        QCOMPARE(SqliteDialect::floatToVarchar(0), QStringLiteral("0"));
    }

    void statementFormsGiveTheServersAnswers_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("ISNULL") << "SELECT Codigo, ISNULL(Nombre_Comercial, '(ninguno)') AS NC FROM Proveedores WHERE Cod_Empresa =1 AND Codigo < 4 ORDER BY Codigo"
                                << QStringList{"1|IBERTEX", "2|(ninguno)", "3|abeto"};
        QTest::newRow("IsNull of an empty max") << "SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = 9"
                                               << QStringList{"0"};
        QTest::newRow("TOP") << "SELECT TOP 2 Codigo FROM Marcas ORDER BY Nombre" << QStringList{"7", "5"};
        QTest::newRow("TOP in subquery")
            << "SELECT Cod_Barras From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo > 2 ORDER BY Cod_Articulo ASC) ORDER BY Principal DESC"
            << QStringList{"98765432"};
        QTest::newRow("LEN") << "SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND LEN(Cod_Barras) = 8 ORDER BY Cod_Barras"
                             << QStringList{"84123457", "98765432"};
        QTest::newRow("LEN, LTRIM, RTRIM") << "SELECT LEN('AB  ') AS L, LTRIM(RTRIM('  AB  ')) AS T" << QStringList{"2|AB"};
        QTest::newRow("CONVERT inside REPLACE")
            << "SELECT REPLACE(CONVERT(VARCHAR,ISNULL(Pvp,0)),'.',',') AS P FROM Articulos_Tarifas WHERE Cod_Empresa=1 ORDER BY Cod_Articulo, Cod_Tarifa"
            << QStringList{"0,35", "12,5", "9,95", "1,23457e+006"};
        QTest::newRow("UNION merges equal rows, ignoring case")
            << "SELECT COUNT(*) AS N FROM (SELECT Nombre FROM Marcas WHERE Nombre LIKE 'AB%' UNION SELECT Nombre_Comercial FROM Proveedores WHERE Cod_Empresa =1 AND Nombre_Comercial LIKE 'ab%') AS u"
            << QStringList{"4"}; // ABACO, ABADÍA, ABC and one of ABETO / abeto
        QTest::newRow("UNION orders by the Spanish collation")
            << "SELECT Nombre FROM Marcas WHERE Nombre LIKE 'AB%' UNION SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Nombre LIKE 'AB%' ORDER BY Nombre"
            << QStringList{"ABAD MORENO, LUIS", "ABADÍA", "abastos del norte s.a.", "ABC", "ABETO"};
        QTest::newRow("IN subquery")
            << "SELECT a.Codigo FROM Articulos a WHERE a.Cod_Empresa =1 AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE  aref.Cod_empresa=a.Cod_Empresa AND aref.Ref LIKE 'shared%') ORDER BY a.Codigo"
            << QStringList{"3", "4"};
        QTest::newRow("BETWEEN") << "SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo BETWEEN 2 AND 4 ORDER BY Cod_Barras"
                                 << QStringList{"4006381333931", "98765432"};
        QTest::newRow("bit column") << "SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 1 and Cod_Empresa = 1 AND Principal = 1"
                                    << QStringList{"8412345678905"};
        QTest::newRow("LIKE ñ") << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE 'ñan%'" << QStringList{"2"};
        QTest::newRow("LIKE n") << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE 'nan%'" << QStringList{"3"};
        QTest::newRow("LIKE accent") << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE 'ág%'" << QStringList{"5"};
        QTest::newRow("LIKE without accent") << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE 'AG%'" << QStringList{"6"};
        QTest::newRow("LIKE contains") << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND Descripcion LIKE '%de%' ORDER BY Codigo"
                                       << QStringList{"2", "5", "6"};
        QTest::newRow("LIKE with a pattern per row") << "SELECT Codigo FROM Marcas WHERE 'abeto' LIKE Nombre ORDER BY Codigo"
                                                     << QStringList{"2"};
        QTest::newRow("LIKE class") << "SELECT Nombre FROM Marcas WHERE Nombre LIKE '[^A]%' ORDER BY Nombre" << QStringList{"BOSQUE", "ÑANDÚ"};
        QTest::newRow("= ignores case") << "SELECT Codigo FROM Proveedores WHERE Cod_Empresa =1 AND Nombre ='garcía y peña s.l.'" << QStringList{"1"};
        QTest::newRow("= keeps accents") << "SELECT Codigo FROM Proveedores WHERE Cod_Empresa =1 AND Nombre ='GARCIA Y PEÑA S.L.'" << QStringList{};
        QTest::newRow("= ignores trailing blanks") << "SELECT Codigo FROM Marcas WHERE Nombre ='ACME  '" << QStringList{"1"};
        QTest::newRow("short date with blank")
            << "SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =1001 AND Fecha_Inicial <=' 15/06/2026' AND Fecha_Final >=' 15/06/2026'"
            << QStringList{"11"};
        QTest::newRow("dates compare as dates, not text")
            << "SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND FAlta > '02/07/2025' ORDER BY Codigo" << QStringList{"4711"};
        QTest::newRow("service date") << "SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =2 AND Fecha = '2025-08-17T00:00:00'"
                                      << QStringList{"1"};
    }
    void statementFormsGiveTheServersAnswers()
    {
        QFETCH(QString, tsql);
        QFETCH(QStringList, rows);
        Testing::TestDatabase db;
        QCOMPARE(run(db.conexion(), tsql), rows);
        QCOMPARE(db.statements, QStringList{tsql}); // traced as written, before adaptation
    }

    void updateFromATopSubquery()
    {
        Testing::TestDatabase db;
        const int n = db.conexion()->execute(QStringLiteral(
            "UPDATE Articulos_CBarras SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 and "
            "Cod_Empresa =1 and Cod_Articulo =4) as a Where a.Cod_Barras = Articulos_CBarras.Cod_Barras"));
        QCOMPARE(n, 1);
        QCOMPARE(db.rows(QStringLiteral("SELECT Principal FROM Articulos_CBarras WHERE Cod_Barras='98765432'")), QStringList{"1"});
    }

    void datesAreStoredAsDates()
    {
        Testing::TestDatabase db;
        db.conexion()->execute(QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, Automatico) VALUES (1, 5, '555', 0, '")
                               + FechaSQL::instance().Texto(QDate(2026, 2, 1)) + QStringLiteral("', 1, 0)"));
        db.conexion()->execute(QStringLiteral("INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal, Fecha) VALUES (1, 5, 1, '01/02/2008', 0, ' 3/4/2026')"));
        QCOMPARE(db.rows(QStringLiteral("SELECT Fecha FROM Articulos_CBarras WHERE Cod_Barras='555'")), QStringList{"2026-02-01"});
        QCOMPARE(db.rows(QStringLiteral("SELECT Ref, Fecha FROM Articulos_Ref WHERE Cod_Articulo=5")), QStringList{"01/02/2008|2026-04-03"});
        QCOMPARE(FechaSQL::Leer(QStringLiteral("2026-02-01")), QDate(2026, 2, 1));
    }

    void textsSortAsOnTheServer()
    {
        Testing::TestDatabase db;
        addBrands(db);
        QCOMPARE(run(db.conexion(), QStringLiteral("SELECT Nombre FROM Marcas WHERE Codigo >= 100 ORDER BY Nombre")),
                 (QStringList{"AB_C", "ABB", "ABC", "AB-C", "AB-C-2", "ABD", "ABXC", "-OFERTA-"}));
    }

    void prefixSearchSeeksTheIndex_data()
    {
        QTest::addColumn<QString>("tsql");
        QTest::addColumn<QString>("index");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("suppliers by name")
            << "SELECT Codigo, Nombre FROM Proveedores WHERE Cod_Empresa = 1 And (Nombre like 'ñan%') ORDER BY Nombre"
            << "IX_Proveedores_Nombre" << QStringList{"2|ÑANDÚ DISTRIBUCIONES S.A."};
        QTest::newRow("articles by description")
            << "SELECT a.Codigo, a.Descripcion FROM Articulos a WHERE a.Cod_Empresa =1 AND a.Descripcion LIKE 'ñan%' ORDER BY a.Descripcion"
            << "IX_Articulos_Descripcion" << QStringList{"2|ÑANDÚ DE PELUCHE"};
        QTest::newRow("a hyphen in the prefix")
            << "SELECT Codigo, Nombre FROM Marcas WHERE Nombre LIKE 'ab-%' ORDER BY Nombre"
            << "IX_Marcas_Nombre" << QStringList{"102|AB-C", "106|AB-C-2"};
        QTest::newRow("a hyphen first")
            << "SELECT Codigo, Nombre FROM Marcas WHERE Nombre LIKE '-%' ORDER BY Nombre"
            << "IX_Marcas_Nombre" << QStringList{"107|-OFERTA-"};
    }
    void prefixSearchSeeksTheIndex()
    {
        QFETCH(QString, tsql);
        QFETCH(QString, index);
        QFETCH(QStringList, rows);
        Testing::TestDatabase db;
        addBrands(db);
        QCOMPARE(run(db.conexion(), tsql), rows);
        const QString plan = db.rows(QStringLiteral("EXPLAIN QUERY PLAN ") + db.conexion()->adapt(tsql)).join(u'\n');
        QVERIFY2(plan.contains(QStringLiteral("SEARCH")) && plan.contains(index), qPrintable(plan));
        QVERIFY2(plan.contains(QLatin1String(">?")) && plan.contains(QLatin1String("<?")), qPrintable(plan));
    }
};

QTEST_GUILESS_MAIN(tst_SqliteDialect)
#include "tst_SqliteDialect.moc"
