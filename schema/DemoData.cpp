#include "DemoData.h"

#include "DemoNames.h"

#include <Varnel_Controles/Conexion.h>
#include <Varnel_Controles/DbError.h>
#include <Varnel_Controles/EanCheckDigit.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <sqlite3.h>
#include <vector>

// Resources of a static library are registered by hand, outside any namespace.
static void initSchemaResource() { Q_INIT_RESOURCE(schema); }

namespace Varnel_Controles::Demo {

namespace {

using namespace Names;

template <typename T, size_t N>
constexpr size_t countOf(T (&)[N]) { return N; }

// splitmix64: small, fast and the same everywhere.
class Random
{
public:
    explicit Random(quint64 seed) : m_state(seed) {}
    quint64 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    int below(int n) { return int(next() % quint64(n)); }
    bool chance(int percent) { return below(100) < percent; }
    double between(double lo, double hi) { return lo + (hi - lo) * double(next() % 1000000) / 1000000.0; }
    template <typename T, size_t N>
    const char *pick(T (&list)[N]) { return list[below(int(N))]; }

private:
    quint64 m_state;
};

[[noreturn]] void fail(sqlite3 *db, const QString &what)
{
    throw DbError(DbError::ProviderError,
                  QStringLiteral("%1: %2").arg(what, QString::fromUtf8(sqlite3_errmsg(db))));
}

void exec(sqlite3 *db, const QString &sql)
{
    char *error = nullptr;
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
        const QString text = QString::fromUtf8(error);
        sqlite3_free(error);
        throw DbError(DbError::ProviderError, QStringLiteral("%1 (%2)").arg(text, sql.left(80)));
    }
}

// One prepared INSERT, bound and stepped per row.
class Inserter
{
public:
    Inserter(sqlite3 *db, const char *table, std::initializer_list<const char *> columns) : m_db(db)
    {
        QStringList cols, marks;
        for (const char *c : columns) { cols << QString::fromLatin1(c); marks << QStringLiteral("?"); }
        const QByteArray sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                   .arg(QString::fromLatin1(table), cols.join(u','), marks.join(u','))
                                   .toUtf8();
        if (sqlite3_prepare_v2(db, sql.constData(), -1, &m_stmt, nullptr) != SQLITE_OK)
            fail(db, QString::fromUtf8(sql));
    }
    ~Inserter() { sqlite3_finalize(m_stmt); }

    template <typename... Values>
    void row(const Values &...values)
    {
        int i = 0;
        (bind(++i, values), ...);
        if (sqlite3_step(m_stmt) != SQLITE_DONE)
            fail(m_db, QStringLiteral("INSERT"));
        sqlite3_reset(m_stmt);
    }

private:
    void bind(int i, int v) { sqlite3_bind_int(m_stmt, i, v); }
    void bind(int i, double v) { sqlite3_bind_double(m_stmt, i, v); }
    void bind(int i, const char *v) { sqlite3_bind_text(m_stmt, i, v, -1, SQLITE_TRANSIENT); }
    void bind(int i, const QString &v)
    {
        if (v.isNull()) { sqlite3_bind_null(m_stmt, i); return; }
        const QByteArray u = v.toUtf8();
        sqlite3_bind_text(m_stmt, i, u.constData(), int(u.size()), SQLITE_TRANSIENT);
    }
    void bind(int i, std::nullptr_t) { sqlite3_bind_null(m_stmt, i); }

