SELECT code FROM client ORDER BY code;
