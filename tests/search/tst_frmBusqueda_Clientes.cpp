// What only the customer dialog does: the NIF box and its keys. (Its statements and results run
// with the other search dialogs' in tst_frmBusqueda.)
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

using namespace Varnel_Controles;

class tst_frmBusqueda_Clientes : public QObject
{
    Q_OBJECT

private slots:
    // The name box passes on to the NIF box (Up goes back), which searches; Up from the grid's
    // first row goes to the name box, Down from either box to the grid when it has rows.
    void keysBetweenTheTwoBoxes()
    {
        Testing::TestDatabase db;
        frmBusqueda_Clientes d;
        d.setEmpresa(1);
        QVERIFY(Testing::showActive(d));
        auto *name = d.findChild<TextField *>(QStringLiteral("txtNombre"));
        auto *nif = d.findChild<TextField *>(QStringLiteral("txtNif"));
        auto *grid = d.findChild<SearchGrid *>(QStringLiteral("vsListado"));
        name->setFocus();
        QTest::keyClick(name, Qt::Key_Down); // an empty grid: the focus stays
        QCOMPARE(QApplication::focusWidget(), name);
        Testing::typeText(name, QStringLiteral("peña"));
        QTest::keyClick(name, Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), nif);
        QTest::keyClick(nif, Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), name);
        QVERIFY(db.statements.isEmpty());
        nif->setFocus();
        QTest::keyClicks(nif, QStringLiteral(" 12345678z "));
        QTest::keyClick(nif, Qt::Key_Return); // upper-cased as typed, trimmed
        QVERIFY(db.statements.value(0).contains(QStringLiteral("LIKE 'PEÑA%') AND c.Nif ='12345678Z'")));
        QCOMPARE(Testing::TestDatabase::rows(*grid->model()), QStringList{"1002|PEÑA RUIZ, ANA|12345678Z"});
        QTest::keyClick(grid, Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), name);
        nif->setFocus();
        QTest::keyClick(nif, Qt::Key_Down);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // the grid's first row
        QCOMPARE(QString::number(d.Codigo()) + u'|' + d.Nombre_Cliente(), QStringLiteral("1002|PEÑA RUIZ, ANA"));
    }
};

QTEST_MAIN(tst_frmBusqueda_Clientes)
#include "tst_frmBusqueda_Clientes.moc"
