CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  city VARCHAR(30),
  name VARCHAR(30),
  origin VARCHAR(30),
  note VARCHAR(30),
  kept VARCHAR(30) DEFAULT 'by default',
  balance DECIMAL(10,2),
  missing VARCHAR(30),
  again VARCHAR(4)
);
