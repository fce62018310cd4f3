CREATE TABLE client (
  code INTEGER PRIMARY KEY,
  name VARCHAR(30) NOT NULL,
  since DATE
);
CREATE FUNCTION hang_up() RETURNS trigger LANGUAGE plpgsql AS $$
BEGIN
  IF NEW.code = 3 THEN
    PERFORM pg_terminate_backend(pg_backend_pid());
  END IF;
  RETURN NEW;
END $$;
CREATE TRIGGER hang_up BEFORE INSERT ON client FOR EACH ROW EXECUTE FUNCTION hang_up();
