// The company object the host hands to every database-facing control: the company code that
// every statement is filtered on, and the company settings the controls need.
#pragma once

#include "varnel_controles_export.h"

#include <QObject>
#include <QString>

namespace Varnel_Controles {

class Conexion;

class VARNEL_CONTROLES_EXPORT cEmpresa : public QObject
{
    Q_OBJECT
    Q_PROPERTY(qint16 Codigo READ Codigo WRITE setCodigo)

public:
    explicit cEmpresa(qint16 codigo = 0, QObject *parent = nullptr);
    /// The company of `codigo` with its settings read from table Empresas; throws DbError
    /// when the company does not exist.
    static cEmpresa *Cargar(Conexion *connection, qint16 codigo, QObject *parent = nullptr);

    /// Company code; read at the moment each statement is built.
    qint16 Codigo() const { return m_codigo; }
    void setCodigo(qint16 value) { m_codigo = value; }
    QString Nombre() const { return m_nombre; }
    void setNombre(const QString &value) { m_nombre = value; }
    /// Scanned barcodes may carry two quality values after the article code.
    bool CBarrasConCualidades() const { return m_cbarrasConCualidades; }
    void setCBarrasConCualidades(bool value) { m_cbarrasConCualidades = value; }
    /// The two quality values of such a barcode come as Y then X (false: X then Y).
    bool CualidadesOrdenYX() const { return m_cualidadesOrdenYX; }
    void setCualidadesOrdenYX(bool value) { m_cualidadesOrdenYX = value; }
    /// Characters of the article code at the start of such a barcode.
    int LongitudCodigoArticulo() const { return m_longitudCodigo; }
    void setLongitudCodigoArticulo(int value) { m_longitudCodigo = value; }
    /// Base folder of the company's files (reports live under it in "\Rpt\").
    QString DirBase() const { return m_dirBase; }
    void setDirBase(const QString &value) { m_dirBase = value; }

private:
    qint16 m_codigo;
    QString m_nombre;
    bool m_cbarrasConCualidades = false;
    bool m_cualidadesOrdenYX = false;
    int m_longitudCodigo = 8;
    QString m_dirBase;
};

} // namespace Varnel_Controles
