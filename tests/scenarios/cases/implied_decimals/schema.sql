CREATE TABLE client (
  code VARCHAR(4) PRIMARY KEY,
  price DECIMAL(10,2),
  weight FLOAT,
  parts INTEGER,
  rank SMALLINT
);
