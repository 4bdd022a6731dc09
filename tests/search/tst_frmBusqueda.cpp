// The search dialogs that share one base run through the same cases: each dialog's texts,
// statements and results are table data. What only the customer dialog does is in
// tst_frmBusqueda_Clientes; the article searches, in tst_frmBusqueda_Articulos.
#include "platform/LegacyColor.h"
#include "platform/TextField.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Clientes.h"
#include "search/frmBusqueda_Familias.h"
#include "search/frmBusqueda_Marcas.h"
#include "search/frmBusqueda_Proveedores.h"
#include "data/DbError.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

using namespace Varnel_Controles;

namespace {

struct Variant
{
    const char *name;
    QStringList texts; // the caption and the two labels
    int enterToSearch; // Enter presses from the name box until the search runs
    bool cyanFilter;
    std::function<frmBusqueda *(qint16 empresa)> make;
    std::function<void(frmBusqueda *, const QString &, const QString &nif)> search; // Recuperar_Registros
    std::function<QString(frmBusqueda *)> chosen;                                    // "code|name" of the result
    bool manyInDemo = true; // the demo company has more matches than the dialog shows
};

template <typename D>
QString chosen(frmBusqueda *d, QString (D::*name)() const)
{
    return QString::number(static_cast<D *>(d)->Codigo()) + u'|' + (static_cast<D *>(d)->*name)();
}

const QString kLabel1 = QStringLiteral("1 &Escriba los primeros dígitos o letras que está buscando.");
const QString kLabel2 = QStringLiteral("2 &Haga click en una entrada y después en \"Aceptar\".");

const QList<Variant> kVariants{
    {"brands", {"Búsqueda de Marcas", kLabel1, kLabel2}, 1, false,
     [](qint16) -> frmBusqueda * { return new frmBusqueda_Marcas; },
     [](frmBusqueda *d, auto &t, auto &) { static_cast<frmBusqueda_Marcas *>(d)->Recuperar_Registros(t); },
     [](frmBusqueda *d) { return chosen(d, &frmBusqueda_Marcas::Nombre_Marca); }},
    {"suppliers", {"Búsqueda de Proveedores", kLabel1, kLabel2}, 1, true,
     [](qint16 empresa) -> frmBusqueda * { auto *d = new frmBusqueda_Proveedores; d->setEmpresa(empresa); return d; },
     [](frmBusqueda *d, auto &t, auto &) { static_cast<frmBusqueda_Proveedores *>(d)->Recuperar_Registros(t); },
     [](frmBusqueda *d) { return chosen(d, &frmBusqueda_Proveedores::Nombre_Proveedor); }},
    {"customers", {"Búsqueda de Clientes", "1. &Escriba los primeros dígitos o letras que está buscando.",
                   "2. &Haga click en una entrada y después en \"Aceptar\"."}, 2, true,
     [](qint16 empresa) -> frmBusqueda * { auto *d = new frmBusqueda_Clientes; d->setEmpresa(empresa); return d; },
     [](frmBusqueda *d, auto &t, auto &nif) { static_cast<frmBusqueda_Clientes *>(d)->Recuperar_Registros(t, nif); },
     [](frmBusqueda *d) { return chosen(d, &frmBusqueda_Clientes::Nombre_Cliente); }},
    {"families", {"Búsqueda de Familias", kLabel1, kLabel2}, 1, true,
     [](qint16 empresa) -> frmBusqueda * { auto *d = new frmBusqueda_Familias; d->setEmpresa(empresa); return d; },
     [](frmBusqueda *d, auto &t, auto &) { static_cast<frmBusqueda_Familias *>(d)->Recuperar_Registros(t); },
     [](frmBusqueda *d) { return chosen(d, &frmBusqueda_Familias::Descripcion); }, false},
};

// A row for each variant (only those with many matches in the demo when asked), times each way given.
void variantRows(const QStringList &ways = {QString()}, bool manyInDemo = false)
{
    QTest::addColumn<int>("variant");
    QTest::addColumn<QString>("how");
    for (int v = 0; v < kVariants.size(); ++v)
        for (const QString &how : ways)
            if (!manyInDemo || kVariants[v].manyInDemo)
                QTest::addRow("%s%s", kVariants[v].name, qPrintable(how.isEmpty() ? how : ", " + how)) << v << how;
}

// A dialog of the current row's variant, for company 1, on the seeded database.
struct Dialog
{
    const Variant &x = kVariants[*static_cast<int *>(QTest::qData("variant", QMetaType::Int))];
    Testing::TestDatabase db;
    std::unique_ptr<frmBusqueda> d{x.make(1)};
    SearchGrid *grid = d->findChild<SearchGrid *>(QStringLiteral("vsListado"));
    TextField *name = d->findChild<TextField *>(QStringLiteral("txtNombre"));
    QStringList rows() const { return Testing::TestDatabase::rows(*grid->model()); }
    // A search by the dialog's own keys: Enter from the name box until it runs.
    void enterToSearch()
    {
        name->setFocus();
        for (int i = 0; i < x.enterToSearch; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
};

struct Search
{
    int variant, empresa;
    QString filter, nif, statement;
    QStringList rows;
    QString setup = {};
};

} // namespace

Q_DECLARE_METATYPE(Search)

class tst_frmBusqueda : public QObject
{
    Q_OBJECT

