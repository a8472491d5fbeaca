-- Delivery records and their per-package quantities (SQLite).
--
-- Run statement by statement by createDeliveryTables(). The host owns the file's identity, so no PRAGMA
-- is set here.
--
-- Types as the component reads and writes them:
--   text      TEXT COLLATE NOCASE: '=' and the order-key index ignore ASCII letter case
--   date      TEXT 'YYYY-MM-DD'; date/time TEXT 'YYYY-MM-DD HH:MM:SS'
--   exact     TEXT holding plain decimal text ('99999999999.99999'): NUMERIC or REAL would round it
--   quantity  REAL (the order, instruction and delivery quantities are written as doubles)
--   flag      INTEGER 0/1, any non-zero value reads as True
-- IDData must stay the first column: a split copies a record column by column by position.

CREATE TABLE T_Delivery (
    IDData            INTEGER PRIMARY KEY AUTOINCREMENT,
    IDCustomer        INTEGER,
    F00004            TEXT COLLATE NOCASE,
    F00005            TEXT COLLATE NOCASE,
    F00007            TEXT COLLATE NOCASE,
    F00159            TEXT COLLATE NOCASE,
    F00018            TEXT COLLATE NOCASE,
    F00260            TEXT COLLATE NOCASE,
    F00028            TEXT COLLATE NOCASE,
    F00160            TEXT COLLATE NOCASE,
    F00274            TEXT COLLATE NOCASE,
    F00024            TEXT COLLATE NOCASE,
    F00023            TEXT COLLATE NOCASE,
    F00022            TEXT COLLATE NOCASE,
    F00262            TEXT COLLATE NOCASE,
    F00031            TEXT,
    F00039            TEXT,
    F00040            TEXT,
    F00015            REAL,
    F00032            REAL,
    F00036            REAL,
    F00012            TEXT COLLATE NOCASE,
    F00057            INTEGER,
    F00029            TEXT COLLATE NOCASE,
    F00059            TEXT COLLATE NOCASE,
    F00281            TEXT COLLATE NOCASE,
    F00282            TEXT,
    F00013            TEXT,
    F00162            TEXT COLLATE NOCASE,
    F00275            TEXT COLLATE NOCASE,
    F00164            TEXT COLLATE NOCASE,
    F00276            TEXT COLLATE NOCASE,
    F00161            TEXT COLLATE NOCASE,
    F00163            TEXT COLLATE NOCASE,
    F00002            TEXT COLLATE NOCASE,
    F00030            TEXT COLLATE NOCASE,
    QuantityType      INTEGER,
    Quantity          TEXT,
    InDustBox         INTEGER NOT NULL DEFAULT 0,
    DateDeliveryPrint TEXT,
    DateLabelPrint    TEXT
);

-- Order key: the duplicate check, the order-number search and the split look records up by it.
CREATE INDEX IX_Delivery_OrderKey ON T_Delivery (IDCustomer, F00007, F00159);

-- No foreign key: a quantity-only save of a record that has no row yet writes its packages under
-- IDData 0.
CREATE TABLE T_DeliveryQTY (
    IDData            INTEGER NOT NULL,
    Sequence          INTEGER NOT NULL,
    Quantity          TEXT
);

CREATE INDEX IX_DeliveryQTY_Package ON T_DeliveryQTY (IDData, Sequence);
