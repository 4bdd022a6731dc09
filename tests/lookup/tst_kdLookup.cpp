// The lookups that share one base run through the same cases: each variant's texts,
// statements and search dialog are table data. What only one of them has comes last.
#include "lookup/kdArticulo.h"
#include "lookup/kdCliente.h"
#include "lookup/kdFamilia.h"
#include "lookup/kdProveedor.h"
#include "platform/TextField.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QDataWidgetMapper>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>

using namespace Varnel_Controles;

namespace {

struct Variant
{
    const char *name;
    std::function<kdLookup *()> make;
    QString errorClass, lower, upper, inicial, final, inexistente; // error titles, bounds and their labels
    QString table, statement;                                     // the lookup: %1 the company, %2 the code
    QString known, knownName, other, otherName; // a code of company 1, the first row F3 finds by `filter`,
    QString dialog, search, filter;             // and a code of company 2; how the dialog's statement starts
    QStringList opening = {};                   // what F3 reads before the dialog's search
    bool digitsOnly = true;                     // typed digits only, up to the upper bound's length
};

const QList<Variant> kVariants{
    {"supplier", [] { return static_cast<kdLookup *>(new kdProveedor); }, "kdProveedores", "00000", "99999",
     "PROVEEDOR INICIAL", "PROVEEDOR FINAL", "PROVEEDOR INEXISTENTE", "Proveedores",
     "SELECT Nombre FROM Proveedores WHERE Cod_Empresa =%1 AND Codigo = %2", "123", "COMERCIAL CIENTO VEINTITRÉS S.L.",
     "3", "ABALORIOS LEVANTE S.L.", "frmBusqueda_Proveedores",
     "SELECT Codigo, Nombre, Nombre_Comercial FROM Proveedores  WHERE  Cod_Empresa = 1 And  (Nombre like 'COM%'", "COM"},
    {"customer", [] { return static_cast<kdLookup *>(new kdCliente); }, "kdClientes", "0000000", "9999999",
     "CLIENTE INICIAL", "CLIENTE FINAL", "CLIENTE INEXISTENTE", "Clientes",
     "SELECT Nombre, Nombre_Comercial FROM Clientes WHERE Cod_Empresa =%1 AND Codigo = %2", "1002", "PEÑA RUIZ, ANA",
     "1001", "ABRIGOS DEL NORTE S.A.", "frmBusqueda_Clientes",
     "SELECT c.Codigo, c.Nombre, c.Nombre_Comercial, Nif FROM Clientes c WHERE c.Cod_Empresa =1 AND (c.Nombre LIKE 'PEÑA%'",
     "PEÑA"},
    {"article", [] { return static_cast<kdLookup *>(new kdArticulo); }, "kdArticulos", "0000000", "9999999",
     "ARTICULO INICIAL", "ARTICULO FINAL", "ARTICULO INEXISTENTE", "Articulos",
     "SELECT Descripcion FROM Articulos WHERE Cod_Empresa =%1 AND Codigo = %2", "4711", "COLONIA FRESCA 100 ML", "1",
     "ABRIGO DE PAÑO", "frmBusqueda_Articulos_1",
     "SELECT a.Codigo, a.Descripcion, a.Familia_1, a.Familia_2, a.Familia_3, ISNULL(b.Cod_Barras,'') AS Cod_Barras",
     "COLONIA", {"SELECT BusquedaArticulos FROM Empresas WHERE Codigo=1", "SELECT DirImagenArt FROM Empresas WHERE Codigo =1"},
     false},
};

// A host form on the seeded database: the lookup and a field after it. Flags: V vital,
// I inicial, B left blank; the company is 1, or 2 with flag 2, or none with flag 0; T the table
// gone, N no connection.
struct Host
{
    const Variant &x;
    Testing::TestDatabase db;
    Testing::ScriptedUi ui;
    QWidget window;
    QLineEdit *after = new QLineEdit;
    kdLookup *lookup = x.make();
    TextField *code = lookup->findChild<TextField *>(QStringLiteral("txtCodigo"));
    explicit Host(const Variant &variant, const QString &flags = {}) : x(variant)
    {
        Testing::stack(window, {lookup, after});
        lookup->setKeyEnterChangeFocus(true);
        lookup->setVital(flags.contains(u'V'));
        lookup->setInicial(flags.contains(u'I'));
        lookup->setProperty("DejarEnBlanco", flags.contains(u'B'));
        if (flags.contains(u'T'))
            db.conexion()->execute(QStringLiteral("ALTER TABLE %1 RENAME TO Fuera").arg(x.table));
        if (flags.contains(u'N'))
            Conexion::resetShared();
        if (!flags.contains(u'0'))
            lookup->setCEmpresa(db.empresa(flags.contains(u'2') ? 2 : 1)); // the statements traced from here
    }
};

// What the clerk does in the box (flag C: the search dialog chooses its first row, else it is
// cancelled), what the control shows and runs then, and once the focus moves to the next control.
struct Clerk
{
    int variant;
    QString flags, typed, action, box, label;
    QString statement; // the one statement run (its beginning); none when nothing ran
    bool existe, movesOn;
    QString boxLeft, message; // the box once the focus moved on; the title of the message shown
    QString trade = {};       // a customer's trade name after it
};

// Chooses the first row of a search dialog from inside the modal show, as a clerk would.
void chooseFirstRow(QDialog &dialog, const QString &filter)
{
    auto *box = dialog.findChild<TextField *>(QStringLiteral("txtNombre"));
    const bool articles = !box; // a kdTextBox there, and F9 searches
    if (articles)
        box = dialog.findChild<QWidget *>(QStringLiteral("txtNombre"))->findChild<TextField *>();
    box->setText(filter);
    QTest::keyClick(box, articles ? Qt::Key_F9 : Qt::Key_Return);
    if (auto *nif = dialog.findChild<TextField *>(QStringLiteral("txtNif")))
        QTest::keyClick(nif, Qt::Key_Return);
    QTest::keyClick(dialog.findChild<QWidget *>(QStringLiteral("vsListado")), Qt::Key_Return);
}

void cancel(QDialog &dialog) { dialog.findChild<QPushButton *>(QStringLiteral("cmdCancelar"))->click(); }

// The family picker: levels preset ("6,62"), keys typed from level 1 (digits, ⏎ Enter, ↑ Up,
// § F3 choosing the first family listed), then the boxes and labels, the lookups run after the
// presets, how many Enters reached the host and where the focus is (1-3 a level, "after",
// "before").
struct Picker
{
    QString presets, keys, shown; // presets and keys typed; the boxes and labels after
    QStringList lookups;
    int enters; QString focus;
};

QString family(int nivel, int padre, int codigo)
{
    return QStringLiteral("SELECT Descripcion FROM Familias WHERE Cod_Empresa =1 AND Nivel =%1 AND Cod_Padre =%2 AND "
                          "Codigo = %3").arg(nivel).arg(padre).arg(codigo);
}

} // namespace

