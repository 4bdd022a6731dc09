// kdArticulo: an article and its description. Besides an article code the clerk may type a
// supplier's reference after a full stop (".TH-M6"), a customer's reference after an asterisk,
// a barcode after a slash or a hyphen, or scan a barcode (digits only, more than seven); the
// control finds the article, lets the clerk pick one when several share a reference, and offers
// to create a reference or barcode that does not exist. Free text of three characters or more
// opens the article search (the company's layout) with the criteria of the last search. Only 0
// is an open bound ("0000000" / "9999999", "ARTICULO INICIAL" / "ARTICULO FINAL"): a typed
// 9999999 is an ordinary code.
#pragma once

#include "varnel_controles_export.h"

#include "kdLookup.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT kdArticulo : public kdLookup
{
    Q_OBJECT
    Q_PROPERTY(qint16 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(qint16 Proveedor READ Proveedor WRITE setProveedor)
    Q_PROPERTY(qint32 Cliente READ Cliente WRITE setCliente)
    Q_PROPERTY(qint16 Familia_1 READ Familia_1 WRITE setFamilia_1)
    Q_PROPERTY(qint16 Familia_2 READ Familia_2 WRITE setFamilia_2)
    Q_PROPERTY(qint16 Familia_3 READ Familia_3 WRITE setFamilia_3)
    Q_PROPERTY(qint16 Valor_CualidadX READ Valor_CualidadX NOTIFY NombreChanged)
    Q_PROPERTY(qint16 Valor_CualidadY READ Valor_CualidadY NOTIFY NombreChanged)
    Q_PROPERTY(QString Nombre_CualidadX READ Nombre_CualidadX NOTIFY NombreChanged)
    Q_PROPERTY(QString Nombre_CualidadY READ Nombre_CualidadY NOTIFY NombreChanged)
    Q_PROPERTY(bool TieneCualidad READ TieneCualidad NOTIFY NombreChanged)

public:
    explicit kdArticulo(QWidget *parent = nullptr);

    /// The typing limit of the box, 0 (the default) for none; persisted as "MaxLength".
    void setMaxLength(qint16 value);
    /// The supplier whose references a "." entry looks up; 0 (the default) for any supplier.
    qint16 Proveedor() const { return m_proveedor; }
    void setProveedor(qint16 value) { m_proveedor = value; }
    /// The customer whose references a "*" entry looks up (0 for any), also handed to the search.
    qint32 Cliente() const { return m_cliente; }
    void setCliente(qint32 value) { m_cliente = value; }
    /// Fixed families: when Familia_1 is not 0 the search opens filtered by the three levels,
    /// which the clerk cannot change there.
    qint16 Familia_1() const { return m_familias[0]; }
    void setFamilia_1(qint16 value) { m_familias[0] = value; }
    qint16 Familia_2() const { return m_familias[1]; }
    void setFamilia_2(qint16 value) { m_familias[1] = value; }
    qint16 Familia_3() const { return m_familias[2]; }
    void setFamilia_3(qint16 value) { m_familias[2] = value; }

    /// The qualities a scanned barcode carried (company setting CBarrasConCualidades): their
    /// values and names, and whether the last validation resolved one; each validation starts
    /// them again at 0, "" and False.
    qint16 Valor_CualidadX() const { return m_valor[0]; }
    qint16 Valor_CualidadY() const { return m_valor[1]; }
    QString Nombre_CualidadX() const { return m_nombreCualidad[0]; }
    QString Nombre_CualidadY() const { return m_nombreCualidad[1]; }
    bool TieneCualidad() const { return m_tieneCualidad; }

    /// "SELECT Descripcion FROM Articulos WHERE Cod_Empresa =1 AND Codigo = 4711".
    static QString statement(qint16 empresa, const QString &typed);

    /// The keys of kdLookup with "MaxLength" after "Locked" and "DejarEnBlanco" last (a flag
    /// kept for the host's forms; the validation has no leave-blank branch). A "MaxLength" that
    /// is not a whole number from 0 to 32767 throws PropertyBagError and loads nothing.
    void ReadProperties(const PropertyBag &bag) override;

protected:
    QString lookupStatement(qint16 empresa, const QString &typed) const override { return statement(empresa, typed); }
    void showFound(const Recordset &recordset) override;
    Choice search(qint16 empresa) override;
    bool isOpenBound(qint32 code) const override { return code == 0; }
    bool acceptsCharacter(qint16) const override { return true; }
    bool resolveEntry(bool moverFoco) override;
    void readFontKey(const PropertyBag &bag) override;
    void readKeysAfterLocked(const PropertyBag &bag) override;
    void writeKeysAfterLocked(PropertyBag &bag) const override;
    void readExtraProperties(const PropertyBag &bag) override;
    void writeExtraProperties(PropertyBag &bag) const override;

private:
    enum class Clave { Referencia, CodigoBarras };
    bool referencia(const QString &ref, bool deProveedor, const QString &typed);
    bool codigoBarras(const QString &codigo, const QString &typed);
    bool escaneado(const QString &codigo, const QString &typed);
    bool textoLibre(const QString &texto);
    bool resuelto(qint32 articulo, const QString &typed, Clave clave, const QString &texto, bool deProveedor);
    qint32 porCodigoBarras(const QString &codigo) const;
    Choice buscarArticulo();
    void setCualidades(qint16 x, qint16 y, const QString &nombreX, const QString &nombreY, bool tiene);

    struct Criterios
    {
        QString descripcion, codigo, referencia;
        qint16 proveedor = 0;
        qint16 familias[3] = {0, 0, 0};
    };

    qint16 m_proveedor = 0;
    qint32 m_cliente = 0;
    qint16 m_familias[3] = {0, 0, 0};
    qint16 m_valor[2] = {0, 0};
    QString m_nombreCualidad[2];
    bool m_tieneCualidad = false;
    bool m_dejarEnBlanco = false;
    QString m_articulo;   // the last article found, offered for a reference or barcode created
    Criterios m_busqueda;  // the article search's criteria as the clerk last left them
};

} // namespace Varnel_Controles
