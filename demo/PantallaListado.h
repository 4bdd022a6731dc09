// A listing screen as hosts build it: the articles of a family, printed through the library to
// the destination chosen in kdDispositivo (screen, the printer of kdImpresoras, a PDF file,
// e-mail), with a totals row. Without a display the print preview becomes a PDF beside the
// screenshots.
#pragma once

#include "DemoScreen.h"

#include <Varnel_Controles/clsListado.h>

class QComboBox;
class QLabel;
namespace Varnel_Controles { class kdDispositivo; class kdImpresoras; class cEmpresa; }

class PantallaListado : public DemoScreen
{
    Q_OBJECT

public:
    explicit PantallaListado(Varnel_Controles::cEmpresa *empresa, QWidget *parent = nullptr);
    QString title() const override { return QStringLiteral("Listado de artículos"); }
    QString slug() const override { return QStringLiteral("listado"); }
    void prepareScreenshot() override;
    QList<QPair<QString, QWidget *>> screenshotDialogs() override;
    QStringList writeDocuments(const QString &stem) override;

private:
    /// The list of the chosen family: rows read from the database as it prints.
    Varnel_Controles::clsListado documento();
    void listar();

    Varnel_Controles::cEmpresa *m_empresa;
    QComboBox *cboFamilia;
    Varnel_Controles::kdDispositivo *cboDestino;
    Varnel_Controles::kdImpresoras *cboImpresora;
    QLabel *lblResumen;
    Varnel_Controles::clsListado m_preview; // the document of the preview screenshot
};
