CREATE TABLE client (
  code VARCHAR(4) PRIMARY KEY,
  price DECIMAL(10,2),
  weight DOUBLE,
  parts INTEGER,
  `rank` SMALLINT
);
