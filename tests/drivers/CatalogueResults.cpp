#include "tests/drivers/CatalogueResults.h"

#include <algorithm>
#include <string>
#include <utility>

#include "tests/drivers/LikePattern.h"

namespace imptable::scripted {
namespace {

constexpr ResultColumn Name(std::string_view name) { return {name, SQL_VARCHAR, 128}; }
constexpr ResultColumn Remarks(std::string_view name) { return {name, SQL_VARCHAR, 254}; }
constexpr ResultColumn Short(std::string_view name) { return {name, SQL_SMALLINT, 5}; }
constexpr ResultColumn Long(std::string_view name) { return {name, SQL_INTEGER, 10}; }

bool Fits(const Cell& wanted, const Cell& name, bool is_pattern, char escape) {
  if (!wanted) return true;
  const std::string& text = name ? *name : std::string();
  return is_pattern ? IsLike(text, *wanted, escape) : text == *wanted;
}

bool SchemaFits(const Cell& wanted, const Cell& schema, bool is_pattern, char escape) {
  return !wanted || wanted->empty() || Fits(wanted, schema, is_pattern, escape);
}

std::string WithoutEscapes(std::string_view pattern, char escape) {
  std::string name;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (escape != '\0' && pattern[i] == escape && i + 1 < pattern.size()) ++i;
    name += pattern[i];
  }
  return name;
}

/// Calls `visit` with each table that answers, and the name it answers under.
template <typename Visit>
void ForEachTable(const Script& script, const TableQuery& query, bool is_pattern, Visit visit) {
  const char escape = is_pattern ? SearchPatternEscape(script) : '\0';
  for (const TableEntry& table : script.tables) {
    if (!table.name) {
      visit(table, Cell(WithoutEscapes(query.table.value_or(""), escape)));
    } else if (Fits(query.table, table.name, is_pattern, escape) &&
               SchemaFits(query.schema, table.schema, is_pattern, escape)) {
      visit(table, table.name);
    }
  }
}

/// Whether `types`, a list such as `'TABLE','VIEW'` with or without quotes, has this type.
bool TypeIsListed(const Cell& types, const Cell& type) {
  if (!types || types->empty() || *types == "%") return true;
  std::string_view rest = *types;
  while (true) {
    const std::size_t comma = rest.find(',');
    std::string word(rest.substr(0, comma));
    std::erase_if(word, [](char c) { return c == '\'' || c == ' '; });
    std::string wanted = type.value_or("");
    std::erase(wanted, ' ');
    if (word == wanted) return true;
    if (comma == std::string_view::npos) return false;
    rest.remove_prefix(comma + 1);
  }
}

}  // namespace

char SearchPatternEscape(const Script& script) {
  const auto found = script.info.find(SQL_SEARCH_PATTERN_ESCAPE);
  if (found == script.info.end()) return '\\';
  const auto* text = std::get_if<std::string>(&found->second);
  return text != nullptr && !text->empty() ? text->front() : '\0';
}

ResultSet TablesResult(const Script& script, const TableQuery& query, const Cell& types) {
  ResultSet result{{Name("TABLE_QUALIFIER"), Name("TABLE_OWNER"), Name("TABLE_NAME"),
                    Name("TABLE_TYPE"), Remarks("REMARKS")},
                   {}};
  ForEachTable(script, query, true, [&](const TableEntry& table, const Cell& name) {
    if (!table.name || !TypeIsListed(types, table.type)) return;
    result.rows.push_back({table.catalogue, table.schema, name, table.type, std::nullopt});
  });
  return result;
}

ResultSet ColumnsResult(const Script& script, const TableQuery& query, const Cell& column) {
  ResultSet result{
      {Name("TABLE_QUALIFIER"), Name("TABLE_OWNER"), Name("TABLE_NAME"), Name("COLUMN_NAME"),
       Short("DATA_TYPE"), Name("TYPE_NAME"), Long("PRECISION"), Long("LENGTH"), Short("SCALE"),
       Short("RADIX"), Short("NULLABLE"), Remarks("REMARKS")},
      {}};
  const char escape = SearchPatternEscape(script);
  ForEachTable(script, query, true, [&](const TableEntry& table, const Cell& name) {
    for (const ColumnRow& row : table.columns) {
      if (!Fits(column, row.name, true, escape)) continue;
      result.rows.push_back({table.catalogue, table.schema, name, row.name, row.sql_type,
                             row.type_name, row.precision, row.length, row.scale, row.radix,
                             row.nullable, row.remarks});
    }
  });
  return result;
}

ResultSet PrimaryKeysResult(const Script& script, const TableQuery& query) {
  ResultSet result{{Name("TABLE_QUALIFIER"), Name("TABLE_OWNER"), Name("TABLE_NAME"),
                    Name("COLUMN_NAME"), Short("KEY_SEQ"), Name("PK_NAME")},
                   {}};
  ForEachTable(script, query, false, [&](const TableEntry& table, const Cell& name) {
    for (const KeyRow& row : table.keys) {
      result.rows.push_back(
          {table.catalogue, table.schema, name, row.column, row.sequence, row.key_name});
    }
  });
  return result;
}

ResultSet StatisticsResult(const Script& script, const TableQuery& query, bool unique_only) {
  ResultSet result{{Name("TABLE_QUALIFIER"), Name("TABLE_OWNER"), Name("TABLE_NAME"),
                    Short("NON_UNIQUE"), Name("INDEX_QUALIFIER"), Name("INDEX_NAME"), Short("TYPE"),
                    Short("SEQ_IN_INDEX"), Name("COLUMN_NAME"), Name("COLLATION"),
                    Long("CARDINALITY"), Long("PAGES"), Name("FILTER_CONDITION")},
                   {}};
  const Cell null;
  ForEachTable(script, query, false, [&](const TableEntry& table, const Cell& name) {
    for (const IndexRow& row : table.indexes) {
      if (unique_only && row.non_unique == "1") continue;
      result.rows.push_back({table.catalogue, table.schema, name, row.non_unique, null,
                             row.index_name, row.type, row.sequence, row.column, null, null, null,
                             null});
    }
  });
  return result;
}

ResultSet SpecialColumnsResult(const Script& script, const TableQuery& query,
                               SQLUSMALLINT identifier) {
  ResultSet result{{Short("SCOPE"), Name("COLUMN_NAME"), Short("DATA_TYPE"), Name("TYPE_NAME"),
                    Long("PRECISION"), Long("LENGTH"), Short("SCALE"), Short("PSEUDO_COLUMN")},
                   {}};
  const Cell null;
  ForEachTable(script, query, false, [&](const TableEntry& table, const Cell&) {
    for (const SpecialRow& row : table.specials) {
      if (row.identifier != identifier) continue;
      const Cell scope =
          identifier == SQL_BEST_ROWID ? Cell(std::to_string(SQL_SCOPE_SESSION)) : null;
      result.rows.push_back({scope, row.column, row.sql_type, row.type_name, null, null, null,
                             std::to_string(SQL_PC_NOT_PSEUDO)});
    }
  });
  return result;
}

}  // namespace imptable::scripted
