SELECT code, name, balance, since, ordered, visits FROM client ORDER BY code;
