// A data-entry form as host screens build it, made in Qt Designer (PantallaEntrada.ui): code,
// name, quantity and price boxes that Enter walks like Tab, with the values the host reads back.
#pragma once

#include "DemoScreen.h"
#include "ui_PantallaEntrada.h"

class PantallaEntrada : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaEntrada(QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Entrada de datos"); }
    QString slug() const override { return QStringLiteral("entrada-datos"); }
    void prepareScreenshot() override;

private:
    void refresh();

    Ui::PantallaEntrada ui;
};