    std::unique_ptr<Testing::TestDatabase> m_demo;

private slots:
    void cleanupTestCase() { m_demo.reset(); }

    // The customers' NIF is an exact comparison in both halves of the union that merges in the
    // installations (an installation row identical to its customer's is merged).
    void statementsAndResults_data()
    {
        QTest::addColumn<Search>("s");
        const QString brands = QStringLiteral("SELECT Codigo, Nombre FROM Marcas  WHERE (Nombre like '%1') "
                                              "ORDER BY Nombre");
        const QString suppliers = QStringLiteral("SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores  WHERE  "
                                                 "%1(Nombre like '%2' Or Nombre_Comercial like '%2') ORDER BY Nombre");
        const QString company1 = QStringLiteral("Cod_Empresa = 1 And  ");
        const QString customers = QStringLiteral(
            "SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, Nif FROM Clientes c WHERE c.Cod_Empresa =%1 AND (c.Nombre "
            "LIKE '%2' OR c.Nombre_Comercial LIKE '%2')%3 UNION SELECT ci.Cod_Cliente, ci.Nombre, '' AS Nombre_Comercial, "
            "'' AS Nif FROM Clientes_Instalaciones ci INNER JOIN Clientes c ON c.Codigo = ci.Cod_Cliente AND "
            "c.Cod_Empresa = ci.Cod_Empresa WHERE ci.Cod_Empresa =%1 AND (ci.Nombre LIKE '%2')%3 ORDER BY Nombre");
        const QString nif = QStringLiteral(" AND c.Nif ='%1'");
        QTest::newRow("brands, prefix") << Search{0, 1, "AB", "", brands.arg("AB%"), {"7|ABADÍA", "5|ABC", "2|ABETO"}};
        QTest::newRow("suppliers, found by trade name too")
            << Search{1, 1, "AB", "", suppliers.arg(company1, "AB%"), {"6|ÁBACO PAPELERÍA S.L. / ABACO",
                                                                      "4|ABAD MORENO, LUIS", "8|abastos del norte s.a.",
                                                                      "3|SUMINISTROS NORTE S.L. / abeto"}};
        QTest::newRow("suppliers, every company")
            << Search{1, 0, "ABAL", "", suppliers.arg("", "ABAL%"), {"3|ABALORIOS LEVANTE S.L."}};
        QTest::newRow("suppliers, apostrophe")
            << Search{1, 1, "O'B", "", suppliers.arg(company1, "O''B%"), {"5|O'BRIEN IMPORT S.L."}};
        QTest::newRow("customers and installations")
            << Search{2, 1, "AB", "", customers.arg("1", "AB%", ""),
                      {"1001|ABASTOS LÓPEZ - ALMACÉN SUR|", "1001|ABASTOS LÓPEZ - TIENDA CENTRO|",
                       "1001|ABASTOS LÓPEZ S.L. / ABALO|B12345674", "1005|ABEDUL TERRAZA|",
                       "1005|HOSTAL MIRADOR / ABEDUL|B87654321"}};
        QTest::newRow("customers, company 0 still written") << Search{2, 0, "ZZ", "", customers.arg("0", "ZZ%", ""), {}};
        QTest::newRow("customers, identical installation merged, NULL NIF kept apart")
            << Search{2, 1, "BAR", "", customers.arg("1", "BAR%", ""),
                      {"1003|BAR EL CRUCE|", "1004|BAR LA ESQUINA|", "1004|BAR LA ESQUINA|"}};
        QTest::newRow("customers, NIF alone: the customer and its installations")
            << Search{2, 1, "", "12345678Z", customers.arg("1", "%", nif.arg("12345678Z")),
                      {"1002|OFICINA PEÑA|", "1002|PEÑA RUIZ, ANA|12345678Z"}};
        QTest::newRow("customers, NIF is exact")
            << Search{2, 1, "", "12345678", customers.arg("1", "%", nif.arg("12345678")), {}};
        QTest::newRow("families of level 1")
            << Search{3, 1, "AB", "", "SELECT Codigo, Descripcion FROM Familias WHERE Cod_Empresa =1 AND Nivel =1 AND "
                                      "Cod_Padre =0 AND Descripcion LIKE 'AB%' ORDER BY Descripcion", {"7|ABONOS", "8|ABRASIVOS"}};
        QTest::newRow("customers, a TAB stays in its cell")
            << Search{2, 1, "ZZ", "", customers.arg("1", "ZZ%", ""), {"1003|ZZ\tZ|"},
                      "UPDATE Clientes SET Nombre = 'ZZ' || char(9) || 'Z' WHERE Codigo = 1003"};
    }
    void statementsAndResults()
    {
        QFETCH(Search, s);
        Testing::TestDatabase db;
        if (!s.setup.isEmpty())
            db.conexion()->execute(s.setup);
        db.statements.clear();
        std::unique_ptr<frmBusqueda> d(kVariants[s.variant].make(qint16(s.empresa)));
        kVariants[s.variant].search(d.get(), s.filter, s.nif); // before the dialog is shown
        QCOMPARE(db.statements, QStringList{s.statement});
        QCOMPARE(Testing::TestDatabase::rows(*d->findChild<SearchGrid *>(QStringLiteral("vsListado"))->model()), s.rows);
    }

