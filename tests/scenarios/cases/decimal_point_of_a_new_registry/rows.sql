SELECT code, a, b, c FROM client ORDER BY code;
