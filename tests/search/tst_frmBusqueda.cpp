// The three search dialogs that share the search pattern, run through the same cases.
#include "data/DbError.h"
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

using namespace Varnel_Controles;

namespace {

struct Variant
{
    QString caption, label1, label2;
    std::function<frmBusqueda *()> make;
    std::function<void(frmBusqueda *, const QString &)> search;
    std::function<qint32(frmBusqueda *)> codigo;
    std::function<QString(frmBusqueda *)> nombre;
    QString table;
    QString insertRow;        // %1: a number from 0 to 99
    QString pagingFilter;
    int enterToSearch;        // Enter presses from the name box until the search runs
    bool cyanFilter;
};

Variant variant(int i)
{
    const QString l1 = QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando.");
    const QString l2 = QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".");
    switch (i) {
    case 0:
        return {QStringLiteral("Búsqueda de Marcas"), l1, l2,
                [] { return new frmBusqueda_Marcas; },
                [](frmBusqueda *d, const QString &t) { static_cast<frmBusqueda_Marcas *>(d)->Recuperar_Registros(t); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Marcas *>(d)->Codigo(); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Marcas *>(d)->Nombre_Marca(); },
                QStringLiteral("Marcas"), QStringLiteral("INSERT INTO Marcas (Codigo, Nombre) VALUES (%1 + 100, 'PAGINA %1')"),
                QStringLiteral("PAG"), 1, false};
    case 1:
        return {QStringLiteral("Búsqueda de Proveedores"), l1, l2,
                [] { auto *d = new frmBusqueda_Proveedores; d->setEmpresa(1); return d; },
                [](frmBusqueda *d, const QString &t) { static_cast<frmBusqueda_Proveedores *>(d)->Recuperar_Registros(t); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Proveedores *>(d)->Codigo(); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Proveedores *>(d)->Nombre_Proveedor(); },
                QStringLiteral("Proveedores"),
                QStringLiteral("INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, %1 + 1000, 'PAGINA %1')"),
                QStringLiteral("PAG"), 1, true};
    default:
        return {QStringLiteral("Búsqueda de Clientes"),
                QStringLiteral("1. &Escriba los primeros dígitos o letras que está buscando."),
                QStringLiteral("2. &Haga click en una entrada y después en \"Aceptar\"."),
                [] { auto *d = new frmBusqueda_Clientes; d->setEmpresa(1); return d; },
                [](frmBusqueda *d, const QString &t) { static_cast<frmBusqueda_Clientes *>(d)->Recuperar_Registros(t, QString()); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Clientes *>(d)->Codigo(); },
                [](frmBusqueda *d) { return static_cast<frmBusqueda_Clientes *>(d)->Nombre_Cliente(); },
                QStringLiteral("Clientes"),
                QStringLiteral("INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre) VALUES (1, %1 + 5000, 'PAGINA %1')"),
                QStringLiteral("PAG"), 2, true};
    }
}

QStringList gridRows(frmBusqueda *d)
{
    auto *grid = d->findChild<SearchGrid *>(QStringLiteral("vsListado"));
    QStringList rows;
    for (int r = 0; r < grid->model()->rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < grid->model()->columnCount(); ++c)
            cells << grid->model()->index(r, c).data().toString();
        rows << cells.join(u'|');
    }
    return rows;
}

constexpr const char *kNames[] = {"marcas", "proveedores", "clientes"};

SearchGrid *grid(frmBusqueda *d) { return d->findChild<SearchGrid *>(QStringLiteral("vsListado")); }
TextField *nameBox(frmBusqueda *d) { return d->findChild<TextField *>(QStringLiteral("txtNombre")); }

} // namespace

class tst_frmBusqueda : public QObject
{
    Q_OBJECT

    void variants()
    {
        QTest::addColumn<int>("v");
        for (int v = 0; v < 3; ++v)
            QTest::newRow(kNames[v]) << v;
    }

