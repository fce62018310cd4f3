SELECT code, hex(name), balance FROM client ORDER BY code;
