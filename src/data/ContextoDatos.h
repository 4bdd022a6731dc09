// The database context of a control or dialog: the company object it was given and the
// connection it uses (the library-wide one, or its own for classes that keep one).
#pragma once

#include "varnel_controles_export.h"

#include <QPointer>

#include "Conexion.h"
#include "cEmpresa.h"

namespace Varnel_Controles {

class VARNEL_CONTROLES_EXPORT ContextoDatos
{
public:
    enum Slot { SharedConnection, OwnConnection };
    explicit ContextoDatos(Slot slot = SharedConnection) : m_slot(slot) {}

    void setCEmpresa(cEmpresa *company) { m_company = company; }
    /// Shared: stored in the library-wide slot unless it already holds one. Own: replaces.
    void setConexion(Conexion *connection);

    /// The company code, read now. Throws DbError 91 when no company object was given.
    qint16 empresa() const;
    /// The connection to use. Throws DbError 91 when there is none.
    Conexion *conexion() const;
    bool hasCompany() const { return !m_company.isNull(); }
    cEmpresa *company() const { return m_company.data(); }

private:
    Slot m_slot;
    QPointer<cEmpresa> m_company;
    QPointer<Conexion> m_own;
};

} // namespace Varnel_Controles