    std::unique_ptr<Testing::TestDatabase> m_demo;

private slots:
    void cleanupTestCase() { m_demo.reset(); }
    void filterBoxesTakeWhatAClerkTypes_data() { variants(); }
    void filterBoxesTakeWhatAClerkTypes()
    {
        QFETCH(int, v);
        std::unique_ptr<frmBusqueda> d(variant(v).make());
        const QList<TextField *> boxes = d->findChildren<TextField *>();
        QVERIFY(!boxes.isEmpty());
        for (TextField *box : boxes) {
            QTest::keyClicks(box, QString(100, u'A'));
            QCOMPARE(box->text().size(), 80);
        }
    }

    void layoutTexts_data() { variants(); }
    void layoutTexts()
    {
        QFETCH(int, v);
        const Variant x = variant(v);
        std::unique_ptr<frmBusqueda> d(x.make());
        QCOMPARE(d->windowTitle(), x.caption);
        QCOMPARE(d->findChild<QLabel *>(QStringLiteral("lbl1"))->text(), x.label1);
        QCOMPARE(d->findChild<QLabel *>(QStringLiteral("lbl2"))->text(), x.label2);
        QCOMPARE(d->findChild<QLabel *>(QStringLiteral("lbl1"))->buddy(), nameBox(d.get()));
        QCOMPARE(d->findChild<QPushButton *>(QStringLiteral("cmdAceptar"))->text(), QStringLiteral("&Aceptar"));
        QCOMPARE(d->findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->text(), QStringLiteral("&Cancelar"));
        QVERIFY(Testing::showActive(*d));
        nameBox(d.get())->setFocus();
        QCOMPARE(nameBox(d.get())->BackColor(), x.cyanFilter ? LegacyColor::FocusBackColor : LegacyColor::WindowBackground);
        d->findChild<QPushButton *>(QStringLiteral("cmdAceptar"))->setFocus();
        QCOMPARE(nameBox(d.get())->BackColor(), LegacyColor::WindowBackground);
    }

