#include "report/clsListado.h"

#include "data/Conexion.h"
#include "data/DbError.h"
#include "data/Recordset.h"
#include "platform/LegacyError.h"

#include <QPointer>

namespace Varnel_Controles {

namespace {

class ListaFuente : public clsListado::Fuente
{
public:
    explicit ListaFuente(const QList<QStringList> &filas) : m_filas(filas) {}
    void Reiniciar() override { m_next = 0; }
    bool Siguiente(QStringList &fila) override
    {
        if (m_next >= m_filas.size())
            return false;
        fila = m_filas.at(m_next++);
        return true;
    }
    qint64 Total() const override { return m_filas.size(); }

private:
    const QList<QStringList> &m_filas;
    qsizetype m_next = 0;
};

class FuncionFuente : public clsListado::Fuente
{
public:
    FuncionFuente(std::function<void()> reiniciar, std::function<bool(QStringList &)> siguiente)
        : m_reiniciar(std::move(reiniciar)), m_siguiente(std::move(siguiente))
    {
    }
    void Reiniciar() override
    {
        if (m_reiniciar)
            m_reiniciar();
    }
    bool Siguiente(QStringList &fila) override { return m_siguiente && m_siguiente(fila); }

private:
    std::function<void()> m_reiniciar;
    std::function<bool(QStringList &)> m_siguiente;
};

// A forward-only recordset, opened again for each reading.
class ConsultaFuente : public clsListado::Fuente
{
public:
    ConsultaFuente(QString tsql, QStringList campos, Conexion *conexion)
        : m_tsql(std::move(tsql)), m_campos(std::move(campos)), m_conexion(conexion), m_own(conexion != nullptr)
    {
    }
    void Reiniciar() override
    {
        Conexion *conexion = m_own ? m_conexion.data() : Conexion::shared();
        if (!conexion)
            throw DbError(DbError::ObjectNotSet, QStringLiteral("No hay conexión con la base de datos."),
                          QStringLiteral("clsListado::Reiniciar"));
        m_rs.open(m_tsql, conexion);
        m_first = true;
    }
    bool Siguiente(QStringList &fila) override
    {
        if (!m_rs.isOpen())
            return false;
        if (!m_first)
            m_rs.moveNext();
        m_first = false;
        if (m_rs.eof()) {
            m_rs.close();
            return false;
        }
        fila.resize(m_campos.size());
        for (qsizetype i = 0; i < m_campos.size(); ++i) {
            const QVariant value = m_rs.field(m_campos.at(i));
            if (value.isNull())
                fila[i].clear();
            else if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float)
                fila[i] = QString::number(value.toDouble(), 'g', 15).replace(QLatin1Char('.'), QLatin1Char(','));
            else
                fila[i] = value.toString();
        }
        return true;
    }

private:
    QString m_tsql;
    QStringList m_campos;
    QPointer<Conexion> m_conexion;
    bool m_own;
    Recordset m_rs;
    bool m_first = true;
};

} // namespace

clsListado::Fuente::~Fuente() = default;

clsListado::clsListado(const QString &titulo) : m_titulo(titulo) {}
clsListado::~clsListado() = default;

clsListado::clsListado(const clsListado &other)
    : m_titulo(other.m_titulo), m_criterio(other.m_criterio), m_columnas(other.m_columnas)
    , m_totales(other.m_totales), m_filas(other.m_filas), m_fuente(other.m_fuente)
{
}

clsListado &clsListado::operator=(const clsListado &other)
{
    if (this != &other) {
        m_titulo = other.m_titulo;
        m_criterio = other.m_criterio;
        m_columnas = other.m_columnas;
        m_totales = other.m_totales;
        m_filas = other.m_filas;
        m_fuente = other.m_fuente;
        m_lista.reset();
    }
    return *this;
}

void clsListado::AgregarColumna(const QString &titulo, qint32 anchoTwips, enmAlignment alineacion)
{
    if (anchoTwips < kAnchoMinimo)
        throw LegacyError(LegacyError::InvalidPropertyValue,
                          QStringLiteral("El valor de la propiedad no es válido: la columna «%1» mide %2 twips y "
                                         "debe medir al menos %3.")
                              .arg(titulo)
                              .arg(anchoTwips)
                              .arg(kAnchoMinimo),
                          QStringLiteral("clsListado::AgregarColumna"));
    m_columnas.append({titulo, anchoTwips, alineacion});
}

void clsListado::AgregarFila(const QStringList &celdas) { m_filas.append(celdas); }

void clsListado::setFuente(std::shared_ptr<Fuente> fuente) { m_fuente = std::move(fuente); }

void clsListado::setFuente(std::function<void()> reiniciar, std::function<bool(QStringList &)> siguiente)
{
    m_fuente = std::make_shared<FuncionFuente>(std::move(reiniciar), std::move(siguiente));
}

void clsListado::setConsulta(const QString &tsql, const QStringList &campos, Conexion *conexion)
{
    m_fuente = std::make_shared<ConsultaFuente>(tsql, campos, conexion);
}

clsListado::Fuente &clsListado::Filas() const
{
    if (m_fuente)
        return *m_fuente;
    if (!m_lista)
        m_lista = std::make_unique<ListaFuente>(m_filas);
    return *m_lista;
}

} // namespace Varnel_Controles
