#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/KeyedRun.h"
#include "tests/kit/SideFileLines.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kNoKey =
    " -->   Abandon du traitement : Cette table ne comporte pas de Clé Primaire ou d'index unique";

struct ModeCase {
  std::int32_t mode;
  const char *name, *banner, *nothing;
};

/// What the host's report writer sees of a mode that abandons; the success line of UPDATE doesn't
/// go through it.
KeyedRun::KindLines AbandonLines(const ModeCase& mode) {
  KeyedRun::KindLines lines{Information(mode.banner), Error(kNoKey),
                            Information(" ----->    0 enreg(s) lu(s)")};
  if (mode.mode == kByUpdateInsert) lines.push_back(Information(mode.nothing));
  if (mode.mode == kByDelete) lines.emplace_back(mode.nothing, ReportKind::kSuccess);
  return lines;
}

class KeyChoice : public testing::TestWithParam<ModeCase> {
 protected:
  KeyChoice() : run_(GetParam().mode) { run_.Source({"1;a"}); }

  void ExpectAbandon() {
    EXPECT_EQ(run_.Go(), 3);
    EXPECT_EQ(run_.ModeLines(), AbandonLines(GetParam()));
    EXPECT_EQ(run_.progress().read, 0);
    EXPECT_THAT(run_.Prepared(), IsEmpty());
    EXPECT_THAT(run_.Trace(), IsEmpty()) << "there, and empty";
    EXPECT_FALSE(run_.component.module().run.pre_deletion_failed);
    EXPECT_EQ(run_.component.session().listener, &run_.component.state.report);
  }

  /// The end of the text of the statement that looks for rows.
  std::string Where() {
    EXPECT_EQ(run_.Go(), 2);
    const std::string text = run_.Prepared().back();
    return text.substr(text.find(" WHERE "));
  }

  KeyedRun run_;
};

TEST_P(KeyChoice, TakesTheColumnsOfTheSettingInTheOrderWritten) {
  run_.Table(
      "column SITE 12 VARCHAR 4 0 0\ncolumn CODE 12 VARCHAR 9 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n"
      "key NOM 1 PK\n");
  run_.Set("Cle/Index", "CODE,SITE");
  EXPECT_EQ(Where(), " WHERE CODE = ? AND SITE = ?");
  EXPECT_THAT(run_.source.LogLines("SQLPrimaryKeys"), IsEmpty());
}

TEST_P(KeyChoice, TakesThePrimaryKeyInTheDriversOrder) {
  run_.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn SITE 12 VARCHAR 4 0 0\ncolumn NOM 12 VARCHAR 30 0 1\n"
      "key SITE 2 PK\nkey CODE 1 PK\n");
  run_.Set("PrimKey", 1);
  run_.Set("Cle/Index", "NOM");
  EXPECT_EQ(Where(), " WHERE SITE = ? AND CODE = ?");
}

TEST_P(KeyChoice, TakesAnyNumberButZeroForThePrimaryKey) {
  for (const std::int32_t option : {1, 2, -1}) {
    run_.Table("column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\nkey CODE 1 PK\n");
    run_.Set("PrimKey", option);
    run_.Set("Cle/Index", "NOM");
    EXPECT_EQ(Where(), " WHERE CODE = ?") << option;
  }
}

TEST_P(KeyChoice, AsksForThePrimaryKeyOfTheTableWithItsOwner) {
  run_.Driver("key CODE 1 PK");
  run_.Set("PrimKey", 1);
  run_.Set("Owner", "dbo");
  run_.Set("Table", "MY_CLIENT");
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.source.LogLines("SQLPrimaryKeys"),
              ElementsAre("SQLPrimaryKeys schema=dbo table=MY_CLIENT = 0"));
}

TEST_P(KeyChoice, AbandonsWithoutAKeyInTheSetting) {
  run_.Set("Cle/Index", "");
  ExpectAbandon();
}

TEST_P(KeyChoice, AbandonsATableOrViewWithoutAPrimaryKey) {
  run_.Set("PrimKey", 1);
  ExpectAbandon();
  EXPECT_THAT(run_.Errors(), IsEmpty());
}

TEST_P(KeyChoice, AbandonsWhenTheDriverKnowsNoPrimaryKeys) {
  run_.Driver("key CODE 1 PK");
  run_.Driver("support 65 no");
  run_.Set("PrimKey", 1);
  ExpectAbandon();
  EXPECT_THAT(run_.Errors(), IsEmpty()) << "it isn't asked";
}

