// The printer list against a real cupsd started privately for this test.
#include "input/kdImpresoras.h"
#include "support/PrivateCups.h"
#include "support/Widgets.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>

using namespace Varnel_Controles;

namespace {

bool listEnabled(const kdImpresoras &list)
{
    return list.findChild<QComboBox *>(QStringLiteral("cboImpresoras"))->isEnabled();
}

} // namespace

class tst_kdImpresoras : public QObject
{
    Q_OBJECT

    Testing::PrivateCups cups;

private slots:
    void threeQueuesWithTheSecondAsDefault()
    {
        const QStringList queues{"COLA_ALMACEN", "COLA_OFICINA", "COLA_TIENDA"};
        QVERIFY2(cups.start(queues, QStringLiteral("COLA_OFICINA")), qPrintable(cups.error()));
        kdImpresoras list;
        QCOMPARE(Testing::entries(list), queues);
        QCOMPARE(list.ListIndex(), qint16(1));
        QCOMPARE(list.Text(), QStringLiteral("COLA_OFICINA"));
        QVERIFY(listEnabled(list));
    }

    void printSystemDownIsAnEmptyListNotAHang()
    {
        cups.stop();
        QElapsedTimer timer;
        timer.start();
        kdImpresoras list;
        QCOMPARE(list.ListCount(), qint16(0));
        QCOMPARE(list.ListIndex(), qint16(-1));
        QVERIFY(!listEnabled(list));
        QVERIFY(timer.elapsed() < 10000);
    }

    void defaultOutsideTheListSelectsTheFirst()
    {
        Testing::FixedPrinters printers({QStringLiteral("A"), QStringLiteral("B")}, QStringLiteral("PDF"));
        kdImpresoras list;
        QCOMPARE(list.Text(), QStringLiteral("A"));
    }

    void persistedWithoutEnabled()
    {
        Testing::FixedPrinters printers({QStringLiteral("A")}, QStringLiteral("A"));
        kdImpresoras list;
        list.setBackColor(0xC0FFFF);
        list.setEnabled(false);
        PropertyBag bag;
        list.WriteProperties(bag);
        QCOMPARE(bag.keys(), QStringList{"BackColor"});
        kdImpresoras back;
        back.ReadProperties(bag);
        QCOMPARE(back.BackColor(), 0xC0FFFFu);
    }
};

QTEST_MAIN(tst_kdImpresoras)
#include "tst_kdImpresoras.moc"
