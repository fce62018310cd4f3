SELECT name FROM client ORDER BY name;
