// The supplier and customer lookups, which share one base, run through the same cases.
#include "data/DbError.h"
#include "lookup/kdCliente.h"
#include "lookup/kdProveedor.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "platform/Twips.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {

// A host form: a field before, the lookup, a field after.
struct Host
{
    QWidget window;
    QLineEdit *before, *after;
    kdLookup *lookup;
    explicit Host(bool customer)
    {
        auto *layout = new QVBoxLayout(&window);
        before = new QLineEdit(&window);
        lookup = customer ? static_cast<kdLookup *>(new kdCliente(&window)) : new kdProveedor(&window);
        after = new QLineEdit(&window);
        layout->addWidget(before);
        layout->addWidget(lookup);
        layout->addWidget(after);
        lookup->setKeyEnterChangeFocus(true);
        lookup->setKeyUpChangeFocus(true);
    }
    TextField *code() const { return lookup->findChild<TextField *>(QStringLiteral("txtCodigo")); }
    QLabel *label() const { return lookup->findChild<QLabel *>(QStringLiteral("lblNombre")); }
};

// Chooses the first row of a search dialog from inside the modal show, as a clerk would.
void chooseFirstRow(QDialog &dialog, const QString &filter)
{
    auto *search = static_cast<frmBusqueda *>(&dialog);
    auto *box = search->findChild<TextField *>(QStringLiteral("txtNombre"));
    box->setText(filter);
    QTest::keyClick(box, Qt::Key_Return);
    if (auto *nif = search->findChild<TextField *>(QStringLiteral("txtNif")))
        QTest::keyClick(nif, Qt::Key_Return);
    QTest::keyClick(search->findChild<SearchGrid *>(QStringLiteral("vsListado")), Qt::Key_Return);
}

} // namespace

