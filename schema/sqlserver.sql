-- Tables and columns the control library reads and writes, for Microsoft SQL Server.
-- Text columns use the server's default Spanish collation (case-insensitive, accent-sensitive).
-- Each index names the statements it serves.

CREATE TABLE Empresas (
    Codigo                      SMALLINT     NOT NULL PRIMARY KEY,
    Nombre                      VARCHAR(60)  NOT NULL,
    Nif                         VARCHAR(15)  NULL,
    BusquedaArticulos           TINYINT      NOT NULL DEFAULT 0,  -- 0 first article search layout, 1 second
    MostrarCualidades           BIT          NOT NULL DEFAULT 0,
    DirImagenArt                VARCHAR(255) NULL,              -- folder of article photos
    FamiliaObligada             BIT          NOT NULL DEFAULT 0,
    MargenReal_FArt_sUltimoPUC  BIT          NOT NULL DEFAULT 0,
    MaxCodigoArt                INT          NOT NULL DEFAULT 0,  -- 0: no limit
    CualidadX_PorDefecto        SMALLINT     NOT NULL DEFAULT 0,
    CualidadY_PorDefecto        SMALLINT     NOT NULL DEFAULT 0,
    Series_Automaticas          BIT          NOT NULL DEFAULT 0,
    CodigoBarrasAuto            BIT          NOT NULL DEFAULT 0,  -- new articles get an automatic EAN-8
    CBarras_Cualidades          BIT          NOT NULL DEFAULT 0,  -- scanned barcodes carry quality values
    CBarras_OrdenYX             BIT          NOT NULL DEFAULT 0,  -- … in the order Y, X
    CBarras_LongCodigo          SMALLINT     NOT NULL DEFAULT 8,  -- article-code length inside them
    DirBase                     VARCHAR(255) NULL                -- base folder (reports in \Rpt\)
);

CREATE TABLE Proveedores (
    Cod_Empresa       SMALLINT    NOT NULL,
    Codigo            INT         NOT NULL,
    Nombre            VARCHAR(60) NOT NULL,
    Nombre_Comercial  VARCHAR(60) NULL,
    Nif               VARCHAR(15) NULL,
    Poblacion         VARCHAR(40) NULL,
    CONSTRAINT PK_Proveedores PRIMARY KEY (Cod_Empresa, Codigo)       -- lookup by code
);
CREATE INDEX IX_Proveedores_Nombre ON Proveedores (Cod_Empresa, Nombre);                 -- search by name
CREATE INDEX IX_Proveedores_NombreComercial ON Proveedores (Cod_Empresa, Nombre_Comercial); -- … or trade name

CREATE TABLE Clientes (
    Cod_Empresa       SMALLINT    NOT NULL,
    Codigo            INT         NOT NULL,
    Nombre            VARCHAR(60) NOT NULL,
    Nombre_Comercial  VARCHAR(60) NULL,
    Nif               VARCHAR(15) NULL,
    Poblacion         VARCHAR(40) NULL,
    Tarifa_Pvp        SMALLINT    NOT NULL DEFAULT 0,
    Tarifa_Promoc     SMALLINT    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Clientes PRIMARY KEY (Cod_Empresa, Codigo)
);
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre);
CREATE INDEX IX_Clientes_NombreComercial ON Clientes (Cod_Empresa, Nombre_Comercial);
CREATE INDEX IX_Clientes_Nif ON Clientes (Cod_Empresa, Nif);

CREATE TABLE Clientes_Instalaciones (
    Cod_Empresa  SMALLINT    NOT NULL,
    Cod_Cliente  INT         NOT NULL,
    Codigo       SMALLINT    NOT NULL,
    Nombre       VARCHAR(60) NOT NULL,
    Direccion    VARCHAR(80) NULL,
    CONSTRAINT PK_Clientes_Instalaciones PRIMARY KEY (Cod_Empresa, Cod_Cliente, Codigo)
);
CREATE INDEX IX_Clientes_Instalaciones_Nombre ON Clientes_Instalaciones (Cod_Empresa, Nombre);

CREATE TABLE Marcas (
    Codigo  SMALLINT    NOT NULL PRIMARY KEY,
    Nombre  VARCHAR(40) NOT NULL
);
CREATE INDEX IX_Marcas_Nombre ON Marcas (Nombre);

