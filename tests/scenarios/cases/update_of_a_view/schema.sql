CREATE TABLE customer (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
INSERT INTO customer VALUES (1, 'one', '2006-01-01');
INSERT INTO customer VALUES (2, 'two', '2006-01-02');
INSERT INTO customer VALUES (3, 'three', '2006-01-03');
CREATE VIEW client AS SELECT code, name, since FROM customer;
