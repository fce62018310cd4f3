#include "tests/robustness/kills/TableSql.h"

namespace imptable {
namespace {

constexpr const char* kWaitForServer = R"(DO $$ BEGIN
  WHILE EXISTS (SELECT 1 FROM pg_stat_activity WHERE datname = current_database()
                AND pid <> pg_backend_pid() AND backend_type = 'client backend') LOOP
    PERFORM pg_sleep(0.001);
    PERFORM pg_stat_clear_snapshot();
  END LOOP;
END $$;
)";

constexpr const char* kSqliteWrites = R"(
CREATE TRIGGER inserted AFTER INSERT ON client BEGIN
  INSERT INTO executions (what) VALUES ('I ' || NEW.code || ' ' || NEW.name);
END;
CREATE TRIGGER changed AFTER UPDATE ON client BEGIN
  INSERT INTO executions (what) VALUES ('U ' || NEW.code || ' ' || NEW.name);
END;
)";

constexpr const char* kSqliteDeletions = R"(
CREATE TRIGGER kept BEFORE DELETE ON client WHEN OLD.name LIKE 'kept%' BEGIN
  SELECT RAISE(ABORT, 'that row is kept');
END;
CREATE TRIGGER deleted AFTER DELETE ON client BEGIN
  INSERT INTO executions (what) VALUES ('D ' || OLD.code || ' ' || OLD.name);
)";

constexpr const char* kComeBack =
    "  INSERT INTO client VALUES (OLD.code, OLD.name, OLD.born, OLD.amount + 1);\n";

constexpr const char* kServerWrites = R"(
CREATE OR REPLACE FUNCTION written() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN
  INSERT INTO executions (what) VALUES (substr(TG_OP, 1, 1) || ' ' || NEW.code || ' ' || NEW.name);
  RETURN NEW;
END $$;
CREATE TRIGGER written AFTER INSERT OR UPDATE ON client FOR EACH ROW EXECUTE FUNCTION written();
)";

constexpr const char* kServerDeletions = R"(
CREATE OR REPLACE FUNCTION kept() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN
  IF OLD.name LIKE 'kept%' THEN
    RAISE EXCEPTION 'that row is kept';
  END IF;
  RETURN OLD;
END $$;
CREATE TRIGGER kept BEFORE DELETE ON client FOR EACH ROW EXECUTE FUNCTION kept();
CREATE OR REPLACE FUNCTION deleted() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN
  INSERT INTO executions (what) VALUES ('D ' || OLD.code || ' ' || OLD.name);
)";

constexpr const char* kServerDeletionsEnd = R"(
  RETURN OLD;
END $$;
CREATE TRIGGER deleted AFTER DELETE ON client FOR EACH ROW EXECUTE FUNCTION deleted();
)";

/// The value in quotes. It holds no quote itself.
std::string Quoted(const std::string& text) {
  return text == "<null>" ? "NULL" : '\'' + text + '\'';
}

}  // namespace

std::string WaitSql(DatabaseKind kind) {
  return kind == DatabaseKind::kSqlite ? std::string() : kWaitForServer;
}

std::string TableSql(DatabaseKind kind, Work work) {
  const char* const key = work == Work::kInsertUnkeyed ? "" : " PRIMARY KEY";
  const char* const number =
      kind == DatabaseKind::kSqlite ? "INTEGER PRIMARY KEY AUTOINCREMENT" : "SERIAL PRIMARY KEY";
  const std::string quiet =
      kind == DatabaseKind::kSqlite ? "" : "SET client_min_messages TO warning;\n";
  return quiet +
         "DROP TABLE IF EXISTS client;\nDROP TABLE IF EXISTS hidden;\nDROP TABLE IF EXISTS "
         "executions;\n"
         "CREATE TABLE client (code INT NOT NULL" +
         key +
         ", name VARCHAR(40) NOT NULL, born DATE, amount INT CHECK (amount >= 0));\n"
         "CREATE TABLE executions (id " +
         number + ", what VARCHAR(80));\n";
}

std::string RowsSql(const TableModel& table) {
  std::string values;
  for (const auto& [code, row] : table.rows()) {
    values += (values.empty() ? "(" : ", (") + std::to_string(code) + ", " + Quoted(row.name) +
              ", " + Quoted(row.born) + ", " + Quoted(row.amount) + ')';
  }
  return values.empty() ? values : "INSERT INTO client VALUES " + values + ";\n";
}

std::string TriggerSql(DatabaseKind kind, Work work) {
  const bool sqlite = kind == DatabaseKind::kSqlite;
  if (!IsDelete(work)) return sqlite ? kSqliteWrites : kServerWrites;
  std::string sql = sqlite ? kSqliteDeletions : kServerDeletions;
  if (work == Work::kDeleteReturning) sql += kComeBack;
  return sql + (sqlite ? "END;\n" : kServerDeletionsEnd);
}

}  // namespace imptable
