#include "PantallaListado.h"

#include <Varnel_Controles/kdDispositivo.h>
#include <Varnel_Controles/kdImpresoras.h>
#include <Varnel_Controles/kdMaskEdBox.h>

#include <Varnel_Controles/FechaSQL.h>
#include <Varnel_Controles/LegacyError.h>

#include <QDate>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Varnel_Controles;

PantallaListado::PantallaListado(QWidget *parent)
    : DemoScreen(parent)
{
    auto *layout = new QVBoxLayout(this);
    auto *intro = new QLabel(QStringLiteral("Fechas: Intro en blanco pone la fecha propuesta; «1/2/08» se completa como "
                                            "01/02/2008; una fecha imposible se borra. Mayúsculas+flecha arriba vuelve "
                                            "desde las listas."));
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    layout->addLayout(form);

    const QDate today = QDate::currentDate();
    txtDesde = new kdMaskEdBox(this);
    txtDesde->setObjectName(QStringLiteral("txtDesde"));
    txtDesde->setFunctionDate(true);
    txtDesde->setDefault(FechaSQL::Corta(QDate(today.year(), today.month(), 1)));
    txtDesde->setFixedWidth(100);
    txtHasta = new kdMaskEdBox(this);
    txtHasta->setObjectName(QStringLiteral("txtHasta"));
    txtHasta->setFunctionDate(true);
    txtHasta->setFixedWidth(100);
    cboDestino = new kdDispositivo(this);
    cboDestino->setObjectName(QStringLiteral("cboDestino"));
    cboDestino->setToEMail(true); // the host offers every destination
    cboDestino->setFixedWidth(160);
    cboImpresora = new kdImpresoras(this);
    cboImpresora->setObjectName(QStringLiteral("cboImpresora"));
    cboImpresora->setFixedWidth(260);
    form->addRow(QStringLiteral("Desde fecha:"), txtDesde);
    form->addRow(QStringLiteral("Hasta fecha:"), txtHasta);
    form->addRow(QStringLiteral("Destino:"), cboDestino);
    form->addRow(QStringLiteral("Impresora:"), cboImpresora);

    auto *button = new QPushButton(QStringLiteral("Listar"), this);
    connect(button, &QPushButton::clicked, this, &PantallaListado::describe);
    layout->addWidget(button, 0, Qt::AlignLeft);
    lblResumen = new QLabel(this);
    lblResumen->setWordWrap(true);
    layout->addWidget(lblResumen);
    layout->addStretch();
    describe();
}

void PantallaListado::describe()
{
    QString destination;
    try {
        switch (cboDestino->Destination()) {
        case kdPantalla: destination = QStringLiteral("en pantalla"); break;
        case kdImpresora: destination = QStringLiteral("a la impresora %1").arg(cboImpresora->Text()); break;
        case kdFichero: destination = QStringLiteral("a un fichero"); break;
        case kdEMail: destination = QStringLiteral("por correo electrónico"); break;
        }
    } catch (const LegacyError &) {
        destination = QStringLiteral("(sin destino)");
    }
    lblResumen->setText(QStringLiteral("Ventas del %1 al %2, %3. Impresoras de esta máquina: %4.")
                            .arg(txtDesde->Text().isEmpty() ? QStringLiteral("…") : txtDesde->Text(),
                                 txtHasta->Text().isEmpty() ? QStringLiteral("…") : txtHasta->Text(), destination)
                            .arg(cboImpresora->ListCount()));
}

void PantallaListado::prepareScreenshot()
{
    txtDesde->setText(txtDesde->Default());
    txtHasta->setText(FechaSQL::Corta(QDate::currentDate()));
    describe();
    txtHasta->setFocus();
}
