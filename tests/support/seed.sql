-- Rows the database tests know by heart (company 1 and 2).
INSERT INTO Empresas (Codigo, Nombre, BusquedaArticulos, MostrarCualidades, CodigoBarrasAuto, CBarras_Cualidades, CBarras_OrdenYX, CBarras_LongCodigo, DirBase)
VALUES (1, 'SUMINISTROS VARNEL S.L.', 0, 1, 1, 1, 0, 6, '/srv/varnel'), (2, 'VARNEL TEXTIL S.A.', 1, 0, 0, 0, 1, 7, NULL);

INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre, Nombre_Comercial) VALUES
 (1, 1, 'GARCÍA Y PEÑA S.L.', 'IBERTEX'),
 (1, 2, 'ÑANDÚ DISTRIBUCIONES S.A.', NULL),
 (1, 3, 'SUMINISTROS NORTE S.L.', 'abeto'),
 (1, 4, 'ABAD MORENO, LUIS', ''),
 (1, 5, 'O''BRIEN IMPORT S.L.', NULL),
 (1, 6, 'ÁBACO PAPELERÍA S.L.', 'ABACO'),
 (1, 7, 'NANDO Y CIA S.L.', NULL),
 (1, 8, 'abastos del norte s.a.', NULL),
 (1, 123, 'COMERCIAL CIENTO VEINTITRÉS S.L.', NULL),
 (1, 99999, 'PROVEEDOR CINCO NUEVES', NULL),
 (2, 1, 'TEXTILES DEL SUR S.A.', 'TEXSUR'),
 (2, 3, 'ABALORIOS LEVANTE S.L.', NULL);

INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Nif, Tarifa_Pvp, Tarifa_Promoc) VALUES
 (1, 1001, 'ABASTOS LÓPEZ S.L.', 'ABALO', 'B12345674', 1, 3),
 (1, 1002, 'PEÑA RUIZ, ANA', NULL, '12345678Z', 1, 0),
 (1, 1003, 'BAR EL CRUCE', '', '', 2, 0),
 (1, 1004, 'BAR LA ESQUINA', '', NULL, 1, 0),
 (1, 1005, 'HOSTAL MIRADOR', 'ABEDUL', 'B87654321', 0, 0),
 (1, 99999, 'CLIENTE CINCO NUEVES', NULL, NULL, 1, 0),
 (2, 1001, 'ABRIGOS DEL NORTE S.A.', NULL, 'A11111111', 1, 0);

INSERT INTO Clientes_Instalaciones (Cod_Empresa, Cod_Cliente, Codigo, Nombre) VALUES
 (1, 1001, 1, 'ABASTOS LÓPEZ - TIENDA CENTRO'),
 (1, 1001, 2, 'ABASTOS LÓPEZ - ALMACÉN SUR'),
 (1, 1002, 1, 'OFICINA PEÑA'),
 (1, 1003, 1, 'BAR EL CRUCE'),
 (1, 1004, 1, 'BAR LA ESQUINA'),
 (1, 1005, 1, 'ABEDUL TERRAZA');

INSERT INTO Marcas (Codigo, Nombre) VALUES (1, 'ACME'), (2, 'ABETO'), (3, 'ÑANDÚ'), (4, 'BOSQUE'), (5, 'ABC'), (7, 'ABADÍA');

INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'ALMACÉN CENTRAL'), (1, 2, 'TIENDA CENTRO');

INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3, Marca, Desc_Memo, FAlta) VALUES
 (1, 1, 'TORNILLO HEXAGONAL M6', 3, 31, 311, 1, NULL, '2025-01-10'),
 (1, 2, 'ÑANDÚ DE PELUCHE', 6, 61, 611, 3, 'JUGUETE', '2025-02-11'),
 (1, 3, 'NANDO CAMISETA', 1, 11, 111, 4, NULL, '2025-03-12'),
 (1, 4, 'CAMISA MANGA LARGA', 1, 11, 112, 4, NULL, '2025-04-13'),
 (1, 5, 'ÁGUILA DE BRONCE', 6, 62, 621, 1, NULL, '2025-05-14'),
 (1, 6, 'aguja de coser', 6, 62, 622, 1, NULL, '2025-06-15'),
 (1, 4711, 'COLONIA FRESCA 100 ML', 4, 41, 411, 2, NULL, '2025-07-16'),
 (1, 7, 'ABANICO DE PAPEL', 6, 62, 621, 1, NULL, NULL),
 (1, 8, 'ABETO DE NAVIDAD', 6, 62, 622, 4, NULL, NULL),
 (2, 1, 'ABRIGO DE PAÑO', 1, 11, 111, 1, NULL, '2025-08-17');

INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal) VALUES
 (1, 1, 1, 'TH-M6', 1), (1, 2, 2, 'ÑD-01', 1), (1, 3, 1, 'SHARED-1', 1), (1, 4, 3, 'SHARED-1', 1);

INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal, Fecha, Unidades, Automatico) VALUES
 (1, 1, '8412345678905', 1, '2025-01-10', 1, 0),
 (1, 1, '84123457', 0, '2025-01-10', 1, 0),
 (1, 1, '18412345678902', 0, '2025-01-10', 12, 0),
 (1, 2, '4006381333931', 1, '2025-02-11', 1, 0),
 (1, 4, '98765432', 0, '2025-04-13', 1, 0),
 (1, 4711, '8470001234561', 1, '2025-07-16', 1, 0),
 (2, 1, '8412345678905', 1, '2025-08-17', 1, 0);

INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Pend_Servir, Pend_Recibir) VALUES
 (1, 1, 1, 150, 20, 5), (1, 1, 2, 3, 3, 0), (1, 1, 4711, 12.5, 0, 0);

INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Nombre, Decimales) VALUES (1, 1, 'GENERAL', 2), (1, 3, 'PROMOCIÓN', 2);
INSERT INTO Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa) VALUES (1, 1, 1), (1, 1, 3), (1, 2, 1);
INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES
 (1, 1, 1, 0.35), (1, 2, 1, 12.5), (1, 2, 3, 9.95), (1, 4711, 1, 1234567);

INSERT INTO Clientes_Art_PVP (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, Pvp) VALUES
 (1, 1001, 2, '2026-01-01', '2026-12-31', 11.0), (1, 1001, 1, '2025-01-01', '2025-12-31', 0.30);

-- The families of the articles above (company 1 titles its first two levels only).
INSERT INTO Familias (Cod_Empresa, Nivel, Codigo, Cod_Padre, Descripcion) VALUES
 (1, 1, 1, 0, 'TEXTIL'), (1, 1, 3, 0, 'FERRETERÍA'), (1, 1, 4, 0, 'DROGUERÍA'), (1, 1, 6, 0, 'REGALO'),
 (1, 1, 7, 0, 'ABONOS'), (1, 1, 8, 0, 'ABRASIVOS'),
 (1, 2, 11, 1, 'CAMISERÍA'), (1, 2, 31, 3, 'TORNILLERÍA'), (1, 2, 41, 4, 'PERFUMERÍA'), (1, 2, 61, 6, 'JUGUETES'),
 (1, 2, 62, 6, 'DECORACIÓN'), (1, 3, 111, 11, 'CAMISETAS'), (1, 3, 112, 11, 'CAMISAS'), (1, 3, 311, 31, 'HEXAGONAL'),
 (1, 3, 411, 41, 'COLONIAS'), (1, 3, 611, 61, 'PELUCHES'), (1, 3, 621, 62, 'FIGURAS'), (1, 3, 622, 62, 'COSTURA'),
 (2, 1, 1, 0, 'CONFECCIÓN'), (2, 2, 11, 1, 'ABRIGOS'), (2, 3, 111, 11, 'PAÑO');
INSERT INTO Familias_Titulos (Cod_Empresa, Nivel, Titulo) VALUES (1, 1, 'Sección'), (1, 2, 'Familia'), (2, 1, 'Línea');
