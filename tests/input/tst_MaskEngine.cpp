#include "input/MaskEngine.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_MaskEngine : public QObject
{
    Q_OBJECT

private slots:
    void typing_data()
    {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("display");  // prompt "_"
        QTest::addColumn<QString>("rejected"); // the characters refused, in order
        QTest::newRow("date in full") << "##/##/####" << "01022008" << "01/02/2008" << "";
        QTest::newRow("date with separators") << "##/##/####" << "1/2/08" << "1_/2_/08__" << "";
        QTest::newRow("letters refused by #") << "##/##/####" << "1a2" << "12/__/____" << "a";
        QTest::newRow("wrong separator") << "##/##/####" << "1-" << "1_/__/____" << "-";
        QTest::newRow("time") << "##:##" << "9:5" << "9_:5_" << "";
        QTest::newRow("letter refused") << "??" << "1a" << "a_" << "1";
        QTest::newRow("upper from >") << ">??" << "ab" << "AB" << "";
        QTest::newRow("lower from <") << "<&&" << "XY" << "xy" << "";
        QTest::newRow("alphanumeric") << "AAA" << "a1%" << "a1_" << "%";
        QTest::newRow("blank at any character") << "&&&" << "a %" << "a %" << "";
        QTest::newRow("blank at an optional character") << "CCC" << "A B" << "A B" << "";
        QTest::newRow("escaped literal") << "\\###" << "12" << "#12" << "";
        QTest::newRow("too many") << "##" << "123" << "12" << "3";
        QTest::newRow("decimal and thousands") << "#,###.##" << "1234.5" << "1,234.5_" << "";
    }
    void typing()
    {
        QFETCH(QString, mask);
        QFETCH(QString, typed);
        QFETCH(QString, display);
        QFETCH(QString, rejected);
        MaskEngine m;
        m.setMask(mask);
        int cursor = 0;
        QString refused;
        for (QChar c : typed) {
            const auto r = m.type(cursor, c, u'_');
            if (r.accepted)
                cursor = r.cursor;
            else
                refused += c;
        }
        QCOMPARE(m.display(u'_'), display);
        QCOMPARE(refused, rejected);

        // The text, with or without prompts, sets the same positions again (a typed blank included).
        for (bool promptInclude : {true, false}) {
            MaskEngine back;
            back.setMask(mask);
            QCOMPARE(back.setText(m.text(promptInclude, u'_'), u'_'), -1);
            QCOMPARE(back.display(u'_'), display);
        }
    }

    void valueWithAndWithoutPrompts()
    {
        MaskEngine m;
        m.setMask(QStringLiteral("##/##/####"));
        QCOMPARE(m.text(true, u'_'), QStringLiteral("__/__/____"));
        QCOMPARE(m.text(false, u' '), QString()); // nothing entered: empty
        QVERIFY(m.isBlank());
        QCOMPARE(m.setText(QStringLiteral("1 /2 /08"), u' '), -1);
        QCOMPARE(m.text(false, u'_'), QStringLiteral("1 /2 /08  "));
        QCOMPARE(m.clipText(), QStringLiteral("1208"));
        QVERIFY(!m.isComplete());
        QCOMPARE(m.setText(QStringLiteral("01022008"), u' '), -1); // literals may be left out
        QVERIFY(m.isComplete());
        QCOMPARE(m.setText(QStringLiteral("01/AB/2008"), u' '), 3); // refused: nothing changes
        QCOMPARE(m.display(u'_'), QStringLiteral("01/02/2008"));
        m.erase(3, 5);
        QCOMPARE(m.display(u'_'), QStringLiteral("01/__/2008"));
        QCOMPARE(m.previousInput(2), 1);
        QCOMPARE(m.nextInput(2), 3);
    }

    void promptAsInput()
    {
        MaskEngine m;
        m.setMask(QStringLiteral("###"));
        QVERIFY(!m.type(0, u'_', u'_', false).accepted);
        QVERIFY(m.type(0, u'_', u'_', true).accepted);
        QVERIFY(!m.isBlank());
    }
};

QTEST_GUILESS_MAIN(tst_MaskEngine)
#include "tst_MaskEngine.moc"
