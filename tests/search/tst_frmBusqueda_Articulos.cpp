// What only the article searches do: their statements and lists on the seeded database, the
// keys and presets that search, the first layout's detail area, the second layout's rows read
// on demand, and prefix searches that seek an index. (Accept, Cancel, Esc and the close box run
// with the other search dialogs in tst_frmBusqueda.)
#include "data/FechaSQL.h"
#include "input/kdTextBox.h"
#include "platform/LegacyColor.h"
#include "search/FiltroArticulos.h"
#include "search/SearchGrid.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "search/frmBusqueda_Articulos_2.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <sys/stat.h>

using namespace Varnel_Controles;

namespace {

const QString kHead1 = QStringLiteral(
    "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras  FROM "
    "Articulos a  LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa AND b.Cod_Articulo=a.Codigo AND "
    "b.Principal=1 WHERE a.Cod_Empresa =1");
const QString kHead2 = QStringLiteral(
    "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras,  "
    "ISNULL(c.Ref,'') AS Ref, REPLACE(CONVERT(VARCHAR,ISNULL(d.Pvp,0)),'.',',') AS Pvp1, "
    "REPLACE(CONVERT(VARCHAR,ISNULL(e.Pvp,0)),'.',',') AS Pvp2, REPLACE(CONVERT(VARCHAR,ISNULL(f.Pvp,0)),'.',',') AS "
    "Pvp3,  REPLACE(CONVERT(VARCHAR,ISNULL(aa.Stock_Actual,0)),'.',',') AS Stock_Actual,  ISNULL(d.Pvp,0) AS Pvp1_Num, "
    "ISNULL(e.Pvp,0) AS Pvp2_Num, ISNULL(f.Pvp,0) AS Pvp3_Num,  ISNULL(aa.Stock_Actual,0) AS Stock_Actual_Num  FROM "
    "Articulos a  LEFT JOIN Articulos_CBarras b ON a.Cod_Empresa=b.Cod_Empresa  AND b.Cod_Articulo=a.Codigo AND "
    "b.Principal=1  LEFT JOIN Articulos_Ref c ON a.Cod_Empresa=c.Cod_Empresa  AND c.Cod_Articulo=a.Codigo AND "
    "c.Principal=1  LEFT JOIN Articulos_Tarifas d ON a.Cod_Empresa=d.Cod_Empresa  AND d.Cod_Articulo=a.Codigo AND "
    "d.Cod_Tarifa=1 LEFT JOIN Articulos_Tarifas e ON a.Cod_Empresa=e.Cod_Empresa  AND e.Cod_Articulo=a.Codigo AND "
    "e.Cod_Tarifa=%1 LEFT JOIN Articulos_Tarifas f ON a.Cod_Empresa=f.Cod_Empresa  AND f.Cod_Articulo=a.Codigo AND "
    "f.Cod_Tarifa=0 LEFT JOIN Almacen_Articulos aa ON aa.Cod_Empresa=1 AND aa.Cod_Almacen=%2 AND "
    "aa.Cod_Articulo=a.Codigo  WHERE a.Cod_Empresa =1");
const QString kLoad1 = QStringLiteral("SELECT DirImagenArt FROM Empresas WHERE Codigo =1");
const QString kLoad2 = QStringLiteral("SELECT a.Cod_Tarifa,b.Decimales FROM Almacen_Tarifas a  INNER JOIN Tarifas b ON "
                                      "b.Cod_Empresa=1 AND b.Cod_Tarifa=a.Cod_Tarifa  WHERE a.Cod_Empresa=1 AND "
                                      "a.Cod_Almacen=%1 ORDER BY a.Cod_Tarifa");

// A search of one layout: the filters preset, the conditions added, the rows listed (codes, or
// whole rows when they hold a "|"), the grid's headers when given, rows set up before.
struct Search
{
    int layout = 1;
    QString descripcion, codigo, referencia;
    qint16 proveedor = 0, f1 = 0, f2 = 0, f3 = 0;
    bool extendido = false;
    qint16 almacen = 1;
    QString conditions;
    QStringList rows, headers = {}, setup = {};
};

// The detail area: customer, article, rows set up, the statements after the search (M long
// description, S stock, O own price, C customer's tariffs, Tn tariff n), what it shows (stock|to
// serve|available|to receive|price|long description|photo label), the available quantity's
// colour, the title of the message shown.
struct Detail
{
    qint32 customer;
    int article;
    QStringList setup, statements;
    QString shown;
    quint32 colour;
    QString message = {};
};

std::unique_ptr<frmBusqueda_Articulos> dialog(int layout)
{
    return std::unique_ptr<frmBusqueda_Articulos>(layout == 1 ? static_cast<frmBusqueda_Articulos *>(new frmBusqueda_Articulos_1)
                                                              : new frmBusqueda_Articulos_2);
}

SearchGrid *gridOf(QWidget *d) { return d->findChild<SearchGrid *>(QStringLiteral("vsListado")); }
QString text(QWidget *d, const char *name) { return d->findChild<QLabel *>(QLatin1String(name))->text(); }
QString isoDay(int days) { return QDate::currentDate().addDays(days).toString(Qt::ISODate); }

QStringList listed(QWidget *d, bool whole)
{
    QStringList out = Testing::TestDatabase::rows(*gridOf(d)->model());
    return whole ? out : out.replaceInStrings(QRegularExpression("\\|.*"), QString());
}

} // namespace

