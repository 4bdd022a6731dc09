#include "data/Recordset.h"
#include "search/PagedRecordsetModel.h"
#include "support/TestDatabase.h"

#include <QTest>

using namespace Varnel_Controles;

class tst_PagedRecordsetModel : public QObject
{
    Q_OBJECT

private:
    Testing::TestDatabase *db = nullptr;
    Recordset rs;

    void openRows(PagedRecordsetModel &model, int rows)
    {
        rs.open(QStringLiteral("SELECT Codigo FROM Marcas WHERE Codigo >= 100 AND Codigo < %1 ORDER BY Codigo").arg(100 + rows),
                db->conexion());
        model.setSource(&rs, [](const Recordset &r) { return QStringList{r.text(QStringLiteral("Codigo")), QStringLiteral("x")}; });
    }

private slots:
    void init()
    {
        db = new Testing::TestDatabase;
        for (int i = 0; i < 60; ++i)
            db->conexion()->execute(QStringLiteral("INSERT INTO Marcas (Codigo, Nombre) VALUES (%1, 'PAGINA %1')").arg(100 + i));
    }
    void cleanup()
    {
        rs.close();
        delete db;
    }

    void pageDownOnlyFromTheSecondToLastRow_data()
    {
        QTest::addColumn<int>("available");
        QTest::addColumn<int>("currentRow");
        QTest::addColumn<int>("added");
        QTest::newRow("second-to-last") << 60 << 12 << 14;
        QTest::newRow("last row") << 60 << 13 << 0;
        QTest::newRow("first row") << 60 << 0 << 0;
        QTest::newRow("short tail") << 20 << 12 << 6;
        QTest::newRow("everything already loaded") << 10 << 8 << 0;
    }
    void pageDownOnlyFromTheSecondToLastRow()
    {
        QFETCH(int, available);
        QFETCH(int, currentRow);
        QFETCH(int, added);
        PagedRecordsetModel model(2, 14);
        openRows(model, available);
        QCOMPARE(model.fetch(14), qMin(14, available));
        int topAsked = 0;
        QCOMPARE(model.pageDown(currentRow, [&] { return ++topAsked; }), added);
        QCOMPARE(topAsked, added); // the top row is read after each added row
        QCOMPARE(model.rowCount(), qMin(14, available) + added);
    }

    void scrollAddsOneRowWhenTheTopMovesDown()
    {
        PagedRecordsetModel model(2, 14);
        openRows(model, 16);
        model.fetch(14);
        QCOMPARE(model.scrolled(0), 0);
        QCOMPARE(model.scrolled(1), 1);
        QCOMPARE(model.scrolled(1), 0); // same top row
        QCOMPARE(model.scrolled(0), 0); // up
        QCOMPARE(model.lastTopRow(), 0);
        QCOMPARE(model.scrolled(2), 1);
        QCOMPARE(model.scrolled(3), 0); // nothing left
        QCOMPARE(model.rowCount(), 16);
        QCOMPARE(model.cell(15, 0), QStringLiteral("115"));
    }

    void cellsAndAlignment()
    {
        PagedRecordsetModel model(3, 14);
        model.addItem({QStringLiteral("12"), QStringLiteral("NOMBRE / COMERCIAL"), QStringLiteral("B123")});
        QCOMPARE(model.cell(0, 1), QStringLiteral("NOMBRE / COMERCIAL"));
        QCOMPARE(model.cell(0, 2), QStringLiteral("B123"));
        QCOMPARE(model.cell(1, 0), QString());
        model.setColumnAlignment(0, Qt::AlignRight | Qt::AlignVCenter);
        QCOMPARE(model.data(model.index(0, 0), Qt::TextAlignmentRole).value<Qt::Alignment>(), Qt::AlignRight | Qt::AlignVCenter);
        model.clear();
        QCOMPARE(model.rowCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_PagedRecordsetModel)
#include "tst_PagedRecordsetModel.moc"