    sqlite3 *m_db;
    sqlite3_stmt *m_stmt = nullptr;
};

QString u(const char *text) { return QString::fromUtf8(text); }

QString nif(int number)
{
    static const char letters[] = "TRWAGMYFPDXBNJZSQVHLCKE";
    return QStringLiteral("%1%2").arg(number, 8, 10, QLatin1Char('0')).arg(QLatin1Char(letters[number % 23]));
}

QString cif(int number)
{
    const QString digits = QStringLiteral("%1").arg(number % 10000000, 7, 10, QLatin1Char('0'));
    int a = 0, b = 0;
    for (int i = 0; i < 7; ++i) {
        const int d = digits[i].unicode() - '0';
        if (i % 2 == 1) a += d;
        else { const int twice = d * 2; b += twice / 10 + twice % 10; }
    }
    return QStringLiteral("B") + digits + QString::number((10 - (a + b) % 10) % 10);
}

QStringList splitStatements(const QString &ddl)
{
    QString text;
    for (const QString &line : ddl.split(u'\n')) {
        const int comment = line.indexOf(QLatin1String("--"));
        text += (comment >= 0 ? line.left(comment) : line) + u'\n';
    }
    QStringList out;
    for (const QString &s : text.split(u';'))
        if (!s.trimmed().isEmpty())
            out << s.trimmed();
    return out;
}

struct Company
{
    int code;
    const char *name;
    int articles, customers, suppliers;
    int firstBarcodePrefix;
};

class Generator
{
public:
    Generator(sqlite3 *db, quint64 seed, const std::function<void(const QString &)> &progress)
        : m_db(db), m_random(seed), m_progress(progress)
    {
    }

    void shared()
    {
        Inserter marcas(m_db, "Marcas", {"Codigo", "Nombre"});
        for (size_t i = 0; i < countOf(kMarcas); ++i)
            marcas.row(int(i + 1), u(kMarcas[i]));
        Inserter impuestos(m_db, "TiposImpuesto", {"Codigo", "Descripcion", "Porcentaje"});
        impuestos.row(1, u("IVA GENERAL"), 21.0);
        impuestos.row(2, u("IVA REDUCIDO"), 10.0);
        impuestos.row(3, u("IVA SUPERREDUCIDO"), 4.0);
        Inserter formacion(m_db, "Formacion_Desc", {"Desc_Larga", "Orden", "Cod_Campo", "Longitud"});
        // ticket: reference (6), blank, brand (10); description: family 1, blank, reference, blank, brand
        const int ticket[][2] = {{2, 6}, {0, 1}, {1, 10}};
        const int larga[][2] = {{4, 14}, {0, 1}, {2, 12}, {0, 1}, {1, 15}};
        for (int i = 0; i < 3; ++i) formacion.row(0, i + 1, ticket[i][0], ticket[i][1]);
        for (int i = 0; i < 5; ++i) formacion.row(1, i + 1, larga[i][0], larga[i][1]);
    }

