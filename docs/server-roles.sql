-- Logins for the operators of a delivery database on a PostgreSQL server, with no more rights than
-- their work needs. Run as the owner of the database (the login that created it with tolvinpt-host),
-- connected to it:  psql "postgresql://owner@dbhost/delivery" -f docs/server-roles.sql
-- then give each person a login in one of the two groups, e.g.
--   CREATE ROLE tanaka LOGIN PASSWORD '...' IN ROLE delivery_operator;
-- The password goes into the operator's ~/.pgpass, never onto the command line.

-- Operators enter and correct delivery records: they read, add, change and delete records and their
-- packages, and only read the company settings and the customer master, which belong to the host.
CREATE ROLE delivery_operator NOLOGIN;
GRANT CONNECT ON DATABASE delivery TO delivery_operator;  -- the database's name
GRANT USAGE ON SCHEMA public TO delivery_operator;
GRANT SELECT, INSERT, UPDATE, DELETE ON T_Delivery, T_DeliveryQTY TO delivery_operator;
GRANT USAGE ON SEQUENCE t_delivery_iddata_seq TO delivery_operator;  -- numbers new records
GRANT SELECT ON T_Company, T_OwnCode, T_Customer, T_CustomerSubCode, T_CustomerSettings TO delivery_operator;

-- Readers browse and open records; a save shows the server's permission error and changes nothing.
CREATE ROLE delivery_reader NOLOGIN;
GRANT CONNECT ON DATABASE delivery TO delivery_reader;
GRANT USAGE ON SCHEMA public TO delivery_reader;
GRANT SELECT ON T_Delivery, T_DeliveryQTY, T_Company, T_OwnCode, T_Customer, T_CustomerSubCode,
    T_CustomerSettings TO delivery_reader;

-- Nobody else: a new database lets every login connect and create objects in it.
REVOKE ALL ON DATABASE delivery FROM PUBLIC;
