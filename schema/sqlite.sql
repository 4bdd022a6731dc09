-- The same tables for the embedded SQLite database. Text columns use the collation
-- MODERN_SPANISH_CI_AS that the library registers on each connection (case-insensitive,
-- accent-sensitive, Ñ after N), so comparisons, ordering and indexes behave as on the server.
-- Dates are stored as ISO text (yyyy-mm-dd).
-- Each index names the statements it serves.

CREATE TABLE Empresas (
    Codigo                      INTEGER     NOT NULL PRIMARY KEY,
    Nombre                      TEXT COLLATE MODERN_SPANISH_CI_AS  NOT NULL,
    Nif                         TEXT COLLATE MODERN_SPANISH_CI_AS  NULL,
    BusquedaArticulos           INTEGER      NOT NULL DEFAULT 0,  -- 0 first article search layout, 1 second
    MostrarCualidades           INTEGER          NOT NULL DEFAULT 0,
    DirImagenArt                TEXT COLLATE MODERN_SPANISH_CI_AS NULL,              -- folder of article photos
    FamiliaObligada             INTEGER          NOT NULL DEFAULT 0,
    MargenReal_FArt_sUltimoPUC  INTEGER          NOT NULL DEFAULT 0,
    MaxCodigoArt                INTEGER          NOT NULL DEFAULT 0,  -- 0: no limit
    CualidadX_PorDefecto        INTEGER     NOT NULL DEFAULT 0,
    CualidadY_PorDefecto        INTEGER     NOT NULL DEFAULT 0,
    Series_Automaticas          INTEGER          NOT NULL DEFAULT 0,
    CodigoBarrasAuto            INTEGER          NOT NULL DEFAULT 0,  -- new articles get an automatic EAN-8
    CBarras_Cualidades          INTEGER          NOT NULL DEFAULT 0,  -- scanned barcodes carry quality values
    CBarras_OrdenYX             INTEGER          NOT NULL DEFAULT 0,  -- … in the order Y, X
    CBarras_LongCodigo          INTEGER     NOT NULL DEFAULT 8,  -- article-code length inside them
    DirBase                     TEXT COLLATE MODERN_SPANISH_CI_AS NULL                -- base folder (reports in \Rpt\)
);

CREATE TABLE Proveedores (
    Cod_Empresa       INTEGER    NOT NULL,
    Codigo            INTEGER         NOT NULL,
    Nombre            TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Nombre_Comercial  TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Nif               TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Poblacion         TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    CONSTRAINT PK_Proveedores PRIMARY KEY (Cod_Empresa, Codigo)       -- lookup by code
);
CREATE INDEX IX_Proveedores_Nombre ON Proveedores (Cod_Empresa, Nombre);                 -- search by name
CREATE INDEX IX_Proveedores_NombreComercial ON Proveedores (Cod_Empresa, Nombre_Comercial); -- … or trade name

CREATE TABLE Clientes (
    Cod_Empresa       INTEGER    NOT NULL,
    Codigo            INTEGER         NOT NULL,
    Nombre            TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Nombre_Comercial  TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Nif               TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Poblacion         TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Tarifa_Pvp        INTEGER    NOT NULL DEFAULT 0,
    Tarifa_Promoc     INTEGER    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Clientes PRIMARY KEY (Cod_Empresa, Codigo)
);
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre);
CREATE INDEX IX_Clientes_NombreComercial ON Clientes (Cod_Empresa, Nombre_Comercial);
CREATE INDEX IX_Clientes_Nif ON Clientes (Cod_Empresa, Nif);

CREATE TABLE Clientes_Instalaciones (
    Cod_Empresa  INTEGER    NOT NULL,
    Cod_Cliente  INTEGER         NOT NULL,
    Codigo       INTEGER    NOT NULL,
    Nombre       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Direccion    TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    CONSTRAINT PK_Clientes_Instalaciones PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
);
CREATE INDEX IX_Clientes_Instalaciones_Nombre ON Clientes_Instalaciones (Cod_Empresa, Nombre);

CREATE TABLE Marcas (
    Codigo  INTEGER    NOT NULL PRIMARY KEY,
    Nombre  TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL
);
CREATE INDEX IX_Marcas_Nombre ON Marcas (Nombre);