    void company(const Company &c)
    {
        report(QStringLiteral("Empresa %1: %2").arg(c.code).arg(u(c.name)));
        Inserter empresas(m_db, "Empresas", {"Codigo", "Nombre", "Nif", "BusquedaArticulos", "MostrarCualidades",
                                             "DirImagenArt", "FamiliaObligada", "MaxCodigoArt",
                                             "CualidadX_PorDefecto", "CualidadY_PorDefecto", "Series_Automaticas",
                                             "CodigoBarrasAuto", "CBarras_Cualidades", "CBarras_OrdenYX",
                                             "CBarras_LongCodigo", "DirBase"});
        empresas.row(c.code, u(c.name), cif(c.code * 7919 + 4400000), c.code == 1 ? 0 : 1, c.code == 1 ? 1 : 0,
                     QStringLiteral("/srv/varnel/fotos/%1/").arg(c.code), c.code == 1 ? 1 : 0, 0, 1, 2, 0,
                     c.code == 1 ? 1 : 0, c.code == 2 ? 1 : 0, 0, 7, QStringLiteral("/srv/varnel"));

        Inserter almacenes(m_db, "Almacenes", {"Cod_Empresa", "Codigo", "Nombre"});
        const char *warehouses[] = {"ALMACÉN CENTRAL", "TIENDA CENTRO", "DEPÓSITO NORTE"};
        for (int w = 0; w < 3; ++w)
            almacenes.row(c.code, w + 1, u(warehouses[w]));
        Inserter tarifas(m_db, "Tarifas", {"Cod_Empresa", "Cod_Tarifa", "Nombre", "Decimales"});
        tarifas.row(c.code, 1, u("TARIFA GENERAL"), 2);
        tarifas.row(c.code, 2, u("MAYORISTAS"), 2);
        tarifas.row(c.code, 3, u("PROMOCIÓN"), 2);
        tarifas.row(c.code, 4, u("PVP TIENDA"), 3);
        Inserter almacenTarifas(m_db, "Almacen_Tarifas", {"Cod_Empresa", "Cod_Almacen", "Cod_Tarifa"});
        for (const auto &[w, t] : std::initializer_list<std::pair<int, int>>{{1, 1}, {1, 2}, {1, 3}, {2, 1}, {2, 4}, {3, 1}})
            almacenTarifas.row(c.code, w, t);

        Inserter titulos(m_db, "Familias_Titulos", {"Cod_Empresa", "Nivel", "Titulo"});
        titulos.row(c.code, 1, u("Sección"));
        titulos.row(c.code, 2, u("Familia"));
        titulos.row(c.code, 3, u("Subfamilia"));
        Inserter familias(m_db, "Familias", {"Cod_Empresa", "Nivel", "Codigo", "Cod_Padre", "Descripcion"});
        for (size_t f = 0; f < countOf(kFamilias); ++f) {
            familias.row(c.code, 1, int(f + 1), 0, u(kFamilias[f].nivel1));
            for (int s = 0; s < 4; ++s) {
                const int code2 = int(f + 1) * 10 + s + 1;
                familias.row(c.code, 2, code2, int(f + 1), u(kFamilias[f].nivel2[s]));
                for (int t = 0; t < 2; ++t)
                    familias.row(c.code, 3, code2 * 10 + t + 1, code2,
                                 u(kFamilias[f].nivel2[s]) + (t == 0 ? u(" BÁSICO") : u(" PROFESIONAL")));
            }
        }
        Inserter cualidades(m_db, "Cualidades", {"Cod_Empresa", "Codigo", "Nombre"});
        cualidades.row(c.code, 1, u("TALLA"));
        cualidades.row(c.code, 2, u("COLOR"));
        Inserter valores(m_db, "Cualidades_Des", {"Cod_Empresa", "Cod_Cualidad", "Codigo", "Nombre"});
        for (size_t i = 0; i < countOf(kTallas); ++i) valores.row(c.code, 1, int(i + 1), u(kTallas[i]));
        for (size_t i = 0; i < countOf(kColores); ++i) valores.row(c.code, 2, int(i + 1), u(kColores[i]));
        Inserter temporadas(m_db, "Temporadas", {"Cod_Empresa", "Codigo", "Descripcion"});
        temporadas.row(c.code, u("PV26"), u("PRIMAVERA-VERANO 2026"));
        temporadas.row(c.code, u("OI26"), u("OTOÑO-INVIERNO 2026"));
        temporadas.row(c.code, u("PV27"), u("PRIMAVERA-VERANO 2027"));

        suppliers(c);
        customers(c);
        articles(c);
    }

private:
    void report(const QString &line)
    {
        if (m_progress)
            m_progress(line);
    }

    QString companyName(bool withForm = true)
    {
        QString name;
        switch (m_random.below(3)) {
        case 0: name = u(m_random.pick(kActividades)) + u' ' + u(m_random.pick(kApellidos)); break;
        case 1: name = u(m_random.pick(kApellidos)) + u(" Y ") + u(m_random.pick(kApellidos)); break;
        default: name = u(m_random.pick(kActividades)) + u(" ") + u(m_random.pick(kPoblaciones)); break;
        }
        return withForm ? name + u' ' + u(m_random.pick(kFormas)) : name;
    }

    // The first two words of a company name, or the first alone before "Y" / "DE".
    static QString shortName(const QString &name)
    {
        const QStringList words = name.split(u' ', Qt::SkipEmptyParts);
        if (words.size() < 2 || words[1] == QLatin1String("Y") || words[1] == QLatin1String("DE"))
            return words.value(0);
        return words[0] + u' ' + words[1];
    }

    QString tradeName() { return u(m_random.pick(kSilabasInicio)) + u(m_random.pick(kSilabasFin)); }

