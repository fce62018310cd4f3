CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
INSERT INTO client VALUES (1, 'two', NULL);
INSERT INTO client VALUES (2, 'one', NULL);
INSERT INTO client VALUES (3, 'two', NULL);
INSERT INTO client VALUES (4, 'one', NULL);
INSERT INTO client VALUES (5, 'two', NULL);
INSERT INTO client VALUES (6, 'one', NULL);
INSERT INTO client VALUES (7, 'two', NULL);
INSERT INTO client VALUES (8, 'one', NULL);
INSERT INTO client VALUES (9, 'two', NULL);
INSERT INTO client VALUES (10, 'one', NULL);
INSERT INTO client VALUES (11, 'two', NULL);
INSERT INTO client VALUES (12, 'one', NULL);
INSERT INTO client VALUES (13, 'two', NULL);
INSERT INTO client VALUES (14, 'one', NULL);
INSERT INTO client VALUES (15, 'two', NULL);
INSERT INTO client VALUES (16, 'one', NULL);
INSERT INTO client VALUES (17, 'two', NULL);
INSERT INTO client VALUES (18, 'one', NULL);
INSERT INTO client VALUES (19, 'two', NULL);
INSERT INTO client VALUES (20, 'one', NULL);
