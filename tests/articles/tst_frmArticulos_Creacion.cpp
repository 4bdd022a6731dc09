// The quick article creation driven as a clerk drives it, on the seeded database (company 1:
// warehouses 1 and 2, articles up to 4711, automatic barcodes on; qualities TALLA and COLOR added
// here): each statement by its text and by what it leaves in the database.
#include "articles/frmArticulos_Creacion.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSqlQuery>

using namespace Varnel_Controles;

namespace {

const QString kHoy = FechaSQL::Corta(QDate::currentDate()), kTomado = "Este código ya está asignado a otro artículo.";

struct Form
{
    Testing::TestDatabase db;
    Testing::ScriptedUi ui;
    frmArticulos_Creacion form;
    explicit Form(const QString &setup = {})
    {
        for (const QString &s : ("UPDATE Empresas SET CualidadX_PorDefecto=1, "
                                 "CualidadY_PorDefecto=2;" + setup).split(';', Qt::SkipEmptyParts))
            QSqlQuery(db.conexion()->database()).exec(s);
        form.setCEmpresa(db.empresa()), Testing::showActive(form);
    }
    QWidget *w(const QString &name) { return form.findChild<QWidget *>(name); }
    QWidget *field(const QString &name) { return w(name)->focusProxy() ? w(name)->focusProxy() : w(name); }
    bool focused(const QString &name) { return field(name) == QApplication::focusWidget() || w(name)->isAncestorOf(QApplication::focusWidget()); }
    void key(const QString &control, int key) { QTest::keyClick(field(control), Qt::Key(key)), Testing::settle(); }
    void type(const QString &control, const QString &text) { field(control)->setFocus(), QTest::keyClicks(field(control), text + '\r'), Testing::settle(); }
    QString text(const QString &control, const char *property = "Text") { return w(control)->property(property).toString(); }
    QString messages() { QStringList m; for (const auto &x : ui.messages) m << QString::number(x.style) + ' ' + x.title + ' ' + x.prompt; return m.join('|'); }
    QString rows(int code) // the article's Mod_Ficha, its warehouses
    {
        return db.rows(QString("SELECT 'A' || Mod_Ficha FROM Articulos WHERE Codigo=%1 UNION ALL SELECT 'W' || Cod_Almacen FROM Almacen_Articulos WHERE Cod_Articulo=%1").arg(code)).join(' ');
    }
    // "name=value;…": F6 pressed, prov typed; the others set by the program (famN: family level N, cbo: the entry, chk: Value, else Text).
    void fill(const QString &fields)
    {
        for (const QString &f : fields.split(';', Qt::SkipEmptyParts)) {
            const QString name = f.section('=', 0, 0), value = f.section('=', 1), p = name.left(3);
            name == "F6" ? key("txtCodigo", Qt::Key_F6) : name == "prov" ? type("txtProv", value)
                                                                       : void(w(p == "fam" ? "txtFamilia" : name)->setProperty(qPrintable(p == "fam" ? "Familia_" + name.right(1) : p == "chk" ? "Value" : p == "cbo" ? "currentIndex" : "Text"), value));
        }
    }
};

} // namespace

