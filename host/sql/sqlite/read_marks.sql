-- This host's application id and the layout version of its tables, from the file header.
SELECT application_id, user_version FROM pragma_application_id, pragma_user_version