-- The family picker: three levels, each level's codes under its parent.
CREATE TABLE Familias (
    Cod_Empresa  SMALLINT    NOT NULL,
    Nivel        TINYINT     NOT NULL,  -- 1, 2, 3
    Codigo       SMALLINT    NOT NULL,
    Cod_Padre    SMALLINT    NOT NULL DEFAULT 0,
    Descripcion  VARCHAR(40) NOT NULL,
    CONSTRAINT PK_Familias PRIMARY KEY (Cod_Empresa, Nivel, Codigo)
);
CREATE TABLE Familias_Titulos (
    Cod_Empresa  SMALLINT    NOT NULL,
    Nivel        TINYINT     NOT NULL,
    Titulo       VARCHAR(30) NOT NULL,
    CONSTRAINT PK_Familias_Titulos PRIMARY KEY (Cod_Empresa, Nivel)
);

-- Qualities (size, colour…) and their values.
CREATE TABLE Cualidades (
    Cod_Empresa  SMALLINT    NOT NULL,
    Codigo       SMALLINT    NOT NULL,
    Nombre       VARCHAR(30) NOT NULL,
    CONSTRAINT PK_Cualidades PRIMARY KEY (Cod_Empresa, Codigo)
);
CREATE TABLE Cualidades_Des (
    Cod_Empresa   SMALLINT    NOT NULL,
    Cod_Cualidad  SMALLINT    NOT NULL,
    Codigo        SMALLINT    NOT NULL,
    Nombre        VARCHAR(30) NOT NULL,
    CONSTRAINT PK_Cualidades_Des PRIMARY KEY (Cod_Empresa, Cod_Cualidad, Codigo)
);

-- The season picker.
CREATE TABLE Temporadas (
    Cod_Empresa  SMALLINT    NOT NULL,
    Codigo       VARCHAR(10) NOT NULL,
    Descripcion  VARCHAR(40) NOT NULL,
    CONSTRAINT PK_Temporadas PRIMARY KEY (Cod_Empresa, Codigo)
);

-- Tax types an article is given (its TipoImpuesto); the article creation refuses an unknown one.
CREATE TABLE TiposImpuesto (
    Codigo       SMALLINT      NOT NULL PRIMARY KEY,
    Descripcion  VARCHAR(40)   NOT NULL,
    Porcentaje   DECIMAL(5,2)  NOT NULL DEFAULT 0
);

CREATE TABLE Articulos (
    Cod_Empresa        SMALLINT     NOT NULL,
    Codigo             INT          NOT NULL,
    Descripcion        VARCHAR(60)  NULL,
    Desc_Ticket        VARCHAR(30)  NULL,
    Desc_Memo          VARCHAR(MAX) NULL,
    Familia_1          SMALLINT     NOT NULL DEFAULT 0,
    Familia_2          SMALLINT     NOT NULL DEFAULT 0,
    Familia_3          SMALLINT     NOT NULL DEFAULT 0,
    Marca              SMALLINT     NOT NULL DEFAULT 0,
    TipoImpuesto       SMALLINT     NOT NULL DEFAULT 0,
    CualidadX          SMALLINT     NOT NULL DEFAULT 0,
    CualidadY          SMALLINT     NOT NULL DEFAULT 0,
    NoGenerarSerieEAN  BIT          NOT NULL DEFAULT 0,
    Temporada          VARCHAR(10)  NULL,
    Mod_Ficha          BIT          NOT NULL DEFAULT 0,
    FAlta              DATETIME     NULL,
    CONSTRAINT PK_Articulos PRIMARY KEY (Cod_Empresa, Codigo)         -- lookup, next free code
);
CREATE INDEX IX_Articulos_Descripcion ON Articulos (Cod_Empresa, Descripcion); -- search by description
-- No index on Desc_Memo here: a VARCHAR(MAX) column cannot be an index key on SQL Server.

CREATE TABLE Articulos_Ref (
    Cod_Empresa  SMALLINT    NOT NULL,
    Cod_Articulo INT         NOT NULL,
    Cod_Prov     INT         NOT NULL,
    Ref          VARCHAR(30) NOT NULL,
    Principal    BIT         NOT NULL DEFAULT 0,
    Fecha        DATETIME    NULL,
    CONSTRAINT PK_Articulos_Ref PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref)
);
CREATE INDEX IX_Articulos_Ref_Ref ON Articulos_Ref (Cod_Empresa, Ref);                   -- reference typed
CREATE INDEX IX_Articulos_Ref_Prov ON Articulos_Ref (Cod_Empresa, Cod_Prov, Ref);        -- … of a supplier