    // Texts, the filter box (upper-cased as typed, cyan with the focus in two of the dialogs), and
    // the keys between the filter and the grid.
    void clerkFindsARecordWithTheKeyboard_data() { variantRows(); }
    void clerkFindsARecordWithTheKeyboard()
    {
        Dialog t;
        const auto text = [&](const char *name) { return t.d->findChild<QWidget *>(name)->property("text").toString(); };
        QCOMPARE((QStringList{t.d->windowTitle(), text("lbl1"), text("lbl2")}), t.x.texts);
        QVERIFY(Testing::showActive(*t.d));
        t.name->setFocus();
        QCOMPARE(t.name->BackColor(), t.x.cyanFilter ? LegacyColor::FocusBackColor : LegacyColor::WindowBackground);
        QTest::keyClicks(t.name, QString(90, u'x'));
        QCOMPARE(t.name->text(), QString(80, u'X')); // upper-cased as typed, 80 at most
        t.name->clear();
        QTest::keyClicks(t.name, QStringLiteral("AB"));
        t.enterToSearch();
        QCOMPARE(t.db.statements.size(), 1);
        QCOMPARE(QApplication::focusWidget(), t.grid);
        QTest::keyClick(t.grid, Qt::Key_Up); // from the first row back to the filter, and down again
        QCOMPARE(QApplication::focusWidget(), t.name);
        QTest::keyClick(t.name, Qt::Key_Down);
        QCOMPARE(QApplication::focusWidget(), t.grid);
        QTest::keyClick(t.grid, Qt::Key_Down);
        QTest::keyClick(t.grid, Qt::Key_Return);
        QVERIFY(!t.d->isVisible());
        QCOMPARE(t.x.chosen(t.d.get()), t.rows()[1].section(u'|', 0, 1));
    }

