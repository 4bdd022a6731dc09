// The printer list against a real cupsd started privately for this test.
#include "input/kdImpresoras.h"
#include "platform/PrinterSource.h"
#include "support/PrivateCups.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace Varnel_Controles;

namespace {

class FixedPrinters : public PrinterSource
{
public:
    FixedPrinters(QStringList names, QString def) : m_names(std::move(names)), m_default(std::move(def)) { install(this); }
    ~FixedPrinters() override { install(nullptr); }
    QStringList printerNames() const override { return m_names; }
    QString defaultPrinterName() const override { return m_default; }

private:
    QStringList m_names;
    QString m_default;
};

QStringList entries(const kdImpresoras &list)
{
    QStringList out;
    for (int i = 0; i < list.ListCount(); ++i)
        out << list.List(i);
    return out;
}

} // namespace

class tst_kdImpresoras : public QObject
{
    Q_OBJECT

    Testing::PrivateCups cups;

private slots:
    void initTestCase()
    {
        QVERIFY2(cups.start(), qPrintable(cups.error()));
    }

    void threeQueuesWithTheSecondAsDefault()
    {
        for (const char *q : {"COLA_ALMACEN", "COLA_OFICINA", "COLA_TIENDA"})
            QVERIFY2(cups.addQueue(QString::fromLatin1(q)), qPrintable(cups.error()));
        QVERIFY2(cups.setDefault(QStringLiteral("COLA_OFICINA")), qPrintable(cups.error()));
        kdImpresoras list;
        QCOMPARE(entries(list), (QStringList{"COLA_ALMACEN", "COLA_OFICINA", "COLA_TIENDA"}));
        QCOMPARE(list.ListIndex(), qint16(1));
        QCOMPARE(list.Text(), QStringLiteral("COLA_OFICINA"));
        QVERIFY(list.findChild<QComboBox *>(QStringLiteral("cboImpresoras"))->isEnabled());
        QVERIFY(!list.Sorted());

        QSignalSpy notified(&list, &UserControl::PropertyChanged);
        list.setList(2, QStringLiteral("OTRA"));
        list.setListIndex(2);
        QCOMPARE(list.Text(), QStringLiteral("OTRA"));
        QCOMPARE(notified.count(), 2);
        QCOMPARE(notified[0].at(0).toString(), QStringLiteral("List"));
        QCOMPARE(notified[1].at(0).toString(), QStringLiteral("ListIndex"));
    }

    void noQueueAtAll()
    {
        for (const char *q : {"COLA_ALMACEN", "COLA_OFICINA", "COLA_TIENDA"})
            cups.removeQueue(QString::fromLatin1(q));
        kdImpresoras list;
        QCOMPARE(list.ListCount(), qint16(0));
        QCOMPARE(list.ListIndex(), qint16(-1));
        QCOMPARE(list.Text(), QString());
        QVERIFY(!list.findChild<QComboBox *>(QStringLiteral("cboImpresoras"))->isEnabled());
    }

    void printSystemDownIsAnEmptyListNotAHang()
    {
        cups.stop();
        QElapsedTimer timer;
        timer.start();
        kdImpresoras list;
        QCOMPARE(list.ListCount(), qint16(0));
        QVERIFY(!list.findChild<QComboBox *>(QStringLiteral("cboImpresoras"))->isEnabled());
        QVERIFY(timer.elapsed() < 10000);
    }

    void defaultOutsideTheListSelectsTheFirst()
    {
        FixedPrinters printers({QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("PDF"));
        kdImpresoras list;
        QCOMPARE(list.ListIndex(), qint16(0));
        QCOMPARE(list.Text(), QStringLiteral("A"));
    }

    void persistedProperties()
    {
        FixedPrinters printers({QStringLiteral("A")}, QStringLiteral("A"));
        kdImpresoras list;
        list.setBackColor(0xC0FFFF);
        list.setAppearance(0);
        list.setEnabled(false); // not persisted
        PropertyBag bag;
        list.WriteProperties(bag);
        QCOMPARE(bag.keys(), (QStringList{"BackColor", "Appearance"}));
        kdImpresoras back;
        back.ReadProperties(PropertyBag::fromText(bag.toText()));
        QCOMPARE(back.BackColor(), 0xC0FFFFu);
        QCOMPARE(back.Appearance(), qint16(0));
        QVERIFY(back.isEnabled());
    }
};

QTEST_MAIN(tst_kdImpresoras)
#include "tst_kdImpresoras.moc"
