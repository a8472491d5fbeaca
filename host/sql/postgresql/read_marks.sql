-- This host's application id and the layout version of its tables, from the comment on its company
-- table (0 and 0 without one): a server database has no header of its own.
SELECT COALESCE(substring(marks FROM 'application_id=([0-9]+)')::integer, 0),
       COALESCE(substring(marks FROM 'layout=([0-9]+)')::integer, 0)
FROM (SELECT obj_description(to_regclass('t_company'), 'pg_class') AS marks) AS comment