    void statementsAndResults_data()
    {
        QTest::addColumn<int>("v");
        QTest::addColumn<int>("empresa");
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("brands, prefix") << 0 << 1 << "AB"
            << "SELECT Codigo, Nombre FROM Marcas  WHERE (Nombre like 'AB%') ORDER BY Nombre"
            << QStringList{"7|ABADÍA", "5|ABC", "2|ABETO"};
        QTest::newRow("brands, star inside") << 0 << 1 << "A*O"
            << "SELECT Codigo, Nombre FROM Marcas  WHERE (Nombre like 'A%O%') ORDER BY Nombre" << QStringList{"2|ABETO"};
        QTest::newRow("brands, trailing star") << 0 << 1 << "AB*"
            << "SELECT Codigo, Nombre FROM Marcas  WHERE (Nombre like 'AB%') ORDER BY Nombre"
            << QStringList{"7|ABADÍA", "5|ABC", "2|ABETO"};
        QTest::newRow("brands, empty filter") << 0 << 1 << ""
            << "SELECT Codigo, Nombre FROM Marcas  WHERE (Nombre like '%') ORDER BY Nombre"
            << QStringList{"7|ABADÍA", "5|ABC", "2|ABETO", "1|ACME", "4|BOSQUE", "3|ÑANDÚ"};
        QTest::newRow("suppliers, found by trade name too") << 1 << 1 << "AB"
            << "SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores  WHERE  Cod_Empresa = 1 And  (Nombre like 'AB%' Or Nombre_Comercial like 'AB%') ORDER BY Nombre"
            << QStringList{"6|ÁBACO PAPELERÍA S.L. / ABACO", "4|ABAD MORENO, LUIS", "8|abastos del norte s.a.",
                           "3|SUMINISTROS NORTE S.L. / abeto"};
        QTest::newRow("suppliers, every company") << 1 << 0 << ""
            << "SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores  WHERE  (Nombre like '%' Or Nombre_Comercial like '%') ORDER BY Nombre"
            << QStringList{"6|ÁBACO PAPELERÍA S.L. / ABACO", "4|ABAD MORENO, LUIS", "3|ABALORIOS LEVANTE S.L.",
                           "8|abastos del norte s.a.", "123|COMERCIAL CIENTO VEINTITRÉS S.L.", "1|GARCÍA Y PEÑA S.L. / IBERTEX",
                           "7|NANDO Y CIA S.L.", "2|ÑANDÚ DISTRIBUCIONES S.A.", "5|O'BRIEN IMPORT S.L.",
                           "99999|PROVEEDOR CINCO NUEVES", "3|SUMINISTROS NORTE S.L. / abeto", "1|TEXTILES DEL SUR S.A. / TEXSUR"};
        QTest::newRow("suppliers, apostrophe") << 1 << 1 << "O'B"
            << "SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores  WHERE  Cod_Empresa = 1 And  (Nombre like 'O''B%' Or Nombre_Comercial like 'O''B%') ORDER BY Nombre"
            << QStringList{"5|O'BRIEN IMPORT S.L."};
        QTest::newRow("customers and installations") << 2 << 1 << "AB"
            << "SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, Nif FROM Clientes c WHERE c.Cod_Empresa =1 AND (c.Nombre LIKE 'AB%' OR c.Nombre_Comercial LIKE 'AB%')"
               " UNION SELECT ci.Cod_Cliente, ci.Nombre, '' AS Nombre_Comercial, '' AS Nif FROM Clientes_Instalaciones ci INNER JOIN Clientes c"
               " ON c.Codigo = ci.Cod_Cliente AND c.Cod_Empresa = ci.Cod_Empresa WHERE ci.Cod_Empresa =1 AND (ci.Nombre LIKE 'AB%') ORDER BY Nombre"
            << QStringList{"1001|ABASTOS LÓPEZ - ALMACÉN SUR|", "1001|ABASTOS LÓPEZ - TIENDA CENTRO|",
                           "1001|ABASTOS LÓPEZ S.L. / ABALO|B12345674", "1005|ABEDUL TERRAZA|",
                           "1005|HOSTAL MIRADOR / ABEDUL|B87654321"};
        QTest::newRow("customers, company 0 still written") << 2 << 0 << "ZZ"
            << "SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, Nif FROM Clientes c WHERE c.Cod_Empresa =0 AND (c.Nombre LIKE 'ZZ%' OR c.Nombre_Comercial LIKE 'ZZ%')"
               " UNION SELECT ci.Cod_Cliente, ci.Nombre, '' AS Nombre_Comercial, '' AS Nif FROM Clientes_Instalaciones ci INNER JOIN Clientes c"
               " ON c.Codigo = ci.Cod_Cliente AND c.Cod_Empresa = ci.Cod_Empresa WHERE ci.Cod_Empresa =0 AND (ci.Nombre LIKE 'ZZ%') ORDER BY Nombre"
            << QStringList{};
    }
    void statementsAndResults()
    {
        QFETCH(int, v);
        QFETCH(int, empresa);
        QFETCH(QString, filter);
        QFETCH(QString, statement);
        QFETCH(QStringList, rows);
        Testing::TestDatabase db;
        std::unique_ptr<frmBusqueda> d(variant(v).make());
        if (auto *p = qobject_cast<frmBusqueda_Proveedores *>(d.get())) p->setEmpresa(qint16(empresa));
        if (auto *c = qobject_cast<frmBusqueda_Clientes *>(d.get())) c->setEmpresa(qint16(empresa));
        variant(v).search(d.get(), filter); // before the dialog is shown
        QCOMPARE(db.statements, QStringList{statement});
        QCOMPARE(gridRows(d.get()), rows);
    }

