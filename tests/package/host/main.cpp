// A host application that uses the installed library as any other host would: a form made in
// Designer, bound to a model through QDataWidgetMapper by the controls' user properties.
#include "ui_Formulario.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/kdDispositivo.h>

#include <QApplication>
#include <QDataWidgetMapper>
#include <QStandardItemModel>
#include <QTextStream>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QWidget form;
    Ui::Formulario ui;
    ui.setupUi(&form);
    auto *destino = new Varnel_Controles::kdDispositivo(&form);

    QStandardItemModel model(1, 4);
    model.setData(model.index(0, 0), QStringLiteral("1.234,5"));
    model.setData(model.index(0, 1), 123);
    model.setData(model.index(0, 2), QStringLiteral("01/11/2026"));
    model.setData(model.index(0, 3), 0);
    QDataWidgetMapper mapper;
    mapper.setModel(&model);
    mapper.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    mapper.addMapping(ui.txtCantidad, 0);
    mapper.addMapping(ui.txtProveedor, 1);
    mapper.addMapping(ui.txtFecha, 2);
    mapper.addMapping(destino, 3);
    mapper.toFirst();

    QTextStream out(stdout);
    out << "Cantidad " << ui.txtCantidad->Value() << " | Proveedor " << ui.txtProveedor->Codigo() << " | Fecha "
        << ui.txtFecha->Text() << " | Destino " << destino->Destination() << "\n";
    bool ok = ui.txtCantidad->Value() == 1234.5 && ui.txtProveedor->Codigo() == 123
        && ui.txtFecha->Text() == QStringLiteral("01/11/2026") && destino->Destination() == Varnel_Controles::kdPantalla;

    ui.txtCantidad->setText(QStringLiteral("7,25"));
    ui.txtProveedor->setCodigo(456);
    ui.txtFecha->setText(QStringLiteral("24/12/2026"));
    destino->setListIndex(qint16(destino->ListCount() - 1)); // eMail, last with or without printers
    mapper.submit();
    out << "Modelo " << model.index(0, 0).data().toString() << " | " << model.index(0, 1).data().toInt() << " | "
        << model.index(0, 2).data().toString() << " | " << model.index(0, 3).data().toInt() << "\n";
    ok = ok && model.index(0, 0).data().toString() == QStringLiteral("7,25") && model.index(0, 1).data().toInt() == 456
        && model.index(0, 2).data().toString() == QStringLiteral("24/12/2026") && model.index(0, 3).data().toInt() == destino->ListCount() - 1
        && destino->Destination() == Varnel_Controles::kdEMail;

    // With the mapper's own policy, leaving a control commits it, as for Qt's own editors.
    QStandardItemModel live(1, 1);
    QDataWidgetMapper autoMapper;
    autoMapper.setModel(&live);
    autoMapper.addMapping(ui.txtCantidad, 0);
    autoMapper.toFirst();
    form.show();
    QApplication::setActiveWindow(&form);
    ui.txtCantidad->setFocus();
    ui.txtCantidad->setText(QStringLiteral("3,5"));
    ui.txtProveedor->setFocus();
    QApplication::processEvents();
    out << "Al salir " << live.index(0, 0).data().toString() << "\n";
    ok = ok && live.index(0, 0).data().toString() == QStringLiteral("3,5");

    // The public data layer throws its own error type across the library's boundary.
    try {
        Varnel_Controles::Conexion::open(QStringLiteral("sqlite:/no/such/folder/empresa.db"));
        ok = false;
    } catch (const Varnel_Controles::DbError &e) {
        out << "DbError " << e.Description() << "\n";
    }
    return ok ? 0 : 1;
}
