#include "platform/Legacy.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_Legacy : public QObject
{
    Q_OBJECT

private slots:
    void numericTestAndConversion_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("numeric");
        QTest::addColumn<double>("value");
        QTest::newRow("decimal comma") << "12,5" << true << 12.5;
        QTest::newRow("thousands and comma") << "1.234,5" << true << 1234.5;
        QTest::newRow("point is a thousands separator") << "12.5" << true << 125.0;
        QTest::newRow("blanks around") << "  7 " << true << 7.0;
        QTest::newRow("trailing sign") << "5-" << true << -5.0;
        QTest::newRow("parentheses") << "(3)" << true << -3.0;
        QTest::newRow("exponent") << "1,5E2" << true << 150.0;
        QTest::newRow("hex") << "&H1F" << true << 31.0;
        QTest::newRow("comma at the end") << "5," << true << 5.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("lone minus") << "-" << false << 0.0;
        QTest::newRow("two commas") << "1,2,3" << false << 0.0;
        QTest::newRow("digits then letters") << "12A" << false << 0.0;
        QTest::newRow("bare exponent") << "1E" << false << 0.0;
        QTest::newRow("leading point") << ".5" << false << 0.0;
    }
    void numericTestAndConversion()
    {
        QFETCH(QString, text);
        QFETCH(bool, numeric);
        QFETCH(double, value);
        QCOMPARE(Legacy::IsNumeric(text), numeric);
        QCOMPARE(Legacy::CDbl(text), value);
    }

    void valReadsLeadingDigits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("digits then letters") << "123AB" << 123.0;
        QTest::newRow("blanks inside") << " 1 2 3" << 123.0;
        QTest::newRow("point decimal") << "12.5" << 12.5;
        QTest::newRow("comma stops") << "12,5" << 12.0;
        QTest::newRow("hex") << "&HFF" << 255.0;
        QTest::newRow("exponent") << "2E3" << 2000.0;
        const double largest = std::numeric_limits<double>::max();
        QTest::newRow("hex beyond 64 bits") << "&HFFFFFFFFFFFFFFFFFFF" << 0x1p76 - 1;
        QTest::newRow("octal beyond 64 bits") << "&O7777777777777777777777777" << 0x1p75 - 1;
        QTest::newRow("hex beyond a double") << "&H" + QString(300, u'F') << largest;
        QTest::newRow("large exponent") << "1e300" << 1e300;
        QTest::newRow("beyond a double") << "1e999" << largest;
        QTest::newRow("negative beyond a double") << "-1D999" << -largest;
        QTest::newRow("400 digits") << QString(400, u'9') << largest;
    }
    void valReadsLeadingDigits()
    {
        QFETCH(QString, text);
        QFETCH(double, value);
        QCOMPARE(Legacy::Val(text), value);
    }

    void numbersAsTextAndRoundingHalfToEven()
    {
        QStringList texts;
        for (double value : {123.0, 0.0, -7.0, 0.5, -0.25, 1e20})
            texts << Legacy::Str(value);
        for (qint64 value : {qint64(7), qint64(123), qint64(-5), std::numeric_limits<qint64>::min()})
            texts << Legacy::Format00(value);
        QCOMPARE(texts,
                 (QStringList{" 123", " 0", "-7", " .5", "-.25", " 1E+20", "07", "123", "-05", "-9223372036854775808"}));
        const QList<qint32> rounded{Legacy::CLng(12.5), Legacy::CLng(13.5), Legacy::CLng(-2.5)};
        QCOMPARE(rounded, (QList<qint32>{12, 14, -2}));
        QCOMPARE(Legacy::CLng(1e12), std::numeric_limits<qint32>::max());
        QCOMPARE(Legacy::CInt(40000), qint16(32767));
    }

    void upperCaseAndTrim()
    {
        QString upper;
        for (QChar c : QStringLiteral("añáü5ßµ")) // ß and µ have no capital of their own
            upper += Legacy::UCaseChar(c);
        QCOMPARE(upper, QStringLiteral("AÑÁÜ5ßµ"));
        QCOMPARE(Legacy::Trim(QStringLiteral("\t X  ")), QStringLiteral("\t X")); // blanks only
    }

    void datesAreDayFirst_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("formatted");
        const QString year = QString::number(QDate::currentDate().year());
        QTest::newRow("short year") << "1/2/08" << "01/02/2008";
        QTest::newRow("year 30 is 1930") << "1/1/30" << "01/01/1930";
        QTest::newRow("dashes") << "5-6-2020" << "05/06/2020";
        QTest::newRow("day and month") << "3/4" << "03/04/" + year;
        QTest::newRow("year first with a time") << "2026-11-01T10:30" << "01/11/2026";
        QTest::newRow("year before 100, year first") << "0001/2/3" << "";
        QTest::newRow("no such time") << "01/11/2026 25:00" << "";
        QTest::newRow("no such day") << "31/02/2008" << "";
        QTest::newRow("month 13") << "1/13/2008" << "";
        QTest::newRow("text") << "HOY" << "";
    }
    void datesAreDayFirst()
    {
        QFETCH(QString, text);
        QFETCH(QString, formatted);
        const auto date = Legacy::CDate(text);
        QCOMPARE(date ? Legacy::FormatDate(*date) : QString(), formatted);
        QCOMPARE(Legacy::IsDate(text), !formatted.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_Legacy)
#include "tst_Legacy.moc"
