// What the article lookup asks of the article forms, which live in the layer above it: the
// choice among the articles that share a reference, and the creation of a reference or a
// barcode the clerk typed and the company does not have yet. The article forms install their
// implementation as the library loads; a test may install another.
#pragma once

#include "varnel_controles_export.h"

#include <QString>

class QWidget;

namespace Varnel_Controles {

class cEmpresa;

class VARNEL_CONTROLES_TESTS_EXPORT ArticuloServicios
{
public:
    /// A reference or barcode to create: the text typed (without its prefix), the article the
    /// box showed before (0 for none), and for a reference whether it is a supplier's (True) or
    /// a customer's, with the supplier or customer (0 for none).
    struct Alta
    {
        QWidget *parent = nullptr;
        cEmpresa *empresa = nullptr;
        QString clave;
        qint32 articulo = 0;
        bool esRefProveedor = true;
        qint32 titular = 0;
    };

    virtual ~ArticuloServicios() = default;
    /// The article the clerk chose among those whose supplier (or customer) reference is
    /// `referencia`; -1 when the choice was abandoned.
    virtual qint32 Elegir(QWidget *parent, qint16 empresa, const QString &referencia, bool esRefProveedor) = 0;
    /// Collects the reference's data and writes it; the article it was written for, 0 when the
    /// clerk cancelled or the writing failed (the clerk was told why; nothing was changed).
    virtual qint32 CrearReferencia(const Alta &alta) = 0;
    /// Why `codBarras` cannot be stored as a barcode (a wrong check digit), "" when it can.
    virtual QString MotivoRechazo(const QString &codBarras) const = 0;
    /// As CrearReferencia, for a barcode.
    virtual qint32 CrearCodigoBarras(const Alta &alta) = 0;

    /// The services in use; nullptr while none is installed.
    static ArticuloServicios *current();
    /// Installs `services` (not owned).
    static void install(ArticuloServicios *services);
};

} // namespace Varnel_Controles
