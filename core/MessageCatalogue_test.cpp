#include "core/MessageCatalogue.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/RuntimeFault.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

struct Entry {
  std::int32_t number;
  std::string_view french;
  std::string_view english;
};

// The texts that reports are put together from, those whose blanks count, and the odd ones.
constexpr Entry kEntries[] = {
    {1, "A&ppliquer", "A&pply"},
    {26, " Mode Reprise", " Resume mode"},
    {59, "Infos colonnes", "Column details "},
    {62, "Affectation des colonnes ", "Destination fields"},
    {78, "En cas de non Declenchement", "xxxxxxxxxx"},
    {94, " --> Exécution du Traitement : ", " --> Run process: "},
    {95, " --------------- PROCEDURE TERMINEE ---------------",
     " --------------- PROCEDURE TERMINATED ---------------"},
    {96, "Nom Traitement: ", "Process: "},
    {97, "Type de Fonction: ", "Function type: "},
    {98, " ... Connexion à la Source de Données : ", " ... Connect to data source: "},
    {99, " ... Suppression des fichiers d'erreurs", " ... Delete error logs"},
    {100, " --> TRAITEMENT DE LA TABLE : ", " --> PROCESS TABLE: "},
    {101, " enreg(s) récupéré(s)", " record(s) found"},
    {102, "  -->   Traitement OK : ", "  -->   Process OK : "},
    {103, " Enregistrement(s) copié(s)", " Record(s) copied"},
    {104, " -->   Erreur en TRANSFERT : N° ", " -->   TRANSFER error: N° "},
    {105, " -->   Suppression Globale des données", " -->   Delete all data"},
    {106, " -->    Pas de requête pour ce traitement", " -->    No query for this process"},
    {107, " -->   Suppression Sélective des données", " -->   Delete selected data"},
    {108, " ---->   Exécution de la requête : ", " ---->   Run query: "},
    {109, " ---->   Aucun(s) Enregistrement(s) supprimé(s)", " ---->   No records deleted"},
    {110, " Enregistrement(s) supprimé(s)", " Record(s) deleted"},
    {112, "Erreur lors du traitement - N° ", "Error during processing - N° "},
    {114, "Le fichier contient ", "File contains "},
    {115, " colonne(s)", " column(s)"},
    {117, "Le répertoire ", "Directory "},
    {118, " n'existe pas", " does not exist"},
    {125, "Erreur d'exécution N° ", "Run error N° "},
    {133, " ARRET DE LA PROCEDURE : CONNEXION A LA SOURCE IMPOSSIBLE",
     " PROCEDURE HALTED: UNABLE TO CONNECT TO SOURCE"},
    {136, " -->   Pas de Fichier ", " -->   No file "},
    {137, " -->   Le Fichier ", " -->   File "},
    {138, " est vide", " is empty"},
    {139, " -->   Erreur lors de la suppression de la Table - N° ",
     " -->   Error deleting table - N° "},
    {140, " -->   Colonne non définie dans la base : ", " -->   Column not defined in database: "},
    {141, " , Abandon du traitement", " , Abandoning process"},
    {142, " -->   Erreur lors de la suppression sélective - N° ",
     " -->   Error during selective delete - N° "},
    {143, "Entrer le nombre de caractères du champs Text de la colonne ",
     "Enter text field character length for column "},
    {144, "Entrer le nombre de caractères du champs Byte de la colonne ",
     "Enter byte field character length for column "},
    {145, "Entrer le nombre de caractères du champs Integer de la colonne ",
     "Enter integer field character length for column "},
    {146, "Entrer le nombre de caractères du champs Long de la colonne ",
     "Enter long field character length for column "},
    {147, "Entrer le nombre de caractères du champs Single de la colonne ",
     "Enter single field character length for column "},
    {148, "Entrer le nombre de caractères du champs Double de la colonne ",
     "Enter double field character length for column "},
    {149, "Entrer un format pour la colonne ", "Enter a format for column "},
    {152, " Colonne: ", " Column: "},
    {154, "Indiquer l'origine de la colonne ", "Enter origin of column "},
    {157, ".... Ligne ", ".... Line "},
    {158, " -->   Mode DELETE", " -->   DELETE Mode"},
    {159,
     " -->   Abandon du traitement : Cette table ne comporte pas de Clé Primaire ou d'index unique",
     " -->   This table contains no primary key or unique index: Abandoning process"},
    {160, "Formatage de l'enregistrement incorrect (présence de \"\"",
     "Incorrect record format (presence of \"\""},
    {161, "\"\" dans des champs Alpha)", "\"\" in text fields)"},
    {162, " enreg(s) lu(s)", " record(s) read"},
    {163, " erreur(s) détectée(s),consultez le fichier .ERR",
     " error(s) detected, refer to .ERR file"},
    {164, " -->   Mode INSERT", " -->   INSERT mode"},
    {165, " -->   Mode INSERT/UPDATE", " -->   INSERT/UPDATE mode"},
    {166, " Enregistrement(s) inseré(s) -- ", " Record(s) inserted "},
    {167, " Enregistrement(s) modifié(s)", " Record(s) edited"},
    {168, " -->   Mode UPDATE", " -->   UPDATE mode"},
    {169, " -->   Mode UPDATE/INSERT", " -->   UPDATE/INSERT mode"},
    {172, "Erreur Libération environnement (SQLFreeEnv)", "Free environment error (SQLAllocEnv)"},
    {173, "Erreur Libération ressources (SQLFreeConnect)", "Free resource error (SQLAllocEnv)"},
    {175, "Importation Table", "Import Table"},
    {180, "Sélectionner une Clé ou un Index", "Select key or index"},
};

