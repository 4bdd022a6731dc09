#include "articles/EanCheckDigit.h"
#include "articles/clsArticulo_CBarra.h"
#include "data/DbError.h"
#include "data/FechaSQL.h"
#include "data/Recordset.h"
#include "data/TransactionScope.h"
#include "support/ScriptedUi.h"
#include "support/TestDatabase.h"

#include <QProcess>
#include <QSet>
#include <QTest>
#include <optional>
#include <type_traits>

using namespace Varnel_Controles;

namespace {

struct Fixture
{
    Testing::TestDatabase db;
    clsArticulo_CBarra cb;
    Fixture()
    {
        cb.setConexion(db.conexion());
        cb.setCEmpresa(db.empresa());
    }
    QStringList barcodes(int article)
    {
        return db.rows(QStringLiteral("SELECT Cod_Barras, Principal FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = %1 ORDER BY Cod_Barras").arg(article));
    }
    int principals(int article)
    {
        return db.scalar(QStringLiteral("SELECT COUNT(*) FROM Articulos_CBarras WHERE Cod_Empresa = 1 AND Cod_Articulo = %1 AND Principal = 1").arg(article)).toInt();
    }
};

} // namespace

class tst_clsArticulo_CBarra : public QObject
{
    Q_OBJECT

private slots:
    void checkDigits_data()
    {
        QTest::addColumn<QString>("payload");
        QTest::addColumn<int>("digit");
        QTest::newRow("EAN-8 9810001") << "9810001" << 9;
        QTest::newRow("EAN-8 9810002") << "9810002" << 6;
        QTest::newRow("EAN-8 9810010") << "9810010" << 1;
        QTest::newRow("EAN-13 400638133393") << "400638133393" << 1;
        QTest::newRow("EAN-13 841234567890") << "841234567890" << 5;
        QTest::newRow("UPC-A weighted from the left") << "03600029145" << 8;
        QTest::newRow("letters count 0") << "98A0001" << EanCheckDigit::compute(QStringLiteral("9800001"));
        QTest::newRow("after the twelfth ignored") << "4006381333939" << 1;
        QTest::newRow("nine digits: EAN-13 weights") << "100000000" << 9;
        QTest::newRow("eight digits: EAN-8 weights") << "10000000" << 7;
    }
    void checkDigits()
    {
        QFETCH(QString, payload);
        QFETCH(int, digit);
        clsArticulo_CBarra cb;
        QCOMPARE(int(cb.Dev_Check(payload)), digit);
    }

    void storedCodeRecomputed()
    {
        clsArticulo_CBarra cb;
        cb.setCod_Barras(QStringLiteral("98100019"));
        QCOMPARE(int(cb.Dev_Check(QString())), 9);
        cb.setCod_Barras(QString());
        try {
            cb.Dev_Check(QString());
            QFAIL("no error");
        } catch (const DbError &e) {
            QCOMPARE(e.Source(), QStringLiteral("clsCodigos_Barra::Dev_Check"));
        }
    }

