// What only the customer dialog does: the NIF box, its keys, and the installations merged in
// by the union.
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QLabel>
#include <QTest>

using namespace Varnel_Controles;

class tst_frmBusqueda_Clientes : public QObject
{
    Q_OBJECT

    static QStringList rows(frmBusqueda_Clientes &d)
    {
        auto *g = d.findChild<SearchGrid *>(QStringLiteral("vsListado"));
        QStringList out;
        for (int r = 0; r < g->model()->rowCount(); ++r)
            out << QStringLiteral("%1|%2|%3").arg(g->model()->index(r, 0).data().toString(),
                                                 g->model()->index(r, 1).data().toString(),
                                                 g->model()->index(r, 2).data().toString());
        return out;
    }

private slots:
    void unionCases_data()
    {
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("nif");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("two installations: three rows for one customer") << "ABASTOS" << ""
            << QStringList{"1001|ABASTOS LÓPEZ - ALMACÉN SUR|", "1001|ABASTOS LÓPEZ - TIENDA CENTRO|",
                           "1001|ABASTOS LÓPEZ S.L. / ABALO|B12345674"};
        QTest::newRow("identical installation row merged, NULL NIF kept apart") << "BAR" << ""
            << QStringList{"1003|BAR EL CRUCE|", "1004|BAR LA ESQUINA|", "1004|BAR LA ESQUINA|"};
        QTest::newRow("NIF alone: the customer and its installations") << "" << "12345678Z"
            << QStringList{"1002|OFICINA PEÑA|", "1002|PEÑA RUIZ, ANA|12345678Z"};
        QTest::newRow("NIF is exact") << "" << "12345678" << QStringList{};
        QTest::newRow("name and NIF") << "ABA" << "B12345674"
            << QStringList{"1001|ABASTOS LÓPEZ - ALMACÉN SUR|", "1001|ABASTOS LÓPEZ - TIENDA CENTRO|",
                           "1001|ABASTOS LÓPEZ S.L. / ABALO|B12345674"};
        QTest::newRow("apostrophe in the NIF") << "" << "B'1" << QStringList{};
    }
    void unionCases()
    {
        QFETCH(QString, nombre);
        QFETCH(QString, nif);
        QFETCH(QStringList, expected);
        Testing::TestDatabase db;
        frmBusqueda_Clientes d;
        d.setEmpresa(1);
        d.Recuperar_Registros(nombre, nif);
        QCOMPARE(rows(d), expected);
    }

    void nifStatementIsAnExactComparisonInBothHalves()
    {
        const QString sql = frmBusqueda_Clientes::statement(1, QString(), QStringLiteral("12345678Z"));
        QCOMPARE(sql.count(QStringLiteral(" AND c.Nif ='12345678Z'")), 2);
        QVERIFY(sql.contains(QStringLiteral("(c.Nombre LIKE '%' OR c.Nombre_Comercial LIKE '%') AND c.Nif")));
    }

    void keysBetweenTheTwoBoxes()
    {
        Testing::TestDatabase db;
        frmBusqueda_Clientes d;
        d.setEmpresa(1);
        QVERIFY(Testing::showActive(d));
        auto *name = d.findChild<TextField *>(QStringLiteral("txtNombre"));
        auto *nif = d.findChild<TextField *>(QStringLiteral("txtNif"));
        auto *grid = d.findChild<SearchGrid *>(QStringLiteral("vsListado"));
        QCOMPARE(d.findChild<QLabel *>(QStringLiteral("Label2"))->text(), QStringLiteral("Nombre:"));
        QCOMPARE(d.findChild<QLabel *>(QStringLiteral("Label1"))->text(), QStringLiteral("NIF:"));
        name->setFocus();
        QTest::keyClick(name, Qt::Key_Down); // empty grid: stays
        QCOMPARE(QApplication::focusWidget(), name);
        Testing::typeText(name, QStringLiteral("peña"));
        QCOMPARE(name->text(), QStringLiteral("PEÑA"));
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), nif);
        QVERIFY(db.statements.isEmpty());
        QTest::keyClick(nif, Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), name);
        nif->setFocus();
        QTest::keyClicks(nif, QStringLiteral(" 12345678z "));
        QTest::keyClick(nif, Qt::Key_Return);
        QCOMPARE(db.statements.size(), 1);
        QVERIFY(db.statements[0].contains(QStringLiteral("c.Nif ='12345678Z'"))); // trimmed, upper-cased
        QCOMPARE(QApplication::focusWidget(), grid);
        QCOMPARE(rows(d), QStringList{"1002|PEÑA RUIZ, ANA|12345678Z"});
        QTest::keyClick(grid, Qt::Key_Up); // from row 0 to the name box, not the NIF
        QCOMPARE(QApplication::focusWidget(), name);
        nif->setFocus();
        QTest::keyClick(nif, Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), grid);
        QTest::keyClick(grid, Qt::Key_Return);
        QCOMPARE(d.Codigo(), 1002);
        QCOMPARE(d.Nombre_Cliente(), QStringLiteral("PEÑA RUIZ, ANA"));
    }
};

QTEST_MAIN(tst_frmBusqueda_Clientes)
#include "tst_frmBusqueda_Clientes.moc"