TEST_P(KeyChoice, NeedsNoSupportOfPrimaryKeysForAKeyOfTheSetting) {
  run_.Driver("support 65 no");
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(1));
}

TEST_P(KeyChoice, AbandonsAfterTheDiagnosticWhenThePrimaryKeyCannotBeRead) {
  for (const char* failure : {"on SQLPrimaryKeys return -1 diag S1000 7 \"no keys\"",
                              "on SQLFetch 1 return -1 diag S1000 7 \"no keys\"",
                              "on SQLFetch 1 return 1 diag 01004 7 \"no keys\""}) {
    SCOPED_TRACE(failure);
    KeyedRun run(GetParam().mode);
    run.Source({"1;a"});
    run.Driver("key CODE 1 PK");
    run.Driver(failure);
    run.Set("PrimKey", 1);
    EXPECT_EQ(run.Go(), 3);
    EXPECT_EQ(run.ModeLines(), AbandonLines(GetParam()));
    EXPECT_THAT(run.Errors(), ElementsAre(ErrorLine(0, 7, "no keys")));
  }
}

TEST_P(KeyChoice, SaysInEnglishThatThereIsNoKey) {
  run_.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", kEnglishOffset);
  run_.Set("Cle/Index", "");
  run_.Go();
  EXPECT_THAT(run_.ModeLines(), Contains(Error(" -->   This table contains no primary key or "
                                               "unique index: Abandoning process")));
}

/// A key that isn't the name of a column is noticed when its parameter is bound.
TEST_P(KeyChoice, FailsForANameThatNoColumnHasExactly) {
  struct Case {
    const char *setting, *name;
  };
  for (const Case& each : {Case{"NONE", "NONE"},
                           {"code", "code"},
                           {"CODE, NOM", " NOM"},
                           {"CODE ", "CODE "},
                           {"CODE,", ""},
                           {",CODE", ""},
                           {",", ""}}) {
    SCOPED_TRACE(each.setting);
    KeyedRun run(GetParam().mode);
    run.Source({"1;a"});
    run.Set("Cle/Index", each.setting);
    EXPECT_EQ(run.Go(), 3);
    std::string fault = " -->   Erreur lors du traitement - N° 9 ,Indice hors limites";
    if (*each.name != '\0') fault += std::string(" : ") + each.name;
    KeyedRun::KindLines expected = AbandonLines(GetParam());
    expected[1] = Error(fault);
    EXPECT_EQ(run.ModeLines(), expected);
    EXPECT_THAT(run.Executed(), IsEmpty());
    EXPECT_TRUE(run.component.module().run.error_reported);
    EXPECT_EQ(run.component.module().run.pre_deletion_failed, GetParam().mode != kByUpdateInsert);
    EXPECT_EQ(run.OpenStatements(), 0);
  }
}

TEST_P(KeyChoice, SplitsTheSettingAtEachCommaAndNowhereElse) {
  run_.Table("column \"A B\" 4 INTEGER 10 0 0\ncolumn \" C;D \" 12 VARCHAR 30 0 1\n");
  run_.Set("Cle/Index", "A B, C;D ");
  EXPECT_EQ(Where(), " WHERE A B = ? AND  C;D  = ?");
}

TEST_P(KeyChoice, TakesTheFirstColumnOfAName) {
  run_.Table(
      "column CODE 4 INTEGER 10 0 0\ncolumn NOM 12 VARCHAR 30 0 1\ncolumn CODE 12 VARCHAR 9 0 1\n");
  run_.Source({"1;a;z"});
  EXPECT_EQ(run_.Go(), 2);
  const auto bindings = run_.source.LogLines("SQLBindParameter");
  EXPECT_THAT(bindings.back(), testing::HasSubstr("sqltype=4 size=10"));
}

INSTANTIATE_TEST_SUITE_P(
    Mode, KeyChoice,
    testing::Values(ModeCase{kByUpdate, "Update", " -->   Mode UPDATE", ""},
                    ModeCase{kByUpdateInsert, "UpdateInsert", " -->   Mode UPDATE/INSERT",
                             "  -->   Traitement OK :  0 Enregistrement(s) modifié(s), "
                             "0 Enregistrement(s) inseré(s) -- "},
                    ModeCase{kByDelete, "Delete", " -->   Mode DELETE",
                             "  -->   Traitement OK :  0 Enregistrement(s) supprimé(s)"}),
    [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace imptable