Q_DECLARE_METATYPE(Clerk)
Q_DECLARE_METATYPE(Picker)

class tst_kdLookup : public QObject
{
    Q_OBJECT

private slots:
    // Only digits are typed, up to the box's length; a code set by the program is neither filtered
    // nor cut. Enter validates the typed code and moves on. A dialog, a message box or another
    // window taking the focus is not leaving the box: only the focus moving to another control
    // validates.
    void whatTheClerkDoesInTheBox_data()
    {
        QTest::addColumn<Clerk>("c");
        for (int v = 0; v < kVariants.size(); ++v) {
            const Variant &x = kVariants[v];
            const auto row = [&](const char *name, const Clerk &c) { QTest::addRow("%s, %s", x.name, name) << c; };
            const auto enter = [&](const char *name, const char *flags, const QString &typed, const QString &box,
                                   const QString &label, const QString &code = {}, bool movesOn = true) {
                const QString looked = x.statement.arg(QString::fromLatin1(flags).contains(u'2') ? "2" : "1", code);
                row(name, {v, flags, typed, "Enter", box, label, code.isEmpty() ? QString() : looked,
                           !code.isEmpty() && label != x.inexistente, movesOn, box, {}});
            };
            enter("empty, inicial", "I", "", x.lower, x.inicial);
            if (x.digitsOnly) {
                enter("upper bound with inicial", "I", x.upper, x.lower, x.inicial);
                enter("typing stops at the length, final", "", x.upper + "99", x.upper, x.final);
                enter("only digits are typed", "I", "7a-7 '7", "777", x.inexistente, "777");
                row("set without digits: nothing looked up",
                    {v, "I", "", "Cargar", "ABCDEFGHIJ", "", {}, false, false, x.lower, {}});
            }
            enter("empty, vital", "VI", "", "", "", {}, false);
            enter("known", "I", x.known, x.known, x.knownName, x.known);
            enter("known, leading zeros, vital", "VI", "0" + x.known, "0" + x.known, x.knownName, x.known);
            enter("known, company 2", "I2", x.other, x.other, x.otherName, x.other);
            enter("unknown", "I", "777", "777", x.inexistente, "777");
            enter("unknown, vital", "VI", "777", "", x.inexistente, "777", false);
            row("set longer than the box: kept, its digits looked up",
                {v, "I", "", "Cargar", "12ABCDEFGHIJ", "", x.statement.arg("1", "12"), false, false, "12ABCDEFGHIJ", {}});
            row("F3 chooses", {v, "IC", "", "F3", x.known, x.knownName, x.search, false, false, x.known, {}});
            row("F3, Cancel, empty, inicial", {v, "I", "", "F3", "", "", {}, false, false, x.lower, {}});
            row("F3, Cancel, 777, vital", {v, "VI", "777", "F3", "777", "", {}, false, false, "", {}});
            row("Buscar chooses", {v, "C", "55", "Buscar", x.known, x.knownName, x.search, false, false, x.known, {}});
            row("Buscar cancelled", {v, "", "55", "Buscar", "", "", {}, false, false, x.upper, {}});
            row("another window, empty", {v, "I", "", "window", "", "", {}, false, false, x.lower, {}});
            for (const auto &[name, flags] : {std::pair{"no company", "I0"}, {"no connection", "IN"}, {"the table gone", "IT"}})
                row(name, {v, flags, x.known, "Enter", x.known, x.inexistente, flags[1] == 'T' ? x.statement.arg("1", x.known)
                           : QString(), false, true, x.known, x.errorClass + "::Cargar"});
        }
        // Only the supplier leaves a bound blank; only the customer has 99999 as an ordinary code.
        QTest::newRow("supplier, left blank, empty") << Clerk{0, "BI", "", "Enter", "", "", {}, false, true, "", {}};
        QTest::newRow("supplier, left blank, zero") << Clerk{0, "B", "0", "Enter", "0", "", {}, false, true, "0", {}};
        QTest::newRow("customer, 99999") << Clerk{1, "", "99999", "Enter", "99999", "CLIENTE CINCO NUEVES",
                                                  kVariants[1].statement.arg("1", "99999"), true, true, "99999", {}};
        QTest::newRow("customer, trade name") << Clerk{1, "", "1001", "Enter", "1001", "ABASTOS LÓPEZ S.L.",
                                                       kVariants[1].statement.arg("1", "1001"), true, true, "1001", {}, "ABALO"};
    }
    void whatTheClerkDoesInTheBox()
    {
        QFETCH(Clerk, c);
        Host h(kVariants[c.variant], c.flags);
        QVERIFY(Testing::showActive(h.window));
        h.lookup->setFocus();
        QTest::keyClicks(h.code, c.typed);
        h.ui.onModal([&](QDialog &d) { c.flags.contains(u'C') ? chooseFirstRow(d, h.x.filter) : cancel(d); });
        if (c.action == QLatin1String("Enter")) {
            QTest::keyClick(h.code, Qt::Key_Return);
        } else if (c.action == QLatin1String("F3")) {
            QTest::keyClick(h.code, Qt::Key_F3);
        } else if (c.action == QLatin1String("Buscar")) {
            QCOMPARE(h.lookup->Buscar(), c.box.toInt());
        } else if (c.action == QLatin1String("Cargar")) {
            h.lookup->setText(c.box);
            QCOMPARE(h.lookup->Cargar(), c.existe);
        } else {
            QWidget other;
            QVERIFY(Testing::showActive(other));
            QVERIFY(Testing::showActive(h.window));
        }
        QCOMPARE(h.lookup->Text() + u'|' + h.lookup->Nombre(), c.box + u'|' + c.label);
        QCOMPARE(h.lookup->Existe(), c.existe);
        if (auto *customer = qobject_cast<kdCliente *>(h.lookup))
            QCOMPARE(customer->NombreComercial(), c.trade);
        const bool searched = c.action == QLatin1String("F3") || c.action == QLatin1String("Buscar");
        QStringList expected = searched ? h.x.opening : QStringList(), run = h.db.statements;
        if (!c.statement.isEmpty())
            expected << c.statement;
        for (int i = 0; i < qMin(run.size(), expected.size()); ++i)
            run[i].truncate(expected[i].size());
        QCOMPARE(run, expected);
        QCOMPARE(h.ui.modalShown, searched ? QStringList{h.x.dialog} : QStringList());
        Testing::settle(); // the focus moves once the key handler has returned
        if (c.message.isEmpty()) // the scripted message box does not hand the focus back
            QCOMPARE(QApplication::focusWidget(), c.movesOn ? static_cast<QWidget *>(h.after) : h.code);
        h.after->setFocus();
        QCOMPARE(h.lookup->Text(), c.boxLeft);
        QCOMPARE(h.ui.messages.size(), c.message.isEmpty() ? 0 : 1);
        QCOMPARE(QString::number(h.ui.messages.value(0).style) + h.ui.messages.value(0).title,
                 (c.message.isEmpty() ? "0" : "16") + c.message);
    }