class tst_kdLookup : public QObject
{
    Q_OBJECT

private slots:
    void validationByKeyboard_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("vital");
        QTest::addColumn<bool>("dejar");
        QTest::addColumn<bool>("inicial");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("label");
        QTest::addColumn<bool>("existe");
        QTest::addColumn<bool>("moved");
        const QString nombre123 = QStringLiteral("COMERCIAL CIENTO VEINTITRÉS S.L.");
        QTest::newRow("P empty, inicial") << false << "" << false << false << true << "00000" << "PROVEEDOR INICIAL" << false << true;
        QTest::newRow("P empty, final") << false << "" << false << false << false << "99999" << "PROVEEDOR FINAL" << false << true;
        QTest::newRow("P zero") << false << "0" << false << false << true << "00000" << "PROVEEDOR INICIAL" << false << true;
        QTest::newRow("P 99999 with inicial") << false << "99999" << false << false << true << "00000" << "PROVEEDOR INICIAL" << false << true;
        QTest::newRow("P 99999 final") << false << "99999" << false << false << false << "99999" << "PROVEEDOR FINAL" << false << true;
        QTest::newRow("P 9999999 is cut to 99999") << false << "9999999" << false << false << true << "00000" << "PROVEEDOR INICIAL" << false << true;
        QTest::newRow("P empty, vital") << false << "" << true << false << true << "" << "" << false << false;
        QTest::newRow("P 99999, vital") << false << "99999" << true << false << false << "" << "" << false << false;
        QTest::newRow("P empty, left blank") << false << "" << false << true << true << "" << "" << false << true;
        QTest::newRow("P zero, left blank") << false << "0" << false << true << false << "0" << "" << false << true;
        QTest::newRow("P known") << false << "123" << false << false << true << "123" << nombre123 << true << true;
        QTest::newRow("P known, leading zeros") << false << "0123" << false << false << true << "0123" << nombre123 << true << true;
        QTest::newRow("P known, vital") << false << "123" << true << false << true << "123" << nombre123 << true << true;
        QTest::newRow("P unknown") << false << "777" << false << false << true << "777" << "PROVEEDOR INEXISTENTE" << false << true;
        QTest::newRow("P unknown, vital") << false << "777" << true << false << true << "" << "PROVEEDOR INEXISTENTE" << false << false;
        QTest::newRow("C empty, inicial") << true << "" << false << false << true << "0000000" << "CLIENTE INICIAL" << false << true;
        QTest::newRow("C empty, final") << true << "" << false << false << false << "9999999" << "CLIENTE FINAL" << false << true;
        QTest::newRow("C 9999999 with inicial") << true << "9999999" << false << false << true << "0000000" << "CLIENTE INICIAL" << false << true;
        QTest::newRow("C 99999 is a code") << true << "99999" << false << false << false << "99999" << "CLIENTE CINCO NUEVES" << true << true;
        QTest::newRow("C empty, vital") << true << "" << true << false << true << "" << "" << false << false;
        QTest::newRow("C known") << true << "1001" << false << false << true << "1001" << "ABASTOS LÓPEZ S.L." << true << true;
        QTest::newRow("C unknown") << true << "777" << false << false << true << "777" << "CLIENTE INEXISTENTE" << false << true;
        QTest::newRow("C unknown, vital") << true << "777" << true << false << true << "" << "CLIENTE INEXISTENTE" << false << false;
    }
    void validationByKeyboard()
    {
        QFETCH(bool, customer);
        QFETCH(QString, typed);
        QFETCH(bool, vital);
        QFETCH(bool, dejar);
        QFETCH(bool, inicial);
        QFETCH(QString, box);
        QFETCH(QString, label);
        QFETCH(bool, existe);
        QFETCH(bool, moved);
        Testing::TestDatabase db;
        Host host(customer);
        host.lookup->setCEmpresa(db.empresa());
        host.lookup->setVital(vital);
        host.lookup->setInicial(inicial);
        if (dejar)
            static_cast<kdProveedor *>(host.lookup)->setDejarEnBlanco(true);
        QVERIFY(Testing::showActive(host.window));
        host.lookup->setFocus();
        QTest::keyClicks(host.code(), typed);
        QTest::keyClick(host.code(), Qt::Key_Return);
        QCOMPARE(host.lookup->Text(), box);
        QCOMPARE(host.lookup->Nombre(), label);
        QCOMPARE(host.lookup->Existe(), existe);
        Testing::settle(); // the focus moves once the key handler has returned
        QCOMPARE(QApplication::focusWidget(), moved ? static_cast<QWidget *>(host.after) : host.code());
        QCOMPARE(host.lookup->Text(), box); // leaving the box validates again, to the same end
        QCOMPARE(host.lookup->Nombre(), label);
    }

    void lookupStatementsAndResults_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::addColumn<int>("empresa");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("nombre");
        QTest::newRow("supplier") << false << 1 << "123" << "SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 123"
                                  << "COMERCIAL CIENTO VEINTITRÉS S.L.";
        QTest::newRow("supplier, zeros") << false << 1 << "0012" << "SELECT Nombre FROM Proveedores WHERE Cod_Empresa =1 AND Codigo = 12" << "";
        QTest::newRow("supplier, pasted text") << false << 2 << "3AB" << "SELECT Nombre FROM Proveedores WHERE Cod_Empresa =2 AND Codigo = 3"
                                               << "ABALORIOS LEVANTE S.L.";
        QTest::newRow("customer") << true << 1 << "1002" << "SELECT Nombre, Nombre_Comercial FROM Clientes WHERE Cod_Empresa =1 AND Codigo = 1002"
                                  << "PEÑA RUIZ, ANA";
        QTest::newRow("customer, company 2") << true << 2 << "1001" << "SELECT Nombre, Nombre_Comercial FROM Clientes WHERE Cod_Empresa =2 AND Codigo = 1001"
                                             << "ABRIGOS DEL NORTE S.A.";
    }
    void lookupStatementsAndResults()
    {
        QFETCH(bool, customer);
        QFETCH(int, empresa);
        QFETCH(QString, typed);
        QFETCH(QString, statement);
        QFETCH(QString, nombre);
        Testing::TestDatabase db;
        Host host(customer);
        host.lookup->setCEmpresa(db.empresa(qint16(empresa)));
        host.lookup->setText(typed);
        QCOMPARE(host.lookup->Cargar(), !nombre.isEmpty());
        QCOMPARE(db.statements, QStringList{statement});
        QCOMPARE(host.lookup->Nombre(), nombre);
        QCOMPARE(host.lookup->Existe(), !nombre.isEmpty());
        host.lookup->setText(QStringLiteral("ABC")); // no digits: nothing is looked up
        QVERIFY(!host.lookup->Cargar());
        QCOMPARE(db.statements.size(), 1);
    }

    void f3ChoosesFromTheSearchDialog_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::newRow("supplier") << false << "COM" << "123" << "COMERCIAL CIENTO VEINTITRÉS S.L.";
        QTest::newRow("customer") << true << "PEÑA" << "1002" << "PEÑA RUIZ, ANA";
    }
    void f3ChoosesFromTheSearchDialog()
    {
        QFETCH(bool, customer);
        QFETCH(QString, filter);
        QFETCH(QString, code);
        QFETCH(QString, name);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        Host host(customer);
        host.lookup->setCEmpresa(db.empresa());
        QVERIFY(Testing::showActive(host.window));
        host.lookup->setFocus();
        QList<int> keyDowns;
        connect(host.lookup, &kdLookup::KeyDown, this, [&](qint16 &k, qint16 &) { keyDowns << k; });

        ui.onModal([&](QDialog &d) { chooseFirstRow(d, filter); });
        QTest::keyClick(host.code(), Qt::Key_F3);
        QCOMPARE(ui.modalShown, QStringList{customer ? "frmBusqueda_Clientes" : "frmBusqueda_Proveedores"});
        QVERIFY(db.statements.first().contains(customer ? "c.Cod_Empresa =1" : "Cod_Empresa = 1 And"));
        QCOMPARE(host.lookup->Text(), code);
        QCOMPARE(host.lookup->Nombre(), name);
        QCOMPARE(host.lookup->Existe(), false); // no lookup after a choice
        QCOMPARE(keyDowns, QList<int>{114});

        ui.onModal([](QDialog &d) { d.findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click(); });
        QTest::keyClick(host.code(), Qt::Key_F3);
        QCOMPARE(host.lookup->Text(), code); // a cancelled search changes nothing
        QCOMPARE(host.lookup->Nombre(), name);

        ui.onModal([](QDialog &d) { d.findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click(); });
        QCOMPARE(host.lookup->Buscar(), 0);
        QCOMPARE(host.lookup->Text(), QString());
        ui.onModal([&](QDialog &d) { chooseFirstRow(d, filter); });
        QCOMPARE(host.lookup->Buscar(), code.toInt());
        QCOMPARE(ui.modalShown.size(), 4);
    }

    // A dialog, a message box or another window taking the focus is not leaving the box: only
    // the focus moving to another control of the window validates.
    void onlyLeavingForAnotherControlValidates_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("vital");
        QTest::addColumn<bool>("inicial");
        QTest::addColumn<bool>("company");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("messages");
        QTest::addColumn<QString>("boxLeft"); // once the focus moves to the next control
        QTest::newRow("F3, Cancel, empty, inicial") << "F3" << "" << false << true << true << "" << "" << 0 << "00000";
        QTest::newRow("F3, Cancel, 777, vital") << "F3" << "777" << true << true << true << "777" << "" << 0 << "";
        QTest::newRow("Buscar cancelled") << "Buscar" << "55" << false << false << true << "" << "" << 0 << "99999";
        QTest::newRow("Enter without a company") << "Enter" << "123" << false << true << false << "123"
                                                 << "PROVEEDOR INEXISTENTE" << 1 << "123";
        QTest::newRow("another window, empty") << "window" << "" << false << true << true << "" << "" << 0 << "00000";
    }
    void onlyLeavingForAnotherControlValidates()
    {
        QFETCH(QString, action);
        QFETCH(QString, typed);
        QFETCH(bool, vital);
        QFETCH(bool, inicial);
        QFETCH(bool, company);
        QFETCH(QString, box);
        QFETCH(QString, label);
        QFETCH(int, messages);
        QFETCH(QString, boxLeft);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        Host host(false);
        if (company)
            host.lookup->setCEmpresa(db.empresa());
        host.lookup->setVital(vital);
        host.lookup->setInicial(inicial);
        QVERIFY(Testing::showActive(host.window));
        host.lookup->setFocus();
        QTest::keyClicks(host.code(), typed);
        const auto cancel = [](QDialog &d) { d.findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click(); };
        if (action == QLatin1String("F3")) {
            ui.onModal(cancel);
            QTest::keyClick(host.code(), Qt::Key_F3);
        } else if (action == QLatin1String("Buscar")) {
            ui.onModal(cancel);
            QCOMPARE(host.lookup->Buscar(), 0);
        } else if (action == QLatin1String("Enter")) {
            QTest::keyClick(host.code(), Qt::Key_Return);
        } else {
            QWidget other;
            QVERIFY(Testing::showActive(other));
            QVERIFY(Testing::showActive(host.window));
        }
        Testing::settle();
        QCOMPARE(host.lookup->Text(), box);
        QCOMPARE(host.lookup->Nombre(), label);
        QCOMPARE(ui.messages.size(), messages);
        QVERIFY(db.statements.isEmpty()); // no lookup ran
        host.after->setFocus();
        QCOMPARE(host.lookup->Text(), boxLeft);
        QCOMPARE(ui.messages.size(), messages);
    }

    void codesSetByTheProgramAreNotCut()
    {
        Host host(false);
        QCOMPARE(host.lookup->MaxLength(), qint16(5));
        host.lookup->setCodigo(123456);
        QCOMPARE(host.lookup->Codigo(), 123456);
        host.lookup->setText(QStringLiteral("ABCDEFGH"));
        QCOMPARE(host.lookup->Text(), QStringLiteral("ABCDEFGH"));
        host.lookup->setText(QString());
        QTest::keyClicks(host.code(), QStringLiteral("1234567")); // typing stops at the limit
        QCOMPARE(host.lookup->Text(), QStringLiteral("12345"));
    }

    void onlyDigitsAreTyped_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::newRow("supplier") << false;
        QTest::newRow("customer") << true;
    }
    void onlyDigitsAreTyped()
    {
        QFETCH(bool, customer);
        Host host(customer);
        QList<int> seen;
        connect(host.lookup, &kdLookup::KeyPress, this, [&](qint16 &k) { seen << k; });
        QTest::keyClicks(host.code(), QStringLiteral("1a-2 '3"));
        QCOMPARE(host.lookup->Text(), QStringLiteral("123"));
        QCOMPARE(seen, (QList<int>{'1', 0, 0, '2', 0, 0, '3'}));
        QTest::keyClick(host.code(), Qt::Key_Backspace);
        QCOMPARE(host.lookup->Text(), QStringLiteral("12"));

        host.lookup->setText(QStringLiteral("12AB")); // assigned text is not filtered
        QCOMPARE(host.lookup->Codigo(), 12);
        QCOMPARE(host.lookup->Value(), 12);
        QSignalSpy notified(host.lookup, &UserControl::PropertyChanged);
        host.lookup->setCodigo(0);
        QCOMPARE(host.lookup->Text(), QString());
        QCOMPARE(notified.last().at(0).toString(), QStringLiteral("Text"));
        host.lookup->setCodigo(5);
        QCOMPARE(host.lookup->Text(), QStringLiteral("5"));
        QCOMPARE(host.lookup->Nombre(), QString());
    }

    void failuresAreReportedAndTheControlStaysUsable_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::addColumn<int>("failure"); // 0 database error, 1 no company, 2 no connection
        QTest::addColumn<QString>("title");
        QTest::newRow("supplier, database") << false << 0 << "kdProveedores::Cargar";
        QTest::newRow("supplier, no company") << false << 1 << "kdProveedores::Cargar";
        QTest::newRow("supplier, no connection") << false << 2 << "kdProveedores::Cargar";
        QTest::newRow("customer, database") << true << 0 << "kdClientes::Cargar";
        QTest::newRow("customer, no company") << true << 1 << "kdClientes::Cargar";
    }
    void failuresAreReportedAndTheControlStaysUsable()
    {
        QFETCH(bool, customer);
        QFETCH(int, failure);
        QFETCH(QString, title);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        Host host(customer);
        const QString table = customer ? QStringLiteral("Clientes") : QStringLiteral("Proveedores");
        if (failure != 1)
            host.lookup->setCEmpresa(db.empresa());
        if (failure == 0)
            db.conexion()->execute(QStringLiteral("ALTER TABLE %1 RENAME TO Fuera").arg(table));
        if (failure == 2)
            Conexion::resetShared();
        host.lookup->setText(customer ? QStringLiteral("1001") : QStringLiteral("123"));
        QVERIFY(!host.lookup->Cargar());
        QCOMPARE(ui.messages.size(), 1);
        QCOMPARE(ui.messages[0].style, 16);
        QCOMPARE(ui.messages[0].title, title);
        QVERIFY(!host.lookup->Existe());
        QCOMPARE(host.lookup->Nombre(), QString());

        // Repaired, the same control works.
        if (failure == 0)
            db.conexion()->execute(QStringLiteral("ALTER TABLE Fuera RENAME TO %1").arg(table));
        if (failure == 1)
            host.lookup->setCEmpresa(db.empresa());
        if (failure == 2)
            host.lookup->setConexion(db.conexion());
        QVERIFY(host.lookup->Cargar());
        QVERIFY(host.lookup->Existe());
    }

    void coloursFollowFocusAndEnabled()
    {
        Testing::TestDatabase db;
        Host host(false);
        host.lookup->setCEmpresa(db.empresa());
        QVERIFY(Testing::showActive(host.window));
        host.code()->setText(QStringLiteral("123"));
        host.lookup->setFocus();
        QCOMPARE(host.code()->BackColor(), LegacyColor::FocusBackColor);
        QCOMPARE(host.code()->selectedText(), QStringLiteral("123"));
        host.after->setFocus(); // leaving validates
        QCOMPARE(host.code()->BackColor(), LegacyColor::WindowBackground);
        QVERIFY(host.lookup->Existe());
        host.lookup->setEnabled(false);
        QCOMPARE(host.code()->BackColor(), LegacyColor::DisabledBackColor);
        QCOMPARE(Testing::paintedBackground(*host.code()), QColor(224, 224, 224));
        host.lookup->setEnabled(true);
        QCOMPARE(host.code()->BackColor(), LegacyColor::WindowBackground);
    }

    void upArrowGoesBack()
    {
        Host host(true);
        QVERIFY(Testing::showActive(host.window));
        host.lookup->setFocus();
        QTest::keyClick(host.code(), Qt::Key_Up);
        Testing::settle();
        QCOMPARE(QApplication::focusWidget(), host.before);
    }

    void layoutInTwips_data()
    {
        QTest::addColumn<bool>("customer");
        QTest::addColumn<double>("points");
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("minimum");
        QTest::newRow("supplier") << false << 8.0 << 660 << 735;
        QTest::newRow("supplier, large font") << false << 12.0 << 1160 << 1235;
        QTest::newRow("customer") << true << 8.0 << 810 << 885;
        QTest::newRow("customer, large font") << true << 12.0 << 1310 << 1385;
    }
    void layoutInTwips()
    {
        QFETCH(bool, customer);
        QFETCH(double, points);
        QFETCH(int, code);
        QFETCH(int, minimum);
        std::unique_ptr<kdLookup> lookup(customer ? static_cast<kdLookup *>(new kdCliente) : new kdProveedor);
        QFont font = lookup->font();
        font.setPointSizeF(points);
        lookup->setFont(font);
        lookup->show();
        auto *box = lookup->findChild<TextField *>(QStringLiteral("txtCodigo"));
        auto *label = lookup->findChild<QLabel *>(QStringLiteral("lblNombre"));
        lookup->resize(Twips::toPixels(4000), Twips::toPixels(315));
        QApplication::processEvents();
        QCOMPARE(box->width(), Twips::toPixels(code));
        QCOMPARE(label->x(), Twips::toPixels(code));
        QCOMPARE(label->font().pointSizeF(), points);
        lookup->resize(Twips::toPixels(300), Twips::toPixels(315));
        QApplication::processEvents();
        QCOMPARE(lookup->width(), Twips::toPixels(minimum));
        const QRect before = box->geometry();
        lookup->resize(Twips::toPixels(3000), Twips::toPixels(150)); // too low: left alone
        QApplication::processEvents();
        QCOMPARE(box->geometry(), before);
    }

    void persistedProperties()
    {
        kdProveedor fresh;
        QVERIFY(!fresh.Vital() && !fresh.Inicial() && !fresh.KeyEnterChangeFocus() && !fresh.DejarEnBlanco());
        PropertyBag bag;
        fresh.WriteProperties(bag);
        QCOMPARE(bag.keys(), (QStringList{"Vital", "Inicial", "KeyUpChangeFocus", "KeyEnterChangeFocus"}));

        kdProveedor loaded;
        loaded.ReadProperties(PropertyBag()); // missing keys read as True
        QVERIFY(loaded.Vital() && loaded.Inicial() && loaded.KeyUpChangeFocus() && loaded.KeyEnterChangeFocus());
        QVERIFY(!loaded.DejarEnBlanco());

        kdProveedor p;
        p.setDejarEnBlanco(true);
        p.setVital(true);
        p.setText(QStringLiteral("00012"));
        p.setToolTipText(QStringLiteral("Proveedor"));
        p.setLocked(true);
        p.setEnabled(false);
        bag = PropertyBag();
        p.WriteProperties(bag);
        const QString text = bag.toText();
        QVERIFY2(text.contains(QLatin1String("Dejarenblanco   =   -1  'True")), qPrintable(text));
        QCOMPARE(bag.keys(), (QStringList{"Enabled", "Locked", "Text", "ToolTipText", "Inicial", "KeyUpChangeFocus",
                                          "KeyEnterChangeFocus", "Dejarenblanco"}));
        kdProveedor back;
        back.ReadProperties(PropertyBag::fromText(text));
        QVERIFY(back.DejarEnBlanco() && back.Vital() && !back.Inicial() && back.Locked() && !back.isEnabled());
        QCOMPARE(back.Text(), QStringLiteral("00012"));
        QCOMPARE(back.ToolTipText(), QStringLiteral("Proveedor"));
        QCOMPARE(back.findChild<TextField *>(QStringLiteral("txtCodigo"))->BackColor(), LegacyColor::DisabledBackColor);

        kdCliente c;
        c.setInicial(true);
        bag = PropertyBag();
        c.WriteProperties(bag);
        QVERIFY(!bag.contains(QStringLiteral("Dejarenblanco")));
        QVERIFY(!bag.contains(QStringLiteral("Inicial")));
    }

    void customerTradeName()
    {
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        kdCliente c;
        c.setCEmpresa(db.empresa());
        c.setText(QStringLiteral("1001"));
        QVERIFY(c.Cargar());
        QCOMPARE(c.NombreComercial(), QStringLiteral("ABALO"));
        ui.onModal([](QDialog &d) { chooseFirstRow(d, QStringLiteral("HOSTAL")); });
        c.Buscar();
        QCOMPARE(c.Nombre(), QStringLiteral("HOSTAL MIRADOR / ABEDUL"));
        QCOMPARE(c.NombreComercial(), QStringLiteral("ABALO")); // the search does not fill it
        c.setText(QStringLiteral("1002"));
        QVERIFY(c.Cargar());
        QCOMPARE(c.NombreComercial(), QString()); // NULL trade name
    }
};

QTEST_MAIN(tst_kdLookup)
#include "tst_kdLookup.moc"
