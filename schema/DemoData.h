// A realistic, deterministic company database for the demo, the tests and the benchmarks:
// two companies with suppliers, customers and their installations, brands, families,
// qualities, seasons, articles with references and valid EAN barcodes, warehouses, tariffs,
// stock and customer prices. The same options always give the same rows.
#pragma once

#include <QString>
#include <functional>

namespace Varnel_Controles::Demo {

struct Options
{
    int articulos = 3000;    // articles of company 1 (company 2 gets a tenth)
    int clientes = 400;      // customers of company 1
    int proveedores = 150;   // suppliers of company 1
    quint64 semilla = 20261121;
};

/// The SQLite DDL of every table the library touches (indexes included).
QString sqliteSchema();
/// Creates the file `path` (replacing it) with the schema and no rows.
void createEmpty(const QString &path);
/// Creates the file `path` (replacing it) and fills it. `progress` receives Spanish status lines.
void generate(const QString &path, const Options &options = {},
              const std::function<void(const QString &)> &progress = {});

} // namespace Varnel_Controles::Demo
