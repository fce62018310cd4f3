SELECT code, site, name FROM client ORDER BY code, site;
