SELECT code, name, `rank` FROM client ORDER BY code;
