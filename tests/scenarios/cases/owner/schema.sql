CREATE TABLE client (code INTEGER);
CREATE SCHEMA sales;
CREATE TABLE sales.client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
