#include "data/DbError.h"
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

    // A literal cannot end early whatever code units the text holds: what SQL cannot store
    // (a NUL, half a surrogate pair, U+FFFE, U+FFFF) is refused, naming its position.
    void textSqlCannotHoldIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("position");
        const QChar high(0xD800), low(0xDC00), nul(0);
        QTest::newRow("NUL") << QString(nul) << 1;
        QTest::newRow("NUL after text") << "AB" + QString(nul) + "C" << 3;
        QTest::newRow("lone high surrogate before quotes") << "A" + QString(high) + "'' OR 1=1 " + nul << 2;
        QTest::newRow("lone low surrogate") << QString(low) + "''" << 1;
        QTest::newRow("high surrogate last") << "ABC" + QString(high) << 4;
        QTest::newRow("pair reversed") << QString(low) + high << 1;
        QTest::newRow("noncharacter FFFF") << "A" + QString(QChar(0xFFFF)) << 2;
        QTest::newRow("noncharacter FFFE") << QString(QChar(0xFFFE)) << 1;
        QTest::newRow("after a valid pair") << QString::fromUcs4(U"🙂", 1) + nul << 3;
    }
    void textSqlCannotHoldIsRefused()
    {
        QFETCH(QString, text);
        QFETCH(int, position);
        const QString message = QStringLiteral("El texto contiene un carácter no válido en la posición %1: no se puede "
                                               "buscar ni guardar en la base de datos.").arg(position);
        QVERIFY(!SqlText::storable(text));
        for (auto literal : {&SqlText::texto, &SqlText::patron}) {
            try {
                literal(text);
                QFAIL("accepted");
            } catch (const DbError &e) {
                QCOMPARE(e.Number(), qint32(DbError::InvalidProcedureCall));
                QCOMPARE(e.Description(), message);
            }
        }
    }

    void textSqlCanHoldIsKept_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("valid pairs") << QString::fromUcs4(U"🙂\U0010FFFF", 2);
        QTest::newRow("control characters") << "A\tB\r\n\x01\x1B\x7F";
        QTest::newRow("byte order mark inside and first") << QString(QChar(0xFEFF)) + "A" + QChar(0xFEFF);
        QTest::newRow("other noncharacters") << QString(QChar(0xFDD0)) + QChar(0xFFFD);
    }
    void textSqlCanHoldIsKept()
    {
        QFETCH(QString, text);
        QVERIFY(SqlText::storable(text));
        QCOMPARE(SqlText::texto(text), text);
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
