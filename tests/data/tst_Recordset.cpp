#include "data/DbError.h"
#include "data/Recordset.h"
#include "support/TestDatabase.h"

#include <QTest>

using namespace Varnel_Controles;
using namespace Qt::StringLiterals;

class tst_Recordset : public QObject
{
    Q_OBJECT

private slots:
    void readsForwardOnly()
    {
        Testing::TestDatabase db;
        Recordset rs;
        rs.open(u"SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 777"_s, db.conexion());
        QVERIFY(rs.eof()); // an empty result is at its end at once
        rs.open(u"SELECT Codigo, Nombre_Comercial FROM Proveedores WHERE Cod_Empresa =1 AND Codigo < 3 ORDER BY Codigo"_s,
                db.conexion());
        QCOMPARE(rs.field(u"Codigo"_s).toInt(), 1);
        QCOMPARE(rs.text(u"Nombre_Comercial"_s), u"IBERTEX"_s);
        rs.moveNext();
        QVERIFY(rs.field(u"Nombre_Comercial"_s).isNull());
        rs.moveNext();
        QVERIFY(rs.eof());
        rs.close();
        QVERIFY(!rs.isOpen());
    }

    // A read is prepared once per shape with its literals bound: each gives what its text gives
    // as it is, the second time as the first ('' stays text, a column number stays a column, a
    // table changed in between gives its new columns).
    void preparedReadsGiveWhatTheirTextGives()
    {
        Testing::TestDatabase db;
        for (const QString sql : {"SELECT Codigo, IFNULL(Nombre_Comercial, '') AS c FROM Proveedores WHERE Cod_Empresa = 1 ORDER BY 2, 1",
                                  "SELECT Codigo FROM Proveedores WHERE Nombre = 'O''BRIEN IMPORT S.L.' AND Codigo IN (5, 7)",
                                  "SELECT Codigo FROM Proveedores WHERE Nombre = 'ABAD MORENO, LUIS' AND Codigo <> 5 LIMIT 1",
                                  "SELECT * FROM Proveedores WHERE Cod_Empresa = 1 AND Codigo = 5"}) {
            for (int round = 0; round < 2; ++round) {
                if (round == 1 && sql.contains('*')) // a table changed between two reads of one shape
                    QVERIFY(QSqlQuery(db.conexion()->database()).exec("ALTER TABLE Proveedores ADD COLUMN Extra TEXT DEFAULT 'x'"));
                QStringList read;
                Recordset rs;
                for (rs.open(sql, db.conexion()); !rs.eof(); rs.moveNext()) {
                    QStringList cells;
                    for (const QString &f : rs.fieldNames())
                        cells << (rs.field(f).isNull() ? u"NULL"_s : rs.field(f).toString());
                    read << cells.join(u'|');
                }
                QCOMPARE(read, db.rows(sql));
            }
        }
        // Digits other than 0-9 are no number: the statement fails as its text would.
        Recordset rs;
        QVERIFY_THROWS_EXCEPTION(DbError, rs.open(u"SELECT Codigo FROM Proveedores WHERE Codigo = \u0663"_s, db.conexion()));
    }