CREATE TABLE Articulos_RefCli (
    Cod_Empresa  SMALLINT    NOT NULL,
    Cod_Articulo INT         NOT NULL,
    Cod_Cli      INT         NOT NULL,
    Ref          VARCHAR(30) NOT NULL,
    Principal    BIT         NOT NULL DEFAULT 0,
    Fecha        DATETIME    NULL,
    CONSTRAINT PK_Articulos_RefCli PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Cli, Ref)
);
CREATE INDEX IX_Articulos_RefCli_Ref ON Articulos_RefCli (Cod_Empresa, Ref);
CREATE INDEX IX_Articulos_RefCli_Cli ON Articulos_RefCli (Cod_Empresa, Cod_Cli, Ref);

CREATE TABLE Articulos_CBarras (
    Cod_Empresa  SMALLINT    NOT NULL,
    Cod_Articulo INT         NOT NULL,
    Cod_Barras   VARCHAR(20) NOT NULL,
    Principal    BIT         NOT NULL DEFAULT 0,
    Fecha        DATETIME    NULL,
    Unidades     SMALLINT    NOT NULL DEFAULT 1,
    Automatico   BIT         NOT NULL DEFAULT 0,
    CONSTRAINT PK_Articulos_CBarras PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Barras) -- an article's barcodes, navigation
);
CREATE INDEX IX_Articulos_CBarras_Codigo ON Articulos_CBarras (Cod_Empresa, Cod_Barras);  -- barcode scanned

CREATE TABLE Contador_CBarras (
    Cod_Empresa  SMALLINT    NOT NULL PRIMARY KEY,
    Cod_Barras   VARCHAR(20) NOT NULL   -- last automatic number issued, without its check digit
);

CREATE TABLE Formacion_Desc (
    Desc_Larga  BIT      NOT NULL,   -- 0 ticket description, 1 description
    Orden       SMALLINT NOT NULL,
    Cod_Campo   SMALLINT NOT NULL,   -- 0 blanks, 1 brand, 2 reference, 3 season, 4-6 family levels
    Longitud    SMALLINT NOT NULL,
    CONSTRAINT PK_Formacion_Desc PRIMARY KEY (Desc_Larga, Orden)
);

CREATE TABLE Almacenes (
    Cod_Empresa  SMALLINT    NOT NULL,
    Codigo       SMALLINT    NOT NULL,
    Nombre       VARCHAR(40) NOT NULL,
    CONSTRAINT PK_Almacenes PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Almacen_Articulos (
    Cod_Empresa   SMALLINT NOT NULL,
    Cod_Almacen   SMALLINT NOT NULL,
    Cod_Articulo  INT      NOT NULL,
    Stock_Actual  FLOAT    NOT NULL DEFAULT 0,
    Pend_Servir   FLOAT    NOT NULL DEFAULT 0,
    Pend_Recibir  FLOAT    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Almacen_Articulos PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Articulo)
);
CREATE INDEX IX_Almacen_Articulos_Articulo ON Almacen_Articulos (Cod_Empresa, Cod_Articulo); -- removal of a provisional article

CREATE TABLE Tarifas (
    Cod_Empresa  SMALLINT    NOT NULL,
    Cod_Tarifa   SMALLINT    NOT NULL,
    Nombre       VARCHAR(40) NOT NULL,
    Decimales    SMALLINT    NOT NULL DEFAULT 2,
    CONSTRAINT PK_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Tarifa)
);

CREATE TABLE Almacen_Tarifas (
    Cod_Empresa  SMALLINT NOT NULL,
    Cod_Almacen  SMALLINT NOT NULL,
    Cod_Tarifa   SMALLINT NOT NULL,
    CONSTRAINT PK_Almacen_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Tarifa)
);

CREATE TABLE Articulos_Tarifas (
    Cod_Empresa   SMALLINT NOT NULL,
    Cod_Articulo  INT      NOT NULL,
    Cod_Tarifa    SMALLINT NOT NULL,
    Pvp           FLOAT    NOT NULL DEFAULT 0,
    CONSTRAINT PK_Articulos_Tarifas PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa)
);

CREATE TABLE Clientes_Art_PVP (
    Cod_Empresa    SMALLINT NOT NULL,
    Cod_Cliente    INT      NOT NULL,
    Cod_Articulo   INT      NOT NULL,
    Fecha_Inicial  DATETIME NOT NULL,
    Fecha_Final    DATETIME NOT NULL,
    Pvp            FLOAT    NOT NULL,
    CONSTRAINT PK_Clientes_Art_PVP PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial)
);