Q_DECLARE_METATYPE(Search)
Q_DECLARE_METATYPE(Detail)

class tst_frmBusqueda_Articulos : public QObject
{
    Q_OBJECT

private slots:
    // Each filter alone and together, in both layouts: the statement as written, what it lists.
    void statementsAndResults_data()
    {
        QTest::addColumn<Search>("s");
        QTest::newRow("1: every article by description; principal barcode once, none empty") << Search{
            .rows = {"7|ABANICO DE PAPEL|6|62|621|", "8|ABETO DE NAVIDAD|6|62|622|", "5|ÁGUILA DE BRONCE|6|62|621|",
                     "6|aguja de coser|6|62|622|", "4|CAMISA MANGA LARGA|1|11|112|",
                     "4711|COLONIA FRESCA 100 ML|4|41|411|8470001234561", "3|NANDO CAMISETA|1|11|111|",
                     "2|ÑANDÚ DE PELUCHE|6|61|611|4006381333931", "1|TORNILLO HEXAGONAL M6|3|31|311|8412345678905"}};
        QTest::newRow("2: every article by code; tariffs 1 and 3 of warehouse 1, stock 0 without a row") << Search{
            .layout = 2,
            .rows = {"1|TORNILLO HEXAGONAL M6|3|31|311|8412345678905|TH-M6|0,35|0|0|150",
                     "2|ÑANDÚ DE PELUCHE|6|61|611|4006381333931|ÑD-01|12,5|9,95|0|3",
                     "3|NANDO CAMISETA|1|11|111||SHARED-1|0|0|0|0", "4|CAMISA MANGA LARGA|1|11|112||SHARED-1|0|0|0|0",
                     "5|ÁGUILA DE BRONCE|6|62|621|||0|0|0|0", "6|aguja de coser|6|62|622|||0|0|0|0",
                     "7|ABANICO DE PAPEL|6|62|621|||0|0|0|0", "8|ABETO DE NAVIDAD|6|62|622|||0|0|0|0",
                     "4711|COLONIA FRESCA 100 ML|4|41|411|8470001234561||1,23457e+006|0|0|12,5"}};
        QTest::newRow("2: a warehouse with one tariff, the dialog used before for warehouse 1") << Search{
            .layout = 2, .descripcion = "COL", .almacen = 2, .conditions = " AND a.Descripcion LIKE 'COL%'",
            .rows = {"4711|COLONIA FRESCA 100 ML|4|41|411|8470001234561||1,23457e+006|0|0|0"},
            .headers = {"Código", "Descripción", "", "", "", "Cód. Barras", "Ref. Princip.", "Tarifa 1", "Tarifa 0",
                        "Tarifa 0", "Stock Alm 2"}};
        for (int layout : {1, 2}) {
            const auto row = [&](const char *name, Search s) {
                s.layout = layout;
                if (layout == 2)
                    std::sort(s.rows.begin(), s.rows.end(), [](auto &a, auto &b) { return a.toInt() < b.toInt(); });
                QTest::addRow("%d: %s", layout, name) << s;
            };
            const QString ref = " AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE  aref.Cod_%1=a.Cod_"
                                "Empresa AND ";
            const QString supplier = ref.arg(layout == 1 ? "empresa" : "Empresa") + "aref.Cod_Prov=1";
            row("description, accents matter", {.descripcion = "ÁG", .conditions = " AND a.Descripcion LIKE 'ÁG%'", .rows = {"5"}});
            row("description, extended mode off", {.descripcion = "JUG", .conditions = " AND a.Descripcion LIKE 'JUG%'"});
            row("code", {.codigo = "47", .conditions = " AND a.Codigo LIKE '47%'", .rows = {"4711"}});
            row("reference without supplier",
                {.referencia = "SHARED", .conditions = ref.arg("empresa") + "aref.Ref LIKE 'SHARED%')", .rows = {"4", "3"}});
            row("supplier without reference", {.proveedor = 1, .conditions = supplier + ")", .rows = {"3", "1"}});
            row("supplier and reference",
                {.referencia = "SH", .proveedor = 1, .conditions = supplier + " AND aref.Ref LIKE 'SH%')", .rows = {"3"}});
            row("family level 1", {.f1 = 6, .conditions = " AND a.Familia_1=6", .rows = {"7", "8", "5", "6", "2"}});
            row("family levels 1 and 2",
                {.f1 = 6, .f2 = 62, .conditions = " AND a.Familia_1=6 AND a.Familia_2=62", .rows = {"7", "8", "5", "6"}});
            row("family levels 1, 2 and 3", {.f1 = 6, .f2 = 62, .f3 = 621, .conditions = " AND a.Familia_1=6 AND a.Familia_2=62"
                                             " AND a.Familia_3=621", .rows = {"7", "5"}});
            row("family level 2 without level 1", {.f2 = 62, .rows = {"7", "8", "5", "6", "4", "4711", "3", "2", "1"}});
        }
        QTest::newRow("1: extended mode on: the long description too") << Search{.descripcion = "JUG", .extendido = true,
            .conditions = " AND (a.Descripcion LIKE 'JUG%' OR a.Desc_Memo LIKE 'JUG%')", .rows = {"2"}};
        QTest::newRow("2: extended mode on: the description alone")
            << Search{.layout = 2, .descripcion = "JUG", .extendido = true, .conditions = " AND a.Descripcion LIKE 'JUG%'"};
        const QStringList packs = {"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 9, "
                                   "'PACK 50% O''NEIL_[A]'), (1, 10, 'PACK 50X O NEIL')"};
        QTest::newRow("1: apostrophe, %, _ and [ stand for themselves") << Search{.descripcion = "PACK 50% O'NEIL_[",
            .conditions = " AND a.Descripcion LIKE 'PACK 50[%] O''NEIL[_][[]%'", .rows = {"9"}, .setup = packs};
        QTest::newRow("1: 1,000 characters")
            << Search{.codigo = QString(1000, u'9'), .conditions = " AND a.Codigo LIKE '" + QString(1000, u'9') + "%'"};
    }
    void statementsAndResults()
    {
        QFETCH(Search, s);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        for (const QString &sql : s.setup)
            db.conexion()->execute(sql);
        const auto d = dialog(s.layout);
        d->setCEmpresa(db.empresa(1));
        if (s.almacen != 1)
            d->Recuperar_Registros();
        for (const auto &[name, value] : {std::pair{"Almacen", QVariant(s.almacen)}, {"Extendido", s.extendido},
                                          {"Busqueda_Descripcion", s.descripcion}, {"Busqueda_Codigo", s.codigo},
                                          {"Busqueda_Referencia", s.referencia}, {"Busqueda_Proveedor", s.proveedor},
                                          {"Busqueda_Familia_1", s.f1}, {"Busqueda_Familia_2", s.f2}, {"Busqueda_Familia_3", s.f3}})
            d->setProperty(name, value);
        db.statements.clear();
        d->Recuperar_Registros();
        const QString statement = s.layout == 1 ? kHead1 + s.conditions + " ORDER BY a.Descripcion"
            : kHead2.arg(s.almacen == 1 ? "3" : "0").arg(s.almacen) + s.conditions + " ORDER BY a.Codigo";
        QCOMPARE(db.statements.mid(0, 2), (QStringList{s.layout == 1 ? kLoad1 : kLoad2.arg(s.almacen), statement}));
        QCOMPARE(listed(d.get(), s.rows.value(0).contains(u'|')), s.rows);
        QCOMPARE(ui.messages.size(), 0);
        SearchGrid *grid = gridOf(d.get()); // the _Num columns stay out of the grid; the barcode hidden by default
        QVERIFY(grid->model()->columnCount() == (s.layout == 1 ? 6 : 11) && grid->isColumnHidden(2) && grid->isColumnHidden(4)
                && grid->isColumnHidden(5) && !grid->isColumnHidden(1));
        for (int c = 0; c < s.headers.size(); ++c)
            QCOMPARE(grid->model()->headerData(c, Qt::Horizontal).toString(), s.headers[c]);
    }

