CREATE TABLE client (
  code INTEGER NOT NULL,
  site CHAR(1) NOT NULL,
  name VARCHAR(30) NOT NULL
);
INSERT INTO client VALUES (1, 'N', 'a');
INSERT INTO client VALUES (1, 'S', 'b');
INSERT INTO client VALUES (2, 'S', 'c');
INSERT INTO client VALUES (3, 'S', 'd');
