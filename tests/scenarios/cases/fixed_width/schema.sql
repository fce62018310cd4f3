CREATE TABLE client (
  code VARCHAR(4) PRIMARY KEY,
  name VARCHAR(12),
  since DATE,
  balance DECIMAL(10,2)
);
