SELECT code, name, since FROM client ORDER BY code;
