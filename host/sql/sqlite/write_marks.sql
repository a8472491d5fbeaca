-- %1: this host's application id, %2: the layout version. Both live in the file header and take part in
-- the transaction.
PRAGMA application_id = %1;
PRAGMA user_version = %2;