    void suppliers(const Company &c)
    {
        report(QStringLiteral("  %1 proveedores").arg(c.suppliers));
        Inserter p(m_db, "Proveedores", {"Cod_Empresa", "Codigo", "Nombre", "Nombre_Comercial", "Nif", "Poblacion"});
        m_supplierInitials.clear();
        for (int i = 1; i <= c.suppliers; ++i) {
            const QString name = companyName();
            QString trade;
            const int kind = m_random.below(10);
            if (kind < 6) trade = tradeName();
            else if (kind < 7) trade = QStringLiteral(""); // an empty trade name, not a missing one
            p.row(c.code, i, name, trade, cif(int((qint64(i) * 104729 + c.code) % 10000000)), u(m_random.pick(kPoblaciones)));
            QString initials;
            for (const QString &w : name.split(u' ', Qt::SkipEmptyParts))
                if (initials.size() < 3 && w.at(0).isLetter()) initials += w.at(0);
            m_supplierInitials << initials;
        }
    }

    void customers(const Company &c)
    {
        report(QStringLiteral("  %1 clientes").arg(c.customers));
        Inserter cl(m_db, "Clientes", {"Cod_Empresa", "Codigo", "Nombre", "Nombre_Comercial", "Nif", "Poblacion",
                                       "Tarifa_Pvp", "Tarifa_Promoc"});
        Inserter inst(m_db, "Clientes_Instalaciones", {"Cod_Empresa", "Cod_Cliente", "Codigo", "Nombre", "Direccion"});
        for (int i = 1; i <= c.customers; ++i) {
            const bool person = m_random.chance(40);
            const QString name = person ? QStringLiteral("%1 %2, %3").arg(u(m_random.pick(kApellidos)),
                                                                          u(m_random.pick(kApellidos)),
                                                                          u(m_random.pick(kNombres)))
                                        : companyName();
            const QString trade = !person && m_random.chance(50) ? tradeName() : QString();
            const QString taxId = person ? nif(int(10000000 + (qint64(i) * 7919 + c.code * 31) % 89999999))
                                         : cif(int((qint64(i) * 15485863 + c.code) % 10000000));
            cl.row(c.code, 1000 + i, name, trade, taxId, u(m_random.pick(kPoblaciones)),
                   1, m_random.chance(20) ? 3 : 0);
            if (!person && m_random.chance(25)) {
                const int n = 1 + m_random.below(3);
                const int first = m_random.below(int(countOf(kInstalaciones)));
                for (int k = 1; k <= n; ++k)
                    inst.row(c.code, 1000 + i, k,
                             shortName(name) + u(" - ") + u(kInstalaciones[(first + k) % countOf(kInstalaciones)]),
                             QStringLiteral("CALLE %1, %2").arg(u(m_random.pick(kApellidos))).arg(1 + m_random.below(120)));
            }
        }
    }

