CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  balance DECIMAL(10,2),
  since DATE,
  ordered DATETIME,
  visits SMALLINT
);