-- The family picker: three levels, each level's codes under its parent.
CREATE TABLE Familias (
    Cod_Empresa  INTEGER    NOT NULL,
    Nivel        INTEGER     NOT NULL,  -- 1, 2, 3
    Codigo       INTEGER    NOT NULL,
    Cod_Padre    INTEGER    NOT NULL DEFAULT 0,
    Descripcion  TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Familias PRIMARY KEY (Cod_Empresa, Nivel, Codigo)
);
CREATE TABLE Familias_Titulos (
    Cod_Empresa  INTEGER    NOT NULL,
    Nivel        INTEGER     NOT NULL,
    Titulo       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Familias_Titulos PRIMARY KEY (Cod_Empresa, Nivel)
);

-- Qualities (size, colour…) and their values.
CREATE TABLE Cualidades (
    Cod_Empresa  INTEGER    NOT NULL,
    Codigo       INTEGER    NOT NULL,
    Nombre       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Cualidades PRIMARY KEY (Cod_Empresa, Codigo)
);
CREATE TABLE Cualidades_Des (
    Cod_Empresa   INTEGER    NOT NULL,
    Cod_Cualidad  INTEGER    NOT NULL,
    Codigo        INTEGER    NOT NULL,
    Nombre        TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Cualidades_Des PRIMARY KEY (Cod_Empresa, Cod_Cualidad, Codigo)
);

-- The season picker.
CREATE TABLE Temporadas (
    Cod_Empresa  INTEGER    NOT NULL,
    Codigo       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Descripcion  TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Temporadas PRIMARY KEY (Cod_Empresa, Codigo)
);

-- Tax types an article is given (its TipoImpuesto); the article creation refuses an unknown one.
CREATE TABLE TiposImpuesto (
    Codigo       INTEGER    NOT NULL PRIMARY KEY,
    Descripcion  TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Porcentaje   REAL       NOT NULL DEFAULT 0
);

CREATE TABLE Articulos (
    Cod_Empresa        INTEGER     NOT NULL,
    Codigo             INTEGER          NOT NULL,
    Descripcion        TEXT COLLATE MODERN_SPANISH_CI_AS  NULL,
    Desc_Ticket        TEXT COLLATE MODERN_SPANISH_CI_AS  NULL,
    Desc_Memo          TEXT COLLATE MODERN_SPANISH_CI_AS NULL,
    Familia_1          INTEGER     NOT NULL DEFAULT 0,
    Familia_2          INTEGER     NOT NULL DEFAULT 0,
    Familia_3          INTEGER     NOT NULL DEFAULT 0,
    Marca              INTEGER     NOT NULL DEFAULT 0,
    TipoImpuesto       INTEGER     NOT NULL DEFAULT 0,
    CualidadX          INTEGER     NOT NULL DEFAULT 0,
    CualidadY          INTEGER     NOT NULL DEFAULT 0,
    NoGenerarSerieEAN  INTEGER          NOT NULL DEFAULT 0,
    Temporada          TEXT COLLATE MODERN_SPANISH_CI_AS  NULL,
    Mod_Ficha          INTEGER          NOT NULL DEFAULT 0,
    FAlta              DATE     NULL,
    CONSTRAINT PK_Articulos PRIMARY KEY (Cod_Empresa, Codigo)         -- lookup, next free code
);
CREATE INDEX IX_Articulos_Descripcion ON Articulos (Cod_Empresa, Descripcion); -- search by description
CREATE INDEX IX_Articulos_Desc_Memo ON Articulos (Cod_Empresa, Desc_Memo);     -- … and long description

CREATE TABLE Articulos_Ref (
    Cod_Empresa  INTEGER    NOT NULL,
    Cod_Articulo INTEGER         NOT NULL,
    Cod_Prov     INTEGER         NOT NULL,
    Ref          TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Principal    INTEGER         NOT NULL DEFAULT 0,
    Fecha        DATE    NULL,
    CONSTRAINT PK_Articulos_Ref PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref)
);
CREATE INDEX IX_Articulos_Ref_Ref ON Articulos_Ref (Cod_Empresa, Ref);                   -- reference typed
CREATE INDEX IX_Articulos_Ref_Prov ON Articulos_Ref (Cod_Empresa, Cod_Prov, Ref);        -- … of a supplier

