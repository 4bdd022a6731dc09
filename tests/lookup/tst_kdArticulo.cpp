// What only the article lookup does: the kinds of entry (supplier and customer references,
// barcodes with and without prefix, scanned qualities, free text, short text), the picker, and
// the creation of a missing reference or barcode, each through Enter and through leaving the box.
// What it shares with the other lookups runs in tst_kdLookup.
#include "data/FechaSQL.h"
#include "lookup/kdArticulo.h"
#include "platform/TextField.h"
#include "support/Clerk.h"
#include "support/TestDatabase.h"
#include "support/Widgets.h"

#include <QLineEdit>
#include <QSqlQuery>

using namespace Varnel_Controles;

namespace {

// Flags: V vital, I inicial, P supplier 1, Q supplier 2, C customer 1001, 2 company 2, Y the
// qualities read Y then X, 0 no qualities, T the database refusing new references, M Enter
// moves on. Typed text ending in § presses F3 after the validation. Statements after "…" are
// those that must run, in this order, among others.
struct Row
{
    QString flags, typed;
    QStringList clerk;
    QString result; // box|label, and X/Y:names of the qualities when there are some
    QStringList statements, shown = {}, effect = {}; // effect: a query, then its rows
};

QString L(int code) { return QStringLiteral("SELECT Descripcion FROM Articulos WHERE Cod_Empresa =1 AND Codigo = %1").arg(code); }
QString cb(const QString &b) { return "SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Barras ='" + b + "'"; }
QString of(QString t, QString who, QString r) { return QString("SELECT Cod_Articulo FROM %1 WHERE Cod_Empresa =1 AND %2Ref ='%3'").arg(t, who, r); }
QString count(QString t, QString r) { return QString("SELECT ISNULL(COUNT(Cod_Articulo), 0) AS Cantidad FROM %1 WHERE Cod_Empresa =1 AND Ref ='%2'").arg(t, r); }
QString picker(const QString &t, const QString &r)
{
    return QStringLiteral("SELECT b.Codigo, b.Descripcion FROM %1 a INNER JOIN Articulos b ON a.Cod_Empresa = b.Cod_Empresa And "
                          "a.Cod_Articulo = b.Codigo WHERE a.Cod_Empresa =1 AND a.Ref ='%2'").arg(t, r);
}
QString qualities(const char *x, const char *y, int article)
{
    return QStringLiteral("SELECT cd1.Nombre AS Nomb_CualidadX, cd2.Nombre AS Nomb_CualidadY FROM Articulos a  INNER JOIN Cualidades_Des "
                          "cd1 ON a.Cod_Empresa=cd1.Cod_Empresa AND a.CualidadX=cd1.Cod_Cualidad AND cd1.Codigo=%1 INNER JOIN Cualidades_Des "
                          "cd2 ON a.Cod_Empresa=cd2.Cod_Empresa AND a.CualidadY=cd2.Cod_Cualidad AND cd2.Codigo=%2 WHERE a.Codigo=%3 AND "
                          "a.Cod_Empresa=1").arg(x, y).arg(article);
}
QString principal(QString t, int a) { return QString("SELECT Cod_Articulo FROM %1 WHERE Cod_Empresa =1 AND Cod_Articulo =%2 AND Principal = 1").arg(t).arg(a); }

const QString R = "Articulos_Ref", RC = "Articulos_RefCli", CB = "Articulos_CBarras";
const QString kNoRef = "36 ¡ Atención !: La referencia especificada no existe. ¿Desea crearla?";
const QString kNoCb = "36 ¡ Atención !: El código de barras especificado no existe. ¿Desea crearlo?";
const QString kLong = "NEW-" + QString(196, u'R'), kTag = "SELECT BusquedaArticulos FROM Empresas WHERE Codigo=1";
const QString kThm6 = "SELECT Cod_Articulo, Cod_Prov, Principal FROM Articulos_Ref WHERE Ref = 'TH-M6' ORDER BY 1",
              kMove = "36 Confirmar: La referencia especificada ya existe en otro artículo. ¿Desea traspasarlo?";

const QList<std::pair<const char *, Row>> kRows{
    {"code found", {"M", "4711", {}, "4711|COLONIA FRESCA 100 ML", {L(4711)}}},
    {"code unknown", {"M", "777", {}, "777|ARTICULO INEXISTENTE", {L(777)}}},
    {"code unknown, vital", {"V", "777", {}, "|ARTICULO INEXISTENTE", {L(777)}}},
    {"0, inicial", {"IM", "0", {}, "0000000|ARTICULO INICIAL", {}}},
    {"0, final", {"M", "0", {}, "9999999|ARTICULO FINAL", {}}},
    {"9999999 is a code", {"IM", "9999999", {}, "9999999|ARTICULO INEXISTENTE", {L(9999999)}}},
    {"one letter, inicial", {"IM", "A", {}, "0000000|ARTICULO INICIAL", {}}},
    {"two letters, vital", {"V", "AB", {}, "|", {}}},
    {"reference of the supplier", {"PM", ".TH-M6", {}, "1|TORNILLO HEXAGONAL M6", {of(R, "Cod_Prov =1 And ", "TH-M6"), L(1)}}},
    {"reference, any supplier, one article", {"M", ".TH-M6", {}, "1|TORNILLO HEXAGONAL M6", {count(R, "TH-M6"), of(R, "", "TH-M6"), L(1)}}},
    {"reference of two articles, picked", {"M", ".SHARED-1", {"#1"}, "4|CAMISA MANGA LARGA",
                                           {count(R, "SHARED-1"), picker(R, "SHARED-1"), L(4)}, {"[frmReferencia_Articulos]"}}},
    {"reference of two articles, picker abandoned", {"", ".SHARED-1", {""}, ".SHARED-1|",
                                                     {count(R, "SHARED-1"), picker(R, "SHARED-1")}, {"[frmReferencia_Articulos]"}}},
    {"reference of the customer", {"CM", "*CLI-2", {}, "3|NANDO CAMISETA", {of(RC, "Cod_Cli =1001 And ", "CLI-2"), L(3)}}},
    {"reference, any customer, one article", {"M", "*C-ÑD", {}, "2|ÑANDÚ DE PELUCHE", {count(RC, "C-ÑD"), of(RC, "", "C-ÑD"), L(2)}}},
    {"customers' reference of two articles, picked", {"M", "*CLI-2", {"#0"}, "3|NANDO CAMISETA",
                                                      {count(RC, "CLI-2"), picker(RC, "CLI-2"), L(3)}, {"[frmReferencia_Articulos]"}}},
    {"customers' reference, picker abandoned", {"", "*CLI-2", {""}, "*CLI-2|", {count(RC, "CLI-2"), picker(RC, "CLI-2")},
                                                {"[frmReferencia_Articulos]"}}},
    {"unknown reference, not created", {"P", " .NOPE ", {"N"}, " .NOPE |", {of(R, "Cod_Prov =1 And ", "NOPE")}, {kNoRef}}},
    {"a slash: barcode 123", {"", "/123", {"N"}, "/123|", {cb("123")}, {kNoCb}}},
    {"a hyphen: barcode 123", {"", "-123", {"N"}, "-123|", {cb("123")}, {kNoCb}}},
    {"a slash: barcode found", {"M", "/84123457", {}, "1|TORNILLO HEXAGONAL M6", {cb("84123457"), L(1)}}},
    {"wrong check digit: not created", {"", "/8412345678906", {"Y"}, "/8412345678906|", {cb("8412345678906")},
                                        {kNoCb, "48 ¡ Atención !: El dígito de control del código de barras no es correcto."}}},
    {"13 digits scanned", {"M", "8470001234561", {}, "4711|COLONIA FRESCA 100 ML", {cb("8470001234561"), L(4711)}}},
    {"12 digits with qualities X, Y", {"M", "000004990305", {}, "4|CAMISA MANGA LARGA|3/5:M/ROJO",
                                       {cb("000004990305"), qualities("03", "05", 4), L(4)}}},
    {"12 digits with qualities Y, X", {"YM", "000004990305", {}, "4|CAMISA MANGA LARGA|5/3:XL/AZUL",
                                       {cb("000004990305"), qualities("05", "03", 4), L(4)}}},
    {"30 digits, no such qualities", {"", QString(30, u'9'), {}, QString(30, u'9') + "|ARTICULO INEXISTENTE",
                                      {cb(QString(30, u'9')), qualities("99", "99", 999999)}}},
    {"30 digits, company without qualities", {"IM0", QString(30, u'9'), {}, "0000000|ARTICULO INICIAL", {cb(QString(30, u'9'))}}},
    {"free text, first layout; its criteria handed over and back", {"M", "TOR§", {"txtNombre?;txtNombre=TORN;F9;#0", "txtNombre?"},
        "1|TORNILLO HEXAGONAL M6", {"…", kTag, L(1), kTag},
        {"[frmBusqueda_Articulos_1]", "txtNombre: TOR", "[frmBusqueda_Articulos_1]", "txtNombre: TORN"}}},
    {"free text, second layout", {"2M", "ABR", {"#0"}, "1|ABRIGO DE PAÑO",
                                  {"…", QString(kTag).replace("=1", "=2"), L(1).replace("=1", "=2")}, {"[frmBusqueda_Articulos_2]"}}},
    {"free text, nothing chosen", {"", "XYZ", {""}, "XYZ|", {"…", kTag}, {"[frmBusqueda_Articulos_1]"}}},
    // Creation: the reference typed, 200 characters long, is the article's first (principal).
    {"new reference, principal", {"PM", "." + kLong, {"Y", "txtArticulo=5;F9"}, "5|ÁGUILA DE BRONCE",
        {"…", "SELECT MostrarCualidades FROM Empresas WHERE Codigo=1",
         "SELECT Ref FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Articulo <> 5 AND Cod_Prov =1 And Ref ='" + kLong + "'",
         principal(R, 5), "INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (1, 5, 1, '" + kLong + "', 1)",
         L(5)},
        {kNoRef, "[frmReferencias_Modificar]"},
        {"SELECT Cod_Articulo, Principal, LENGTH(Ref) FROM Articulos_Ref WHERE Ref LIKE 'NEW-%'", "5|1|200"}}},
    // The reference's dialog checks the supplier last, so that it is what the clerk is told first.
    {"new reference, all three boxes emptied", {"P", ".X", {"Y", "txtArticulo=;txtProv=;txtReferencia=;F9;focus?"}, ".X|", {"…"},
        {kNoRef, "[frmReferencias_Modificar]", "48 ¡ Atención !: Debe especificar el proveedor del artículo", "focus: txtProv"}}},
    {"new reference with an apostrophe, not principal", {"P", ".O'BRIEN 1", {"Y", "txtArticulo=1;F9"}, "1|TORNILLO HEXAGONAL M6",
        {"…", of(R, "Cod_Prov =1 And ", "O''BRIEN 1"), principal(R, 1),
         "INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (1, 1, 1, 'O''BRIEN 1', 0)"},
        {kNoRef, "[frmReferencias_Modificar]"},
        {"SELECT Ref, Principal FROM Articulos_Ref WHERE Cod_Articulo = 1 ORDER BY 2", "O'BRIEN 1|0", "TH-M6|1"}}},
    {"reference of another article, transferred", {"Q", ".TH-M6", {"Y", "txtArticulo=5;txtProv=1;F9", "Y"}, "5|ÁGUILA DE BRONCE",
        {"…", "SELECT Ref FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Articulo <> 5 AND Cod_Prov =1 And Ref ='TH-M6'",
         "DELETE FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Cod_Prov =1 AND Ref ='TH-M6'", principal(R, 5)},
        {kNoRef, "[frmReferencias_Modificar]", kMove}, {kThm6, "5|1|1"}}},
    {"reference of another article, shared", {"Q", ".TH-M6", {"Y", "txtArticulo=5;txtProv=1;F9", "N"}, "5|ÁGUILA DE BRONCE",
        {"…", principal(R, 5), "INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES (1, 5, 1, 'TH-M6', 1)"},
        {kNoRef, "[frmReferencias_Modificar]", kMove}, {kThm6, "1|1|1", "5|1|1"}}},
    {"insertion refused: no transfer either", {"QT", ".TH-M6", {"Y", "txtArticulo=5;txtProv=1;F9", "Y", ""}, ".TH-M6|",
        {"…", "DELETE FROM Articulos_Ref WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Cod_Prov =1 AND Ref ='TH-M6'"},
        {kNoRef, "[frmReferencias_Modificar]", kMove, "16 kdArticulos::CrearReferencia"}, {kThm6, "1|1|1"}}},
    {"new barcode, principal, with its units", {"M", "/999", {"Y", "txtArticulo=5;txtUnidades=6;F9"}, "5|ÁGUILA DE BRONCE",
        {"…", "SELECT Cod_Articulo, Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo <> 5 AND Cod_Barras ='999'",
         principal(CB, 5), "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, "
         "Automatico) VALUES (1, 5, '999', 1, '" + FechaSQL::instance().Hoy() + "', 6, 0)", L(5)},
        {kNoCb, "[frmCodBarra_Datos]"}, {"SELECT Cod_Articulo, Principal, Unidades, Fecha FROM Articulos_CBarras WHERE Cod_Barras = '999'",
                                          "5|1|6|" + QDate::currentDate().toString(Qt::ISODate)}}},
    {"barcode of another article, transferred", {"M", "/999", {"Y", "txtArticulo=5;txtCB=4006381333931;F9", "Y"}, "5|ÁGUILA DE BRONCE",
        {"…", "DELETE FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo =2 And Cod_Barras ='4006381333931'", L(5)},
        {kNoCb, "[frmCodBarra_Datos]", "36 Confirmar: El código de barras especificado ya existe en el artículo: 2. ¿Desea traspasarlo?"},
        {"SELECT Cod_Articulo, Principal FROM Articulos_CBarras WHERE Cod_Barras = '4006381333931'", "5|1"}}},
};

} // namespace

