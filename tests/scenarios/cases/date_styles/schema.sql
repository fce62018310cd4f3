CREATE TABLE client (
  d1 DATE,
  d2 DATE,
  d3 DATE,
  d4 DATE,
  d5 DATE,
  d6 DATE,
  d7 DATE,
  d8 DATE,
  d9 DATE,
  d10 DATE,
  d11 DATE,
  d12 DATE,
  d13 DATE,
  d14 DATE,
  d15 DATE,
  d16 DATE
);
