#include "articles/clsArticulo_CBarra.h"
#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/TransactionScope.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"

#include <QProcess>
#include <QTest>
#include <optional>
#include <type_traits>

using namespace Varnel_Controles;

// The range of Calc_Check reaches SQL only as numbers.
static_assert(!std::is_invocable_v<decltype(&clsArticulo_CBarra::Calc_Check), clsArticulo_CBarra &, QString, QString>);

namespace {

// The statement of Existe for a code.
QString existe(const QString &code)
{
    return QStringLiteral("SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal FROM "
                          "Articulos_CBarras a LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = "
                          "a.Cod_Articulo) WHERE a.Cod_Barras = '%1' and a.Cod_Empresa = 1").arg(code);
}

// The DbError an operation raises; number 0 when it raises none.
template <typename Operation>
DbError raised(Operation operation)
{
    try {
        operation();
    } catch (const DbError &e) {
        return e;
    }
    return DbError(0, QStringLiteral("no error"));
}

struct Fixture
{
    Testing::TestDatabase db;
    Testing::ScriptedUi ui;
    clsArticulo_CBarra cb;
    Recordset rs;
    Fixture()
    {
        cb.setConexion(db.conexion());
        cb.setCEmpresa(db.empresa());
    }
    // "code|principal|units" of the article's barcodes.
    QStringList barcodes(int article) const
    {
        return db.rows(QStringLiteral("SELECT Cod_Barras, Principal, Unidades FROM Articulos_CBarras WHERE Cod_Empresa = 1 "
                                      "AND Cod_Articulo = %1 ORDER BY Cod_Barras").arg(article));
    }
    // Calls an operation as a form does, the fields set first (two units). A read gives back
    // what it found and loaded; a write, the article's barcodes after it.
    QString call(const QString &op, int article, const QString &code = {}, bool principal = true)
    {
        cb.setKey(article);
        cb.setCod_Articulo(article);
        cb.setCod_Barras(code);
        cb.setPrincipal(principal);
        cb.setUnidades(2);
        std::optional<QString> read;
        const auto loaded = [&](bool found) {
            return QStringLiteral("%1 %2 %3 %4 %5 %6").arg(found).arg(cb.Cod_Articulo()).arg(cb.Cod_Barras())
                .arg(cb.Unidades()).arg(cb.Principal()).arg(cb.Fecha().toString(Qt::ISODate));
        };
        const QHash<QString, std::function<void()>> calls{
            {"Cargar", [&] { read = loaded(cb.Cargar(rs, article)); }},
            {"Cargar_Siguiente", [&] { read = loaded(cb.Cargar_Siguiente(rs)); }},
            {"Cargar_Anterior", [&] { read = loaded(cb.Cargar_Anterior(rs)); }},
            {"Cargar_Primero", [&] { read = loaded(cb.Cargar_Primero(rs)); }},
            {"Cargar_Ultimo", [&] { read = loaded(cb.Cargar_Ultimo(rs)); }},
            {"Dev_CodigoBarraPrincipal", [&] { read = cb.Dev_CodigoBarraPrincipal(article); }},
            {"Insertar", [&] { cb.Insertar(); }},
            {"Cambia_Principal", [&] { cb.Cambia_Principal(code); }},
            {"Modificar", [&] { cb.Modificar(QStringLiteral("98765432")); }},
            {"ModificarPrincipal", [&] { cb.ModificarPrincipal(); }},
            {"Eliminar", [&] { cb.Eliminar(code, article, principal); }},
            {"Calc_Check", [&] { cb.Calc_Check(article, article + 9); }},
        };
        calls.value(op)();
        return read ? *read : barcodes(article).join(u',');
    }
};

// One call on the seeded company: what it gives back, the statements it announces, and the
// source its failure carries once the table is gone.
struct Call
{
    QString op;
    int article;
    QString code;
    bool principal;
    QString result, source;
    QStringList statements; // {hoy}: today as the statements write it
};

// An operation whose second statement fails (the trigger raising), or whose insert is refused.
struct Fault
{
    QString op;
    int article;
    QString code, trigger;
    bool nested;
};

// CrearAuto for article 5 after `setup`: the code or the error, the counter, the statements.
struct Auto
{
    QStringList setup;
    QString code, error, counter;
    QStringList statements = {};
};

} // namespace

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Fault)
Q_DECLARE_METATYPE(Auto)

