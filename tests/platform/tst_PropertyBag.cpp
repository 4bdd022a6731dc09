#include "platform/PropertyBag.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_PropertyBag : public QObject
{
    Q_OBJECT

private slots:
    void omissionRule_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("defaultValue");
        QTest::addColumn<bool>("written");
        QTest::newRow("True against 1") << QVariant(true) << QVariant(1) << true;
        QTest::newRow("False against 0") << QVariant(false) << QVariant(0) << false;
        QTest::newRow("True against True") << QVariant(true) << QVariant(true) << false;
        QTest::newRow("colour against signed form") << QVariant::fromValue<quint32>(0x80000005)
                                                    << QVariant(qint32(-2147483643)) << false;
        QTest::newRow("text") << QVariant(QStringLiteral("A")) << QVariant(QString()) << true;
        QTest::newRow("double equal") << QVariant(8.25) << QVariant(8.25) << false;
    }
    void omissionRule()
    {
        QFETCH(QVariant, value);
        QFETCH(QVariant, defaultValue);
        QFETCH(bool, written);
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("K"), value, defaultValue);
        QCOMPARE(bag.contains(QStringLiteral("K")), written);
        QCOMPARE(bag.ReadProperty(QStringLiteral("K"), defaultValue), written ? value : defaultValue);
    }

    void textRoundTripKeepsTypesAndOrder()
    {
        StdFont font;
        font.Name = QStringLiteral("Tahoma");
        font.Size = 9.75;
        font.Weight = 700;
        font.Italic = true;
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("BackColor"), QVariant::fromValue<quint32>(0xFF), QVariant::fromValue<quint32>(0x80000005));
        bag.WriteProperty(QStringLiteral("Enabled"), false, true);
        bag.WriteProperty(QStringLiteral("Font"), QVariant::fromValue(font), QVariant());
        bag.WriteProperty(QStringLiteral("Text"), QStringLiteral("DIJO \"HOLA\" Y ÑU"), QString());

        const QString text = bag.toText(6);
        QVERIFY2(text.contains(QLatin1String("      BackColor       =   &H000000FF&\n")), qPrintable(text));
        QVERIFY(text.contains(QLatin1String("Enabled         =   0   'False")));
        QVERIFY(text.contains(QLatin1String("BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851}")));
        const PropertyBag back = PropertyBag::fromText(text);
        QCOMPARE(back.keys(), bag.keys());
        QCOMPARE(back.ReadProperty(QStringLiteral("BackColor")).toUInt(), 0xFFu);
        QCOMPARE(back.ReadProperty(QStringLiteral("Enabled")).typeId(), int(QMetaType::Bool));
        QCOMPARE(back.ReadProperty(QStringLiteral("Font")).value<StdFont>(), font);
        QCOMPARE(back.ReadProperty(QStringLiteral("Text")), bag.ReadProperty(QStringLiteral("Text")));
    }

    void edgesOfTheRangesLoad()
    {
        const PropertyBag bag = PropertyBag::fromText(QStringLiteral(
            "A = -2147483648\nB = 4294967295\nC = 1.7e308\nD = -4294967296.\nBeginProperty Font\n Size = 2160\nEndProperty\n"));
        QCOMPARE(bag.ReadProperty(QStringLiteral("A")).toLongLong(), -2147483648LL);
        QCOMPARE(bag.ReadProperty(QStringLiteral("B")).toLongLong(), 4294967295LL);
        QCOMPARE(bag.ReadProperty(QStringLiteral("C")).toDouble(), 1.7e308);
        QCOMPARE(bag.ReadProperty(QStringLiteral("Font")).value<StdFont>().Size, 2160.0);
        // Written back, they read again: the whole decimal stays a decimal.
        const PropertyBag back = PropertyBag::fromText(bag.toText());
        QCOMPARE(back.ReadProperty(QStringLiteral("D")), QVariant(-4294967296.0));
        QCOMPARE(back.toText(), bag.toText());
    }

    void malformedBlocksNameTheLine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("line");
        QTest::newRow("no equals") << "A = 1\nJUST TEXT\n" << 2;
        QTest::newRow("unterminated string") << "A = 1\n\nText = \"abc\n" << 3;
        QTest::newRow("unknown value") << "Width = 12px\n" << 1;
        QTest::newRow("missing value") << "A = 1\nB =\n" << 2;
        QTest::newRow("bad key") << "1A = 1\n" << 1;
        QTest::newRow("block word as a key") << "A = 1\nBegin\r = 0\n" << 2;
        QTest::newRow("unclosed font") << "BeginProperty Font\n  Name = \"X\"\n" << 1;
        QTest::newRow("stray EndProperty") << "A = 1\nEndProperty\n" << 2;
        QTest::newRow("frx reference") << "Text = $\"frmA.frx\":0000\n" << 1;
        QTest::newRow("text after End") << "Begin A.B c\nA = 1\nEnd\nB = 2\n" << 4;
        QTest::newRow("whole number beyond 64 bits") << "A = 1\nMaxLength = 99999999999999999999\n" << 2;
        QTest::newRow("whole number beyond 32 bits") << "MaxLength = 4294967296\n" << 1;
        QTest::newRow("below the 32-bit range") << "MaxLength = -2147483649\n" << 1;
        QTest::newRow("decimal beyond a double") << "A = 1e999\n" << 1;
        QTest::newRow("font size beyond a double")
            << "BeginProperty Font {0BE35203-8F91-11CE-9DE3-00AA004BB851}\n Name = \"X\"\n Size = 1e999\nEndProperty\n" << 3;
        QTest::newRow("font size beyond any font") << "BeginProperty Font\n Size = 1e300\nEndProperty\n" << 2;
        QString deep;
        for (int i = 0; i < 20000; ++i)
            deep += QStringLiteral("BeginProperty P%1\n").arg(i);
        QTest::newRow("20,000 nested blocks") << deep << 33;
    }
    void malformedBlocksNameTheLine()
    {
        QFETCH(QString, text);
        QFETCH(int, line);
        try {
            PropertyBag::fromText(text);
            QFAIL("the block was accepted");
        } catch (const PropertyBagError &e) {
            QCOMPARE(e.line(), line);
            QVERIFY(QString::fromStdString(e.what()).startsWith(QStringLiteral("Línea %1: ").arg(line)));
        }
    }
};

QTEST_GUILESS_MAIN(tst_PropertyBag)
#include "tst_PropertyBag.moc"
