CREATE TABLE client (
  code VARCHAR(4) PRIMARY KEY,
  name VARCHAR(8),
  balance VARCHAR(8)
);
