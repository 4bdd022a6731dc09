#include "input/TextBoxKeyFilter.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_TextBoxKeyFilter : public QObject
{
    Q_OBJECT

private slots:
    void filter_data()
    {
        QTest::addColumn<int>("type");      // 0 alphanumeric, 1 numeric, 7 unknown
        QTest::addColumn<bool>("decimals");
        QTest::addColumn<bool>("negative");
        QTest::addColumn<bool>("upper");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("result");    // KeyAscii handed on
        QTest::addColumn<QString>("newText"); // "<none>" when the text is not replaced

        const QString none = QStringLiteral("<none>");
        // Numeric mode
        QTest::newRow("digit") << 1 << false << false << true << "" << "" << int('7') << int('7') << none;
        QTest::newRow("backspace") << 1 << false << false << true << "12" << "" << 8 << 8 << none;
        QTest::newRow("enter") << 1 << false << false << true << "12" << "" << 13 << 13 << none;
        QTest::newRow("letter") << 1 << true << true << true << "" << "" << int('a') << 0 << none;
        QTest::newRow("space") << 1 << true << true << true << "" << "" << 32 << 0 << none;
        QTest::newRow("plus") << 1 << true << true << true << "" << "" << int('+') << 0 << none;
        QTest::newRow("slash") << 1 << true << true << true << "" << "" << int('/') << 0 << none;
        QTest::newRow("tab") << 1 << true << true << true << "" << "" << 9 << 0 << none;
        QTest::newRow("ctrl c") << 1 << true << true << true << "12" << "12" << 3 << 0 << none;
        QTest::newRow("ctrl v") << 1 << true << true << true << "" << "" << 22 << 0 << none;
        QTest::newRow("ctrl x") << 1 << true << true << true << "12" << "12" << 24 << 0 << none;
        QTest::newRow("apostrophe") << 1 << true << true << true << "" << "" << 39 << 0 << none;
        QTest::newRow("comma accepted") << 1 << true << false << true << "12" << "" << 44 << 44 << none;
        QTest::newRow("comma without decimals") << 1 << false << false << true << "12" << "" << 44 << 0 << none;
        QTest::newRow("second comma") << 1 << true << false << true << "12,5" << "" << 44 << 0 << none;
        QTest::newRow("comma over whole selection") << 1 << true << false << true << "12,5" << "12,5" << 44 << 0 << none;
        QTest::newRow("point becomes comma") << 1 << true << false << true << "12" << "" << 46 << 44 << none;
        QTest::newRow("point without decimals") << 1 << false << false << true << "12" << "" << 46 << 0 << none;
        QTest::newRow("point after comma") << 1 << true << false << true << "12,5" << "" << 46 << 0 << none;
        QTest::newRow("point over part selection") << 1 << true << false << true << "12,5" << ",5" << 46 << 0 << none;
        QTest::newRow("point over whole selection") << 1 << true << false << true << "12,5" << "12,5" << 46 << 44 << none;
        QTest::newRow("comma after blank-padded comma") << 1 << true << false << true << " 1,5 " << "" << 44 << 0 << none;
        QTest::newRow("minus refused") << 1 << false << false << true << "45" << "" << 45 << 0 << none;
        QTest::newRow("minus adds sign") << 1 << false << true << true << "45" << "" << 45 << 0 << "-45";
        QTest::newRow("minus removes sign") << 1 << false << true << true << "-45" << "" << 45 << 0 << "45";
        QTest::newRow("minus in empty field") << 1 << false << true << true << "" << "" << 45 << 45 << none;
        QTest::newRow("minus over whole selection") << 1 << false << true << true << "45" << "45" << 45 << 45 << none;
        QTest::newRow("minus over part selection") << 1 << false << true << true << "45" << "4" << 45 << 0 << "-45";
        // The sign test trims, the cut does not: a leading blank goes instead of the sign.
        QTest::newRow("leading blank loses the blank") << 1 << false << true << true << " -45" << "" << 45 << 0 << "-45";
        QTest::newRow("leading blank gets a sign") << 1 << false << true << true << " 45" << "" << 45 << 0 << "- 45";
        QTest::newRow("letter not upper-cased into a digit") << 1 << false << false << false << "" << "" << int('x') << 0 << none;
        // Alphanumeric mode
        QTest::newRow("a becomes A") << 0 << false << false << true << "" << "" << int('a') << int('A') << none;
        QTest::newRow("a stays a") << 0 << false << false << false << "" << "" << int('a') << int('a') << none;
        QTest::newRow("enye becomes ENYE") << 0 << false << false << true << "" << "" << 0xF1 << 0xD1 << none;
        QTest::newRow("accent upper") << 0 << false << false << true << "" << "" << 0xE1 << 0xC1 << none;
        QTest::newRow("alpha apostrophe") << 0 << false << false << true << "" << "" << 39 << 0 << none;
        QTest::newRow("alpha minus passes") << 0 << false << true << true << "45" << "" << 45 << 45 << none;
        QTest::newRow("alpha ctrl c passes") << 0 << false << false << true << "" << "" << 3 << 3 << none;
        QTest::newRow("alpha point passes") << 0 << true << false << true << "" << "" << 46 << 46 << none;
        QTest::newRow("unknown type is alphanumeric") << 7 << false << false << true << "" << "" << int('z') << int('Z') << none;
    }
    void filter()
    {
        QFETCH(int, type);
        QFETCH(bool, decimals);
        QFETCH(bool, negative);
        QFETCH(bool, upper);
        QFETCH(QString, text);
        QFETCH(QString, selected);
        QFETCH(int, key);
        QFETCH(int, result);
        QFETCH(QString, newText);
        const auto out = TextBoxKeyFilter::filter(qint16(key), {type, decimals, negative, upper, true},
                                                  {text, selected});
        QCOMPARE(int(out.keyAscii), result);
        QCOMPARE(out.text.value_or(QStringLiteral("<none>")), newText);
    }

    void enterAsksToMoveOnOnlyWhenTheFlagIsSet()
    {
        TextBoxKeyFilter::Settings s;
        QVERIFY(TextBoxKeyFilter::filter(13, s, {}).moveFocusNext);
        s.keyEnterChangeFocus = false;
        QVERIFY(!TextBoxKeyFilter::filter(13, s, {}).moveFocusNext);
        QCOMPARE(int(TextBoxKeyFilter::filter(13, s, {}).keyAscii), 13);
    }
};

QTEST_GUILESS_MAIN(tst_TextBoxKeyFilter)
#include "tst_TextBoxKeyFilter.moc"