const MessageCatalogue& Catalogue() {
  static const Utf8TextEncoding encoding;
  static const MessageCatalogue catalogue(encoding);
  return catalogue;
}

FaultNumber FaultOf(std::int32_t number, std::int32_t offset) {
  try {
    ADD_FAILURE() << "gives " << Catalogue().Text(number, offset);
  } catch (const RuntimeFault& fault) {
    return fault.number();
  }
  return {};
}

/// FNV-1a over "number, tab, text, line feed" of each entry.
std::uint64_t ChecksumOf(std::int32_t language_offset) {
  std::uint64_t sum = 0xcbf29ce484222325U;
  for (std::int32_t number = 1; number <= kMessageCount; ++number) {
    const std::string line = std::to_string(number + language_offset) + '\t' +
                             Catalogue().Text(number, language_offset) + '\n';
    for (const char byte : line) {
      sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
  }
  return sum;
}

TEST(MessageCatalogue, KeepsItsTextsExactlyWithTheirBlanks) {
  for (const Entry& entry : kEntries) {
    EXPECT_EQ(Catalogue().Text(entry.number, kFrenchOffset), entry.french);
    EXPECT_EQ(Catalogue().Text(entry.number, kEnglishOffset), entry.english);
  }
}

TEST(MessageCatalogue, HasNotChangedASingleText) {
  EXPECT_EQ(ChecksumOf(kFrenchOffset), 0x9d00106a4149693bU);
  EXPECT_EQ(ChecksumOf(kEnglishOffset), 0x8e8212943d7e7f03U);
}

TEST(MessageCatalogue, KnowsNoOtherOffsetThanItsTwo) {
  for (const std::int32_t offset : {1, -1, 9999, 10001, 20000, -10000}) {
    EXPECT_EQ(FaultOf(95, offset), FaultNumber::kResourceNotFound) << offset;
  }
  EXPECT_EQ(FaultOf(10095, -10000), FaultNumber::kResourceNotFound);
}

TEST(MessageCatalogue, HasNothingOutsideItsTwoRangesAndDoesNotFallBackToTheOtherLanguage) {
  for (const std::int32_t number : {0, -1, 181, 9999, 10095, -10000}) {
    EXPECT_EQ(FaultOf(number, kFrenchOffset), FaultNumber::kResourceNotFound) << number;
  }
  for (const std::int32_t number : {0, 181, 10001}) {
    EXPECT_EQ(FaultOf(number, kEnglishOffset), FaultNumber::kResourceNotFound) << number;
  }
  for (const std::int32_t offset : {1033, 1036, 5000, 20000, -10000}) {
    EXPECT_EQ(FaultOf(95, offset), FaultNumber::kResourceNotFound) << offset;
  }
}

TEST(MessageCatalogue, OverflowsWhenNumberAndOffsetTogetherNeedMoreThan32Bits) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(FaultOf(1, kMost), FaultNumber::kOverflow);
  EXPECT_EQ(FaultOf(-1, kLeast), FaultNumber::kOverflow);
  EXPECT_EQ(FaultOf(0, kMost), FaultNumber::kResourceNotFound);
  EXPECT_EQ(FaultOf(1, kMost - 1), FaultNumber::kResourceNotFound);
}

TEST(MessageCatalogue, GivesItsTextsInTheCodePage) {
  const Latin1TextEncoding encoding;
  const MessageCatalogue catalogue(encoding);
  EXPECT_EQ(catalogue.Text(94, kFrenchOffset),
            " --> Ex\xe9"
            "cution du Traitement : ");
  EXPECT_EQ(catalogue.Text(53, kEnglishOffset), "N\xb0");
}

}  // namespace
}  // namespace imptable