    void clerkFindsARecordWithTheKeyboard_data() { variants(); }
    void clerkFindsARecordWithTheKeyboard()
    {
        QFETCH(int, v);
        const Variant x = variant(v);
        Testing::TestDatabase db;
        std::unique_ptr<frmBusqueda> d(x.make());
        QVERIFY(Testing::showActive(*d));
        nameBox(d.get())->setFocus();
        QTest::keyClicks(nameBox(d.get()), QStringLiteral("ab"));
        QCOMPARE(nameBox(d.get())->text(), QStringLiteral("AB")); // upper-cased as typed
        for (int i = 0; i < x.enterToSearch; ++i) {
            QVERIFY(db.statements.isEmpty()); // no search before the last Enter
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        }
        QCOMPARE(db.statements.size(), 1);
        QCOMPARE(QApplication::focusWidget(), grid(d.get()));
        QCOMPARE(grid(d.get())->Row(), 0);
        QTest::keyClick(grid(d.get()), Qt::Key_Down);
        QTest::keyClick(grid(d.get()), Qt::Key_Up);
        QTest::keyClick(grid(d.get()), Qt::Key_Down);
        const QStringList expected = gridRows(d.get())[1].split(u'|');
        QTest::keyClick(grid(d.get()), Qt::Key_Return);
        QVERIFY(!d->isVisible());
        QCOMPARE(x.codigo(d.get()), expected[0].toInt());
        QCOMPARE(x.nombre(d.get()), expected[1]);

        // Up on the first row goes back to the filter.
        QVERIFY(Testing::showActive(*d));
        grid(d.get())->setFocus();
        grid(d.get())->setRow(0);
        QTest::keyClick(grid(d.get()), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), nameBox(d.get()));
        QTest::keyClick(nameBox(d.get()), Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), grid(d.get()));
    }

    void doubleClickDoesNotAccept()
    {
        Testing::TestDatabase db;
        frmBusqueda_Marcas d;
        QVERIFY(Testing::showActive(d));
        d.Recuperar_Registros(QStringLiteral("AB"));
        QWidget *viewport = grid(&d)->viewport();
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, grid(&d)->visualRect(grid(&d)->model()->index(1, 1)).center());
        QVERIFY(d.isVisible());
        QCOMPARE(d.Codigo(), 0);
    }

    void failureReachesTheCallerAndTheGridRecovers_data() { variants(); }
    void failureReachesTheCallerAndTheGridRecovers()
    {
        QFETCH(int, v);
        const Variant x = variant(v);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        std::unique_ptr<frmBusqueda> d(x.make());
        QVERIFY(Testing::showActive(*d));
        x.search(d.get(), QString());
        QVERIFY(!gridRows(d.get()).isEmpty());
        db.conexion()->execute(QStringLiteral("ALTER TABLE %1 RENAME TO Fuera").arg(x.table));
        QVERIFY_THROWS_EXCEPTION(DbError, x.search(d.get(), QString()));
        QVERIFY(gridRows(d.get()).isEmpty());

        // From the dialog's own Enter the failure is reported, not raised.
        nameBox(d.get())->setFocus();
        for (int i = 0; i < x.enterToSearch; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(ui.messages.size(), 1);
        QCOMPARE(ui.messages[0].style, 16);
        QCOMPARE(ui.messages[0].title, d->objectName() + QStringLiteral("::Recuperar_Registros"));

        db.conexion()->execute(QStringLiteral("ALTER TABLE Fuera RENAME TO %1").arg(x.table));
        x.search(d.get(), QString());
        QVERIFY(!gridRows(d.get()).isEmpty());
        QVERIFY(grid(d.get())->updatesEnabled());
    }

    void aTabInANameStaysInItsCell_data() { variants(); }
    void aTabInANameStaysInItsCell()
    {
        QFETCH(int, v);
        const Variant x = variant(v);
        Testing::TestDatabase db;
        db.conexion()->execute(x.insertRow.arg(7));
        db.conexion()->execute(QStringLiteral("UPDATE %1 SET Nombre = 'PAGINA' || char(9) || '7' WHERE Nombre = 'PAGINA 7'").arg(x.table));
        std::unique_ptr<frmBusqueda> d(x.make());
        x.search(d.get(), QStringLiteral("PAGINA"));
        QCOMPARE(grid(d.get())->model()->index(0, 1).data().toString(), QStringLiteral("PAGINA\t7"));
        QTest::keyClick(grid(d.get()), Qt::Key_Return);
        QCOMPARE(x.nombre(d.get()), QStringLiteral("PAGINA\t7"));
    }

    void execGivesWhatTheClerkChose_data()
    {
        QTest::addColumn<int>("v");
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("result");
        for (int v = 0; v < 3; ++v) {
            const char *name = kNames[v];
            QTest::addRow("%s, Enter in the grid", name) << v << "accept" << int(QDialog::Accepted);
            QTest::addRow("%s, Cancel", name) << v << "cancel" << int(QDialog::Rejected);
            QTest::addRow("%s, close box", name) << v << "close" << int(QDialog::Rejected);
            QTest::addRow("%s, Esc", name) << v << "escape" << int(QDialog::Rejected);
        }
    }
    void execGivesWhatTheClerkChose()
    {
        QFETCH(int, v);
        QFETCH(QString, how);
        QFETCH(int, result);
        const Variant x = variant(v);
        Testing::TestDatabase db;
        std::unique_ptr<frmBusqueda> d(x.make());
        x.search(d.get(), QStringLiteral("AB"));
        QTest::keyClick(grid(d.get()), Qt::Key_Return); // an earlier pick, before the dialog is shown
        const QString picked = x.nombre(d.get());
        QVERIFY(x.codigo(d.get()) != 0);
        x.search(d.get(), QStringLiteral("ZZZ"));
        bool stayedOpen = false;
        QTimer::singleShot(0, d.get(), [&] {
            d->findChild<QPushButton *>(QStringLiteral("cmdAceptar"))->click(); // nothing to accept
            stayedOpen = d->isVisible();
            x.search(d.get(), QStringLiteral("AB"));
            if (how == QLatin1String("accept"))
                QTest::keyClick(grid(d.get()), Qt::Key_Return);
            else if (how == QLatin1String("cancel"))
                d->findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click();
            else if (how == QLatin1String("close"))
                Testing::pressCloseBox(*d);
            else
                QTest::keyClick(nameBox(d.get()), Qt::Key_Escape);
        });
        QCOMPARE(d->exec(), result);
        QVERIFY(stayedOpen);
        const bool accepted = result == QDialog::Accepted;
        QCOMPARE(x.codigo(d.get()) != 0, accepted);
        QCOMPARE(x.nombre(d.get()), accepted ? picked : QString());
    }

    // At the size the dialog opens with, on the demo company, every match is reached by each
    // way a clerk moves down a list, and a scrollbar shows that more rows exist.
    void everyMatchIsReachedAtTheDialogsOwnSize_data()
    {
        QTest::addColumn<int>("v");
        QTest::addColumn<QString>("how");
        for (int v = 0; v < 3; ++v)
            for (const char *how : {"Down", "PageDown", "wheel", "scrollbar"})
                QTest::addRow("%s, %s", kNames[v], how) << v << how;
    }
    void everyMatchIsReachedAtTheDialogsOwnSize()
    {
        QFETCH(int, v);
        QFETCH(QString, how);
        const Variant x = variant(v);
        if (!m_demo)
            m_demo = std::make_unique<Testing::TestDatabase>(10); // the brands, suppliers and customers of the demo
        Testing::TestDatabase &db = *m_demo;
        Conexion::resetShared();
        Conexion::setShared(db.conexion());
        std::unique_ptr<frmBusqueda> d(x.make());
        QVERIFY(Testing::showActive(*d));
        nameBox(d.get())->setFocus();
        db.statements.clear();
        for (int i = 0; i < x.enterToSearch; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        const int matches = int(db.rows(db.statements.value(0)).size());
        QVERIFY2(matches > 30 || v == 0, qPrintable(QString::number(matches)));
        SearchGrid *g = grid(d.get());
        QScrollBar *bar = g->verticalScrollBar();
        QVERIFY(bar->maximum() > 0); // more rows than fit: the clerk sees there are more
        const auto lastShown = [g] { return g->rowAt(g->viewport()->height() - 1); };
        for (int step = 0; step < matches; ++step) {
            if (how == QLatin1String("Down")) {
                QTest::keyClick(g, Qt::Key_Down);
                if (step == 19)
                    QCOMPARE(g->Row(), 20);
            } else if (how == QLatin1String("PageDown")) {
                QTest::keyClick(g, Qt::Key_PageDown);
            } else if (how == QLatin1String("wheel")) {
                const QPointF at = g->viewport()->rect().center();
                QWheelEvent wheel(at, g->viewport()->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(g->viewport(), &wheel);
            } else {
                bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
            }
            Testing::settle(); // the grid lays out the rows added, as between two turns of the wheel
        }
        if (how.contains(QLatin1String("Down")))
            QCOMPARE(g->Row(), matches - 1);
        QCOMPARE(lastShown(), matches - 1);
        QCOMPARE(g->Rows(), matches);
    }
};

QTEST_MAIN(tst_frmBusqueda)
#include "tst_frmBusqueda.moc"