    // The detail area of the extended mode for the current row: the stock (available dark red at 0
    // or less), the price rules, the photo ("<<< Imagen no disponible >>>" alone when the file is
    // missing, not a picture or unreadable); a failing query shown, the grid still usable; emptied
    // by a search that finds nothing.
    void detailAreaShowsStockAndPrice_data()
    {
        QTest::addColumn<Detail>("x");
        const QString own = "INSERT INTO Clientes_Art_PVP VALUES (1, 1002, 5, '%1', '%2', 7.25)";
        const QString stock5 = "INSERT INTO Almacen_Articulos VALUES (1, 1, 5, %1, 5, 2)", tariff5 = "INSERT INTO "
            "Articulos_Tarifas VALUES (1, 5, 1, 3.5)", noOwn2 = "DELETE FROM Clientes_Art_PVP WHERE Cod_Articulo = 2";
        const QString none = "<<< Imagen no disponible >>>";
        QTest::newRow("own price in force (first and last day today); the photo over 20 MB") << Detail{1002, 5,
            {own.arg(isoDay(0), isoDay(0)), stock5.arg(4), tariff5}, {"M", "S", "O"}, "4,00|5,00|-1,00|2,00|7,25||" + none, 192};
        QTest::newRow("own prices expired or not yet in force: the normal tariff") << Detail{1002, 5, {own.arg(isoDay(-30),
            isoDay(-1)), own.arg(isoDay(1), isoDay(30)), stock5.arg(6), tariff5}, {"M", "S", "O", "C", "T1"},
            "6,00|5,00|1,00|2,00|3,50||" + none, 0xC00000};
        QTest::newRow("promotional tariff first")
            << Detail{1001, 2, {noOwn2}, {"M", "S", "O", "C", "T3"}, "3,00|3,00|0,00|0,00|9,95|JUGUETE|" + none, 192};
        QTest::newRow("promotional price 0: the normal tariff") << Detail{1001, 2, {noOwn2, "UPDATE Articulos_Tarifas SET "
            "Pvp = 0 WHERE Cod_Articulo = 2 AND Cod_Tarifa = 3"}, {"M", "S", "O", "C", "T3", "T1"},
            "3,00|3,00|0,00|0,00|12,50|JUGUETE|" + none, 192};
        QTest::newRow("no price at all; no stock row; the photo a named pipe")
            << Detail{1005, 4, {}, {"M", "S", "O", "C"}, "0,00|0,00|0,00|0,00|0,00||" + none, 192};
        QTest::newRow("a failure shown; the photo a folder") << Detail{1005, 4711, {"ALTER TABLE Almacen_Articulos RENAME TO "
            "X"}, {"M", "S"}, "0,00|0,00|0,00|0,00|0,00||" + none, 192, "frmBusqueda_Articulos_1::DevPropiedades"};
        QTest::newRow("thousands; a photo") << Detail{1005, 1, {"UPDATE Almacen_Articulos SET Stock_Actual = 1254.5"},
                                             {"M", "S", "O", "C"}, "1.254,50|20,00|1.234,50|5,00|0,00||", 0xC00000};
    }
    void detailAreaShowsStockAndPrice()
    {
        QFETCH(Detail, x);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        for (const QString &sql : x.setup)
            db.conexion()->execute(sql);
        QTemporaryDir photos; // 1 a picture, 2 not a picture, 4 a named pipe, 5 a picture over 20 MB,
        QImage photo(40, 30, QImage::Format_RGB32); // 4711 a folder, the others missing
        photo.fill(Qt::darkCyan);
        QFile notAPicture(photos.filePath("2.jpg"));
        QVERIFY(photo.save(photos.filePath("1.jpg"), "JPG") && QDir(photos.path()).mkdir("4711.jpg")
                && notAPicture.open(QIODevice::WriteOnly) && notAPicture.write("no es una imagen") > 0
                && ::mkfifo(QFile::encodeName(photos.filePath("4.jpg")).constData(), 0600) == 0
                && QFile::copy(photos.filePath("1.jpg"), photos.filePath("5.jpg"))
                && QFile::resize(photos.filePath("5.jpg"), 20 * 1024 * 1024 + 1));
        notAPicture.close();
        db.conexion()->execute("UPDATE Empresas SET DirImagenArt = '" + photos.path() + "/' WHERE Codigo = 1");
        frmBusqueda_Articulos_1 d;
        d.setCEmpresa(db.empresa(1));
        d.setExtendido(true);
        d.setCliente(x.customer);
        d.setBusqueda_Codigo(QString::number(x.article));
        d.Recuperar_Registros();
        const QString code = " " + QString::number(x.article), customer = QString::number(x.customer);
        const QString today = FechaSQL::Corta(QDate::currentDate()), tariff = "SELECT Pvp FROM Articulos_Tarifas WHERE "
            "Cod_Empresa =1 AND Cod_Articulo =" + code + " AND Cod_Tarifa =%1 AND Pvp > 0";
        const QMap<QString, QString> statements{{"M", "SELECT Desc_Memo FROM Articulos WHERE Cod_Empresa=1 AND Codigo =" + code},
            {"S", "SELECT Stock_Actual, Pend_Servir, Pend_Recibir FROM Almacen_Articulos WHERE Cod_Empresa=1 AND Cod_Almacen =1"
                  " AND Cod_Articulo =" + code},
            {"O", " SELECT Pvp FROM Clientes_Art_PVP WHERE Cod_Empresa =1 AND Cod_Cliente =" + customer + " AND Cod_Articulo ="
                  + code + " AND Fecha_Inicial <=' " + today + "' AND Fecha_Final >=' " + today + "'"},
            {"C", "SELECT Tarifa_Pvp, Tarifa_Promoc FROM Clientes WHERE Cod_Empresa =1 AND Codigo =" + customer},
            {"T1", tariff.arg(1)}, {"T3", tariff.arg(3)}};
        QStringList expected, shown;
        for (const QString &s : x.statements)
            expected << statements[s];
        QCOMPARE(db.statements.mid(2), expected);
        for (const char *label : {"lblStock", "lblPendServir", "lblDisponible", "lblPendRecibir", "lblPvp"})
            shown << text(&d, label);
        shown << d.findChild<QPlainTextEdit *>("txtObserv")->toPlainText() << text(&d, "lblFotoCargando");
        QCOMPARE(shown.join(u'|'), x.shown);
        QCOMPARE(d.findChild<QLabel *>("picFoto")->pixmap().isNull(), !shown.last().isEmpty());
        QCOMPARE(d.findChild<QLabel *>("lblDisponible")->palette().color(QPalette::WindowText), LegacyColor::toQColor(x.colour));
        QCOMPARE(ui.messages.value(0).title + QString::number(ui.messages.size()), x.message + (x.message.isEmpty() ? "0" : "1"));
        QTest::keyClick(gridOf(&d), Qt::Key_Return); // the grid stays usable
        QCOMPARE(d.Codigo(), QString::number(x.article));
        d.setBusqueda_Codigo("99999"); // a search that finds nothing empties the area
        d.Recuperar_Registros();
        QCOMPARE(text(&d, "lblStock") + text(&d, "lblPvp") + d.findChild<QPlainTextEdit *>("txtObserv")->toPlainText()
                     + text(&d, "lblFotoCargando") + QString::number(d.findChild<QLabel *>("picFoto")->pixmap().isNull()), "0,000,001");
    }

