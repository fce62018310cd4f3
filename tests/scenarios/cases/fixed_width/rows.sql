SELECT code, name, since, balance FROM client ORDER BY code;
