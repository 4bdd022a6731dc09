// The article forms' side of the article lookup: the picker among the articles sharing a
// reference, and the creation of a reference or barcode with its dialog and its statements.
// A transfer from another article and the insertion are one transaction: both or neither.
// Installed as the library loads.
#pragma once

#include "lookup/ArticuloServicios.h"

namespace Varnel_Controles {

class Conexion;

class VARNEL_CONTROLES_TESTS_EXPORT AltasArticulo : public ArticuloServicios
{
public:
    qint32 Elegir(QWidget *parent, qint16 empresa, const QString &referencia, bool esRefProveedor) override;
    qint32 CrearReferencia(const Alta &alta) override;
    QString MotivoRechazo(const QString &codBarras) const override;
    qint32 CrearCodigoBarras(const Alta &alta) override;

private:
    static void escribirReferencia(Conexion *cn, qint16 empresa, qint32 articulo, bool deProveedor, qint32 titular,
                                   const QString &referencia);
    static void escribirCodigoBarras(Conexion *cn, cEmpresa *empresa, qint32 articulo, const QString &codigo,
                                     qint16 unidades);
};

} // namespace Varnel_Controles
