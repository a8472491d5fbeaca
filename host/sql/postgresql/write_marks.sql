-- %1: this host's application id, %2: the layout version.
COMMENT ON TABLE T_Company IS 'tolvinpt-host application_id=%1 layout=%2'
