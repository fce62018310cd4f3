#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/ImportRun.h"

namespace imptable {
namespace {

using testing::ElementsAre;

TEST(InsertMode, TracesEachLineAndKeepsTheRejectedOnes) {
  ImportRun run;
  run.Source({"1;a", "2;b", "3;c"});
  run.Driver("on SQLExecute 2 return -1 diag 23000 19 \"refused\"");
  EXPECT_EQ(run.Go(), 3);
  EXPECT_THAT(run.Executed(), ElementsAre("1='1' 2='a'", "1='2' 2='b'", "1='3' 2='c'"));
  EXPECT_THAT(run.Trace(),
              ElementsAre("00000001000000000", "00000002100000001", "00000003000000001"));
  EXPECT_THAT(run.Rejected(), ElementsAre("2;b"));
  EXPECT_THAT(run.Errors(), ElementsAre("15/11/2006 08:30:00.... Ligne  2 ( 19) refused"));
  EXPECT_THAT(
      run.Report(),
      ElementsAre(" --> Exécution du Traitement : T1",
                  " ... Connexion à la Source de Données : " + run.source.name(),
                  " ... Suppression des fichiers d'erreurs", " --> TRAITEMENT DE LA TABLE : CLIENT",
                  " -->   Mode INSERT", " ----->    3 enreg(s) lu(s)",
                  " ----->    1 erreur(s) détectée(s),consultez le fichier .ERR",
                  " ----->   2 Enregistrement(s) copié(s)",
                  " --------------- PROCEDURE TERMINEE ---------------"));
}

}  // namespace
}  // namespace imptable