    void articles(const Company &c)
    {
        report(QStringLiteral("  %1 artículos").arg(c.articles));
        Inserter art(m_db, "Articulos", {"Cod_Empresa", "Codigo", "Descripcion", "Desc_Ticket", "Desc_Memo", "Familia_1",
                                         "Familia_2", "Familia_3", "Marca", "TipoImpuesto", "CualidadX", "CualidadY",
                                         "Temporada", "Mod_Ficha", "FAlta"});
        Inserter ref(m_db, "Articulos_Ref", {"Cod_Empresa", "Cod_Articulo", "Cod_Prov", "Ref", "Principal", "Fecha"});
        Inserter refCli(m_db, "Articulos_RefCli", {"Cod_Empresa", "Cod_Articulo", "Cod_Cli", "Ref", "Principal", "Fecha"});
        Inserter cb(m_db, "Articulos_CBarras", {"Cod_Empresa", "Cod_Articulo", "Cod_Barras", "Principal", "Fecha",
                                                "Unidades", "Automatico"});
        Inserter stock(m_db, "Almacen_Articulos", {"Cod_Empresa", "Cod_Almacen", "Cod_Articulo", "Stock_Actual",
                                                   "Pend_Servir", "Pend_Recibir"});
        Inserter price(m_db, "Articulos_Tarifas", {"Cod_Empresa", "Cod_Articulo", "Cod_Tarifa", "Pvp"});
        Inserter custPrice(m_db, "Clientes_Art_PVP", {"Cod_Empresa", "Cod_Cliente", "Cod_Articulo", "Fecha_Inicial",
                                                      "Fecha_Final", "Pvp"});
        const int step = qMax(1, c.articles / 10);
        for (int code = 1; code <= c.articles; ++code) {
            if (code % step == 0 && c.articles >= 100000)
                report(QStringLiteral("    %1 artículos…").arg(code));
            const int f = m_random.below(int(countOf(kFamilias)));
            const Familia &family = kFamilias[f];
            const int level2 = m_random.below(4);
            const int fam2 = (f + 1) * 10 + level2 + 1;
            const int fam3 = fam2 * 10 + 1 + m_random.below(2);
            const int brand = 1 + m_random.below(int(countOf(kMarcas)));
            const int product = m_random.below(6);
            const QString description = QStringLiteral("%1 %2 %3").arg(u(family.productos[product]),
                                                                        u(family.detalles[product]),
                                                                        u(kMarcas[brand - 1]));
            const bool withQualities = f == 0 || f == 1;
            art.row(c.code, code, description, description.left(30),
                    m_random.chance(30) ? description + u(". Consultar disponibilidad por tallas y colores.") : QString(),
                    f + 1, fam2, fam3, brand, m_random.chance(10) ? 2 : 1, withQualities ? 1 : 0, withQualities ? 2 : 0,
                    withQualities ? u(m_random.chance(50) ? "PV26" : "OI26") : QString(), 1,
                    QStringLiteral("2025-%1-%2").arg(1 + code % 12, 2, 10, QLatin1Char('0')).arg(1 + code % 28, 2, 10, QLatin1Char('0')));

            const int supplier = 1 + m_random.below(c.suppliers);
            const QString reference = QStringLiteral("%1-%2").arg(m_supplierInitials[supplier - 1]).arg(1000 + m_random.below(9000));
            ref.row(c.code, code, supplier, reference, 1, u("2025-06-01"));
            if (m_random.chance(15)) {
                int other = 1 + m_random.below(c.suppliers);
                if (other != supplier)
                    ref.row(c.code, code, other, QStringLiteral("R%1").arg(code * 7 % 100000, 5, 10, QLatin1Char('0')), 0, u("2025-06-01"));
            }
            if (m_random.chance(10))
                refCli.row(c.code, code, 1001 + m_random.below(c.customers), QStringLiteral("C-%1").arg(code, 6, 10, QLatin1Char('0')), 1, u("2025-07-15"));

            // EAN-13 with the supplier's prefix; some articles add an EAN-8 or a box code.
            const QString ean13 = EanCheckDigit::complete(QStringLiteral("84%1%2").arg(c.firstBarcodePrefix + supplier, 5, 10, QLatin1Char('0'))
                                                              .arg(code % 100000, 5, 10, QLatin1Char('0')));
            if (!m_barcodes.contains(ean13)) {
                m_barcodes.insert(ean13);
                cb.row(c.code, code, ean13, 1, u("2025-06-01"), 1, 0);
            }
            if (m_random.chance(20)) {
                const QString ean8 = EanCheckDigit::complete(QStringLiteral("84%1").arg(code % 100000 + c.code * 1000, 5, 10, QLatin1Char('0')));
                if (!m_barcodes.contains(ean8)) {
                    m_barcodes.insert(ean8);
                    cb.row(c.code, code, ean8, 0, u("2025-06-01"), 1, 0);
                }
            }
            if (m_random.chance(10)) {
                const QString box = EanCheckDigit::complete(QStringLiteral("18%1%2").arg(c.firstBarcodePrefix + supplier, 5, 10, QLatin1Char('0'))
                                                                .arg(code % 100000, 5, 10, QLatin1Char('0')));
                if (!m_barcodes.contains(box)) {
                    m_barcodes.insert(box);
                    cb.row(c.code, code, box, 0, u("2025-06-01"), 12, 0);
                }
            }

            const double cost = std::round(m_random.between(0.2, 80.0) * 100) / 100;
            for (int w = 1; w <= 3; ++w)
                if (w == 1 || m_random.chance(60))
                    stock.row(c.code, w, code, double(m_random.below(400)) - 20, double(m_random.below(30)),
                              double(m_random.below(50)));
            price.row(c.code, code, 1, std::round(cost * 1.8 * 100) / 100);
            if (m_random.chance(80)) price.row(c.code, code, 2, std::round(cost * 1.4 * 100) / 100);
            if (m_random.chance(30)) price.row(c.code, code, 3, std::round(cost * 1.6 * 100) / 100);
            if (m_random.chance(50)) price.row(c.code, code, 4, std::round(cost * 2.1 * 1000) / 1000);
            if (m_random.chance(5))
                custPrice.row(c.code, 1001 + m_random.below(c.customers), code, u("2026-01-01"), u("2026-12-31"),
                              std::round(cost * 1.5 * 100) / 100);
        }
    }

