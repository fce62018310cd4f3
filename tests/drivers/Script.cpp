#include "tests/drivers/Script.h"

#include <fstream>
#include <iterator>

#include "tests/drivers/ScriptLine.h"

namespace imptable::scripted {
namespace {

Condition TakeCondition(ScriptLine& line) {
  Condition condition;
  if (!line.TakeIf("where")) return condition;
  if (line.TakeIf("text")) {
    const bool like = line.TakeIf("like");
    if (!like) line.Expect("=");
    condition.kind = like ? Condition::Kind::kTextIsLike : Condition::Kind::kTextEquals;
    condition.value = line.TakeText("a text");
    return condition;
  }
  condition.parameter = line.TakeNumber<SQLUSMALLINT>("the number of a parameter");
  line.Expect("=");
  const Cell value = line.TakeCell("a value");
  condition.kind = value ? Condition::Kind::kParameterEquals : Condition::Kind::kParameterIsNull;
  condition.value = value.value_or("");
  return condition;
}

std::uint64_t TakeCount(ScriptLine& line) {
  const auto count = line.TakeNumber<std::uint64_t>("a count");
  if (count == 0) line.Fail("counts start at 1");
  return count;
}

Turn TakeTurn(ScriptLine& line) {
  if (line.TakeIf("every")) return {Turn::Kind::kEvery, TakeCount(line)};
  if (line.TakeIf("from")) return {Turn::Kind::kFrom, TakeCount(line)};
  if (line.IsNumberNext()) return {Turn::Kind::kNth, TakeCount(line)};
  return {};
}

void ReadOn(ScriptLine& line, Script& script) {
  const Call call = line.TakeCall();
  Rule rule;
  rule.turn = TakeTurn(line);
  rule.condition = TakeCondition(line);
  line.Expect("return");
  rule.code = line.TakeNumber<SQLRETURN>("a return code");
  while (line.TakeIf("diag")) {
    Diagnostic diagnostic;
    diagnostic.state = line.TakeText("a state");
    if (diagnostic.state.size() != SQL_SQLSTATE_SIZE) line.Fail("a state has five characters");
    diagnostic.native = line.TakeNumber<SQLINTEGER>("a native error number");
    diagnostic.text = line.TakeText("the text of a diagnostic");
    rule.diagnostics.push_back(std::move(diagnostic));
  }
  script.PlanOf(call).rules.push_back(std::move(rule));
}

void ReadSlow(ScriptLine& line, Script& script) {
  const Call call = line.TakeCall();
  script.PlanOf(call).delay =
      std::chrono::milliseconds(line.TakeNumber<std::uint32_t>("a number of milliseconds"));
  line.Expect("ms");
}

void ReadCrash(ScriptLine& line, Script& script) {
  const Call call = line.TakeCall();
  script.PlanOf(call).crash_at = TakeCount(line);
}

void ReadRowCount(ScriptLine& line, Script& script) {
  RowCountRule rule;
  const bool at = line.TakeIf("at");
  if (at) rule.turn = {Turn::Kind::kNth, TakeCount(line)};
  rule.condition = TakeCondition(line);
  const bool conditional = at || rule.condition.kind != Condition::Kind::kNone;
  if (conditional) line.Expect("=");
  rule.answer = line.TakeNumber<SQLLEN>("a row count");
  if (conditional) {
    script.row_counts.push_back(std::move(rule));
  } else {
    script.row_count = rule.answer;
  }
}

void ReadInfo(ScriptLine& line, Script& script) {
  const auto type = line.TakeNumber<SQLUSMALLINT>("an information type");
  if (line.IsNumberNext()) {
    script.info[type] = line.TakeNumber<SQLUSMALLINT>("a number");
  } else {
    script.info[type] = line.TakeText("an answer");
  }
}

void ReadSupport(ScriptLine& line, Script& script) {
  const auto function = line.TakeNumber<SQLUSMALLINT>("the number of a function");
  const bool supported = line.TakeIf("yes");
  if (!supported) line.Expect("no");
  script.support[function] = supported;
}

void ReadTable(ScriptLine& line, Script& script) {
  TableEntry table;
  table.name = line.TakeText("the name of a table");
  table.type = "TABLE";
  if (!line.IsAtEnd()) table.type = line.TakeCell("the type of the table");
  if (!line.IsAtEnd()) table.schema = line.TakeCell("a schema");
  if (!line.IsAtEnd()) table.catalogue = line.TakeCell("a catalogue");
  script.tables.push_back(std::move(table));
}

void ReadColumn(ScriptLine& line, Script& script) {
  ColumnRow row;
  row.name = line.TakeCell("the name of a column");
  row.sql_type = line.TakeNumberCell("an SQL type");
  row.type_name = line.TakeCell("the name of a type");
  row.precision = line.TakeNumberCell("a precision");
  row.length = row.precision;
  row.scale = line.TakeNumberCell("a scale");
  row.nullable = line.TakeNumberCell("whether NULL is allowed");
  while (!line.IsAtEnd()) {
    if (line.TakeIf("length")) {
      row.length = line.TakeNumberCell("a length");
    } else if (line.TakeIf("radix")) {
      row.radix = line.TakeNumberCell("a radix");
    } else {
      line.Expect("remarks");
      row.remarks = line.TakeCell("remarks");
    }
  }
  script.tables.back().columns.push_back(std::move(row));
}

void ReadKey(ScriptLine& line, Script& script) {
  KeyRow row;
  row.column = line.TakeCell("the name of a column");
  row.sequence = line.TakeNumberCell("a place in the key");
  row.key_name = line.TakeCell("the name of the key");
  script.tables.back().keys.push_back(std::move(row));
}

void ReadIndex(ScriptLine& line, Script& script) {
  IndexRow row;
  row.column = line.TakeCell("the name of a column");
  row.sequence = line.TakeNumberCell("a place in the index");
  row.index_name = line.TakeCell("the name of the index");
  row.type = line.TakeNumberCell("the type of the index");
  row.non_unique = "0";
  if (row.type == std::to_string(SQL_TABLE_STAT)) {
    row.non_unique = std::nullopt;
  } else if (line.TakeIf("nonunique")) {
    row.non_unique = "1";
  } else {
    line.TakeIf("unique");
  }
  script.tables.back().indexes.push_back(std::move(row));
}

void ReadSpecial(ScriptLine& line, Script& script, SQLUSMALLINT identifier) {
  SpecialRow row;
  row.identifier = identifier;
  row.column = line.TakeCell("the name of a column");
  row.sql_type = std::to_string(SQL_BINARY);
  row.type_name = "TIMESTAMP";
  if (!line.IsAtEnd()) {
    row.sql_type = line.TakeNumberCell("an SQL type");
    row.type_name = line.TakeCell("the name of a type");
  }
  script.tables.back().specials.push_back(std::move(row));
}

void ReadRowVersion(ScriptLine& line, Script& script) { ReadSpecial(line, script, SQL_ROWVER); }
void ReadRowId(ScriptLine& line, Script& script) { ReadSpecial(line, script, SQL_BEST_ROWID); }

struct Keyword {
  std::string_view word;
  void (*read)(ScriptLine&, Script&);
};

constexpr Keyword kKeywords[] = {
    {"info", ReadInfo},         {"support", ReadSupport},
    {"table", ReadTable},       {"column", ReadColumn},
    {"key", ReadKey},           {"index", ReadIndex},
    {"rowid", ReadRowId},       {"rowversion", ReadRowVersion},
    {"rowcount", ReadRowCount}, {"on", ReadOn},
    {"slow", ReadSlow},         {"crash", ReadCrash},
};

void ReadLine(ScriptLine& line, Script& script) {
  for (const Keyword& keyword : kKeywords) {
    if (!line.TakeIf(keyword.word)) continue;
    keyword.read(line, script);
    line.ExpectEnd();
    return;
  }
  line.Fail("\"" + line.TakeText("a keyword") + "\" is no keyword");
}

}  // namespace

Script ParseScript(std::string_view text) {
  Script script;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::size_t end = text.find('\n');
    ScriptLine line(text.substr(0, end), number);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (!line.IsAtEnd()) ReadLine(line, script);
  }
  return script;
}

Script LoadScript(const std::string& path) {
  if (path.empty()) return {};
  std::ifstream file(path, std::ios::binary);
  if (!file) throw ScriptFault("script " + path + " can't be read");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  return ParseScript(text);
}

}  // namespace imptable::scripted