    // A clerk's search by the keys, in both layouts: F9, Enter from box to box until the
    // reference searches, Enter through the family levels, Up from the first row back to the
    // description, F9 showing a hidden filter frame; the filters read back after Accept.
    void clerkSearchesWithTheKeys_data()
    {
        QTest::addColumn<int>("layout");
        QTest::newRow("first layout") << 1;
        QTest::newRow("second layout") << 2;
    }
    void clerkSearchesWithTheKeys()
    {
        QFETCH(int, layout);
        Testing::TestDatabase db;
        const auto d = dialog(layout);
        d->setCEmpresa(db.empresa(1));
        d->setMostrarFiltro(false);
        QVERIFY(Testing::showActive(*d));
        QCOMPARE(db.statements.size(), 1); // what the dialog reads as it opens; no search without presets
        const auto focus = [] { return QApplication::focusWidget(); };
        const auto enter = [&] { QTest::keyClick(focus(), Qt::Key_Return); Testing::settle(); };
        auto *name = d->findChild<kdTextBox *>("txtNombre");
        QTest::keyClick(focus(), Qt::Key_F9); // the hidden filter frame shown, the focus in the description
        QCOMPARE(focus()->parentWidget(), name);
        QTest::keyClicks(focus(), "nan");
        QTest::keyClick(focus(), Qt::Key_F9);
        QCOMPARE(focus(), gridOf(d.get())); // searched
        QTest::keyClick(focus(), Qt::Key_Up); // from the first row back to the description (Down goes back), selected
        QTest::keyClick(focus(), Qt::Key_Down);
        QCOMPARE(focus()->objectName() + QString::number(gridOf(d.get())->Row()), "vsListado0");
        QTest::keyClick(focus(), Qt::Key_Up);
        QCOMPARE(focus()->parentWidget(), name);
        QCOMPARE(name->SelLength(), 3);
        enter(); // to the code
        QTest::keyClicks(focus(), "3");
        enter(); // to the family picker (the order on screen), whose empty first level searches
        QCOMPARE(focus()->objectName(), "txtFamilia1");
        enter();
        d->findChild<QWidget *>("txtProveedor")->setFocus();
        QTest::keyClicks(focus(), "1");
        enter(); // to the reference
        QTest::keyClicks(focus(), "shared");
        enter();
        QCOMPARE(listed(d.get(), false), QStringList{"3"});
        if (layout == 2)
            QCOMPARE(static_cast<frmBusqueda_Articulos_2 *>(d.get())->DevCriterio(), "Desc: NAN  Prov: 1 GARCÍA Y PEÑA S.L.  Ref: SHARED");
        d->findChild<QWidget *>("txtFamilia1")->setFocus();
        for (const char *code : {"1", "11", "111"}) {
            QTest::keyClicks(focus(), code);
            enter(); // each level passes to the next; the last one searches
        }
        QVERIFY(db.statements.last().endsWith("'NAN%' AND a.Codigo LIKE '3%' AND a.Codigo IN (SELECT Cod_Articulo FROM Articulos_Ref aref WHERE  aref."
            + QString(layout == 1 ? "Cod_empresa" : "Cod_Empresa") + "=a.Cod_Empresa AND aref.Cod_Prov=1 AND aref.Ref LIKE "
            "'SHARED%') AND a.Familia_1=1 AND a.Familia_2=11 AND a.Familia_3=111 ORDER BY a." + (layout == 1 ? "Descripcion" : "Codigo")));
        QTest::keyClick(focus(), Qt::Key_Return);
        QCOMPARE(d->Codigo() + u'|' + d->Descripcion() + u'|' + d->Busqueda_Descripcion() + u'|' + d->Busqueda_Referencia()
                     + u'|' + QString::number(d->Busqueda_Familia_3()), QStringLiteral("3|NANDO CAMISETA|NAN|SHARED|111"));
    }

