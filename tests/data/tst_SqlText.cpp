#include "data/DbError.h"
#include "data/SqlText.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_SqlText : public QObject
{
    Q_OBJECT

private slots:
    // Codes by the value of their leading digits; text between apostrophes, each of its own
    // apostrophes doubled and otherwise exactly as typed; search filters as LIKE patterns.
    void valuesAsWritten_data()
    {
        QTest::addColumn<QString>("builder");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("sql");
        const QString plain = QStringLiteral("ÑANDÚ Ελλάδα 日本 🙂 ; -- /* */ % _ [x] \" \\");
        const QString kept = QString::fromUcs4(U"🙂\U0010FFFF\uFEFFA\uFEFF\uFDD0\uFFFD", 7) + "\t\r\n\x01\x1B\x7F";
        QTest::newRow("code with leading zeros") << "codigo" << "0012" << " 12";
        QTest::newRow("code without leading digits") << "codigo" << "A45; DROP" << " 0";
        QTest::newRow("negative code") << "codigo" << "-7" << "-7";
        QTest::newRow("number") << "numero" << "4711" << " 4711";
        QTest::newRow("text without apostrophes") << "texto" << plain << plain;
        QTest::newRow("pairs, controls, BOM, other noncharacters") << "texto" << kept << kept;
        QTest::newRow("apostrophe inside") << "texto" << "O'BRIEN" << "O''BRIEN";
        QTest::newRow("apostrophe last") << "texto" << "A'" << "A''";
        QTest::newRow("already doubled") << "texto" << "''" << "''''";
        QTest::newRow("injection") << "texto" << "'; DELETE FROM Articulos; --" << "''; DELETE FROM Articulos; --";
        QTest::newRow("prefix filter") << "patron" << "PAR" << "PAR%";
        QTest::newRow("contains filter") << "patron" << "*PAR" << "%PAR%";
        QTest::newRow("star inside") << "patron" << "A*B" << "A%B%";
        QTest::newRow("star already last") << "patron" << "AB*" << "AB%";
        QTest::newRow("empty filter") << "patron" << "" << "%";
        QTest::newRow("filter with apostrophe") << "patron" << "O'B" << "O''B%";
    }
    void valuesAsWritten()
    {
        QFETCH(QString, builder);
        QFETCH(QString, input);
        QFETCH(QString, sql);
        if (builder == QLatin1String("codigo"))
            QCOMPARE(SqlText::codigo(input), sql);
        else if (builder == QLatin1String("numero"))
            QCOMPARE(SqlText::numero(input.toDouble()), sql);
        else if (builder == QLatin1String("patron"))
            QCOMPARE(SqlText::patron(input), sql);
        else
            QCOMPARE(SqlText::texto(input), sql);
        QVERIFY(SqlText::storable(input));
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
        QVERIFY(!SqlText::storable(text));
        for (auto literal : {&SqlText::texto, &SqlText::patron}) {
            try {
                literal(text);
                QFAIL("accepted");
            } catch (const DbError &e) {
                QCOMPARE(e.Number(), qint32(DbError::InvalidProcedureCall));
                QCOMPARE(e.Description(), QStringLiteral("El texto contiene un carácter no válido en la posición %1: "
                                                         "no se puede buscar ni guardar en la base de datos.")
                                              .arg(position));
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_SqlText)
#include "tst_SqlText.moc"
