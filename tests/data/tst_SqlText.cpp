#include "data/SqlText.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_SqlText : public QObject
{
    Q_OBJECT

private slots:
    void supplierStatementOfTheExample()
    {
        const QString sql = QStringLiteral("SELECT Nombre FROM Proveedores WHERE Cod_Empresa =") + SqlText::empresa(1)
            + QStringLiteral(" AND Codigo =") + SqlText::codigo(QStringLiteral("123"));
        QCOMPARE(sql, QStringLiteral("SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 123"));
    }

    void typedCodes_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("sql");
        QTest::newRow("plain") << "123" << " 123";
        QTest::newRow("leading zeros") << "0012" << " 12";
        QTest::newRow("no digits") << "ABC" << " 0";
        QTest::newRow("empty") << "" << " 0";
        QTest::newRow("digits then text") << "45; DROP" << " 45";
        QTest::newRow("negative") << "-7" << "-7";
    }
    void typedCodes()
    {
        QFETCH(QString, typed);
        QFETCH(QString, sql);
        QCOMPARE(SqlText::codigo(typed), sql);
    }

    void textWithoutApostropheIsUnchanged_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("ascii") << "AB-1234";
        QTest::newRow("spanish") << "ÑANDÚ ÁGUILA ÇÜ";
        QTest::newRow("symbols") << "; -- /* */ % _ [x] \" \\";
        QTest::newRow("other scripts") << "日本 Ελλάδα 🙂";
        QTest::newRow("empty") << "";
    }
    void textWithoutApostropheIsUnchanged()
    {
        QFETCH(QString, text);
        QCOMPARE(SqlText::texto(text), text);
    }

    void apostrophesAreDoubled_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("quoted");
        QTest::newRow("inside") << "O'BRIEN" << "O''BRIEN";
        QTest::newRow("first") << "'A" << "''A";
        QTest::newRow("last") << "A'" << "A''";
        QTest::newRow("alone") << "'" << "''";
        QTest::newRow("injection") << "'; DELETE FROM Articulos; --" << "''; DELETE FROM Articulos; --";
        QTest::newRow("already doubled") << "''" << "''''";
    }
    void apostrophesAreDoubled()
    {
        QFETCH(QString, text);
        QFETCH(QString, quoted);
        QCOMPARE(SqlText::texto(text), quoted);
    }

    void searchPatterns_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("pattern");
        QTest::newRow("prefix") << "PAR" << "PAR%";
        QTest::newRow("contains") << "*PAR" << "%PAR%";
        QTest::newRow("inside") << "A*B" << "A%B%";
        QTest::newRow("already last") << "AB*" << "AB%";
        QTest::newRow("empty") << "" << "%";
        QTest::newRow("apostrophe") << "O'B" << "O''B%";
    }
    void searchPatterns()
    {
        QFETCH(QString, filter);
        QFETCH(QString, pattern);
        QCOMPARE(SqlText::patron(filter), pattern);
    }

    void numbersAndBits()
    {
        QCOMPARE(SqlText::empresa(12), QStringLiteral("12"));
        QCOMPARE(SqlText::numero(4711), QStringLiteral(" 4711"));
        QCOMPARE(SqlText::bit(true), QStringLiteral("1"));
        QCOMPARE(SqlText::bit(false), QStringLiteral("0"));
    }
};

QTEST_GUILESS_MAIN(tst_SqlText)
#include "tst_SqlText.moc"