    // A filter preset by the caller searches as the dialog opens; fixed families cannot change.
    void presetsSearchAsTheDialogOpens()
    {
        Testing::TestDatabase db;
        frmBusqueda_Articulos_2 d;
        d.setCEmpresa(db.empresa(1));
        d.setFamilia_1(6);
        d.setBusqueda_Familia_1(3); // a fixed level keeps its family
        d.setBusqueda_Descripcion("A");
        QVERIFY(Testing::showActive(d));
        QCOMPARE(db.statements.size(), 3); // the family's description, the tariffs, the search
        QVERIFY(db.statements.last().endsWith(" AND a.Descripcion LIKE 'A%' AND a.Familia_1=6 ORDER BY a.Codigo"));
        QCOMPARE(listed(&d, false) << QApplication::focusWidget()->objectName(), (QStringList{"6", "7", "8", "vsListado"}));
        QVERIFY(d.findChild<QLineEdit *>("txtFamilia1")->isReadOnly());
        QTest::keyClick(gridOf(&d), Qt::Key_Return); // the result stored as the dialog hides; Cancel empties the code
        const QString chosen = d.Codigo() + u'|' + d.Descripcion();
        d.findChild<QPushButton *>("cmdCancelar")->click();
        QCOMPARE(chosen + u'|' + d.Codigo(), QStringLiteral("6|aguja de coser|"));
    }