class tst_frmArticulos_Creacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadsTheCompanyAndComposesOnEveryChange()
    {
        Form f;
        QCOMPARE(f.db.statements, (QStringList{"SELECT FamiliaObligada, DirImagenArt, MargenReal_FArt_sUltimoPUC, MaxCodigoArt, CualidadX_PorDefecto, "
                                               "CualidadY_PorDefecto, Series_Automaticas  FROM Empresas WHERE Codigo=1",
            "SELECT Codigo, Nombre FROM Cualidades WHERE Cod_Empresa =1 ORDER BY Codigo", "SELECT Nivel, Titulo FROM Familias_Titulos WHERE Cod_Empresa =1 ORDER BY Nivel",
            "SELECT * FROM Formacion_Desc WHERE Desc_Larga=0 ORDER BY Orden", "SELECT * FROM Formacion_Desc WHERE Desc_Larga=1 ORDER BY Orden"}));
        QCOMPARE(f.text("cboCualX", "currentText") + f.text("cboCualY", "currentText") + f.text("lblTFamilia1", "text") + f.text("lblTFamilia3", "text")
                     + f.text("lblCualidadesY", "text"), "TALLACOLORSecciónGrupoCualidad Y");
        f.type("txtRef", "ab-1234");
        f.fill("fam1=3");
        f.ui.onModal([&](QDialog &d) { // F3 in the brand box: the brand search, ABADÍA (7) chosen
            QTest::keyClicks(d.findChild<QWidget *>("txtNombre"), "ABAD\r");
            QMetaObject::invokeMethod(d.findChild<QWidget *>("cmdAceptar"), "click");
        });
        f.field("txtMarca")->setFocus();
        f.key("txtMarca", Qt::Key_F3);
        QCOMPARE(f.text("txtMarca") + f.text("lblMarca", "text") + '|' + f.text("txtDesc_Ticket") + '|' + f.text("txtDescripcion")
                     + QString::number(f.focused("txtImpuesto")), "07ABADÍA|AB-123 ABADÍA|FERRETERÍA AB-1234 ABADÍA1"); // and the focus moved on
        f.type("txtMarca", "1"); // checked on leaving
        QCOMPARE(f.db.statements.last() + '|' + f.text("lblMarca", "text"), "SELECT * FROM Marcas WHERE Codigo=1|ACME");
        f.fill("fam1=0;txtTemporada=PV26");
        QCOMPARE(f.text("txtDesc_Ticket") + '|' + f.text("txtDescripcion"), "AB-123 ACME|AB-1234 ACME");
        f.type("cboCualX", "");
        QVERIFY(f.focused("cboCualY"));
    }

    void composesDescriptions()
    {
        const DescripcionCompuesta::Datos datos{"ACME", "AB-1234", "PV26", {"FERRETERÍA", "TORNILLERÍA", ""}};
        for (const QString c : {"2:6 0:1 1:10=AB-123 ACME", "3:2 0:2 3:10=PV  PV26", "4:5 5:3 6:20 0:1=FERRETOR ", "6:10 2:2=AB",
                                "7:5 -1:3 9:1 2:0 1:-2="}) { // code:length …=composed
            QList<DescripcionCompuesta::Campo> campos;
            for (const QString &campo : c.section('=', 0, 0).split(' '))
                campos.append({qint16(campo.section(':', 0, 0).toInt()), qint16(campo.section(':', 1).toInt())});
            QCOMPARE(DescripcionCompuesta::Componer(campos, datos), c.section('=', 1));
        }
    }

    void takesCodes_data()
    {
        QTest::addColumn<QString>("setup");
        QTest::addColumn<QString>("typed"); // F6 for the key
        QTest::addColumn<int>("code");      // whose rows are checked
        QTest::addColumn<QString>("outcome"); // the code box ("+": the code taken), the messages shown, the code's rows
        const QString taken = "|A0 W1 W2";
        QTest::newRow("F6 after 1 to 41") << "DELETE FROM Articulos WHERE Codigo>8;WITH RECURSIVE n(c) AS (SELECT 9 UNION ALL SELECT c+1 FROM n "
                                             "WHERE c<41) INSERT INTO Articulos (Cod_Empresa, Codigo) SELECT 1, c FROM n" << "F6" << 42 << "42+" + taken;
        QTest::newRow("existing") << "" << "4711" << 4711 << "64 ¡Atención! " + kTomado + "|A0 W1";
        QTest::newRow("above MaxCodigoArt") << "UPDATE Empresas SET MaxCodigoArt=100" << "101" << 101 << "|";
        QTest::newRow("at MaxCodigoArt") << "UPDATE Empresas SET MaxCodigoArt=100" << "100" << 100 << "100+" + taken;
        QTest::newRow("codes not numbers") << "INSERT INTO Articulos (Cod_Empresa, Codigo) VALUES (1, 'A1')" << "F6" << 0
                                           << "48 ¡ Atención ! No esta disponible esta opción en códigos alfanuméricos|";
    }
    void takesCodes()
    {
        QFETCH(QString, setup);
        QFETCH(QString, typed);
        QFETCH(int, code);
        Form f(setup);
        f.db.statements.clear();
        typed == "F6" ? f.key("txtCodigo", Qt::Key_F6) : f.type("txtCodigo", typed);
        QTEST(f.text("txtCodigo") + (f.w("txtCodigo")->isEnabled() || !f.w("cmdAceptar")->isEnabled() ? "" : "+") + f.messages() + '|' + f.rows(code), "outcome");
        if (code == 42)
            QCOMPARE(f.db.statements, (QStringList{"SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = 1",
                "SELECT * FROM Articulos WHERE Cod_Empresa =1 AND Codigo =42", "INSERT INTO Articulos (Cod_Empresa, Codigo, FAlta, Mod_Ficha) VALUES (1,42, '" + kHoy + "', 0)",
                "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) SELECT 1, Codigo, 42 FROM Almacenes WHERE Cod_Empresa =1"}));
    }

    // Another workstation takes 9 after the check read (on a snapshot from before) and before the insert.
    void codeTakenMeanwhileIsOfferedTheNext()
    {
        Form f("DELETE FROM Articulos WHERE Codigo>8");
        std::unique_ptr<Conexion> other(Conexion::open("sqlite:" + f.db.path()));
        Recordset held;
        held.open("SELECT Codigo FROM Articulos", f.db.conexion());
        connect(f.db.conexion(), &Conexion::Statement, this, [&](const QString &s) {
            if (s.startsWith("SELECT * FROM Articulos") && other)
                other->execute("INSERT INTO Articulos (Cod_Empresa, Codigo, Mod_Ficha) VALUES (1, 9, 1)");
            else if (s.startsWith("INSERT INTO Articulos"))
                held.close(), other.reset();
        });
        f.key("txtCodigo", Qt::Key_F6);
        QCOMPARE(f.messages() + f.text("txtCodigo") + QString::number(f.w("txtCodigo")->isEnabled()) + f.rows(9), "64 ¡Atención! " + kTomado + "101A1");
    }

    void provisionalRowsGo()
    {
        for (const QString how : {"Escape", "F12", "cmdCancelar", "cmdCerrar", "close box"}) {
            Form f;
            f.fill("F6;txtRef=X");
            f.db.statements.clear();
            how == "close box" ? Testing::pressCloseBox(f.form) : how.startsWith("cmd") ? void(QMetaObject::invokeMethod(f.w(how), "click"))
                                                                                         : f.key("txtRef", how == "F12" ? Qt::Key_F12 : Qt::Key_Escape);
            QCOMPARE(f.db.statements, (QStringList{"DELETE FROM Articulos WHERE Cod_Empresa =1 AND Codigo =4712",
                                                   "DELETE FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Articulo =4712"}));
            QCOMPARE(f.rows(4712) + f.text("txtCodigo") + f.text("txtRef") + QString::number(f.form.isVisible()), how == "cmdCerrar" || how == "close box" ? "0" : "1");
            f.key("txtCodigo", Qt::Key_Escape); // nothing taken: Escape closes
            QVERIFY(!f.form.isVisible());
        }
    }

    void validates_data()
    {
        QTest::addColumn<QString>("fields"); // F6: a code taken; a last F: the families are required, N / Y: the answer to the question
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        const QString ok = "F6;prov=1;txtRef=R-1;txtDescripcion=D;", v = "48 Validando artículo... ";
        const QString q = "292 Confirmar operación.. El artículo no tiene descripción. ¿Desea continuar?";
        QTest::newRow("1 code") << "" << v + "Especifique un código para el artículo" << "txtCodigo";
        QTest::newRow("2 supplier") << "F6" << v + "Especifique un proveedor para el artículo" << "txtProv";
        QTest::newRow("3 reference") << "F6;prov=1" << v + "Especifique una referencia para el artículo" << "txtRef";
        QTest::newRow("4 family level") << ok + "fam1=3;F" << v + "Especifique el valor de Familia para el artículo" << "txtFamilia";
        QTest::newRow("5 quality") << ok + "cboCualY=-1" << v + "Especifique el valor para Cualidad Y" << "cboCualY";
        QTest::newRow("too long") << ok + "txtDescripcion=" + QString(61, 'D') << v + "La descripción tiene 61 caracteres y no puede pasar de 60." << "txtDescripcion";
        QTest::newRow("unknown brand") << ok + "txtMarca=99" << v + "La marca especificada no existe." << "txtMarca";
        QTest::newRow("unknown tax type") << ok + "txtImpuesto=7" << v + "El tipo de impuesto especificado no existe." << "txtImpuesto";
        QTest::newRow("unknown season") << ok + "txtTemporada=XX99" << v + "La temporada especificada no existe." << "txtTemporada";
        QTest::newRow("6 no description, No") << "F6;prov=1;txtRef=R-1;txtDescripcion=;N" << q << "txtDescripcion";
        QTest::newRow("6 no description, Yes") << "F6;prov=1;txtRef=R-1;txtDescripcion=;Y" << q << "";
        QTest::newRow("7 reference of article 1") << "F6;prov=1;txtRef=TH-M6" << v + "La referencia especificada ya existe." << "txtRef";
    }
    void validates()
    {
        QFETCH(QString, fields);
        QFETCH(QString, focus);
        Form f(fields.endsWith('F') ? "UPDATE Empresas SET FamiliaObligada=1" : "");
        f.fill(QString(fields).remove(QRegularExpression(";[FNY]$")));
        f.ui.answerMessages({fields.endsWith('N') ? UiSeam::vbNo : UiSeam::vbYes});
        QCOMPARE(f.form.Validar_Articulo(), focus.isEmpty());
        QTEST(f.messages(), "message");
        QVERIFY(focus.isEmpty() || f.focused(focus));
    }

    // Each statement of the accept fails in turn (its table taken away inside the transaction): the
    // database stays as it was, the clerk is told, and the article is accepted after.
    void acceptWritesAllOrNothing()
    {
        for (const QString barcode : {"98100019", ""}) {
            Form f(barcode.isEmpty() ? "UPDATE Empresas SET CodigoBarrasAuto=0" : "");
            f.fill("F6;prov=1;fam1=3;fam2=31;txtTemporada=PV26;txtImpuesto=1;chkNoGenerarSerieEAN=1");
            f.type("txtMarca", "1");
            f.fill("txtRef=O'BRIEN 5'"); // apostrophes as pasted
            const QStringList before = f.db.snapshot();
            int failAt = 1, seen = 0;
            connect(f.db.conexion(), &Conexion::Statement, this, [&](const QString &s) {
                if ((seen = s.startsWith("UPDATE Articulos SET") ? 1 : seen > 0 ? seen + 1 : 0) == failAt)
                    QSqlQuery(f.db.conexion()->database()).exec("ALTER TABLE " + QRegularExpression("(FROM|INTO|UPDATE) (\\w+)").match(s).captured(2) + " RENAME TO X");
            });
            for (const int last = barcode.isEmpty() ? 3 : 8; failAt <= last; ++failAt, seen = 0, f.ui.messages.clear()) {
                f.key("txtRef", Qt::Key_F9);
                QVERIFY2(seen == failAt && f.messages().startsWith("16 frmArticulos_Creacion::cmdAceptar_Click No se ha guardado el artículo 4712: ha fallado la ")
                             && !f.w("txtCodigo")->isEnabled() && f.text("txtRef") == "O'BRIEN 5'", qPrintable(f.messages()));
                QCOMPARE(f.db.snapshot(), before);
            }
            int created = 0;
            connect(&f.form, &frmArticulos_Creacion::ArticuloCreado, this, [&](qint32 codigo) { created += codigo; });
            f.db.statements.clear();
            f.key("txtMarca", Qt::Key_F9);
            QStringList expected{"SELECT * FROM Marcas WHERE Codigo=1", "SELECT * FROM TiposImpuesto WHERE Codigo=1",
                "SELECT Descripcion FROM Temporadas WHERE Cod_Empresa =1 AND Codigo ='PV26'", "SELECT * FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Prov =1 And Ref ='O''BRIEN 5''' AND Cod_Articulo<>4712",
                "UPDATE Articulos SET Descripcion ='FERRETERÍA O''BRIEN 5'' ACME', Desc_Ticket ='O''BRIE ACME', Familia_1 =3, Familia_2 =31, "
                "Familia_3 =0, Marca = 1, TipoImpuesto = 1, CualidadX =1, CualidadY =2, NoGenerarSerieEAN = 1, Temporada ='PV26', Mod_Ficha = 1 "
                "WHERE Cod_Empresa =1 AND Codigo =4712",
                "INSERT INTO Articulos_Ref (Cod_Empresa,Cod_Articulo,Ref,Principal,Fecha,Cod_Prov) Values (1,4712,'O''BRIEN 5''',1,'" + kHoy + "',1)",
                "SELECT CodigoBarrasAuto FROM Empresas WHERE Codigo=1"};
            if (!barcode.isEmpty())
                expected << "SELECT * FROM Contador_CBarras WHERE Cod_Empresa=1" << "SELECT * FROM Articulos_CBarras WHERE Cod_Empresa=1 AND Cod_Articulo=4712 AND Automatico=1"
                         << "INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '9810001')"
                         << "UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =1 AND Cod_Articulo =4712 AND Principal =1"
                         << "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, Automatico) VALUES "
                            "(1, 4712, '98100019', 1, '" + FechaSQL::instance().Hoy() + "', 1, 1)";
            QCOMPARE(f.db.statements, expected);
            QCOMPARE(f.db.rows("SELECT Descripcion, Desc_Ticket, Familia_2, Marca, TipoImpuesto, CualidadY, NoGenerarSerieEAN, Temporada, Mod_Ficha, r.Ref, "
                               "r.Principal, r.Cod_Prov, (SELECT group_concat(Cod_Barras || Principal || Automatico) FROM Articulos_CBarras WHERE "
                               "Cod_Articulo = 4712) FROM Articulos a JOIN Articulos_Ref r ON r.Cod_Articulo = a.Codigo WHERE a.Codigo = 4712"),
                     QStringList{"FERRETERÍA O'BRIEN 5' ACME|O'BRIE ACME|31|1|1|2|1|PV26|1|O'BRIEN 5'|1|1|" + (barcode.isEmpty() ? "NULL" : barcode + "11")});
            QCOMPARE(f.text("txtCodigo") + f.text("txtRef") + QString::number(f.w("cmdAceptar")->isEnabled() + created), "4712");
        }
    }

    void seasonAndCheckBoxKeys()
    {
        Form f("UPDATE Empresas SET Series_Automaticas=1");
        f.type("txtTemporada", "xx");
        QVERIFY(f.text("txtTemporada").isEmpty() && f.focused("txtTemporada")); // unknown: emptied, the focus stays
        f.ui.onModal([](QDialog &d) { QMetaObject::invokeMethod(d.findChild<QWidget *>("cmdAceptar"), "click"); }); // F3: the first by name
        f.key("txtTemporada", Qt::Key_F3);
        f.type("txtTemporada", "");
        QVERIFY(f.focused("chkNoGenerarSerieEAN"));
        f.key("chkNoGenerarSerieEAN", Qt::Key_Space);
        f.key("chkNoGenerarSerieEAN", Qt::Key_Up);
        QCOMPARE(f.text("txtTemporada") + f.text("txtTemporada", "Descripcion") + f.text("chkNoGenerarSerieEAN", "Value"), "OI26OTOÑO-INVIERNO 20261");
        QVERIFY(f.focused("txtTemporada"));
    }

    void twoWorkstationsCreateTogether()
    {
        Testing::TestDatabase db;
        QProcess workers[2];
        for (int i = 0; i < 2; ++i)
            workers[i].start(KD_CREACION_WORKER, {db.path(), "100", i == 0 ? "A-" : "B-"});
        for (QProcess &p : workers) {
            QString told = p.waitForFinished(300000) ? p.readAllStandardError() : "timeout"; // only that a code was taken, never a failure
            QVERIFY2(p.exitCode() == 0 && told.remove("64 " + kTomado + '\n').isEmpty(), qPrintable(told));
        }
        QCOMPARE(db.rows("SELECT COUNT(*), COUNT(DISTINCT Codigo), SUM(Mod_Ficha = 0), (SELECT COUNT(*) FROM Articulos_CBarras WHERE Automatico = 1), "
                         "(SELECT COUNT(*) FROM Almacen_Articulos WHERE Cod_Articulo > 4711), (SELECT COUNT(*) FROM Almacen_Articulos w WHERE NOT "
                         "EXISTS (SELECT 1 FROM Articulos a WHERE a.Codigo = w.Cod_Articulo)) FROM Articulos WHERE Codigo > 4711"),
                 QStringList{"200|200|0|200|400|0"});
    }
};

QTEST_MAIN(tst_frmArticulos_Creacion)
#include "tst_frmArticulos_Creacion.moc"
