#include <gtest/gtest.h>

#include <functional>

#include "tests/dialogs/ClientTask.h"
#include "tests/dialogs/DialogPlace.h"
#include "tests/dialogs/Languages.h"

namespace imptable {
namespace {

/// A mistake that a person makes in a faultless task, and what Confirm says about it.
struct Mistake {
  const char* name;
  std::function<void(Person&)> make;
  const char* french;
  const char* english;
  int tab;
  const char* control;  // the one that gets the focus
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

/// Choosing a file format opens a box, which has to be answered.
void ChooseFixedWidth(Person& person) {
  person.ClickTab(1);
  person.Click("optForm(0)");
  person.WaitUntil([] { return FrontBox().has_value(); }, "the count");
  person.Press("Return");
  person.WaitForDialog("FrmImpTable");
}

const std::vector<Mistake>& Mistakes() {
  static const std::vector<Mistake> mistakes{
      {"NoDataSource", [](Person& person) { person.Fill("Combo1", ""); },
       "Sélectionner une Source de Données", "Select data source", 0, "Combo1"},
      {"NoUser", [](Person& person) { person.Fill("txtLogin", ""); },
       "Renseigner le Nom de l'utilisateur", "Enter user name", 0, "txtLogin"},
      {"NoTable", [](Person& person) { person.Fill("txtTable", ""); }, "Sélectionner une Table",
       "Select table", 0, "txtTable"},
      {"NoAlias", [](Person& person) { person.Fill("txtAlias", ""); },
       "Renseigner la source (Alias ou Fichier)", "Enter alias", 0, "txtAlias"},
      {"AliasThatBeginsWithABlank", [](Person& person) { person.Fill("txtAlias", " CLIENTS"); },
       "Renseigner la source (Alias ou Fichier)", "Enter alias", 0, "txtAlias"},
      {"NoErrorCode",
       [](Person& person) {
         person.ClickTab(2);
         person.Click("chkDou");
       },
       "Renseigner le code erreur", "Enter error code", 2, "txtErr"},
      {"ErrorCodeThatIsNoNumber",
       [](Person& person) {
         person.ClickTab(2);
         person.Click("chkDou");
         person.Fill("txtErr", "12a");
       },
       "Renseigner le code erreur", "Enter error code", 2, "txtErr"},
      {"NoKey", [](Person& person) { person.Click("optBCP(3)"); },
       "Renseigner la Clé ou l'Index utilisé", "Enter key or index used", 0, "txtCle"},
      {"KeyThatBeginsWithABlank",
       [](Person& person) {
         person.Click("optBCP(4)");
         person.Fill("txtCle", " ID");
       },
       "Renseigner la Clé ou l'Index utilisé", "Enter key or index used", 0, "txtCle"},
      {"NoLengthOfALong", [](Person& person) { ChooseFixedWidth(person); },
       "Entrer le nombre de caractères du champs Long de la colonne 1",
       "Enter long field character length for column 1", 3, "Grid1"},
      {"OriginOfAColumnThatIsGone",
       [](Person& person) {
         person.ClickTab(1);
         person.Click("textNbCol");
         person.Press("Down");
         person.WaitForText("textNbCol", "1");
       },
       "Colonne inconnue", "Incorrect Column", 3, "Grid2"},
  };
  return mistakes;
}

class MistakeInATask : public testing::TestWithParam<std::tuple<Language, Mistake>> {};

TEST_P(MistakeInATask, IsToldInABoxOverItsFieldAndNothingIsSaved) {
  const auto& [language, mistake] = GetParam();
  DialogPlace place(kClientTable, language);
  SetUpClientTask(place);
  const std::string before = place.Imptable({"get", "S1", "T1"});
  place.Configure([&, &mistake = mistake, language = language](Person& person) {
    mistake.make(person);
    person.ClickTab(mistake.tab == 0 ? 1 : 0);
    person.Click("cmdValider");
    EXPECT_EQ(place.boxes().Answer("Return"),
              "Warn|" + In(language, "Importation Table|", "Import Table|") +
                  In(language, mistake.french, mistake.english));
    person.WaitForFocus(mistake.control);
    EXPECT_EQ(person.FrontTab(), mistake.tab);
    person.Press("Escape");
  });
  EXPECT_EQ(place.Imptable({"get", "S1", "T1"}), before);
}

std::string MistakeName(const testing::TestParamInfo<std::tuple<Language, Mistake>>& mistake) {
  return std::get<1>(mistake.param).name + In(std::get<0>(mistake.param), "InFrench", "InEnglish");
}

INSTANTIATE_TEST_SUITE_P(EachLanguage, MistakeInATask,
                         testing::Combine(kEachLanguage, testing::ValuesIn(Mistakes())),
                         MistakeName);

TEST(NameOfANewTask, MayNotBeTakenMeanwhile) {
  DialogPlace place(kClientTable, Language::kEnglish);
  place.Configure([&](Person& person) {
    person.Fill("Combo1", "Shop");
    person.Fill("txtLogin", "me");
    person.Fill("txtTable", "CLIENT");
    person.Fill("txtAlias", "CLIENTS");
    place.Imptable({"set", "S1", "t1", "Login=other"});
    person.ClickTab(1);
    person.Click("cmdValider");
    EXPECT_EQ(place.boxes().Answer("Return"), "Warn|Import Table|This process already exists");
    person.WaitUntil([&] { return person.FrontTab() == 0; }, "the first tab");
    place.Imptable({"delete", "S1", "t1"});
    person.Click("cmdApp");
    person.WaitUntil([&] { return place.Imptable({"list", "S1"}) == "T1\n"; }, "Apply to save");
    person.Click("cmdValider");
  });
  EXPECT_EQ(place.boxes().unanswered(), std::vector<std::string>());
}

}  // namespace
}  // namespace imptable