    void misusesAreErrorsNotCrashes_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("number"); // 0: the driver's own number
        QTest::newRow("NULL read as text") << 0 << int(DbError::InvalidUseOfNull);
        QTest::newRow("unknown column") << 1 << int(DbError::ProviderError);
        QTest::newRow("read past the end") << 2 << int(DbError::ProviderError);
        QTest::newRow("write to a read-only result") << 3 << int(DbError::ProviderError);
        QTest::newRow("bad statement") << 4 << 0;
        QTest::newRow("no connection") << 5 << int(DbError::ObjectNotSet);
    }
    void misusesAreErrorsNotCrashes()
    {
        QFETCH(int, step);
        QFETCH(int, number);
        Testing::TestDatabase db;
        Recordset rs;
        try {
            rs.open(u"SELECT Nombre_Comercial FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 2"_s, db.conexion());
            switch (step) {
            case 0: rs.text(u"Nombre_Comercial"_s); break;
            case 1: rs.field(u"Nombre"_s); break;
            case 2:
                rs.moveNext();
                rs.field(u"Nombre_Comercial"_s);
                break;
            case 3: rs.setField(u"Nombre_Comercial"_s, u"X"_s); break;
            case 4: rs.open(u"SELECT Nombre FROM NoExiste"_s, db.conexion()); break;
            default: rs.open(u"SELECT 1"_s, nullptr); break;
            }
            QFAIL("no error");
        } catch (const DbError &e) {
            QCOMPARE(e.Number(), number ? number : e.Number());
            QVERIFY(e.Number() != 0 && !e.Description().isEmpty());
        }
    }

    void keysetRowsAreWrittenBackByTheirKey()
    {
        Testing::TestDatabase db;
        db.conexion()->execute(u"UPDATE Articulos_CBarras SET Cod_Barras = ' 84123457 ' WHERE Cod_Barras = '84123457'"_s);
        db.statements.clear();
        Recordset rs;
        rs.openKeyset(u"SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 "
                      "AND Cod_Articulo = 1 AND LEN(Cod_Barras) = 9"_s,
                      db.conexion(), u"Articulos_CBarras"_s, {u"Cod_Empresa"_s, u"Cod_Articulo"_s, u"Cod_Barras"_s});
        QCOMPARE(rs.fieldNames(), QStringList{"Cod_Barras"});
        QCOMPARE(rs.text(u"Cod_Barras"_s), u"84123457"_s);
        rs.setField(u"Cod_Barras"_s, u"841234570"_s);
        rs.update();
        rs.moveNext();
        QVERIFY(rs.eof());
        QCOMPARE(db.statements.last(), u"UPDATE Articulos_CBarras SET Cod_Barras = '841234570' WHERE Cod_Empresa = 1 "
                                       "AND Cod_Articulo = 1 AND Cod_Barras = ' 84123457 '"_s);
        QCOMPARE(db.rows(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras = '841234570'"_s), QStringList{"1"});
    }

    // The attack of a lone surrogate before a doubled quote and a NUL, and plainer forms: no
    // such statement reaches the database, whichever way it is run.
    void statementsSqlCannotHoldAreNeverPrepared_data()
    {
        QTest::addColumn<int>("way");
        QTest::addColumn<QString>("bad");
        const QString attack = QString(QChar(0xD800)) + "'' OR 1=1 " + QChar(0);
        const char *ways[] = {"open", "openKeyset", "openLocked", "execute", "literal"};
        for (int way = 0; way < 5; ++way) {
            QTest::addRow("%s, attack", ways[way]) << way << attack;
            QTest::addRow("%s, NUL", ways[way]) << way << QString(QChar(0));
            QTest::addRow("%s, lone low surrogate", ways[way]) << way << QString(QChar(0xDC00));
        }
    }
    void statementsSqlCannotHoldAreNeverPrepared()
    {
        QFETCH(int, way);
        QFETCH(QString, bad);
        Testing::TestDatabase db;
        const QString before = db.fingerprint();
        const QString where = u" FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Barras = '"_s + bad + u'\'';
        const QString table = u"Articulos_CBarras"_s;
        Recordset rs;
        try {
            switch (way) {
            case 0: rs.open("SELECT Cod_Barras" + where, db.conexion()); break;
            case 1: rs.openKeyset("SELECT Cod_Barras" + where, db.conexion(), table, {u"Cod_Barras"_s}); break;
            case 2: rs.openLocked("SELECT Cod_Barras" + where, db.conexion(), table, {u"Cod_Barras"_s}); break;
            case 3: db.conexion()->execute("DELETE" + where); break;
            default: Recordset::literal(bad); break;
            }
            QFAIL("run");
        } catch (const DbError &e) {
            QVERIFY2(e.Description().contains(u"contiene un carácter no válido"_s), qPrintable(e.Description()));
        }
        QVERIFY(db.statements.isEmpty());
        QVERIFY(!db.conexion()->inTransaction());
        QCOMPARE(db.fingerprint(), before);
    }

    void literalsAreQuotedSafely()
    {
        QCOMPARE(Recordset::literal(u"O'BRIEN"_s), u"'O''BRIEN'"_s);
        QCOMPARE(Recordset::literal(QVariant(true)), u"1"_s);
        QCOMPARE(Recordset::literal(QVariant()), u"NULL"_s);
    }
};

QTEST_GUILESS_MAIN(tst_Recordset)
#include "tst_Recordset.moc"
