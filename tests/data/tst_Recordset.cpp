#include "data/DbError.h"
#include "data/Recordset.h"
#include "support/TestDatabase.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_Recordset : public QObject
{
    Q_OBJECT

private slots:
    void readsForwardOnly()
    {
        Testing::TestDatabase db;
        Recordset rs;
        rs.open(QStringLiteral("SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores WHERE Cod_Empresa =1 AND Codigo < 3 ORDER BY Codigo"),
                db.conexion());
        QVERIFY(rs.isOpen());
        QVERIFY(!rs.eof());
        QCOMPARE(rs.field(QStringLiteral("Codigo")).toInt(), 1);
        QCOMPARE(rs.text(QStringLiteral("Nombre_Comercial")), QStringLiteral("IBERTEX"));
        rs.moveNext();
        QVERIFY(rs.field(QStringLiteral("Nombre_Comercial")).isNull());
        rs.moveNext();
        QVERIFY(rs.eof());
        rs.close();
        QVERIFY(!rs.isOpen());
    }

    void emptyResultIsAtEndAtOnce()
    {
        Testing::TestDatabase db;
        Recordset rs;
        rs.open(QStringLiteral("SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 777"), db.conexion());
        QVERIFY(rs.eof());
    }

    void misusesAreErrorsNotCrashes_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("number");
        QTest::newRow("NULL read as text") << 0 << int(DbError::InvalidUseOfNull);
        QTest::newRow("unknown column") << 1 << int(DbError::ProviderError);
        QTest::newRow("read past the end") << 2 << int(DbError::ProviderError);
        QTest::newRow("write to a read-only result") << 3 << int(DbError::ProviderError);
        QTest::newRow("bad statement") << 4 << 0; // the driver's own number
        QTest::newRow("no connection") << 5 << int(DbError::ObjectNotSet);
    }
    void misusesAreErrorsNotCrashes()
    {
        QFETCH(int, step);
        QFETCH(int, number);
        Testing::TestDatabase db;
        Recordset rs;
        try {
            if (step == 5) {
                rs.open(QStringLiteral("SELECT 1"), nullptr);
            } else if (step == 4) {
                rs.open(QStringLiteral("SELECT Nombre FROM NoExiste"), db.conexion());
            } else {
                rs.open(QStringLiteral("SELECT Nombre_Comercial FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 2"), db.conexion());
                if (step == 0) rs.text(QStringLiteral("Nombre_Comercial"));
                if (step == 1) rs.field(QStringLiteral("Nombre"));
                if (step == 2) { rs.moveNext(); rs.field(QStringLiteral("Nombre_Comercial")); }
                if (step == 3) rs.setField(QStringLiteral("Nombre_Comercial"), QStringLiteral("X"));
            }
            QFAIL("no error");
        } catch (const DbError &e) {
            if (number != 0)
                QCOMPARE(e.Number(), number);
            QVERIFY(e.Number() != 0);
            QVERIFY(!e.Description().isEmpty());
        }
    }

    void keysetRowsAreWrittenBackByTheirKey()
    {
        Testing::TestDatabase db;
        db.conexion()->execute(QStringLiteral("UPDATE Articulos_CBarras SET Cod_Barras = ' 84123457 ' WHERE Cod_Barras = '84123457'"));
        db.statements.clear();
        Recordset rs;
        rs.openKeyset(QStringLiteral("SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo = 1 AND LEN(Cod_Barras) = 9"),
                      db.conexion(), QStringLiteral("Articulos_CBarras"),
                      {QStringLiteral("Cod_Empresa"), QStringLiteral("Cod_Articulo"), QStringLiteral("Cod_Barras")});
        QCOMPARE(rs.fieldNames(), QStringList{"Cod_Barras"});
        QCOMPARE(rs.text(QStringLiteral("Cod_Barras")), QStringLiteral("84123457"));
        rs.setField(QStringLiteral("Cod_Barras"), QStringLiteral("841234570"));
        rs.update();
        rs.moveNext();
        QVERIFY(rs.eof());
        rs.close();
        QCOMPARE(db.statements.last(), QStringLiteral("UPDATE Articulos_CBarras SET Cod_Barras = '841234570' WHERE Cod_Empresa = 1 AND Cod_Articulo = 1 AND Cod_Barras = ' 84123457 '"));
        QCOMPARE(db.rows(QStringLiteral("SELECT COUNT(*) FROM Articulos_CBarras WHERE Cod_Barras = '841234570' AND Cod_Articulo = 1")), QStringList{"1"});
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
        const QString where = QStringLiteral(" FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Barras = '") + bad + u'\'';
        const QStringList key{QStringLiteral("Cod_Empresa"), QStringLiteral("Cod_Articulo"), QStringLiteral("Cod_Barras")};
        Recordset rs;
        try {
            switch (way) {
            case 0: rs.open(QStringLiteral("SELECT Cod_Barras") + where, db.conexion()); break;
            case 1: rs.openKeyset(QStringLiteral("SELECT Cod_Barras") + where, db.conexion(), QStringLiteral("Articulos_CBarras"), key); break;
            case 2: rs.openLocked(QStringLiteral("SELECT Cod_Barras") + where, db.conexion(), QStringLiteral("Articulos_CBarras"), key); break;
            case 3: db.conexion()->execute(QStringLiteral("DELETE") + where); break;
            default: Recordset::literal(bad); break;
            }
            QFAIL("run");
        } catch (const DbError &e) {
            QVERIFY2(e.Description().contains(QStringLiteral("contiene un carácter no válido")), qPrintable(e.Description()));
        }
        QVERIFY(db.statements.isEmpty());
        QVERIFY(!db.conexion()->inTransaction());
        QCOMPARE(db.fingerprint(), before);
    }

    void literalsAreQuotedSafely()
    {
        QCOMPARE(Recordset::literal(QStringLiteral("O'BRIEN")), QStringLiteral("'O''BRIEN'"));
        QCOMPARE(Recordset::literal(QVariant(true)), QStringLiteral("1"));
        QCOMPARE(Recordset::literal(QVariant(12)), QStringLiteral("12"));
        QCOMPARE(Recordset::literal(QVariant()), QStringLiteral("NULL"));
    }
};

QTEST_GUILESS_MAIN(tst_Recordset)
#include "tst_Recordset.moc"
