CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(5),
  `rank` SMALLINT
);
