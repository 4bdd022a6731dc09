// Accept refused without an article or without the code the caller passed (whatever is typed in
// its place), and for an unknown article; units 0 returned as 1, Principal left as given.
#include "articles/frmCodBarra_Datos.h"
#include "support/Clerk.h"
#include "support/TestDatabase.h"

using namespace Varnel_Controles;

class tst_frmCodBarra_Datos : public QObject
{
    Q_OBJECT

private slots:
    // The code passed, the clerk's script, what was shown, and Result|Articulo|CodBarra|Unidades|Principal.
    void accept_data()
    {
        QTest::addColumn<QStringList>("c");
        const QString no = "48 ¡ Atención !: Debe especificar datos validos.";
        QTest::newRow("no code passed") << QStringList{"", "txtArticulo=5;txtCB=123;F9;txtCB=456;F9", no, no, "0|||0|1"};
        QTest::newRow("no article") << QStringList{"123", "txtCB?;F9", "txtCB: 123", no, "0||123|0|1"};
        QTest::newRow("unknown article")
            << QStringList{"123", "txtArticulo=77;F9", "48 ¡ Atención !: El artículo especificado no existe.", "0||123|0|1"};
        QTest::newRow("units 0 are 1") << QStringList{"123", "txtArticulo=5;txtCB=456;txtUnidades=0;F9", "1|5|456|1|1"};
    }
    void accept()
    {
        QFETCH(QStringList, c);
        Testing::TestDatabase db;
        Testing::Clerk clerk;
        clerk.steps = {c[1]};
        frmCodBarra_Datos dialog;
        dialog.setCEmpresa(db.empresa());
        dialog.setCodBarra(c[0]);
        dialog.setPrincipal(true);
        clerk.ShowModal(dialog);
        QCOMPARE(clerk.shown.mid(1), c.mid(2, c.size() - 3));
        QCOMPARE(QStringLiteral("%1|%2|%3|%4|%5").arg(dialog.Result()).arg(dialog.Articulo(), dialog.CodBarra())
                     .arg(dialog.Unidades()).arg(dialog.Principal()), c.last());
    }
};

QTEST_MAIN(tst_frmCodBarra_Datos)
#include "tst_frmCodBarra_Datos.moc"
