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
        QTest::newRow("minus zero") << "-0" << true << 0.0;
        QTest::newRow("zero with decimals") << "0,00" << true << 0.0;
        QTest::newRow("trailing sign") << "5-" << true << -5.0;
        QTest::newRow("parentheses") << "(3)" << true << -3.0;
        QTest::newRow("exponent") << "1,5E2" << true << 150.0;
        QTest::newRow("hex") << "&H1F" << true << 31.0;
        QTest::newRow("comma at the end") << "5," << true << 5.0;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("blank") << " " << false << 0.0;
        QTest::newRow("lone minus") << "-" << false << 0.0;
        QTest::newRow("lone comma") << "," << false << 0.0;
        QTest::newRow("two commas") << "1,2,3" << false << 0.0;
        QTest::newRow("letters") << "ABC" << false << 0.0;
        QTest::newRow("digits then letters") << "12A" << false << 0.0;
        QTest::newRow("slash") << "/" << false << 0.0;
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
        QTest::newRow("leading zeros") << "0012" << 12.0;
        QTest::newRow("no digits") << "ABC" << 0.0;
        QTest::newRow("empty") << "" << 0.0;
        QTest::newRow("digits then letters") << "123AB" << 123.0;
        QTest::newRow("blanks inside") << " 1 2 3" << 123.0;
        QTest::newRow("point decimal") << "12.5" << 12.5;
        QTest::newRow("comma stops") << "12,5" << 12.0;
        QTest::newRow("negative") << "-42" << -42.0;
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

    void strPutsTheLeadingBlank_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("positive") << 123.0 << " 123";
        QTest::newRow("zero") << 0.0 << " 0";
        QTest::newRow("negative") << -7.0 << "-7";
        QTest::newRow("fraction") << 12.5 << " 12.5";
        QTest::newRow("below one") << 0.5 << " .5";
        QTest::newRow("negative below one") << -0.25 << "-.25";
        QTest::newRow("large") << 1e20 << " 1E+20";
    }
    void strPutsTheLeadingBlank()
    {
        QFETCH(double, value);
        QFETCH(QString, text);
        QCOMPARE(Legacy::Str(value), text);
    }

    void roundingIsHalfToEvenAndClamped()
    {
        QCOMPARE(Legacy::CLng(12.5), 12);
        QCOMPARE(Legacy::CLng(13.5), 14);
        QCOMPARE(Legacy::CLng(-2.5), -2);
        QCOMPARE(Legacy::CLng(1e12), std::numeric_limits<qint32>::max());
        QCOMPARE(Legacy::CInt(40000), qint16(32767));
    }

    void upperCaseOfOneCharacter_data()
    {
        QTest::addColumn<QString>("in");
        QTest::addColumn<QString>("out");
        QTest::newRow("ascii") << "a" << "A";
        QTest::newRow("enye") << "ñ" << "Ñ";
        QTest::newRow("accent") << "á" << "Á";
        QTest::newRow("diaeresis") << "ü" << "Ü";
        QTest::newRow("digit") << "5" << "5";
        QTest::newRow("sharp s stays") << "ß" << "ß";
        QTest::newRow("micro sign stays") << "µ" << "µ";
    }
    void upperCaseOfOneCharacter()
    {
        QFETCH(QString, in);
        QFETCH(QString, out);
        QCOMPARE(QString(Legacy::UCaseChar(in.at(0))), out);
    }

    void trimRemovesBlanksOnly()
    {
        QCOMPARE(Legacy::Trim(QStringLiteral("  X  ")), QStringLiteral("X"));
        QCOMPARE(Legacy::Trim(QStringLiteral("\tX ")), QStringLiteral("\tX"));
    }

    void formatTwoDigits()
    {
        QCOMPARE(Legacy::Format00(7), QStringLiteral("07"));
        QCOMPARE(Legacy::Format00(12), QStringLiteral("12"));
        QCOMPARE(Legacy::Format00(123), QStringLiteral("123"));
        QCOMPARE(Legacy::Format00(-5), QStringLiteral("-05"));
        QCOMPARE(Legacy::Format00(std::numeric_limits<qint64>::min()), QStringLiteral("-9223372036854775808"));
    }

    void datesAreDayFirst_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("formatted");
        const QString year = QString::number(QDate::currentDate().year());
        QTest::newRow("short year") << "1/2/08" << "01/02/2008";
        QTest::newRow("full") << "31/12/1999" << "31/12/1999";
        QTest::newRow("year 30 is 1930") << "1/1/30" << "01/01/1930";
        QTest::newRow("dashes") << "5-6-2020" << "05/06/2020";
        QTest::newRow("points") << "5.6.2020" << "05/06/2020";
        QTest::newRow("day and month") << "3/4" << "03/04/" + year;
        QTest::newRow("day and month, year left blank") << "15/03/    " << "15/03/" + year;
        QTest::newRow("year first") << "2026-11-01" << "01/11/2026";
        QTest::newRow("with a time") << "01/11/2026 10:30:00" << "01/11/2026";
        QTest::newRow("year first with a time") << "2026-11-01T10:30" << "01/11/2026";
        QTest::newRow("no such time") << "01/11/2026 25:00" << "";
        QTest::newRow("no such day") << "31/02/2008" << "";
        QTest::newRow("month 13") << "1/13/2008" << "";
        QTest::newRow("text") << "HOY" << "";
        QTest::newRow("empty") << "" << "";
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
