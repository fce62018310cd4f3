CREATE TABLE client (name VARCHAR(30));
