// A host screen that opens the search dialogs: a brand, a supplier and a customer box, each
// with a search button; F3 in a box opens its dialog too. The chosen code and name are shown.
#pragma once

#include "DemoScreen.h"

#include <functional>

class QGridLayout;
class QLabel;
namespace Varnel_Controles { class kdTextBox; class cEmpresa; class frmBusqueda; }

class PantallaBusquedas : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaBusquedas(Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Búsquedas"); }
    QString slug() const override { return QStringLiteral("busquedas"); }
    void prepareScreenshot() override;
    QList<QPair<QString, QWidget *>> screenshotDialogs() override;

private:
    struct Row
    {
        Varnel_Controles::kdTextBox *code;
        QLabel *name;
    };
    Row addRow(const QString &label, const std::function<void(Row)> &open);
    void openMarca(Row row);
    void openProveedor(Row row);
    void openCliente(Row row);

    Varnel_Controles::cEmpresa *m_empresa;
    QGridLayout *m_grid;
    Row m_marca, m_proveedor, m_cliente;
};
