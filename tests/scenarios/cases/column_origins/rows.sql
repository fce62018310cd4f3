SELECT code, city, name, origin, note, kept, balance, missing, again FROM client ORDER BY code;
