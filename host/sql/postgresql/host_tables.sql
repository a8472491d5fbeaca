-- The host's own tables beside the delivery tables (PostgreSQL): the supplier's company settings, its
-- own-company codes and the customer master. Booleans are 0/1 integers, as in the delivery tables of a
-- file database; any non-zero value reads as true. Unquoted names: the server folds them to lower case.

-- Exactly one row.
CREATE TABLE T_Company (
    ID                   integer PRIMARY KEY CHECK (ID = 1),
    OwnName              text    NOT NULL,
    OwnCode              text    NOT NULL,            -- "*": the code is chosen per record from T_OwnCode
    MultipleOwnCodes     integer NOT NULL DEFAULT 0,
    UseQuantityBreakdown integer NOT NULL DEFAULT 1,
    ViewOnly             integer NOT NULL DEFAULT 0
);

-- The own-company codes in list order.
CREATE TABLE T_OwnCode (
    Position integer PRIMARY KEY,                     -- 1, 2, ...
    Code     text NOT NULL UNIQUE,
    Name     text NOT NULL
);

-- The buyers; IDCustomer is the value held in T_Delivery.IDCustomer, numbered by whoever keeps the
-- customer master.
CREATE TABLE T_Customer (
    IDCustomer integer PRIMARY KEY,
    Code       text    NOT NULL UNIQUE,
    Name       text    NOT NULL,
    Deleted    integer NOT NULL DEFAULT 0
);

-- Sub-codes of a buyer; the full code is the customer's code directly followed by the sub-code.
CREATE TABLE T_CustomerSubCode (
    IDCustomer integer NOT NULL REFERENCES T_Customer (IDCustomer),
    Position   integer NOT NULL,
    SubCode    text    NOT NULL,
    Name       text    NOT NULL,                      -- the name registered for the full code
    PRIMARY KEY (IDCustomer, Position),
    UNIQUE (IDCustomer, SubCode)
);

-- Per-buyer settings; a buyer without a row has every setting off.
CREATE TABLE T_CustomerSettings (
    IDCustomer          integer PRIMARY KEY REFERENCES T_Customer (IDCustomer),
    NoQuantityBreakdown integer NOT NULL DEFAULT 0,
    LenientEntry        integer NOT NULL DEFAULT 0,
    HideQuantityFrame   integer NOT NULL DEFAULT 0
);
