// What a screen reader hears: the focusable field inside each control is named after the
// control (its buddy label, else its object name); a lookup describes it with the resolved name;
// the search dialogs name their grid and filters.
#include "input/kdDispositivo.h"
#include "input/kdMaskEdBox.h"
#include "input/kdTextBox.h"
#include "lookup/kdProveedor.h"
#include "search/frmBusqueda_Clientes.h"
#include "support/TestDatabase.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

using namespace Varnel_Controles;

namespace {

QString accessible(QWidget *widget, QAccessible::Text text)
{
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(widget);
    return iface ? iface->text(text) : QStringLiteral("<no interface>");
}

QLineEdit *innerField(QWidget *control) { return control->findChild<QLineEdit *>(); }

} // namespace

class tst_Accessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void innerFieldsAreNamedAfterTheirControl()
    {
        Testing::TestDatabase db;
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *label = new QLabel(QStringLiteral("&Cantidad"), &window);
        auto *cantidad = new kdTextBox(&window);
        auto *importe = new kdTextBox(&window);
        importe->setObjectName(QStringLiteral("txtImporte"));
        auto *fechaLabel = new QLabel(QStringLiteral("Fecha de &alta"), &window);
        auto *fecha = new kdMaskEdBox(&window);
        auto *destinoLabel = new QLabel(QStringLiteral("&Destino:"), &window);
        auto *destino = new kdDispositivo(&window);
        auto *proveedor = new kdProveedor(&window);
        proveedor->setAccessibleName(QStringLiteral("Proveedor"));
        for (QWidget *w : {static_cast<QWidget *>(label), static_cast<QWidget *>(cantidad), static_cast<QWidget *>(importe),
                           static_cast<QWidget *>(fechaLabel), static_cast<QWidget *>(fecha), static_cast<QWidget *>(proveedor),
                           static_cast<QWidget *>(destinoLabel), static_cast<QWidget *>(destino)})
            layout->addWidget(w);
        label->setBuddy(cantidad);
        fechaLabel->setBuddy(fecha);
        destinoLabel->setBuddy(destino);
        window.show(); // buddies given after the controls were made are read when they show

        QCOMPARE(accessible(innerField(cantidad), QAccessible::Name), QStringLiteral("Cantidad"));
        QCOMPARE(accessible(innerField(importe), QAccessible::Name), QStringLiteral("txtImporte"));
        QCOMPARE(accessible(innerField(fecha), QAccessible::Name), QStringLiteral("Fecha de alta"));
        QCOMPARE(accessible(innerField(proveedor), QAccessible::Name), QStringLiteral("Proveedor"));
        // A combo box is named by its entry; its label comes through the label relation.
        const auto labels = QAccessible::queryAccessibleInterface(destino->findChild<QComboBox *>())
                                ->relations(QAccessible::Label);
        QCOMPARE(labels.size(), 1);
        QCOMPARE(labels.first().first->text(QAccessible::Name), QStringLiteral("Destino:"));

        proveedor->setCEmpresa(db.empresa());
        proveedor->setCodigo(1);
        QVERIFY(proveedor->Cargar());
        QVERIFY(!proveedor->Nombre().isEmpty());
        QCOMPARE(accessible(innerField(proveedor), QAccessible::Description), proveedor->Nombre());
    }

    void searchDialogsNameTheirGridAndFilters()
    {
        frmBusqueda_Clientes dialog;
        QCOMPARE(accessible(dialog.findChild<QTableView *>(QStringLiteral("vsListado")), QAccessible::Name),
                 QStringLiteral("Resultados de la búsqueda"));
        QCOMPARE(accessible(dialog.findChild<QLineEdit *>(QStringLiteral("txtNombre")), QAccessible::Name),
                 QStringLiteral("Nombre"));
        QCOMPARE(accessible(dialog.findChild<QLineEdit *>(QStringLiteral("txtNif")), QAccessible::Name),
                 QStringLiteral("NIF"));
    }
};

QTEST_MAIN(tst_Accessibility)
#include "tst_Accessibility.moc"