    // The family picker: Enter through the levels, the levels below emptied and unavailable under
    // an empty one, unknown codes, Up, F3; and the titles.
    void whatTheClerkDoesInTheFamilyPicker_data()
    {
        QTest::addColumn<Picker>("p");
        QTest::newRow("three levels, Enter through to the host")
            << Picker{"", "6⏎62⏎621⏎", "6|REGALO|62|DECORACIÓN|621|FIGURAS",
                      {family(1, 0, 6), family(2, 6, 62), family(3, 62, 621)}, 1, "after"};
        QTest::newRow("empty level 1 leaves the picker") << Picker{"", "⏎", "|||||", {}, 1, "after"};
        QTest::newRow("Up goes back a level, then on; 0 left empty")
            << Picker{"6", "⏎0↑↑", "6|REGALO||||", {family(1, 0, 6)}, 0, "before"};
        QTest::newRow("unknown under its parent: emptied, the focus stays")
            << Picker{"", "3⏎62⏎", "3|FERRETERÍA||FAMILIA INEXISTENTE||", {family(1, 0, 3), family(2, 3, 62)}, 0, "2"};
        QTest::newRow("another family on level 1 empties the levels below")
            << Picker{"6,62,621", "1⏎", "1|TEXTIL||||", {family(1, 0, 1)}, 0, "2"};
        QTest::newRow("F3 lists the level's families under its parent")
            << Picker{"6", "⏎§", "6|REGALO|62|DECORACIÓN||",
                      {family(1, 0, 6), "SELECT Codigo, Descripcion FROM Familias WHERE Cod_Empresa =1 AND Nivel =2 AND Cod_Padre =6 AND "
                       "Descripcion LIKE '%' ORDER BY Descripcion"}, 0, "2"};
    }
    void whatTheClerkDoesInTheFamilyPicker()
    {
        QFETCH(Picker, p);
        Testing::TestDatabase db;
        Testing::ScriptedUi ui;
        QWidget window;
        auto *before = new QLineEdit, *after = new QLineEdit;
        auto *picker = new kdFamilia;
        Testing::stack(window, {before, picker, after});
        picker->setCEmpresa(db.empresa(1));
        int enters = 0;
        connect(picker, &kdFamilia::KeyPress, picker, [&](qint16 &k) { enters += k == 13; });
        QStandardItemModel bound(1, 1); // a host form's mapper commits level 1 as the focus leaves the picker
        QDataWidgetMapper mapper;
        mapper.setModel(&bound);
        mapper.addMapping(picker, 0);
        mapper.toFirst();
        for (int n = 0; const QString &code : p.presets.split(u',', Qt::SkipEmptyParts))
            picker->setFamilia(++n, qint16(code.toInt()));
        db.statements.clear();
        QVERIFY(Testing::showActive(window));
        picker->setFocus();
        ui.onModal([](QDialog &d) { QTest::keyClick(d.findChild<QWidget *>("vsListado"), Qt::Key_Return); });
        for (QChar c : p.keys) {
            const int key = c == u'⏎' ? Qt::Key_Return : c == u'↑' ? Qt::Key_Up : c == u'§' ? Qt::Key_F3 : 0;
            key ? QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)) : QTest::keyClicks(QApplication::focusWidget(), c);
            Testing::settle();
        }
        QStringList shown;
        for (int n = 1; n <= 3; ++n)
            shown << picker->findChild<QLineEdit *>(QStringLiteral("txtFamilia%1").arg(n))->text()
                  << picker->findChild<QLabel *>(QStringLiteral("lblFamilia%1").arg(n))->text();
        QCOMPARE(shown.join(u'|'), p.shown);
        QCOMPARE(db.statements, p.lookups);
        QCOMPARE(enters, p.enters);
        const QWidget *focus = QApplication::focusWidget();
        QCOMPARE(focus == after ? "after" : focus == before ? "before" : focus->objectName().right(1), p.focus);
        QVERIFY((focus != after && focus != before) || bound.index(0, 0).data().toInt() == picker->Familia_1());
        QCOMPARE(picker->findChild<QWidget *>("txtFamilia2")->isEnabled(), picker->Familia_1() != 0); // only under a chosen one
        db.statements.clear(); // the company's titles, "Grupo" for the level it gives none
        QVERIFY(picker->Cargar());
        QCOMPARE(db.statements.value(0), "SELECT Nivel, Titulo FROM Familias_Titulos WHERE Cod_Empresa =1 ORDER BY Nivel");
        QCOMPARE(picker->Titulo(1) + picker->Titulo(2) + picker->Titulo(3), "SecciónFamiliaGrupo");
    }

    // Persisted keys, their spelling and order ("Dejarenblanco" is the supplier's, "DejarEnBlanco"
    // the article's): a fresh control's flags are False against the defaults (True) read for a
    // missing key, a value equal to its default is not written, what is written reads back.
    void persistedProperties_data()
    {
        QTest::addColumn<int>("v");
        QTest::addColumn<QStringList>("keys");
        const QStringList head{"Enabled", "Font", "CausesValidation", "Locked"};
        const QStringList tail{"Text", "ToolTipText", "Vital", "Inicial", "KeyUpChangeFocus", "KeyEnterChangeFocus"};
        QTest::newRow("supplier") << 0 << head + tail + QStringList{"Dejarenblanco"};
        QTest::newRow("customer") << 1 << head + tail;
        QTest::newRow("article") << 2 << head + QStringList{"MaxLength"} + tail + QStringList{"DejarEnBlanco"};
    }
    void persistedProperties()
    {
        QFETCH(int, v);
        QFETCH(QStringList, keys);
        const auto written = [&](const QString &block, auto &&change) {
            std::unique_ptr<kdLookup> l(kVariants[v].make());
            if (!block.isEmpty()) // else a control as freshly placed
                l->ReadProperties(PropertyBag::fromText(block));
            change(*l);
            PropertyBag out;
            l->WriteProperties(out);
            return out;
        };
        const auto nothing = [](kdLookup &) {};
        QCOMPARE(written(QString(), nothing).keys(),
                 (QStringList{"Vital", "Inicial", "KeyUpChangeFocus", "KeyEnterChangeFocus"}));
        for (const QString key : {"Dejarenblanco", "DejarEnBlanco"})
            QCOMPARE(written(key + " = -1", nothing).keys(), keys.last() == key ? QStringList{key} : QStringList());
        const PropertyBag all = written(keys.last() + " = -1", [](kdLookup &l) {
            l.setFont(QFont(QStringLiteral("DejaVu Serif"), 14));
            l.setEnabled(false);
            l.setCausesValidation(false);
            l.setLocked(true);
            l.setProperty("MaxLength", 13);
            l.setText("0012");
            l.setToolTipText("Código");
            for (const char *flag : {"Vital", "Inicial", "KeyUpChangeFocus", "KeyEnterChangeFocus"})
                l.setProperty(flag, false);
        });
        QCOMPARE(all.keys(), keys);
        QCOMPARE(written(all.toText(), nothing).toText(), all.toText());
    }
};

QTEST_MAIN(tst_kdLookup)
#include "tst_kdLookup.moc"