class tst_clsArticulo_CBarra : public QObject
{
    Q_OBJECT

private slots:
    // The digit completing a payload; a code of 7 digits or more is valid only with it.
    void checkDigitsAndValidation_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<int>("digit");
        QTest::newRow("EAN-8") << "9810001" << 9;
        QTest::newRow("letters count 0, pass") << "98A0001" << 2;
        QTest::newRow("after the twelfth ignored") << "4006381333939" << 1;
        QTest::newRow("nine digits: EAN-13 weights") << "100000000" << 9;
        QTest::newRow("eight digits: EAN-8 weights") << "10000000" << 7;
    }
    void checkDigitsAndValidation()
    {
        QFETCH(QString, payload);
        QFETCH(int, digit);
        clsArticulo_CBarra cb;
        QCOMPARE(int(cb.Dev_Check(payload)), digit);
        cb.setCod_Barras(payload + QString::number(digit));
        QVERIFY(cb.Validar());
        cb.setCod_Barras(payload + QString::number((digit + 1) % 10));
        QCOMPARE(cb.Validar(), payload.toULongLong() == 0); // letters pass
    }

    void resultsStatementsAndFailureSources_data()
    {
        QTest::addColumn<Call>("c");
        const QString walk = QStringLiteral("SELECT * From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (%1) "
                                            "ORDER BY Principal DESC");
        const QString step = QStringLiteral("SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND "
                                            "Cod_Articulo %1 ORDER BY Cod_Articulo %2");
        const QString insert = QStringLiteral(
            "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, "
            "Automatico) VALUES (1, 1, '84000001', %1, '{hoy}', 2, 0)");
        QTest::newRow("Cargar, principal first") << Call{"Cargar", 1, "", true, "1 1 8412345678905 1 1 2025-01-10", "Cargar",
            {"SELECT * FROM Articulos_CBarras WHERE Cod_Articulo = 1 and Cod_Empresa = 1 ORDER BY Principal DESC"}};
        QTest::newRow("Cargar_Siguiente") << Call{"Cargar_Siguiente", 1, "", true, "1 2 4006381333931 1 1 2025-02-11",
                                                  "Cargar", {walk.arg(step.arg("> 1", "ASC"))}};
        QTest::newRow("Cargar_Siguiente: the last, nothing moves")
            << Call{"Cargar_Siguiente", 4711, "", true, "0 4711  2 1 ", "Cargar", {walk.arg(step.arg("> 4711", "ASC"))}};
        QTest::newRow("Cargar_Anterior") << Call{"Cargar_Anterior", 4711, "", true, "1 4 98765432 1 0 2025-04-13",
                                                 "Cargar", {walk.arg(step.arg("< 4711", "DESC"))}};
        QTest::newRow("Cargar_Primero") << Call{"Cargar_Primero", 4, "", true, "1 1 8412345678905 1 1 2025-01-10", "Cargar",
            {walk.arg("SELECT ISNULL(MIN(Cod_Articulo), '') FROM Articulos_CBarras WHERE Cod_Empresa =1")}};
        QTest::newRow("Cargar_Ultimo") << Call{"Cargar_Ultimo", 1, "", true, "1 4711 8470001234561 1 1 2025-07-16", "Cargar",
            {walk.arg("SELECT ISNULL(MAX(Cod_Articulo), 0) FROM Articulos_CBarras WHERE Cod_Empresa =1")}};
        QTest::newRow("Dev_CodigoBarraPrincipal") << Call{"Dev_CodigoBarraPrincipal", 2, "", true, "4006381333931", "Existe",
            {"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 2 AND Cod_Empresa = 1 AND Principal = 1"}};
        QTest::newRow("Insertar, principal: the old one demoted") << Call{"Insertar", 1, "84000001", true,
            "18412345678902|0|12,84000001|1|2,8412345678905|0|1,84123457|0|1", "Insertar",
            {"UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Principal =1",
             insert.arg(1)}};
        QTest::newRow("Insertar, not principal") << Call{"Insertar", 1, "84000001", false,
            "18412345678902|0|12,84000001|0|2,8412345678905|1|1,84123457|0|1", "Insertar", {insert.arg(0)}};
        QTest::newRow("Cambia_Principal") << Call{"Cambia_Principal", 1, "84123457", true,
            "18412345678902|0|12,8412345678905|0|1,84123457|1|1", "Modificar",
            {"UPDATE Articulos_CBarras SET Principal=0 WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND Principal = 1",
             "UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa =1 AND Cod_Articulo =1 AND "
             "Cod_Barras = '84123457'"}};
        QTest::newRow("Modificar: the row of Key") << Call{"Modificar", 4, "98765433", true, "98765433|1|2", "Modificar",
            {"UPDATE Articulos_CBarras SET Cod_Barras ='98765433', Unidades =2, Principal =1 WHERE Cod_Empresa =1 AND "
             "Cod_Articulo =4 AND Cod_Barras ='98765432'"}};
        QTest::newRow("ModificarPrincipal, its own code") << Call{"ModificarPrincipal", 4711, "8470001234561", true,
            "8470001234561|1|1", "Modificar", {existe("8470001234561"), "UPDATE Articulos_CBarras SET Cod_Barras "
            "='8470001234561' WHERE Cod_Empresa =1 AND Cod_Articulo =4711 AND Principal = 1"}};
        QTest::newRow("Eliminar, principal: another promoted") << Call{"Eliminar", 1, "8412345678905", true,
            "18412345678902|1|12,84123457|0|1", "Existe",
            {"UPDATE Articulos_CBarras SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 "
             "and Cod_Empresa =1 and Cod_Articulo =1) as a Where a.Cod_Barras = Articulos_CBarras.Cod_Barras",
             "DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 and Cod_Articulo = 1 and Cod_Barras = '8412345678905'"}};
        QTest::newRow("Calc_Check") << Call{"Calc_Check", 1, "", true, "18412345678902|0|12,8412345678905|1|1,84123457|0|1",
            "Calc_Check", {"SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND "
            "Cod_Articulo BETWEEN 1 AND 10 AND LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7"}};
    }
    void resultsStatementsAndFailureSources()
    {
        QFETCH(Call, c);
        Fixture f;
        QCOMPARE(f.call(c.op, c.article, c.code, c.principal), c.result);
        QCOMPARE(f.db.statements,
                 c.statements.replaceInStrings(QStringLiteral("{hoy}"), FechaSQL::instance().Hoy()));
        f.rs.close();
        f.db.conexion()->execute(QStringLiteral("ALTER TABLE Articulos_CBarras RENAME TO Fuera"));
        const DbError e = raised([&] { f.call(c.op, c.article, c.code, c.principal); });
        QCOMPARE(e.Source(), QStringLiteral("clsCodigos_Barra::") + c.source);
    }

    // Each two-statement operation succeeds whole or changes nothing, on its own or inside the
    // caller's transaction (which goes on and can still commit what it did before).
    void aFailingSecondStatementChangesNothing_data()
    {
        QTest::addColumn<Fault>("c");
        for (bool nested : {false, true}) {
            const char *where = nested ? "inside the caller's transaction" : "alone";
            QTest::addRow("Insertar: the insert fails, %s", where)
                << Fault{"Insertar", 1, "84000001", "INSERT ON Articulos_CBarras", nested};
            QTest::addRow("Insertar: the code is the article's already, %s", where)
                << Fault{"Insertar", 1, "84123457", "", nested};
            QTest::addRow("Cambia_Principal: the promotion fails, %s", where)
                << Fault{"Cambia_Principal", 1, "84123457", "UPDATE ON Articulos_CBarras WHEN NEW.Principal = 1", nested};
            QTest::addRow("Eliminar: the delete fails, %s", where)
                << Fault{"Eliminar", 1, "8412345678905", "DELETE ON Articulos_CBarras", nested};
            QTest::addRow("ModificarPrincipal: the code moves, the rewrite fails, %s", where)
                << Fault{"ModificarPrincipal", 4711, "84123457", "UPDATE OF Cod_Barras ON Articulos_CBarras", nested};
        }
    }
    void aFailingSecondStatementChangesNothing()
    {
        QFETCH(Fault, c);
        Fixture f;
        f.ui.answerMessages({UiSeam::vbYes}); // ModificarPrincipal: article 1's code moves to article 4711
        Conexion *db = f.db.conexion();
        if (!c.trigger.isEmpty())
            db->execute("CREATE TRIGGER fallo BEFORE " + c.trigger + " BEGIN SELECT RAISE(ABORT, 'fallo inyectado'); END");
        std::optional<TransactionScope> caller;
        if (c.nested) {
            caller.emplace(db);
            db->execute(QStringLiteral("DELETE FROM Marcas WHERE Codigo = 1"));
        }
        const QString before = f.db.fingerprint();
        const DbError e = raised([&] { f.call(c.op, c.article, c.code); });
        QVERIFY2(e.Number() != 0 && (c.trigger.isEmpty() || e.Description().contains(QLatin1String("fallo inyectado"))),
                 qPrintable(e.Description()));
        QCOMPARE(f.db.fingerprint(), before);
        QCOMPARE(db->inTransaction(), c.nested);
        if (caller) {
            caller->commit();
            QCOMPARE(f.db.scalar(QStringLiteral("SELECT COUNT(*) FROM Marcas WHERE Codigo = 1")).toInt(), 0);
        }
    }

    void modificarPrincipalAsksBeforeMovingACode()
    {
        Fixture f;
        const QString before = f.db.fingerprint();
        f.ui.answerMessages({UiSeam::vbNo});
        f.call(QStringLiteral("ModificarPrincipal"), 4711, QStringLiteral("84123457")); // article 1's
        QCOMPARE(f.ui.messages.size(), 1);
        QCOMPARE(f.ui.messages[0].prompt,
                 QStringLiteral("El EAN 84123457 existe en el artículo 1 - TORNILLO HEXAGONAL M6. ¿Desea Traspasarlo?"));
        QCOMPARE(QString::number(f.ui.messages[0].style) + u' ' + f.ui.messages[0].title, "292 Confirme la operación...");
        QCOMPARE(f.db.fingerprint(), before);
        // Yes: the code of another article's principal replaces this one's; that article elects another.
        f.ui.answerMessages({UiSeam::vbYes});
        QCOMPARE(f.call(QStringLiteral("ModificarPrincipal"), 4711, QStringLiteral("8412345678905")), "8412345678905|1|1");
        QCOMPARE(f.barcodes(1), (QStringList{"18412345678902|1|12", "84123457|0|1"}));
        QCOMPARE(f.call(QStringLiteral("ModificarPrincipal"), 4, QStringLiteral("22222222")), // none: a row of one unit
                 "22222222|1|1,98765432|0|1");
    }

    // The range's twelve-character codes get their digit, and (no parentheses around the range)
    // every seven-character code of the table, trimmed; completed codes are not selected again.
    void completingCheckDigits()
    {
        Fixture f;
        f.db.conexion()->execute(QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) "
                                                "VALUES (1,5,'400638133393'), (1,50,'841234567890'), (2,1,'9810002 ')"));
        for (int twice = 0; twice < 2; ++twice)
            f.cb.Calc_Check(1, 10);
        QCOMPARE(f.db.rows(QStringLiteral("SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo IN (5, 50) OR "
                                          "Cod_Empresa = 2 ORDER BY 1")),
                 (QStringList{"4006381333931", "841234567890", "8412345678905", "98100026"}));
    }

    void automaticCodes_data()
    {
        QTest::addColumn<Auto>("c");
        const QString counter = QStringLiteral("INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '%1')");
        const QString barcode = QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, "
                                               "Automatico) VALUES (1, %1, '%2', %3)");
        const QStringList locked{"SELECT * FROM Contador_CBarras WHERE Cod_Empresa=1",
                                 "SELECT * FROM Articulos_CBarras WHERE Cod_Empresa=1 AND Cod_Articulo=5 AND Automatico=1"};
        QTest::newRow("the first; its own code is looked up under the counter's lock") << Auto{{}, "98100019", "", "9810001",
            locked + QStringList{"INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '9810001')"}};
        QTest::newRow("a number given by hand is skipped")
            << Auto{{counter.arg(9810001), barcode.arg(6).arg("98100026").arg(0)}, "98100033", "", "9810003",
                    locked + QStringList{existe("98100026"), existe("98100033"),
                                         "UPDATE Contador_CBarras SET Cod_Barras = '9810003' WHERE Cod_Empresa = 1"}};
        QTest::newRow("the article's automatic code again, the counter stays")
            << Auto{{counter.arg(9810003), barcode.arg(5).arg("98100033").arg(1)}, "98100033", "", "9810003", locked};
        QTest::newRow("past 9999999: eight digits") << Auto{{counter.arg(9999999)}, "100000007", "", "10000000"};
        for (const char *stored : {"&HFFFFFFFFFFFFFFFFFFF", "1e300", "-5"})
            QTest::addRow("%s is refused", stored)
                << Auto{{counter.arg(stored)}, "", QStringLiteral("guarda «%1»").arg(stored), stored};
        QTest::newRow("twenty digits") << Auto{{counter.arg("99999999999999999999")}, "",
                                               "no es un número entero de hasta 19 cifras", "99999999999999999999"};
        QTest::newRow("the largest number") << Auto{{counter.arg("9999999999999999999")}, "",
                                                    "ha llegado a 9999999999999999999", "9999999999999999999"};
    }
    void automaticCodes()
    {
        QFETCH(Auto, c);
        Fixture f;
        for (const QString &sql : std::as_const(c.setup))
            f.db.conexion()->execute(sql);
        f.db.statements.clear();
        f.cb.setCod_Articulo(5);
        QString code;
        const DbError e = raised([&] { code = f.cb.CrearAuto(); });
        QCOMPARE(code, c.code);
        QVERIFY2(e.Description().contains(c.error), qPrintable(e.Description()));
        QCOMPARE(QString::number(e.Number()) + e.Source(), c.error.isEmpty() ? "0" : "6clsCodigos_Barra::CrearAuto");
        QCOMPARE(f.db.rows(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras")), QStringList{c.counter});
        if (!c.statements.isEmpty())
            QCOMPARE(f.db.statements, c.statements);
        QVERIFY(!f.db.conexion()->inTransaction());
    }

    // Four processes on one file ask for the same 250 articles, each storing the code in the
    // transaction that issued it: one code for each article, none given twice.
    void fourProcessesNeverShareACode()
    {
        Testing::TestDatabase db;
        QProcess workers[4];
        for (QProcess &p : workers)
            p.start(QStringLiteral(KD_CREARAUTO_WORKER), {db.path(), QStringLiteral("250"), QStringLiteral("10000")});
        QStringList issued;
        for (QProcess &p : workers) {
            QVERIFY(p.waitForFinished(300000));
            QVERIFY2(p.exitCode() == 0, p.readAllStandardError().constData());
            issued << QString::fromLatin1(p.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
        }
        issued.removeDuplicates();
        QCOMPARE(issued.size(), 250);
        const QString automatic = QStringLiteral("SELECT c.Cod_Barras, COUNT(*), COUNT(DISTINCT Cod_Articulo) FROM "
                                                 "Contador_CBarras c, Articulos_CBarras a WHERE a.Automatico = 1");
        QCOMPARE(db.rows(automatic), QStringList{"9810250|250|250"});
    }
};

QTEST_GUILESS_MAIN(tst_clsArticulo_CBarra)
#include "tst_clsArticulo_CBarra.moc"
