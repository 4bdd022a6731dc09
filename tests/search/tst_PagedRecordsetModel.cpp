#include "data/Recordset.h"
#include "search/PagedRecordsetModel.h"
#include "support/TestDatabase.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_PagedRecordsetModel : public QObject
{
    Q_OBJECT

private slots:
    // With a page of 14 rows loaded from `available`, PageDown on `currentRow` adds a page (or
    // what is left) only from the second-to-last row, reading the top row after each added row.
    void pageDownOnlyFromTheSecondToLastRow_data()
    {
        QTest::addColumn<int>("available");
        QTest::addColumn<int>("currentRow");
        QTest::addColumn<int>("added");
        QTest::newRow("second-to-last") << 60 << 12 << 14;
        QTest::newRow("last row") << 60 << 13 << 0;
        QTest::newRow("short tail") << 20 << 12 << 6;
        QTest::newRow("everything already loaded") << 10 << 8 << 0;
    }
    void pageDownOnlyFromTheSecondToLastRow()
    {
        QFETCH(int, available);
        QFETCH(int, currentRow);
        QFETCH(int, added);
        Testing::TestDatabase db;
        for (int i = 100; i < 100 + available; ++i)
            db.conexion()->execute(QStringLiteral("INSERT INTO Marcas (Codigo, Nombre) VALUES (%1, 'PAGINA %1')").arg(i));
        Recordset rs;
        rs.open(QStringLiteral("SELECT Codigo FROM Marcas WHERE Codigo >= 100 ORDER BY Codigo"), db.conexion());
        PagedRecordsetModel model(2, 14);
        model.setSource(&rs, [](const Recordset &r) { return QStringList{r.text(QStringLiteral("Codigo")), QString()}; });
        QCOMPARE(model.fetch(14), qMin(14, available));
        int topAsked = 0;
        QCOMPARE(model.pageDown(currentRow, [&] { return ++topAsked; }), added);
        QCOMPARE(topAsked, added);
        QCOMPARE(model.rowCount(), qMin(14, available) + added);
    }
};

QTEST_GUILESS_MAIN(tst_PagedRecordsetModel)
#include "tst_PagedRecordsetModel.moc"
