CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
INSERT INTO client VALUES (1, 'aaa', '2006-01-01');
INSERT INTO client VALUES (2, 'bbb', '2006-01-02');
INSERT INTO client VALUES (3, 'ccc', '2006-01-03');
INSERT INTO client VALUES (4, 'ddd', '2006-01-04');
INSERT INTO client VALUES (5, 'eee', '2006-01-05');
INSERT INTO client VALUES (6, 'fff', '2006-01-06');
INSERT INTO client VALUES (7, 'ggg', '2006-01-07');
INSERT INTO client VALUES (8, 'hhh', '2006-01-08');
INSERT INTO client VALUES (9, 'iii', '2006-01-09');
INSERT INTO client VALUES (10, 'jjj', '2006-01-10');
INSERT INTO client VALUES (11, 'kkk', '2006-01-11');
INSERT INTO client VALUES (12, 'lll', '2006-01-12');
INSERT INTO client VALUES (13, 'mmm', '2006-01-13');
INSERT INTO client VALUES (14, 'nnn', '2006-01-14');
INSERT INTO client VALUES (15, 'ooo', '2006-01-15');
INSERT INTO client VALUES (16, 'ppp', '2006-01-16');
INSERT INTO client VALUES (17, 'qqq', '2006-01-17');
INSERT INTO client VALUES (18, 'rrr', '2006-01-18');
INSERT INTO client VALUES (19, 'sss', '2006-01-19');
INSERT INTO client VALUES (20, 'ttt', '2006-01-20');
