#include "dialogs/columns/FieldAssignment.h"

#include <gmock/gmock.h>

#include "import/layout/ColumnLayout.h"
#include "tests/kit/TestComponent.h"

namespace imptable {
namespace {

FieldRow Row(std::string name, std::string format, std::string origin) {
  FieldRow row;
  row.name = std::move(name);
  row.format = std::move(format);
  row.origin = std::move(origin);
  return row;
}

std::string Code(const FieldRow& row) {
  TestComponent component;
  return FieldAssignmentCode(component.module(), row);
}

TEST(FieldAssignment, IsStoredAsNameFormatAndOrigin) {
  EXPECT_EQ(Code(Row("CODE", "INTEGER", "Col N° 3")), "CODE,INTEGER,(Col)3");
  EXPECT_EQ(Code(Row("NOM", "VARCHAR(30)", "Ignore")), "NOM,VARCHAR(30),Ignore");
  EXPECT_EQ(Code(Row("NOM", "VARCHAR(30)", "Null")), "NOM,VARCHAR(30),Null");
  EXPECT_EQ(Code(Row("NOM", "DECIMAL(10,2)", "@DEPOT")), "NOM,DECIMAL(10,2),@DEPOT");
  EXPECT_EQ(Code(Row("NOM", "CHAR(2)", "FR")), "NOM,CHAR(2),FR");
  EXPECT_EQ(Code(Row("NOM", "CHAR(2)", "")), "NOM,CHAR(2),");
}

TEST(FieldAssignment, NamesFileColumnsAlikeInBothLanguages) {
  TestComponent component;
  for (const std::int32_t language : {kFrenchOffset, kEnglishOffset}) {
    component.module().language_offset = language;
    EXPECT_EQ(FileColumnOrigin(component.module(), 12), "Col N° 12");
    EXPECT_EQ(NumberOfFileColumnOrigin(component.module(), "Col N° 12"), 12);
  }
}

TEST(FieldAssignment, NamesFileColumnsInTheCodePage) {
  TestComponent component(std::make_unique<Latin1TextEncoding>());
  EXPECT_EQ(FileColumnOrigin(component.module(), 1), "Col N\xB0 1");
  EXPECT_EQ(FieldAssignmentCode(component.module(), Row("A", "B", "Col N\xB0 1")), "A,B,(Col)1");
}

TEST(FieldAssignment, TellsFileColumnsFromOtherOrigins) {
  TestComponent component;
  const auto number = [&](const char* origin) {
    return NumberOfFileColumnOrigin(component.module(), origin);
  };
  EXPECT_EQ(number("Col N° "), 0);
  EXPECT_EQ(number("Col N° x"), 0);
  EXPECT_EQ(number("Col N° -1"), 0);
  EXPECT_EQ(number("Col 1"), std::nullopt);
  EXPECT_EQ(number("(Col)1"), std::nullopt);
  EXPECT_EQ(number("Null"), std::nullopt);
  EXPECT_EQ(number(""), std::nullopt);
}

/// Rows with every kind of name, format and origin that the dialog can make.
std::vector<FieldRow> Rows(const ModuleCommun& module) {
  std::vector<FieldRow> rows;
  for (const char* name : {"CODE", "Nom du client", "prénom", "a_b", "x(1)", "a,b"}) {
    for (const char* format : {"INTEGER", "VARCHAR(30)", "DECIMAL(10,2)", "ENUM('a','b')",
                               "double precision", "int() identity", ""}) {
      for (const std::string& origin :
           {FileColumnOrigin(module, 1), FileColumnOrigin(module, 32767), std::string("Ignore"),
            std::string("Null"), std::string("@DEPOT"), std::string("FR"), std::string(" a b "),
            std::string("été")}) {
        rows.push_back(Row(name, format, origin));
      }
    }
  }
  return rows;
}

TEST(FieldAssignment, IsReadBackAsItWasShown) {
  TestComponent component;
  for (const FieldRow& row : Rows(component.module())) {
    const std::string code = FieldAssignmentCode(component.module(), row);
    bool readable = true;
    EXPECT_EQ(ReadFieldAssignment(component.module(), code, readable), row) << code;
    EXPECT_TRUE(readable) << code;
  }
}

TEST(FieldAssignment, MeansToTheImportWhatTheDialogShows) {
  TestComponent component;
  for (const FieldRow& row : Rows(component.module())) {
    const std::string code = FieldAssignmentCode(component.module(), row);
    const ColumnOrigin meant = ParseColumnOrigin(code, "1");
    const auto number = NumberOfFileColumnOrigin(component.module(), row.origin);
    EXPECT_EQ(code.ends_with("Ignore"), row.origin == "Ignore") << code;
    if (number) {
      EXPECT_EQ(meant.kind, ColumnOrigin::Kind::kField) << code;
      EXPECT_EQ(meant.field + 1, static_cast<std::size_t>(*number)) << code;
    } else if (row.origin == "Null") {
      EXPECT_EQ(meant.kind, ColumnOrigin::Kind::kNull) << code;
    } else if (row.origin == "@DEPOT") {
      EXPECT_EQ(meant.kind, ColumnOrigin::Kind::kVariable) << code;
      EXPECT_EQ(meant.text, "DEPOT") << code;
    } else {
      EXPECT_EQ(meant.kind, ColumnOrigin::Kind::kConstant) << code;
      EXPECT_EQ(meant.text, row.origin) << code;
    }
  }
}

TEST(FieldAssignment, IsReadFromAnOriginAlone) {
  TestComponent component;
  for (const auto& [code, row] : std::vector<std::pair<std::string, FieldRow>>{
           {"(Col)3", Row("", "", "Col N° 3")},
           {"Null", Row("", "", "Null")},
           {"NOM,(Col)2", Row("NOM", "", "Col N° 2")},
           {"NOM,(Col) 02", Row("NOM", "", "Col N° 2")},
           {"NOM,DECIMAL(10,Null", Row("NOM", "DECIMAL(10", "Null")},
       }) {
    bool readable = true;
    EXPECT_EQ(ReadFieldAssignment(component.module(), code, readable), row) << code;
    EXPECT_TRUE(readable) << code;
  }
}

TEST(FieldAssignment, LeavesEmptyAnOriginThatNamesNoFileColumnAndSaysSo) {
  TestComponent component;
  for (const char* code :
       {"NOM,INT,(Col)", "NOM,INT,(Col)x", "NOM,INT,(Col)0", "NOM,INT,(Col)-1"}) {
    bool readable = true;
    EXPECT_EQ(ReadFieldAssignment(component.module(), code, readable), Row("NOM", "INT", ""))
        << code;
    EXPECT_FALSE(readable) << code;
  }
}

TEST(FieldAssignment, TakesTypedConstantsAndReferencesAsTheyAre) {
  TestComponent component;
  for (const char* text : {"@DEPOT", "FR", " ", "Null", "Ignore", "Col N° 2", "12", "a;b"}) {
    EXPECT_EQ(TypedOrigin(component.module(), text), text);
  }
  EXPECT_EQ(TypedOrigin(component.module(), "(Col)2"), "Col N° 2");
}

TEST(FieldAssignment, TakesNoTypedOriginThatTheImportWouldTakeOtherwise) {
  TestComponent component;
  for (const char* text :
       {"a,b", ",", "Please Ignore", "@Ignore", "Variable", "(Col)", "(Col)0", "(Col)x"}) {
    EXPECT_EQ(TypedOrigin(component.module(), text), std::nullopt) << text;
  }
}

TEST(FieldAssignment, ShowsTheSizeOfTextsBytesAndDecimalNumbers) {
  const auto format = [](std::string type_name, std::int16_t sql_type, std::int32_t precision,
                         std::int16_t scale) {
    TableColumn column;
    column.type_name = std::move(type_name);
    column.sql_type = sql_type;
    column.precision = precision;
    column.scale = scale;
    return TableColumnFormat(column);
  };
  EXPECT_EQ(format("VARCHAR", SQL_VARCHAR, 30, 0), "VARCHAR(30)");
  EXPECT_EQ(format("CHAR", SQL_CHAR, 2, 0), "CHAR(2)");
  EXPECT_EQ(format("nvarchar", SQL_WVARCHAR, 30, 0), "nvarchar(30)");
  EXPECT_EQ(format("VARBINARY", SQL_VARBINARY, 16, 0), "VARBINARY(16)");
  EXPECT_EQ(format("DECIMAL", SQL_DECIMAL, 10, 2), "DECIMAL(10,2)");
  EXPECT_EQ(format("NUMERIC", SQL_NUMERIC, 10, 0), "NUMERIC(10,0)");
  EXPECT_EQ(format("INTEGER", SQL_INTEGER, 10, 0), "INTEGER");
  EXPECT_EQ(format("DOUBLE", SQL_DOUBLE, 15, 0), "DOUBLE");
  EXPECT_EQ(format("DATETIME", SQL_TIMESTAMP, 19, 0), "DATETIME");
  EXPECT_EQ(format("TEXT", SQL_LONGVARCHAR, 2147483647, 0), "TEXT");
  EXPECT_EQ(format("VARCHAR", SQL_VARCHAR, 0, 0), "VARCHAR");
  EXPECT_EQ(format("varchar(30)", SQL_VARCHAR, 30, 0), "varchar(30)");
  EXPECT_EQ(format("", SQL_INTEGER, 10, 0), "");
}

}  // namespace
}  // namespace imptable
