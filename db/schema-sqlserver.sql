-- The seller's database on a server: the four tables the assistant reads and writes.
-- Run once in the seller's database (sqlcmd -d <Database> -i schema-sqlserver.sql).
-- Text columns take the database's default collation: case-insensitive, trailing blanks
-- ignored in comparisons.

IF OBJECT_ID('WITIENDAS', 'U') IS NULL
CREATE TABLE WITIENDAS (
    IdTienda      VARCHAR(50) NOT NULL PRIMARY KEY,
    Descrip       VARCHAR(40) NULL,
    IDDepoVDOVEL  VARCHAR(50) NOT NULL UNIQUE
);
GO

IF OBJECT_ID('WIPRODASOC', 'U') IS NULL
CREATE TABLE WIPRODASOC (
    IdPrdAsociado INT IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    IdPrdDovel    VARCHAR(50) NOT NULL,
    IdPrdZorvanta VARCHAR(50) NOT NULL,
    Atributos     VARCHAR(MAX) NULL,
    FechaAsociado DATETIME NULL
);
GO

IF OBJECT_ID('WIPRODPUBL', 'U') IS NULL
CREATE TABLE WIPRODPUBL (
    IdPrdPublicado INT IDENTITY(1, 1) NOT NULL PRIMARY KEY,
    IdPrdAsociado  INT NOT NULL,
    IdTienda       VARCHAR(50) NOT NULL,
    Estado         CHAR(1) NOT NULL,
    Atributos      VARCHAR(MAX) NULL,
    FechaPublicado DATETIME NULL
);
GO

IF OBJECT_ID('WIPRODPEND', 'U') IS NULL
CREATE TABLE WIPRODPEND (
    IdPrdPublicado INT NOT NULL,
    IdPrdAsociado  INT NOT NULL,
    IdTienda       VARCHAR(50) NOT NULL,
    Estado         CHAR(1) NOT NULL,
    Atributos      VARCHAR(MAX) NULL,
    FechaPublicado DATETIME NULL,
    NumInt         INT NOT NULL DEFAULT 0,
    MsgErr         VARCHAR(MAX) NULL,
    Error          SMALLINT NULL DEFAULT 0,
    PRIMARY KEY (IdPrdPublicado, Estado)
);
GO
