CREATE TABLE client (
  code VARCHAR(10) PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
INSERT INTO client VALUES (1, 'one', '2006-01-01');
INSERT INTO client VALUES (2, 'two', '2006-01-02');
INSERT INTO client VALUES (3, 'three', '2006-01-03');