    sqlite3 *m_db;
    Random m_random;
    std::function<void(const QString &)> m_progress;
    QStringList m_supplierInitials;
    QSet<QString> m_barcodes;
};

sqlite3 *openFresh(const QString &path)
{
    QFile::remove(path);
    QFile::remove(path + QStringLiteral("-wal"));
    QFile::remove(path + QStringLiteral("-shm"));
    sqlite3 *db = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &db) != SQLITE_OK) {
        const QString text = QString::fromUtf8(sqlite3_errmsg(db));
        sqlite3_close(db);
        throw DbError(DbError::ProviderError, QStringLiteral("No se pudo crear %1: %2").arg(path, text));
    }
    Conexion::registerSqliteExtensions(db);
    return db;
}

} // namespace

QString sqliteSchema()
{
    initSchemaResource();
    QFile file(QStringLiteral(":/schema/sqlite.sql"));
    file.open(QIODevice::ReadOnly);
    return QString::fromUtf8(file.readAll());
}

void createEmpty(const QString &path)
{
    sqlite3 *db = openFresh(path);
    try {
        exec(db, QStringLiteral("PRAGMA journal_mode=WAL"));
        for (const QString &statement : splitStatements(sqliteSchema()))
            exec(db, statement);
    } catch (...) {
        sqlite3_close(db);
        throw;
    }
    sqlite3_close(db);
}

void generate(const QString &path, const Options &options, const std::function<void(const QString &)> &progress)
{
    sqlite3 *db = openFresh(path);
    try {
        exec(db, QStringLiteral("PRAGMA journal_mode=WAL"));
        exec(db, QStringLiteral("PRAGMA synchronous=OFF"));
        const QStringList statements = splitStatements(sqliteSchema());
        // Tables first, indexes after the rows: building an index once is cheaper than keeping it.
        for (const QString &s : statements)
            if (!s.startsWith(QLatin1String("CREATE INDEX"), Qt::CaseInsensitive))
                exec(db, s);
        exec(db, QStringLiteral("BEGIN"));
        Generator g(db, options.semilla, progress);
        g.shared();
        g.company({1, "SUMINISTROS VARNEL S.L.", options.articulos, options.clientes, options.proveedores, 10000});
        g.company({2, "VARNEL TEXTIL S.A.", qMax(10, options.articulos / 10), qMax(10, options.clientes / 10),
                   qMax(5, options.proveedores / 10), 60000});
        exec(db, QStringLiteral("COMMIT"));
        if (progress) progress(QStringLiteral("Índices…"));
        for (const QString &s : statements)
            if (s.startsWith(QLatin1String("CREATE INDEX"), Qt::CaseInsensitive))
                exec(db, s);
        exec(db, QStringLiteral("ANALYZE"));
        exec(db, QStringLiteral("PRAGMA synchronous=FULL"));
    } catch (...) {
        sqlite3_close(db);
        QFile::remove(path);
        throw;
    }
    sqlite3_close(db);
}

} // namespace Varnel_Controles::Demo
