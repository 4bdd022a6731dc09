#include "input/kdDispositivo.h"
#include "input/kdImpresoras.h"
#include "platform/LegacyError.h"
#include "platform/PrinterSource.h"
#include "support/Widgets.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {

class Printers : public PrinterSource
{
public:
    explicit Printers(int count) : m_count(count) { install(this); }
    ~Printers() override { install(nullptr); }
    QStringList printerNames() const override
    {
        QStringList names;
        for (int i = 0; i < m_count; ++i)
            names << QStringLiteral("COLA_%1").arg(i);
        return names;
    }
    QString defaultPrinterName() const override { return m_count ? QStringLiteral("COLA_0") : QString(); }

private:
    int m_count;
};

QStringList entries(const kdCombo &c)
{
    QStringList out;
    for (int i = 0; i < c.ListCount(); ++i)
        out << c.List(i);
    return out;
}

} // namespace

class tst_kdDispositivo : public QObject
{
    Q_OBJECT

private slots:
    void lists_data()
    {
        QTest::addColumn<int>("printers");
        QTest::addColumn<QString>("bag");        // "" = a new instance
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<int>("destination");
        QTest::newRow("new instance ignores the flags") << 1 << "" << QStringList{"Pantalla", "Impresora", "Fichero", "eMail"} << 1;
        QTest::newRow("defaults after load") << 1 << "Appearance = 1" << QStringList{"Pantalla", "Impresora", "Fichero"} << 1;
        QTest::newRow("no printer") << 0 << "Appearance = 1" << QStringList{"Pantalla", "Fichero"} << 1;
        QTest::newRow("no printer, new instance") << 0 << "" << QStringList{"Pantalla", "Fichero", "eMail"} << 1;
        QTest::newRow("no display") << 2 << "ToDisplay = 0 'False" << QStringList{"Impresora", "Fichero"} << 2;
        QTest::newRow("no display, no printer") << 0 << "ToDisplay = 0 'False" << QStringList{"Fichero"} << 3;
        QTest::newRow("everything") << 1 << "ToEMail = -1 'True" << QStringList{"Pantalla", "Impresora", "Fichero", "eMail"} << 1;
    }
    void lists()
    {
        QFETCH(int, printers);
        QFETCH(QString, bag);
        QFETCH(QStringList, list);
        QFETCH(int, destination);
        Printers source(printers);
        kdDispositivo d;
        if (!bag.isEmpty())
            d.ReadProperties(PropertyBag::fromText(bag));
        QCOMPARE(entries(d), list);
        QCOMPARE(d.ListIndex(), qint16(0));
        QCOMPARE(int(d.Destination()), destination);
    }

    void flagsRebuildAndSelectTheFirst()
    {
        Printers source(0);
        kdDispositivo d;
        d.ReadProperties(PropertyBag());
        d.setListIndex(1);
        QCOMPARE(int(d.Destination()), int(kdFichero));
        d.setToEMail(true);
        QCOMPARE(entries(d), (QStringList{"Pantalla", "Fichero", "eMail"}));
        QCOMPARE(d.ListIndex(), qint16(0));
        d.setListIndex(2);
        QCOMPARE(int(d.Destination()), int(kdEMail));
        d.setToPrinter(true); // no printer: still none
        QCOMPARE(entries(d), (QStringList{"Pantalla", "Fichero", "eMail"}));

        for (auto set : {&kdDispositivo::setToDisplay, &kdDispositivo::setToFile, &kdDispositivo::setToEMail})
            (d.*set)(false);
        QCOMPARE(d.ListCount(), qint16(0));
        QCOMPARE(d.ListIndex(), qint16(-1));
        try {
            d.Destination();
            QFAIL("no error on an empty list");
        } catch (const LegacyError &e) {
            QCOMPARE(e.Number(), 381);
        }
    }

    void persisted()
    {
        Printers source(1);
        kdDispositivo d;
        d.ReadProperties(PropertyBag());
        d.setToFile(false);
        d.setToEMail(true);
        d.setEnabled(false);
        PropertyBag bag;
        d.WriteProperties(bag);
        QCOMPARE(bag.keys(), (QStringList{"Enabled", "ToFile", "ToEMail"}));
        kdDispositivo back;
        back.ReadProperties(PropertyBag::fromText(bag.toText()));
        QCOMPARE(entries(back), (QStringList{"Pantalla", "Impresora", "eMail"}));
        QVERIFY(!back.isEnabled());
    }

    // The keys the two combo controls share.
    void keys_data()
    {
        QTest::addColumn<bool>("printerList");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("movesBack");
        for (bool printerList : {false, true}) {
            const char *name = printerList ? "impresoras" : "dispositivo";
            QTest::addRow("%s, up alone", name) << printerList << int(Qt::NoModifier) << false;
            QTest::addRow("%s, shift up", name) << printerList << int(Qt::ShiftModifier) << true;
            QTest::addRow("%s, ctrl shift up", name) << printerList << int(Qt::ShiftModifier | Qt::ControlModifier) << false;
        }
    }
    void keys()
    {
        QFETCH(bool, printerList);
        QFETCH(int, modifiers);
        QFETCH(bool, movesBack);
        Printers source(3);
        QWidget form;
        auto *layout = new QVBoxLayout(&form);
        auto *before = new QLineEdit(&form);
        kdCombo *combo = printerList ? static_cast<kdCombo *>(new kdImpresoras(&form)) : new kdDispositivo(&form);
        auto *after = new QLineEdit(&form);
        layout->addWidget(before);
        layout->addWidget(combo);
        layout->addWidget(after);
        QList<int> keyDowns;
        connect(combo, &kdCombo::KeyDown, this, [&](qint16 &k, qint16 &) { keyDowns << k; });
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
        QList<int> keyPresses;
        connect(combo, &kdCombo::KeyPress, this, [&](qint16 &k) { keyPresses << k; });
        QTest::keyClick(inner, Qt::Key_Return);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), after);
        QCOMPARE(keyPresses, QList<int>{13});
    }
};

QTEST_MAIN(tst_kdDispositivo)
#include "tst_kdDispositivo.moc"
