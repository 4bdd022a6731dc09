#include "lookup/ArticuloServicios.h"

namespace Varnel_Controles {

namespace {
ArticuloServicios *g_services = nullptr;
}

ArticuloServicios *ArticuloServicios::current() { return g_services; }
void ArticuloServicios::install(ArticuloServicios *services) { g_services = services; }

} // namespace Varnel_Controles
