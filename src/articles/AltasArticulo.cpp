#include "articles/AltasArticulo.h"

#include "articles/clsArticulo_CBarra.h"
#include "articles/frmCodBarra_Datos.h"
#include "articles/frmReferencia_Articulos.h"
#include "articles/frmReferencias_Modificar.h"
#include "data/ContextoDatos.h"
#include "data/DbError.h"
#include "data/Recordset.h"
#include "data/SqlText.h"
#include "data/TransactionScope.h"
#include "platform/Legacy.h"
#include "platform/UiSeam.h"

namespace Varnel_Controles {

namespace {

const struct Registro
{
    Registro()
    {
        static AltasArticulo altas;
        ArticuloServicios::install(&altas);
    }
} registro;

// The articles in column Cod_Articulo of the rows of `sql`.
QList<qint32> articulos(const QString &sql, Conexion *cn)
{
    QList<qint32> out;
    Recordset rs;
    for (rs.open(sql, cn); !rs.eof(); rs.moveNext())
        out << rs.field(QStringLiteral("Cod_Articulo")).toInt();
    return out;
}

bool traspasar(const QString &pregunta)
{
    return UiSeam::current().MsgBox(pregunta, UiSeam::vbYesNo | UiSeam::vbQuestion, QStringLiteral("Confirmar"))
        == UiSeam::vbYes;
}

} // namespace

qint32 AltasArticulo::Elegir(QWidget *parent, qint16 empresa, const QString &referencia, bool esRefProveedor)
{
    frmReferencia_Articulos dialog(parent);
    dialog.setEmpresa(empresa);
    dialog.setReferencia(referencia);
    dialog.setEsRefProveedor(esRefProveedor);
    UiSeam::current().ShowModal(dialog);
    return dialog.Codigo() != 0 ? dialog.Codigo() : -1;
}

qint32 AltasArticulo::CrearReferencia(const Alta &alta)
{
    qint32 articulo = 0;
    const bool ok = trapErrors(QStringLiteral("kdArticulos::CrearReferencia"), [&] {
        ContextoDatos context;
        context.setCEmpresa(alta.empresa);
        const qint16 empresa = context.empresa();
        Conexion *cn = context.conexion();
        Recordset rs;
        rs.open(QStringLiteral("SELECT MostrarCualidades FROM Empresas WHERE Codigo=") + SqlText::empresa(empresa), cn);
        const bool cualidades = !rs.eof() && rs.field(QStringLiteral("MostrarCualidades")).toInt() != 0;
        rs.close();
        frmReferencias_Modificar dialog(alta.parent);
        dialog.setCEmpresa(alta.empresa);
        dialog.setArticulo(alta.articulo != 0 ? QString::number(alta.articulo) : QString());
        dialog.setEsRefProveedor(alta.esRefProveedor);
        if (alta.esRefProveedor)
            dialog.setProveedor(alta.titular);
        else
            dialog.setCliente(alta.titular);
        dialog.setReferencia(alta.clave);
        dialog.setMostrarCualidades(cualidades);
        UiSeam::current().ShowModal(dialog);
        if (dialog.Result() != 1)
            return false;
        articulo = Legacy::CLng(Legacy::Val(dialog.Articulo()));
        escribirReferencia(cn, empresa, articulo, alta.esRefProveedor,
                           alta.esRefProveedor ? dialog.Proveedor() : dialog.Cliente(), dialog.Referencia());
        return true;
    });
    return ok ? articulo : 0;
}

// Asks to take the reference away from the other articles of the supplier (or customer) that
// have it; the transfer, the principal test and the insertion run in one transaction.
void AltasArticulo::escribirReferencia(Conexion *cn, qint16 empresa, qint32 articulo, bool deProveedor, qint32 titular,
                                       const QString &referencia)
{
    const QString tabla = deProveedor ? QStringLiteral("Articulos_Ref") : QStringLiteral("Articulos_RefCli");
    const QString de = (deProveedor ? QStringLiteral(" AND Cod_Prov =") : QStringLiteral(" AND Cod_Cli ="))
        + QString::number(titular);
    const QString where = QStringLiteral(" WHERE Cod_Empresa =") + SqlText::empresa(empresa);
    const QString ref = SqlText::texto(referencia);
    Recordset rs;
    rs.open(QStringLiteral("SELECT Ref FROM ") + tabla + where + QStringLiteral(" AND Cod_Articulo <> ")
                + QString::number(articulo) + de + QStringLiteral(" And Ref ='") + ref + u'\'',
            cn);
    const bool existe = !rs.eof();
    rs.close();
    const bool traspaso =
        existe && traspasar(QStringLiteral("La referencia especificada ya existe en otro artículo. ¿Desea traspasarlo?"));
    TransactionScope scope(cn);
    if (traspaso) {
        const QList<qint32> otros = articulos(QStringLiteral("SELECT Cod_Articulo FROM ") + tabla + where + de
                                                  + QStringLiteral(" And Ref ='") + ref + u'\'',
                                              cn);
        for (const qint32 otro : otros)
            if (otro != articulo)
                cn->execute(QStringLiteral("DELETE FROM ") + tabla + where + QStringLiteral(" AND Cod_Articulo =")
                            + QString::number(otro) + de + QStringLiteral(" AND Ref ='") + ref + u'\'');
    }
    const bool principal = articulos(QStringLiteral("SELECT Cod_Articulo FROM ") + tabla + where
                                         + QStringLiteral(" AND Cod_Articulo =") + QString::number(articulo)
                                         + QStringLiteral(" AND Principal = 1"),
                                     cn)
                               .isEmpty();
    cn->execute(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (Cod_Empresa, Cod_Articulo, ")
                + (deProveedor ? QStringLiteral("Cod_Prov") : QStringLiteral("Cod_Cli"))
                + QStringLiteral(", Ref, Principal) VALUES (") + SqlText::empresa(empresa) + QStringLiteral(", ")
                + QString::number(articulo) + QStringLiteral(", ") + QString::number(titular) + QStringLiteral(", '")
                + ref + QStringLiteral("', ") + SqlText::bit(principal) + u')');
    scope.commit();
}

QString AltasArticulo::MotivoRechazo(const QString &codBarras) const
{
    if (Legacy::Trim(codBarras).isEmpty())
        return QStringLiteral("Debe especificar el código de barras.");
    clsArticulo_CBarra barras;
    barras.setCod_Barras(codBarras);
    return barras.Validar() ? QString() : QStringLiteral("El dígito de control del código de barras no es correcto.");
}

qint32 AltasArticulo::CrearCodigoBarras(const Alta &alta)
{
    qint32 articulo = 0;
    const bool ok = trapErrors(QStringLiteral("kdArticulos::CrearCodigoBarras"), [&] {
        ContextoDatos context;
        context.setCEmpresa(alta.empresa);
        context.empresa();
        Conexion *cn = context.conexion();
        frmCodBarra_Datos dialog(alta.parent);
        dialog.setCEmpresa(alta.empresa);
        dialog.setArticulo(alta.articulo != 0 ? QString::number(alta.articulo) : QString());
        dialog.setCodBarra(alta.clave);
        dialog.setUnidades(1);
        UiSeam::current().ShowModal(dialog);
        if (!dialog.Result())
            return false;
        // The code as the clerk left it must still be one a scanner can read.
        if (const QString motivo = MotivoRechazo(dialog.CodBarra()); !motivo.isEmpty()) {
            UiSeam::current().MsgBox(motivo, UiSeam::vbExclamation, QStringLiteral("¡ Atención !"));
            return false;
        }
        articulo = Legacy::CLng(Legacy::Val(dialog.Articulo()));
        escribirCodigoBarras(cn, alta.empresa, articulo, dialog.CodBarra(), dialog.Unidades());
        return true;
    });
    return ok ? articulo : 0;
}

// As escribirReferencia; the barcode itself is stored through the barcode class, whose writes
// join the transaction.
void AltasArticulo::escribirCodigoBarras(Conexion *cn, cEmpresa *empresa, qint32 articulo, const QString &codigo,
                                         qint16 unidades)
{
    const QString where = QStringLiteral(" WHERE Cod_Empresa =") + SqlText::empresa(empresa->Codigo());
    const QString literal = SqlText::texto(codigo);
    const QList<qint32> otros = articulos(QStringLiteral("SELECT Cod_Articulo, Cod_Barras FROM Articulos_CBarras") + where
                                              + QStringLiteral(" AND Cod_Articulo <> ") + QString::number(articulo)
                                              + QStringLiteral(" AND Cod_Barras ='") + literal + u'\'',
                                          cn);
    const bool traspaso =
        !otros.isEmpty()
        && traspasar(QStringLiteral("El código de barras especificado ya existe en el artículo: %1. ¿Desea traspasarlo?")
                         .arg(otros.first()));
    TransactionScope scope(cn);
    if (traspaso)
        for (const qint32 otro : otros)
            cn->execute(QStringLiteral("DELETE FROM Articulos_CBarras") + where + QStringLiteral(" AND Cod_Articulo =")
                        + QString::number(otro) + QStringLiteral(" And Cod_Barras ='") + literal + u'\'');
    clsArticulo_CBarra barras;
    barras.setConexion(cn);
    barras.setCEmpresa(empresa);
    barras.setCod_Articulo(articulo);
    barras.setCod_Barras(codigo);
    barras.setPrincipal(articulos(QStringLiteral("SELECT Cod_Articulo FROM Articulos_CBarras") + where
                                      + QStringLiteral(" AND Cod_Articulo =") + QString::number(articulo)
                                      + QStringLiteral(" AND Principal = 1"),
                                  cn)
                            .isEmpty());
    barras.setUnidades(unidades);
    barras.Insertar();
    scope.commit();
}

} // namespace Varnel_Controles