CREATE TABLE Articulos_RefCli (
    Cod_Empresa  INTEGER    NOT NULL,
    Cod_Articulo INTEGER         NOT NULL,
    Cod_Cli      INTEGER         NOT NULL,
    Ref          TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Principal    INTEGER         NOT NULL DEFAULT 0,
    Fecha        DATE    NULL,
    CONSTRAINT PK_Articulos_RefCli PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref)
);
CREATE INDEX IX_Articulos_RefCli_Ref ON Articulos_RefCli (Cod_Empresa, Ref);
CREATE INDEX IX_Articulos_RefCli_Cli ON Articulos_RefCli (Cod_Empresa, Cod_Cli, Ref);

CREATE TABLE Articulos_CBarras (
    Cod_Empresa  INTEGER    NOT NULL,
    Cod_Articulo INTEGER         NOT NULL,
    Cod_Barras   TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Principal    INTEGER         NOT NULL DEFAULT 0,
    Fecha        DATE    NULL,
    Unidades     INTEGER    NOT NULL DEFAULT 1,
    Automatico   INTEGER         NOT NULL DEFAULT 0,
    CONSTRAINT PK_Articulos_CBarras PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Barras) -- an article's barcodes, navigation
);
CREATE INDEX IX_Articulos_CBarras_Codigo ON Articulos_CBarras (Cod_Empresa, Cod_Barras);  -- barcode scanned

CREATE TABLE Contador_CBarras (
    Cod_Empresa  INTEGER    NOT NULL PRIMARY KEY,
    Cod_Barras   TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL   -- last automatic number issued, without its check digit
);

CREATE TABLE Formacion_Desc (
    Desc_Larga  INTEGER      NOT NULL,   -- 0 ticket description, 1 description
    Orden       INTEGER NOT NULL,
    Cod_Campo   INTEGER NOT NULL,   -- 0 blanks, 1 brand, 2 reference, 3 season, 4-6 family levels
    Longitud    INTEGER NOT NULL,
    CONSTRAINT PK_Formacion_Desc PRIMARY KEY (Desc_Larga, Orden)
);

CREATE TABLE Almacenes (
    Cod_Empresa  INTEGER    NOT NULL,
    Codigo       INTEGER    NOT NULL,
    Nombre       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    CONSTRAINT PK_Almacenes PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Almacen_Articulos (
    Cod_Empresa   INTEGER NOT NULL,
    Cod_Almacen   INTEGER NOT NULL,
    Cod_Articulo  INTEGER      NOT NULL,
    Stock_Actual  REAL    NOT NULL DEFAULT 0,
    Pend_Servir   REAL    NOT NULL DEFAULT 0,
    Pend_Recibir  REAL    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Almacen_Articulos PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo)
);
CREATE INDEX IX_Almacen_Articulos_Articulo ON Almacen_Articulos (Cod_Empresa, Cod_Articulo); -- removal of a provisional article

CREATE TABLE Tarifas (
    Cod_Empresa  INTEGER    NOT NULL,
    Cod_Tarifa   INTEGER    NOT NULL,
    Nombre       TEXT COLLATE MODERN_SPANISH_CI_AS NOT NULL,
    Decimales    INTEGER    NOT NULL DEFAULT 2,
    CONSTRAINT PK_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Tarifa)
);

CREATE TABLE Almacen_Tarifas (
    Cod_Empresa  INTEGER NOT NULL,
    Cod_Almacen  INTEGER NOT NULL,
    Cod_Tarifa   INTEGER NOT NULL,
    CONSTRAINT PK_Almacen_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Tarifa)
);

CREATE TABLE Articulos_Tarifas (
    Cod_Empresa   INTEGER NOT NULL,
    Cod_Articulo  INTEGER      NOT NULL,
    Cod_Tarifa    INTEGER NOT NULL,
    Pvp           REAL    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Articulos_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa)
);

CREATE TABLE Clientes_Art_PVP (
    Cod_Empresa    INTEGER NOT NULL,
    Cod_Cliente    INTEGER      NOT NULL,
    Cod_Articulo   INTEGER      NOT NULL,
    Fecha_Inicial  DATE NOT NULL,
    Fecha_Final    DATE NOT NULL,
    Pvp            REAL    NOT NULL,
    CONSTRAINT PK_Clientes_Art_PVP PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial)
);