    void execGivesWhatTheClerkChose_data() { variantRows({"Enter in the grid", "Cancel", "close box", "Esc"}); }
    void execGivesWhatTheClerkChose()
    {
        Dialog t;
        QFETCH(QString, how);
        t.x.search(t.d.get(), QStringLiteral("AB"), QString());
        QTest::keyClick(t.grid, Qt::Key_Return); // an earlier pick, before the dialog is shown
        const QString picked = t.x.chosen(t.d.get());
        QVERIFY(!picked.startsWith(u'0')); // a code was chosen
        QTimer::singleShot(0, t.d.get(), [&] {
            if (how == QLatin1String("Enter in the grid"))
                QTest::keyClick(t.grid, Qt::Key_Return);
            else if (how == QLatin1String("Cancel"))
                t.d->findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click();
            else if (how == QLatin1String("close box"))
                Testing::pressCloseBox(*t.d);
            else
                QTest::keyClick(t.name, Qt::Key_Escape);
        });
        const bool accepted = how == QLatin1String("Enter in the grid");
        QCOMPARE(t.d->exec(), int(accepted ? QDialog::Accepted : QDialog::Rejected));
        QCOMPARE(t.x.chosen(t.d.get()), accepted ? picked : QStringLiteral("0|"));
    }

    // At the size the dialog opens with, on the demo company, every match is reached by each
    // way a clerk moves down a list, and a scrollbar shows that more rows exist.
    void everyMatchIsReachedAtTheDialogsOwnSize_data() { variantRows({"Down", "PageDown", "wheel", "scrollbar"}, true); }
    void everyMatchIsReachedAtTheDialogsOwnSize()
    {
        Dialog t;
        QFETCH(QString, how);
        if (!m_demo)
            m_demo = std::make_unique<Testing::TestDatabase>(10); // the brands, suppliers and customers of the demo
        Conexion::resetShared();
        Conexion::setShared(m_demo->conexion());
        QVERIFY(Testing::showActive(*t.d));
        m_demo->statements.clear();
        t.enterToSearch();
        const int matches = int(m_demo->rows(m_demo->statements.value(0)).size());
        QVERIFY(matches > 30 || QLatin1String(t.x.name) == QLatin1String("brands")); // the demo has few brands
        SearchGrid *g = t.grid;
        QVERIFY(g->verticalScrollBar()->maximum() > 0); // more rows than fit: the clerk sees there are more
        for (int step = 0; step < matches; ++step) {
            if (how == QLatin1String("Down")) {
                QTest::keyClick(g, Qt::Key_Down);
            } else if (how == QLatin1String("PageDown")) {
                QTest::keyClick(g, Qt::Key_PageDown);
            } else if (how == QLatin1String("wheel")) {
                const QPointF at = g->viewport()->rect().center();
                QWheelEvent wheel(at, g->viewport()->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(g->viewport(), &wheel);
            } else {
                g->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
            }
            Testing::settle(); // the grid lays out the rows added, as between two turns of the wheel
        }
        if (how.contains(QLatin1String("Down")))
            QCOMPARE(g->Row(), matches - 1);
        QCOMPARE(g->rowAt(g->viewport()->height() - 1), matches - 1); // the last row is shown
        QCOMPARE(g->Rows(), matches);
    }

    // A row that cannot be read while the clerk pages on (the file damaged, the share gone) is
    // told once; the rows read stay and the dialog still accepts.
    void aFailedReadWhilePagingIsToldOnce()
    {
        struct Damaged : frmBusqueda_Proveedores
        {
            mutable int read = 0;
            QStringList rowCells(const Recordset &rs) const override
            {
                if (++read > 40)
                    throw DbError(DbError::ProviderError, QStringLiteral("Error de la base de datos: disco dañado"));
                return frmBusqueda_Proveedores::rowCells(rs);
            }
        };
        if (!m_demo)
            m_demo = std::make_unique<Testing::TestDatabase>(10);
        Conexion::resetShared();
        Conexion::setShared(m_demo->conexion());
        Testing::ScriptedUi ui;
        Damaged d;
        d.setEmpresa(1);
        QVERIFY(Testing::showActive(d));
        d.Recuperar_Registros(QString());
        auto *grid = d.findChild<SearchGrid *>(QStringLiteral("vsListado"));
        for (int i = 0; i < 60; ++i)
            QTest::keyClick(grid, Qt::Key_Down);
        QCOMPARE(ui.messages.size(), 1);
        QCOMPARE(ui.messages[0].title, QStringLiteral("frmBusqueda_Proveedores::Recuperar_Registros"));
        QCOMPARE(grid->Rows(), 40);
        QTest::keyClick(grid, Qt::Key_Return);
        QVERIFY(d.Codigo() != 0);
    }
};

QTEST_MAIN(tst_frmBusqueda)
#include "tst_frmBusqueda.moc"
