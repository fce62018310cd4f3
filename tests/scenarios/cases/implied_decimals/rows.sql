SELECT code, price, weight, parts, rank FROM client ORDER BY code;
