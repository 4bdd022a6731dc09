#include "input/kdDispositivo.h"
#include "platform/LegacyError.h"
#include "support/Widgets.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

using namespace Varnel_Controles;
using Testing::entries;

class tst_kdDispositivo : public QObject
{
    Q_OBJECT

private slots:
    // A new instance, or one loaded from a bag (written back the same).
    void lists_data()
    {
        QTest::addColumn<bool>("printer");
        QTest::addColumn<QString>("bag"); // "new" for a new instance
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<int>("destination");
        const QStringList all{"Pantalla", "Impresora", "Fichero", "eMail"};
        QTest::newRow("new instance ignores the flags") << true << "new" << all << 1;
        QTest::newRow("defaults after load") << true << "" << QStringList{"Pantalla", "Impresora", "Fichero"} << 1;
        QTest::newRow("no printer") << false << "" << QStringList{"Pantalla", "Fichero"} << 1;
        QTest::newRow("no display") << true << "ToDisplay = 0 'False" << QStringList{"Impresora", "Fichero"} << 2;
        QTest::newRow("no display, no printer") << false << "ToDisplay = 0 'False" << QStringList{"Fichero"} << 3;
        QTest::newRow("disabled, no file") << true << "Enabled = 0 'False\nToFile = 0 'False\nToEMail = -1 'True"
                                           << QStringList{"Pantalla", "Impresora", "eMail"} << 1;
    }
    void lists()
    {
        QFETCH(bool, printer);
        QFETCH(QString, bag);
        QFETCH(QStringList, list);
        QFETCH(int, destination);
        Testing::FixedPrinters source(printer ? QStringList{"COLA"} : QStringList(), QString());
        kdDispositivo d;
        if (bag != QLatin1String("new")) {
            const PropertyBag loaded = PropertyBag::fromText(bag);
            d.ReadProperties(loaded);
            PropertyBag written;
            d.WriteProperties(written);
            QCOMPARE(written.keys(), loaded.keys());
            QCOMPARE(d.isEnabled(), !loaded.contains(QStringLiteral("Enabled")));
        }
        QCOMPARE(entries(d), list);
        QCOMPARE(d.ListIndex(), qint16(0));
        QCOMPARE(int(d.Destination()), destination);
    }

    void flagsRebuildAndSelectTheFirst()
    {
        Testing::FixedPrinters source({}, QString());
        kdDispositivo d;
        d.ReadProperties(PropertyBag());
        d.setListIndex(1);
        d.setToEMail(true);
        QCOMPARE(entries(d), (QStringList{"Pantalla", "Fichero", "eMail"}));
        QCOMPARE(d.ListIndex(), qint16(0));
        d.setListIndex(2);
        QCOMPARE(int(d.Destination()), int(kdEMail));

        for (auto set : {&kdDispositivo::setToDisplay, &kdDispositivo::setToFile, &kdDispositivo::setToEMail})
            (d.*set)(false);
        QCOMPARE(d.ListIndex(), qint16(-1));
        try {
            d.Destination();
            QFAIL("no error on an empty list");
        } catch (const LegacyError &e) {
            QCOMPARE(e.Number(), 381);
        }
    }

    // The keys of both combo controls: Shift+Up alone moves back, Up moves through the list.
    void keys_data()
    {
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("movesBack");
        QTest::newRow("up alone") << int(Qt::NoModifier) << false;
        QTest::newRow("shift up") << int(Qt::ShiftModifier) << true;
        QTest::newRow("ctrl shift up") << int(Qt::ShiftModifier | Qt::ControlModifier) << false;
    }
    void keys()
    {
        QFETCH(int, modifiers);
        QFETCH(bool, movesBack);
        Testing::FixedPrinters source({QStringLiteral("COLA")}, QString());
        QWidget form;
        auto *before = new QLineEdit(&form);
        auto *combo = new kdDispositivo(&form);
        auto *after = new QLineEdit(&form);
        Testing::stack(form, {before, combo, after});
        QList<int> keyDowns, keyPresses;
        connect(combo, &kdCombo::KeyDown, this, [&](qint16 &k, qint16 &) { keyDowns << k; });
        connect(combo, &kdCombo::KeyPress, this, [&](qint16 &k) { keyPresses << k; });
        QVERIFY(Testing::showActive(form));
        auto *inner = combo->findChild<QComboBox *>();
        inner->setCurrentIndex(2);
        combo->setFocus();
        QTest::keyClick(inner, Qt::Key_Up, Qt::KeyboardModifiers(modifiers));
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), movesBack ? static_cast<QWidget *>(before) : inner);
        QVERIFY(keyDowns.contains(38));
        if (modifiers == Qt::NoModifier)
            QCOMPARE(inner->currentIndex(), 1); // Up alone moves through the list

        combo->setFocus();
        QTest::keyClick(inner, Qt::Key_Return);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), after);
        QCOMPARE(keyPresses, QList<int>{13});
    }
};

QTEST_MAIN(tst_kdDispositivo)
#include "tst_kdDispositivo.moc"
