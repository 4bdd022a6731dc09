// Word lists for the demo data.
#pragma once

namespace Varnel_Controles::Demo::Names {

inline const char *const kApellidos[] = {
    "GARCÍA", "FERNÁNDEZ", "GONZÁLEZ", "RODRÍGUEZ", "LÓPEZ", "MARTÍNEZ", "SÁNCHEZ", "PÉREZ",
    "GÓMEZ", "MARTÍN", "JIMÉNEZ", "RUIZ", "HERNÁNDEZ", "DÍAZ", "MORENO", "MUÑOZ", "ÁLVAREZ",
    "ROMERO", "ALONSO", "GUTIÉRREZ", "NAVARRO", "TORRES", "DOMÍNGUEZ", "VÁZQUEZ", "RAMOS",
    "GIL", "RAMÍREZ", "SERRANO", "BLANCO", "MOLINA", "MORALES", "SUÁREZ", "ORTEGA", "DELGADO",
    "CASTRO", "ORTIZ", "RUBIO", "MARÍN", "SANZ", "NÚÑEZ", "IBÁÑEZ", "PEÑA", "CASTAÑO",
    "ECHEVERRÍA", "AGUIRRE", "URIARTE", "BARRIENTOS", "CARDEÑOSA", "ZÚÑIGA", "OLMEDO",
    "VILLALBA", "BUENDÍA", "CAÑIZARES", "MONTAÑÉS", "QUINTANA", "ARRIBAS", "LUENGO", "PASTOR",
};

inline const char *const kNombres[] = {
    "ANTONIO", "MANUEL", "JOSÉ", "FRANCISCO", "DAVID", "JUAN", "JAVIER", "JESÚS", "CARLOS",
    "MARÍA", "CARMEN", "ANA", "ISABEL", "LAURA", "CRISTINA", "MARTA", "LUCÍA", "PILAR",
    "NURIA", "BEGOÑA", "IÑAKI", "AINHOA", "ÁNGEL", "RAMÓN", "SONIA", "MONTSERRAT",
};

inline const char *const kActividades[] = {
    "DISTRIBUCIONES", "SUMINISTROS", "COMERCIAL", "INDUSTRIAS", "TALLERES", "CONFECCIONES",
    "HIJOS DE", "HERMANOS", "IMPORTACIONES", "ALMACENES", "FERRETERÍA", "TEXTILES",
};

inline const char *const kFormas[] = {"S.L.", "S.A.", "S.L.U.", "S.COOP.", "C.B."};

inline const char *const kSilabasInicio[] = {
    "IBER", "HISPA", "NOR", "SUR", "LEVAN", "CANTA", "GAL", "ASTUR", "MEDI", "ARAGO", "TOLE",
    "CASTE", "BALEA", "ÑANDÚ", "ANDA", "MARE", "SIERRA", "TAJO", "DUERO", "EBRO",
};
inline const char *const kSilabasFin[] = {
    "TEX", "NOR", "SUR", "MED", "COM", "DIS", "PLAST", "METAL", "MODA", "HOGAR", "TOOLS", "LUX",
};

inline const char *const kInstalaciones[] = {
    "TIENDA CALLE MAYOR", "ALMACÉN POLÍGONO SUR", "OFICINA CENTRAL", "TIENDA CENTRO COMERCIAL",
    "DELEGACIÓN NORTE", "OBRA AVENIDA DE LA PAZ", "NAVE INDUSTRIAL", "TIENDA PLAZA ESPAÑA",
};

inline const char *const kPoblaciones[] = {
    "MADRID", "BARCELONA", "VALENCIA", "SEVILLA", "ZARAGOZA", "MÁLAGA", "MURCIA", "BILBAO",
    "ALICANTE", "CÓRDOBA", "VALLADOLID", "VIGO", "GIJÓN", "A CORUÑA", "LOGROÑO", "CÁCERES",
};

inline const char *const kMarcas[] = {
    "ACME", "BOSQUE", "ÑANDÚ", "ARAGONESA", "BRAVO", "CÉFIRO", "DELTA", "ESPIGA", "FARO",
    "GAVIOTA", "HALCÓN", "ÍBICE", "JARA", "KOALA", "LINCE", "MISTRAL", "NÁCAR", "OLIVO",
    "PARDAL", "QUIJOTE", "ROBLE", "SALINAS", "TAJO", "URBIÓN", "VELETA", "ZAFIRO", "ATLAS",
    "BRISA", "CIERZO", "DUNA",
};

struct Familia { const char *nivel1; const char *nivel2[4]; const char *productos[6]; const char *detalles[6]; };

inline const Familia kFamilias[] = {
    {"TEXTIL", {"CAMISERÍA", "PANTALONES", "PUNTO", "ROPA DE TRABAJO"},
     {"CAMISA", "POLO", "PANTALÓN", "JERSEY", "CHAQUETA", "SUDADERA"},
     {"MANGA LARGA", "MANGA CORTA", "ALGODÓN", "LINO", "CUELLO MAO", "CON CAPUCHA"}},
    {"CALZADO", {"DEPORTIVO", "SEGURIDAD", "VESTIR", "INFANTIL"},
     {"ZAPATILLA", "BOTA", "ZAPATO", "SANDALIA", "MOCASÍN", "BOTÍN"},
     {"PIEL", "LONA", "PUNTERA ACERO", "SUELA GOMA", "CORDONES", "VELCRO"}},
    {"FERRETERÍA", {"TORNILLERÍA", "HERRAMIENTA MANUAL", "CERRAJERÍA", "FIJACIÓN"},
     {"TORNILLO", "TUERCA", "LLAVE", "DESTORNILLADOR", "CERRADURA", "TACO"},
     {"HEXAGONAL M6", "M8 ZINCADO", "ALLEN", "PHILLIPS", "INOX", "NYLON 8MM"}},
    {"DROGUERÍA", {"LIMPIEZA", "CELULOSA", "DESINFECCIÓN", "UTENSILIOS"},
     {"DETERGENTE", "LEJÍA", "BAYETA", "FREGONA", "ROLLO", "AMBIENTADOR"},
     {"1 L", "5 L", "MICROFIBRA", "PACK 3", "INDUSTRIAL", "LAVANDA"}},
    {"ELECTRICIDAD", {"ILUMINACIÓN", "CABLEADO", "PEQUEÑO MATERIAL", "PILAS"},
     {"BOMBILLA", "CABLE", "ENCHUFE", "INTERRUPTOR", "REGLETA", "PILA"},
     {"LED E27", "2,5 MM", "SCHUKO", "EMPOTRABLE", "5 TOMAS", "AA ALCALINA"}},
    {"ALIMENTACIÓN", {"CONSERVAS", "BEBIDAS", "ACEITES", "DULCES"},
     {"ACEITE", "ATÚN", "AGUA", "TURRÓN", "ESPÁRRAGOS", "MAZAPÁN"},
     {"OLIVA VIRGEN", "EN ACEITE", "1,5 L", "BLANDO", "DE NAVARRA", "DE TOLEDO"}},
};

inline const char *const kTallas[] = {"S", "M", "L", "XL", "XXL", "36", "38", "40", "42", "44"};
inline const char *const kColores[] = {"BLANCO", "NEGRO", "AZUL MARINO", "ROJO", "VERDE BOTELLA",
                                       "GRIS", "BEIGE", "MARRÓN"};

} // namespace Varnel_Controles::Demo::Names