    // On a demo catalogue: a description prefix seeks its index (as the SQLite dialect runs the
    // statement; in extended mode the long description's too), the first layout reading it in
    // order, the second sorting only the codes found; the second layout's first screen holds a
    // page beyond what it shows (scrolling reads on, as in every search), Ctrl+End reads to the
    // end; the first layout's Ctrl+End goes to the last row read, a page read beyond it.
    void onADemoCatalogue()
    {
        Testing::TestDatabase db(3000);
        const FiltroArticulos filter{.descripcion = "TORN"}, extended{.descripcion = "TORN", .extendido = true};
        const QString plan = db.rows("EXPLAIN QUERY PLAN " + db.conexion()->adapt(frmBusqueda_Articulos_1::statement(1,
                                     extended.condiciones(FiltroArticulos::Primera)))).join(u'\n'); // both seek
        QVERIFY2(plan.contains("MULTI-INDEX OR") && plan.contains("IX_Articulos_Desc_Memo (Cod_Empresa=? AND Desc_Memo>? "
                 "AND Desc_Memo<?)") && plan.contains("Descripcion>? AND Descripcion<?") && !plan.contains("SCAN a"), qPrintable(plan));
        for (const QString &sql : {frmBusqueda_Articulos_1::statement(1, filter.condiciones(FiltroArticulos::Primera)),
                                   frmBusqueda_Articulos_2::statement(1, 1, {1, 2, 3}, filter.condiciones(FiltroArticulos::Segunda))}) {
            const QString plan = db.rows("EXPLAIN QUERY PLAN " + db.conexion()->adapt(sql)).join(u'\n');
            QVERIFY2(plan.contains("IX_Articulos_Descripcion (Cod_Empresa=? AND Descripcion>? AND Descripcion<?)")
                         && !plan.contains("SCAN a") && !plan.contains("TEMP B-TREE"), qPrintable(plan));
        }
        frmBusqueda_Articulos_2 d;
        d.setCEmpresa(db.empresa(1));
        QVERIFY(Testing::showActive(d));
        QTest::keyClick(&d, Qt::Key_F9);
        SearchGrid *grid = gridOf(&d);
        const int all = db.scalar("SELECT COUNT(*) FROM Articulos WHERE Cod_Empresa = 1").toInt();
        QVERIFY(grid->Rows() > grid->VisibleRows() && grid->Rows() <= qMax(25, 2 * grid->VisibleRows()));
        Testing::ScriptedUi ui;
        ui.cancelProgressAt(0); // Cancel at the first step: the thousand rows read stay, the last one current
        const int shown = grid->Rows();
        QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
        QVERIFY(grid->Row() == shown + 999 && grid->Rows() < all && ui.progress.size() == 1);
        ui.cancelProgressAt(-1);
        QTest::keyClick(grid, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(grid->Rows() * 10000 + grid->Row(), all * 10000 + all - 1);
        frmBusqueda_Articulos_1 first;
        first.setCEmpresa(db.empresa(1));
        QVERIFY(Testing::showActive(first));
        QTest::keyClick(&first, Qt::Key_F9);
        const int read = gridOf(&first)->Rows();
        QTest::keyClick(gridOf(&first), Qt::Key_End, Qt::ControlModifier);
        QVERIFY(gridOf(&first)->Row() == read - 1 && gridOf(&first)->Rows() > read && gridOf(&first)->Rows() < all);
    }
};

QTEST_MAIN(tst_frmBusqueda_Articulos)
#include "tst_frmBusqueda_Articulos.moc"