    void validation_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<bool>("valid");
        QTest::newRow("empty") << "" << true;
        QTest::newRow("short") << "12345" << true;
        QTest::newRow("alphanumeric") << "ABC1234567" << true;
        QTest::newRow("blank inside") << "9810 0019" << true;
        QTest::newRow("apostrophe") << "98100'18" << true;
        QTest::newRow("EAN-8 valid") << "98100019" << true;
        QTest::newRow("EAN-8 wrong") << "98100018" << false;
        QTest::newRow("EAN-13 valid") << "4006381333931" << true;
        QTest::newRow("EAN-13 wrong") << "4006381333932" << false;
        QTest::newRow("UPC-A rejected") << "036000291452" << false;
    }
    void validation()
    {
        QFETCH(QString, code);
        QFETCH(bool, valid);
        clsArticulo_CBarra cb;
        cb.setCod_Barras(code);
        QCOMPARE(cb.Validar(), valid);
    }

    void loadingAndNavigation()
    {
        Fixture f;
        Recordset rs;
        QVERIFY(f.cb.Cargar(rs, 1));
        QCOMPARE(f.cb.Cod_Barras(), QStringLiteral("8412345678905")); // the principal first
        QVERIFY(f.cb.Principal());
        QCOMPARE(f.cb.Fecha(), QDate(2025, 1, 10));
        QCOMPARE(f.cb.Unidades(), qint16(1));
        rs.moveNext(); // the caller reads the others
        QVERIFY(!rs.eof());
        rs.moveNext();
        QCOMPARE(rs.text(QStringLiteral("Cod_Barras")).size() > 0, true);
        rs.moveNext();
        QVERIFY(rs.eof());

        QVERIFY(!f.cb.Cargar(rs, 3)); // no barcodes
        QVERIFY(rs.isOpen() && rs.eof());
        QCOMPARE(f.cb.Cod_Articulo(), 3);
        QCOMPARE(f.cb.Cod_Barras(), QStringLiteral("8412345678905")); // the previous row's fields stay

        QVERIFY(f.cb.Cargar_Siguiente(rs)); // Key is still 1: a miss does not move it
        QCOMPARE(f.cb.Cod_Articulo(), 2);
        QVERIFY(f.cb.Cargar_Siguiente(rs));
        QCOMPARE(f.cb.Cod_Articulo(), 4);
        QVERIFY(f.cb.Cargar_Siguiente(rs));
        QCOMPARE(f.cb.Cod_Articulo(), 4711);
        QVERIFY(!f.cb.Cargar_Siguiente(rs)); // the last: nothing moves
        QCOMPARE(f.cb.Cod_Articulo(), 4711);
        QVERIFY(f.cb.Cargar_Anterior(rs)); // still from 4711
        QCOMPARE(f.cb.Cod_Articulo(), 4);
        QVERIFY(f.cb.Cargar_Primero(rs));
        QCOMPARE(f.cb.Cod_Articulo(), 1);
        QVERIFY(!f.cb.Cargar_Anterior(rs));
        QCOMPARE(f.cb.Cod_Articulo(), 1);
        QVERIFY(f.cb.Cargar_Ultimo(rs));
        QCOMPARE(f.cb.Cod_Articulo(), 4711);
        QCOMPARE(f.cb.Cod_Barras(), QStringLiteral("8470001234561"));

        f.db.conexion()->execute(QStringLiteral("DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1"));
        QVERIFY(!f.cb.Cargar_Primero(rs)); // a company without barcodes
        QVERIFY(!f.cb.Cargar_Ultimo(rs));
    }

    void queries()
    {
        Fixture f;
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(2), QStringLiteral("4006381333931"));
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(3), QString());
        qint32 art = -5;
        QString name = QStringLiteral("x");
        qint16 units = -5;
        bool principal = true;
        QVERIFY(f.cb.Existe(QStringLiteral("18412345678902"), art, name, units, principal));
        QCOMPARE(art, 1);
        QCOMPARE(name, QStringLiteral("TORNILLO HEXAGONAL M6"));
        QCOMPARE(units, qint16(12));
        QCOMPARE(principal, false);
        f.db.conexion()->execute(QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Unidades) VALUES (1, 999, '555', 1, 6)"));
        QVERIFY(f.cb.Existe(QStringLiteral("555"), art, name, units, principal));
        QCOMPARE(name, QString()); // no article row
        art = -5;
        QVERIFY(!f.cb.Existe(QStringLiteral("O'NEIL"), art, name, units, principal));
        QCOMPARE(art, -5); // a miss leaves the arguments alone
    }

    void principalRules()
    {
        Fixture f;
        // A new principal demotes the old one.
        f.cb.setCod_Articulo(1);
        f.cb.setCod_Barras(QStringLiteral("84000001"));
        f.cb.setPrincipal(true);
        f.cb.setUnidades(6);
        f.cb.Insertar();
        QCOMPARE(f.principals(1), 1);
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(1), QStringLiteral("84000001"));
        QCOMPARE(f.db.rows(QStringLiteral("SELECT Fecha, Unidades, Automatico FROM Articulos_CBarras WHERE Cod_Barras = '84000001'")),
                 QStringList{QDate::currentDate().toString(Qt::ISODate) + QStringLiteral("|6|0")});
        // A non-principal insert touches nothing else.
        f.cb.setCod_Barras(QStringLiteral("84000002"));
        f.cb.setPrincipal(false);
        f.cb.Insertar();
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(1), QStringLiteral("84000001"));
        // Deleting the principal promotes another of the article.
        f.cb.Eliminar(QStringLiteral("84000001"), 1, true);
        QCOMPARE(f.principals(1), 1);
        QVERIFY(!f.barcodes(1).join(u',').contains(QLatin1String("84000001")));
        // Deleting the only barcode leaves none.
        f.cb.Eliminar(QStringLiteral("4006381333931"), 2, true);
        QVERIFY(f.barcodes(2).isEmpty());
        // Changing the principal; to a code the article does not have leaves it without one.
        f.cb.setCod_Articulo(1);
        f.cb.Cambia_Principal(QStringLiteral("84123457"));
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(1), QStringLiteral("84123457"));
        f.cb.Cambia_Principal(QStringLiteral("00000000"));
        QCOMPARE(f.principals(1), 0);
        // Modificar rewrites the row of Key, leaving the others' flags.
        Recordset rs;
        f.cb.Cargar(rs, 4);
        f.cb.setCod_Barras(QStringLiteral("98765433"));
        f.cb.setUnidades(3);
        f.cb.setPrincipal(true);
        f.cb.Modificar(QStringLiteral("98765432"));
        QCOMPARE(f.barcodes(4), QStringList{"98765433|1"});
    }

    void modificarPrincipalAsksBeforeMovingACode()
    {
        Fixture f;
        Testing::ScriptedUi ui;
        const QString before = f.db.fingerprint();
        f.cb.setCod_Articulo(4711);
        f.cb.setCod_Barras(QStringLiteral("84123457")); // article 1's
        f.cb.setPrincipal(true);
        ui.answerMessages({UiSeam::vbNo});
        f.cb.ModificarPrincipal();
        QCOMPARE(ui.messages.size(), 1);
        QCOMPARE(ui.messages[0].prompt, QStringLiteral("El EAN 84123457 existe en el artículo 1 - TORNILLO HEXAGONAL M6. ¿Desea Traspasarlo?"));
        QCOMPARE(ui.messages[0].style, 4 + 32 + 256);
        QCOMPARE(ui.messages[0].title, QStringLiteral("Confirme la operación..."));
        QCOMPARE(f.db.fingerprint(), before);

        ui.answerMessages({UiSeam::vbYes});
        f.cb.ModificarPrincipal();
        QCOMPARE(f.barcodes(4711), QStringList{"84123457|1"}); // the principal's code replaced in place
        QVERIFY(!f.barcodes(1).join(u',').contains(QLatin1String("84123457")));

        // The code of the other article's principal: that article elects another one.
        f.cb.setCod_Barras(QStringLiteral("8412345678905"));
        ui.answerMessages({UiSeam::vbYes});
        f.cb.ModificarPrincipal();
        QCOMPARE(f.principals(1), 1);
        QCOMPARE(f.cb.Dev_CodigoBarraPrincipal(4711), QStringLiteral("8412345678905"));

        // An article without a principal gets a new row of one unit.
        f.cb.setCod_Articulo(4);
        f.cb.setCod_Barras(QStringLiteral("22222222"));
        f.cb.setUnidades(9);
        ui.messages.clear();
        f.cb.ModificarPrincipal();
        QCOMPARE(f.barcodes(4), (QStringList{"22222222|1", "98765432|0"}));
        QCOMPARE(f.db.scalar(QStringLiteral("SELECT Unidades FROM Articulos_CBarras WHERE Cod_Barras='22222222'")).toInt(), 1);
        // A code the article already has asks nothing.
        f.cb.ModificarPrincipal();
        QVERIFY(ui.messages.isEmpty());
        QCOMPARE(f.barcodes(4), (QStringList{"22222222|1", "98765432|0"}));
    }

    void statementsAsWritten()
    {
        Fixture f;
        Testing::ScriptedUi ui;
        Recordset rs;
        f.cb.Cargar(rs, 1);
        f.cb.Cargar_Siguiente(rs);
        f.cb.Cargar_Anterior(rs);
        f.cb.Cargar_Primero(rs);
        f.cb.Cargar_Ultimo(rs);
        rs.close();
        f.cb.Dev_CodigoBarraPrincipal(7);
        qint32 a; QString n; qint16 u; bool p;
        f.cb.Existe(QStringLiteral("O'B"), a, n, u, p);
        f.cb.setCod_Articulo(5);
        f.cb.setCod_Barras(QStringLiteral("555"));
        f.cb.setPrincipal(true);
        f.cb.setUnidades(2);
        f.cb.setAutomatico(true);
        f.cb.Insertar();
        f.cb.Cambia_Principal(QStringLiteral("555"));
        f.cb.setKey(5);
        f.cb.Modificar(QStringLiteral("555"));
        f.cb.Eliminar(QStringLiteral("555"), 5, true);
        f.cb.Calc_Check(1, 10);
        const QString hoy = FechaSQL::instance().Hoy();
        const QStringList expected{
            "SELECT * FROM Articulos_CBarras WHERE Cod_Articulo = 1 and Cod_Empresa = 1 ORDER BY Principal DESC",
            "SELECT * From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo > 1 ORDER BY Cod_Articulo ASC) ORDER BY Principal DESC",
            "SELECT * From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo < 2 ORDER BY Cod_Articulo DESC) ORDER BY Principal DESC",
            "SELECT * From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (SELECT ISNULL(MIN(Cod_Articulo), '') FROM Articulos_CBarras WHERE Cod_Empresa =1) ORDER BY Principal DESC",
            "SELECT * From Articulos_CBarras WHERE Cod_Empresa=1 and Cod_Articulo = (SELECT ISNULL(MAX(Cod_Articulo), 0) FROM Articulos_CBarras WHERE Cod_Empresa =1) ORDER BY Principal DESC",
            "SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Articulo = 7 AND Cod_Empresa = 1 AND Principal = 1",
            "SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal FROM Articulos_CBarras a LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = a.Cod_Articulo) WHERE a.Cod_Barras = 'O''B' and a.Cod_Empresa = 1",
            "UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =1 AND Cod_Articulo =5 AND Principal =1",
            "INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, Automatico) VALUES (1, 5, '555', 1, '" + hoy + "', 2, 1)",
            "UPDATE Articulos_CBarras SET Principal=0 WHERE Cod_Empresa =1 AND Cod_Articulo =5 AND Principal = 1",
            "UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa =1 AND Cod_Articulo =5 AND Cod_Barras = '555'",
            "UPDATE Articulos_CBarras SET Cod_Barras ='555', Unidades =2, Principal =1 WHERE Cod_Empresa =1 AND Cod_Articulo =5 AND Cod_Barras ='555'",
            "UPDATE Articulos_CBarras SET Principal= 1 FROM (SELECT Top 1 * FROM Articulos_CBarras WHERE Principal = 0 and Cod_Empresa =1 and Cod_Articulo =5) as a Where a.Cod_Barras = Articulos_CBarras.Cod_Barras",
            "DELETE FROM Articulos_CBarras WHERE Cod_Empresa = 1 and Cod_Articulo = 5 and Cod_Barras = '555'",
            "SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 AND Cod_Articulo BETWEEN 1 AND 10 AND LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7",
        };
        QCOMPARE(f.db.statements, expected);
    }

    void failuresCarryTheirSource_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("source");
        QTest::newRow("Cargar") << 0 << "clsCodigos_Barra::Cargar";
        QTest::newRow("Cargar_Siguiente") << 1 << "clsCodigos_Barra::Cargar";
        QTest::newRow("Cargar_Ultimo") << 2 << "clsCodigos_Barra::Cargar";
        QTest::newRow("Dev_CodigoBarraPrincipal") << 3 << "clsCodigos_Barra::Existe";
        QTest::newRow("Existe") << 4 << "clsCodigos_Barra::Existe";
        QTest::newRow("Eliminar") << 5 << "clsCodigos_Barra::Existe";
        QTest::newRow("Insertar") << 6 << "clsCodigos_Barra::Insertar";
        QTest::newRow("Cambia_Principal") << 7 << "clsCodigos_Barra::Modificar";
        QTest::newRow("Modificar") << 8 << "clsCodigos_Barra::Modificar";
        QTest::newRow("ModificarPrincipal") << 9 << "clsCodigos_Barra::Modificar";
        QTest::newRow("Calc_Check") << 10 << "clsCodigos_Barra::Calc_Check";
    }
    void failuresCarryTheirSource()
    {
        QFETCH(int, operation);
        QFETCH(QString, source);
        Fixture f;
        f.db.conexion()->execute(QStringLiteral("ALTER TABLE Articulos_CBarras RENAME TO Fuera"));
        Recordset rs;
        qint32 a; QString n; qint16 u; bool p;
        try {
            switch (operation) {
            case 0: f.cb.Cargar(rs, 1); break;
            case 1: f.cb.Cargar_Siguiente(rs); break;
            case 2: f.cb.Cargar_Ultimo(rs); break;
            case 3: f.cb.Dev_CodigoBarraPrincipal(1); break;
            case 4: f.cb.Existe(QStringLiteral("1"), a, n, u, p); break;
            case 5: f.cb.Eliminar(QStringLiteral("1"), 1, false); break;
            case 6: f.cb.Insertar(); break;
            case 7: f.cb.Cambia_Principal(QStringLiteral("1")); break;
            case 8: f.cb.Modificar(QStringLiteral("1")); break;
            case 9: f.cb.ModificarPrincipal(); break;
            case 10: f.cb.Calc_Check(1, 2); break;
            }
            QFAIL("no error");
        } catch (const DbError &e) {
            QCOMPARE(e.Source(), source);
            QVERIFY(e.Description().contains(QLatin1String("Fuera")) || e.Description().contains(QLatin1String("Articulos_CBarras")));
        }
    }

    // Each two-statement operation succeeds whole or changes nothing, on its own or inside the
    // caller's transaction (which goes on and can still commit what it did before).
    void aFailingSecondStatementChangesNothing_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<bool>("nested");
        const QString onInsert = QStringLiteral("CREATE TRIGGER fallo BEFORE INSERT ON Articulos_CBarras BEGIN SELECT RAISE(ABORT, 'fallo inyectado'); END");
        const QString onPromote = QStringLiteral("CREATE TRIGGER fallo BEFORE UPDATE ON Articulos_CBarras WHEN NEW.Principal = 1 "
                                                 "BEGIN SELECT RAISE(ABORT, 'fallo inyectado'); END");
        const QString onDelete = QStringLiteral("CREATE TRIGGER fallo BEFORE DELETE ON Articulos_CBarras BEGIN SELECT RAISE(ABORT, 'fallo inyectado'); END");
        const QString onRewrite = QStringLiteral("CREATE TRIGGER fallo BEFORE UPDATE OF Cod_Barras ON Articulos_CBarras "
                                                 "BEGIN SELECT RAISE(ABORT, 'fallo inyectado'); END");
        for (bool nested : {false, true}) {
            const char *where = nested ? "inside the caller's transaction" : "alone";
            QTest::addRow("Insertar: the insert fails, %s", where) << 0 << onInsert << nested;
            QTest::addRow("Insertar: the code is the article's already, %s", where) << 1 << QString() << nested;
            QTest::addRow("Cambia_Principal: the promotion fails, %s", where) << 2 << onPromote << nested;
            QTest::addRow("Eliminar: the delete fails, %s", where) << 3 << onDelete << nested;
            QTest::addRow("ModificarPrincipal: the code moves, the rewrite fails, %s", where) << 4 << onRewrite << nested;
        }
    }
    void aFailingSecondStatementChangesNothing()
    {
        QFETCH(int, operation);
        QFETCH(QString, fault);
        QFETCH(bool, nested);
        Fixture f;
        Testing::ScriptedUi ui;
        Conexion *c = f.db.conexion();
        if (!fault.isEmpty())
            c->execute(fault);
        std::optional<TransactionScope> caller;
        if (nested) {
            caller.emplace(c);
            c->execute(QStringLiteral("DELETE FROM Marcas WHERE Codigo = 1"));
        }
        const QString before = f.db.fingerprint();
        f.cb.setCod_Articulo(1);
        f.cb.setCod_Barras(QStringLiteral("84123457")); // operation 1: already a barcode of article 1
        f.cb.setPrincipal(true);
        try {
            switch (operation) {
            case 0: f.cb.setCod_Barras(QStringLiteral("84000001")); f.cb.Insertar(); break;
            case 1: f.cb.Insertar(); break;
            case 2: f.cb.Cambia_Principal(QStringLiteral("84123457")); break;
            case 3: f.cb.Eliminar(QStringLiteral("8412345678905"), 1, true); break;
            default: // article 1's code moves to article 4711 when the clerk says Yes
                ui.answerMessages({UiSeam::vbYes});
                f.cb.setCod_Articulo(4711);
                f.cb.ModificarPrincipal();
                break;
            }
            QFAIL("no error");
        } catch (const DbError &e) {
            QVERIFY2(fault.isEmpty() || e.Description().contains(QLatin1String("fallo inyectado")), qPrintable(e.Description()));
        }
        QCOMPARE(f.db.fingerprint(), before);
        QCOMPARE(f.principals(1), 1);
        QCOMPARE(c->inTransaction(), nested);
        if (nested) {
            caller->commit();
            QCOMPARE(f.db.scalar(QStringLiteral("SELECT COUNT(*) FROM Marcas WHERE Codigo = 1")).toInt(), 0);
        }
    }

    // The range reaches SQL only as numbers.
    void checkDigitRangeIsNumeric()
    {
        static_assert(!std::is_invocable_v<decltype(&clsArticulo_CBarra::Calc_Check), clsArticulo_CBarra &, QString, QString>,
                      "a text range would be pasted into the statement");
        Fixture f;
        const QString before = f.db.fingerprint();
        f.cb.Calc_Check(-5, 0);
        QCOMPARE(f.db.statements, QStringList{"SELECT LTRIM(RTRIM(Cod_Barras)) AS Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =1 "
                                              "AND Cod_Articulo BETWEEN -5 AND 0 AND LEN(Cod_Barras) = 12 OR LEN(Cod_Barras) = 7"});
        QCOMPARE(f.db.fingerprint(), before);
    }

    void completingCheckDigits()
    {
        Fixture f;
        Conexion *c = f.db.conexion();
        c->execute(QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) VALUES "
                                  "(1, 5, '400638133393'), (1, 50, '841234567890'), (1, 3, '9810001 '), (2, 1, '9810002'), (1, 5, '12345')"));
        f.cb.Calc_Check(1, 10);
        QCOMPARE(f.db.rows(QStringLiteral("SELECT Cod_Empresa, Cod_Articulo, Cod_Barras FROM Articulos_CBarras WHERE LEN(Cod_Barras) <> 13 OR Cod_Articulo IN (5, 50) ORDER BY 1, 2, 3")),
                 (QStringList{"1|1|18412345678902", "1|1|84123457", "1|3|98100019", "1|4|98765432", "1|5|12345",
                              "1|5|4006381333931", "1|50|841234567890", "2|1|98100026"}));
        f.cb.Calc_Check(1, 10); // completed codes are not selected again
        QCOMPARE(f.db.scalar(QStringLiteral("SELECT COUNT(*) FROM Articulos_CBarras WHERE LEN(Cod_Barras) IN (9, 14) AND Cod_Articulo <> 1")).toInt(), 0);
    }

    void automaticCodes()
    {
        Fixture f;
        f.cb.setCod_Articulo(5);
        QCOMPARE(f.cb.CrearAuto(), QStringLiteral("98100019"));
        QCOMPARE(f.db.rows(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras WHERE Cod_Empresa = 1")), QStringList{"9810001"});
        // The article's own code is looked up under the counter's lock.
        QCOMPARE(f.db.statements, (QStringList{"SELECT * FROM Contador_CBarras WHERE Cod_Empresa=1",
                                               "SELECT * FROM Articulos_CBarras WHERE Cod_Empresa=1 AND Cod_Articulo=5 AND Automatico=1",
                                               "INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '9810001')"}));

        // 98100026 was given by hand: skipped.
        f.db.conexion()->execute(QStringLiteral("INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras) VALUES (1, 6, '98100026')"));
        f.cb.setCod_Articulo(3);
        f.db.statements.clear();
        QCOMPARE(f.cb.CrearAuto(), QStringLiteral("98100033"));
        QCOMPARE(f.db.statements.mid(2, 3), (QStringList{
            "SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal FROM Articulos_CBarras a LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = a.Cod_Articulo) WHERE a.Cod_Barras = '98100026' and a.Cod_Empresa = 1",
            "SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal FROM Articulos_CBarras a LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa and b.Codigo = a.Cod_Articulo) WHERE a.Cod_Barras = '98100033' and a.Cod_Empresa = 1",
            "UPDATE Contador_CBarras SET Cod_Barras = '9810003' WHERE Cod_Empresa = 1"}));
        QCOMPARE(f.db.scalar(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras")).toString(), QStringLiteral("9810003"));

        // An article that has its automatic code gets it again, the counter stays.
        f.cb.setCod_Barras(QStringLiteral("98100033"));
        f.cb.setAutomatico(true);
        f.cb.Insertar();
        QCOMPARE(f.cb.CrearAuto(), QStringLiteral("98100033"));
        QCOMPARE(f.db.scalar(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras")).toString(), QStringLiteral("9810003"));

        // Past 9999999 the number has eight digits and still EAN-8 weights.
        f.db.conexion()->execute(QStringLiteral("UPDATE Contador_CBarras SET Cod_Barras = '9999999'"));
        f.cb.setCod_Articulo(4);
        QCOMPARE(f.cb.CrearAuto(), QStringLiteral("100000007"));
    }

    void counterOutOfRangeIsAnError_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("message");
        QTest::newRow("hexadecimal beyond 64 bits") << "&HFFFFFFFFFFFFFFFFFFF" << "guarda «&HFFFFFFFFFFFFFFFFFFF»";
        QTest::newRow("beyond a double's integers") << "1e300" << "guarda «1e300»";
        QTest::newRow("twenty digits") << "99999999999999999999" << "no es un número entero de hasta 19 cifras";
        QTest::newRow("negative") << "-5" << "guarda «-5»";
        QTest::newRow("the largest number") << "9999999999999999999" << "ha llegado a 9999999999999999999";
    }
    void counterOutOfRangeIsAnError()
    {
        QFETCH(QString, stored);
        QFETCH(QString, message);
        Fixture f;
        f.db.conexion()->execute(QStringLiteral("INSERT INTO Contador_CBarras (Cod_Empresa, Cod_Barras) VALUES (1, '%1')").arg(stored));
        f.cb.setCod_Articulo(5);
        try {
            f.cb.CrearAuto();
            QFAIL("a code was issued");
        } catch (const DbError &e) {
            QVERIFY2(e.Description().contains(message), qPrintable(e.Description()));
            QCOMPARE(e.Number(), 6);
            QCOMPARE(e.Source(), QStringLiteral("clsCodigos_Barra::CrearAuto"));
        }
        QCOMPARE(f.db.scalar(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras")).toString(), stored);
        QVERIFY(!f.db.conexion()->inTransaction());
    }

    // Four processes on one file, each storing the code in the transaction that issued it.
    void fourProcessesNeverShareACode_data()
    {
        QTest::addColumn<int>("articleStep"); // between the first articles of two processes
        QTest::addColumn<int>("codes");
        QTest::newRow("different articles") << 1000 << 1000;
        QTest::newRow("the same articles") << 0 << 250;
    }
    void fourProcessesNeverShareACode()
    {
        QFETCH(int, articleStep);
        QFETCH(int, codes);
        Testing::TestDatabase db;
        QList<QProcess *> workers;
        for (int w = 0; w < 4; ++w) {
            auto *p = new QProcess(this);
            p->start(QStringLiteral(KD_CREARAUTO_WORKER), {db.path(), QStringLiteral("250"), QString::number(10000 + w * articleStep)});
            workers << p;
        }
        QSet<QString> issued;
        for (QProcess *p : workers) {
            QVERIFY(p->waitForFinished(300000));
            QVERIFY2(p->exitCode() == 0, p->readAllStandardError().constData());
            for (const QByteArray &line : p->readAllStandardOutput().split('\n'))
                if (!line.isEmpty())
                    issued.insert(QString::fromLatin1(line));
        }
        QCOMPARE(issued.size(), codes);
        QCOMPARE(db.scalar(QStringLiteral("SELECT Cod_Barras FROM Contador_CBarras WHERE Cod_Empresa = 1")).toString(),
                 QString::number(9810000 + codes));
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM Articulos_CBarras WHERE Automatico = 1")).toInt(), codes);
        QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(DISTINCT Cod_Articulo) FROM Articulos_CBarras WHERE Automatico = 1")).toInt(), codes);
        for (const QString &code : std::as_const(issued)) {
            clsArticulo_CBarra check;
            check.setCod_Barras(code);
            QVERIFY2(check.Validar() && code.startsWith(QLatin1String("981")), qPrintable(code));
        }
    }
};

QTEST_GUILESS_MAIN(tst_clsArticulo_CBarra)
#include "tst_clsArticulo_CBarra.moc"
