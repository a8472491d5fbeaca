-- The host's own tables beside the delivery tables: the supplier's company settings, its own-company
-- codes and the customer master. Booleans are 0/1; any non-zero value reads as true.

-- Exactly one row.
CREATE TABLE T_Company (
    ID                   INTEGER PRIMARY KEY CHECK (ID = 1),
    OwnName              TEXT    NOT NULL,
    OwnCode              TEXT    NOT NULL,            -- "*": the code is chosen per record from T_OwnCode
    MultipleOwnCodes     INTEGER NOT NULL DEFAULT 0,
    UseQuantityBreakdown INTEGER NOT NULL DEFAULT 1,
    ViewOnly             INTEGER NOT NULL DEFAULT 0
);

-- The own-company codes in list order.
CREATE TABLE T_OwnCode (
    Position INTEGER PRIMARY KEY,                     -- 1, 2, ...
    Code     TEXT NOT NULL UNIQUE,
    Name     TEXT NOT NULL
);

-- The buyers; IDCustomer is the value held in T_Delivery.IDCustomer.
CREATE TABLE T_Customer (
    IDCustomer INTEGER PRIMARY KEY AUTOINCREMENT,
    Code       TEXT    NOT NULL UNIQUE,
    Name       TEXT    NOT NULL,
    Deleted    INTEGER NOT NULL DEFAULT 0
);

-- Sub-codes of a buyer; the full code is the customer's code directly followed by the sub-code.
CREATE TABLE T_CustomerSubCode (
    IDCustomer INTEGER NOT NULL REFERENCES T_Customer (IDCustomer),
    Position   INTEGER NOT NULL,
    SubCode    TEXT    NOT NULL,
    Name       TEXT    NOT NULL,                      -- the name registered for the full code
    PRIMARY KEY (IDCustomer, Position),
    UNIQUE (IDCustomer, SubCode)
);

-- Per-buyer settings; a buyer without a row has every setting off.
CREATE TABLE T_CustomerSettings (
    IDCustomer          INTEGER PRIMARY KEY REFERENCES T_Customer (IDCustomer),
    NoQuantityBreakdown INTEGER NOT NULL DEFAULT 0,
    LenientEntry        INTEGER NOT NULL DEFAULT 0,
    HideQuantityFrame   INTEGER NOT NULL DEFAULT 0
);
