SELECT code, LENGTH(name), SUBSTR(name, 495) FROM client ORDER BY code;
