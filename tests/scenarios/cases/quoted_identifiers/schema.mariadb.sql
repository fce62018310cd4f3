CREATE TABLE `order_lines of 2006` (
  `Line No` INTEGER PRIMARY KEY,
  `select` VARCHAR(30),
  `unit_price` VARCHAR(30)
);
CREATE TABLE `orderXlines of 2006` (other INTEGER);
