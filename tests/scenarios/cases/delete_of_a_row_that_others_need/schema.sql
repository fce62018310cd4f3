CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
INSERT INTO client VALUES (1, 'one', '2006-01-01');
INSERT INTO client VALUES (2, 'two', '2006-01-02');
INSERT INTO client VALUES (3, 'three', '2006-01-03');
CREATE TABLE orders (client INTEGER, FOREIGN KEY (client) REFERENCES client (code));
INSERT INTO orders VALUES (2);