Q_DECLARE_METATYPE(Row)

class tst_kdArticulo : public QObject
{
    Q_OBJECT

private slots:
    void entries_data()
    {
        QTest::addColumn<Row>("r");
        QTest::addColumn<bool>("enter");
        for (const auto &[name, row] : kRows) {
            QTest::addRow("%s, Enter", name) << row << true;
            QTest::addRow("%s, leaving", name) << row << false;
        }
    }
    void entries()
    {
        QFETCH(Row, r);
        QFETCH(bool, enter);
        const auto has = [&](char flag) { return r.flags.contains(QLatin1Char(flag)); };
        Testing::TestDatabase db;
        Testing::Clerk clerk;
        clerk.steps = r.clerk;
        if (has('T'))
            QSqlQuery(db.conexion()->database()).exec("CREATE TRIGGER no BEFORE INSERT ON Articulos_Ref BEGIN SELECT RAISE(ABORT, 'no'); END");
        QWidget window;
        auto *box = new kdArticulo;
        auto *after = new QLineEdit;
        Testing::stack(window, {box, after});
        box->setKeyEnterChangeFocus(true);
        box->setVital(has('V'));
        box->setInicial(has('I'));
        box->setProveedor(has('P') ? 1 : has('Q') ? 2 : 0);
        box->setCliente(has('C') ? 1001 : 0);
        cEmpresa *empresa = db.empresa(has('2') ? 2 : 1);
        empresa->setCualidadesOrdenYX(has('Y'));
        empresa->setCBarrasConCualidades(!has('0') && empresa->CBarrasConCualidades());
        box->setCEmpresa(empresa);
        QVERIFY(Testing::showActive(window));
        auto *code = box->findChild<TextField *>(QStringLiteral("txtCodigo"));
        box->setFocus();
        Testing::typeText(code, QString(r.typed).remove(u'§'));
        enter ? QTest::keyClick(code, Qt::Key_Return) : after->setFocus();
        Testing::settle();
        if (enter && !clerk.shown.join(u'\n').contains(u':')) // a scripted message box does not give the focus back
            QCOMPARE(QApplication::focusWidget() == after, has('M'));
        if (r.typed.endsWith(u'§')) {
            code->setFocus();
            QTest::keyClick(code, Qt::Key_F3);
        }
        const QString qualities = QStringLiteral("|%1/%2:%3/%4").arg(box->Valor_CualidadX()).arg(box->Valor_CualidadY())
                                      .arg(box->Nombre_CualidadX(), box->Nombre_CualidadY());
        QCOMPARE(box->Text() + u'|' + box->Nombre() + (box->TieneCualidad() ? qualities : QString()), r.result);
        QStringList expected = r.statements;
        if (expected.value(0) == u"…") // these, in this order, among others
            for (const QString &s : std::as_const(db.statements))
                if (expected.size() > 1 && s == expected[1])
                    expected.removeAt(1);
        QCOMPARE(expected.value(0) == u"…" ? expected.mid(1) : db.statements, expected.value(0) == u"…" ? QStringList() : expected);
        QCOMPARE(clerk.shown, r.shown);
        if (!r.effect.isEmpty())
            QCOMPARE(db.rows(r.effect.first()), r.effect.mid(1));
    }
};

QTEST_MAIN(tst_kdArticulo)
#include "tst_kdArticulo.moc"
