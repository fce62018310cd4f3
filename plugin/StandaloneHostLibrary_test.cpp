#include "plugin/StandaloneHostLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/ImpTable.h"
#include "plugin/testing/HostedComponent.h"

namespace imptable {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

class Display : public HostDisplay, public HostForm {
 public:
  HostForm* wForm() override { return this; }
  std::string Text() const override { return text; }
  void SetText(const std::string& new_text) override { text = new_text; }
  std::int32_t Tag() const override { return tag; }
  void SetTag(std::int32_t new_tag) override { tag = new_tag; }

  std::string text;
  std::int32_t tag = 0;
};

class OwnHostLibrary : public testing::Test, protected HostedComponent {
 protected:
  std::optional<std::string> Variable(const std::string& name) {
    return library.Variable({}, "S1", name);
  }
};

TEST_F(OwnHostLibrary, FindsVariablesWithoutRegardToCase) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "Répertoire", "/data");
  EXPECT_EQ(Variable("RÉPERTOIRE"), "/data");
}

TEST_F(OwnHostLibrary, FindsAConstantWhenNoVariableHasTheName) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Constantes", "A", "constant");
  EXPECT_EQ(Variable("a"), "constant");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "variable");
  EXPECT_EQ(Variable("a"), "variable");
}

TEST_F(OwnHostLibrary, KnowsNoVariableOfAnotherScenarioOrType) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S2\\Variables", "A", "other");
  registry.SetNumber("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "N", 1);
  EXPECT_EQ(Variable("A"), std::nullopt);
  EXPECT_EQ(Variable("N"), std::nullopt);
}

TEST_F(OwnHostLibrary, TellsAnEmptyVariableFromNone) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "");
  EXPECT_EQ(Variable("A"), "");
}

TEST_F(OwnHostLibrary, ListsTextsOfAKindInTheOrderOfTheRegistry) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "Zone", "");
  registry.SetNumber("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "Number", 1);
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "", "unnamed");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "Agence", "12");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Constantes", "Source", "CLIENTS");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S2\\Variables", "Other", "x");
  EXPECT_THAT(library.ReferenceNames({}, "S1", ReferenceKind::kVariable),
              ElementsAre("Zone", "Agence"));
  EXPECT_THAT(library.ReferenceNames({}, "S1", ReferenceKind::kConstant), ElementsAre("Source"));
  EXPECT_THAT(library.ReferenceNames({}, "S3", ReferenceKind::kVariable), IsEmpty());
}

TEST_F(OwnHostLibrary, SaysThatTheRegistryOfTheNamesCantBeRead) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "1");
  registry.FailReadsFrom(1);
  try {
    library.ReferenceNames({}, "S1", ReferenceKind::kVariable);
    ADD_FAILURE() << "names out of nothing";
  } catch (const RuntimeFault& fault) {
    EXPECT_EQ(fault.number(), FaultNumber::kDeviceError);
  }
}

TEST_F(OwnHostLibrary, WritesReportLinesInTheComponentsForm) {
  const auto writer = library.CreateReportWriter();
  Display display;
  writer->SetScenario("S1");
  writer->SetReportPath(folder.path() + "report.txt");
  writer->WriteLine("first", &display, ReportKind::kHeading);
  writer->WriteLine("second", &display, ReportKind::kInformation);
  EXPECT_EQ(folder.Read("report.txt"),
            "04/03/2026 05:06:07 first\r\n04/03/2026 05:06:07 second\r\n");
  EXPECT_EQ(display.text, "04/03/2026 05:06:07 second\n04/03/2026 05:06:07 first\n");
  EXPECT_EQ(display.tag, 2);
  EXPECT_FALSE(library.report_failed());
}

TEST_F(OwnHostLibrary, RemembersThatALineDidNotReachTheReport) {
  const auto writer = library.CreateReportWriter();
  writer->SetReportPath(folder.path() + "report.txt");
  files.Fail(FileOperation::kWrite, 1, std::make_error_code(std::errc::no_space_on_device));
  writer->WriteLine("lost", nullptr, ReportKind::kInformation);
  writer->WriteLine("kept", nullptr, ReportKind::kInformation);
  EXPECT_TRUE(library.report_failed());
  EXPECT_EQ(folder.Read("report.txt"), "04/03/2026 05:06:07 kept\r\n");
}

TEST_F(OwnHostLibrary, PresentsTheTaskTypeInTheLanguageOfTheMoment) {
  EXPECT_EQ(library.TitleOfWrapperType(kWrapperType), "Importation Table");
  EXPECT_EQ(library.SummaryOfWrapperType(kWrapperType),
            "Importe un fichier texte dans une table d'une source de données ODBC.");
  module().language_offset = kEnglishOffset;
  EXPECT_EQ(library.TitleOfWrapperType(kWrapperType), "Import Table");
  EXPECT_EQ(library.SummaryOfWrapperType(kWrapperType),
            "Imports a text file into a table of an ODBC data source.");
}

TEST_F(OwnHostLibrary, PresentsNoOtherTaskType) {
  EXPECT_THROW(library.TitleOfWrapperType(51), RuntimeFault);
  EXPECT_THROW(library.SummaryOfWrapperType(51), RuntimeFault);
}

const KeyPath kTasks{kHkeyLocalMachine, "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches"};
constexpr std::string_view kActions = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1\\Action\\";

class ActionEntries : public OwnHostLibrary {
 protected:
  void Set(std::string_view key, std::string_view name, std::string_view text) {
    registry.SetText(std::string(kActions) + std::string(key), name, text);
  }
  std::vector<ActionType> Types() {
    std::vector<ActionType> types;
    for (const ActionEntry& entry : library.ActionEntries(kTasks, "T1")) {
      types.push_back(entry.type);
    }
    return types;
  }
};

TEST_F(ActionEntries, ComeInTheOrderOfTheirTypesWhateverTheRegistrysOrder) {
  for (const char* key : {"Goto", "ExeIf", "OnDec", "OnErr"}) Set(key, "Go", "1");
  EXPECT_THAT(Types(), ElementsAre(ActionType::kOnError, ActionType::kOnDecision,
                                   ActionType::kConditional, ActionType::kJump));
}

TEST_F(ActionEntries, AreThoseThatTheTaskHas) {
  EXPECT_THAT(Types(), IsEmpty());
  Set("Goto", "Dest", "T9");
  EXPECT_THAT(Types(), ElementsAre(ActionType::kJump));
  Set("OnDec", "", "");
  EXPECT_THAT(Types(), ElementsAre(ActionType::kOnDecision, ActionType::kJump));
}

TEST_F(ActionEntries, LeaveTheCurrentLocationAlone) {
  Set("Goto", "Dest", "T9");
  const KeyPath elsewhere{kHkeyCurrentUser, "Elsewhere"};
  module().location = elsewhere;
  EXPECT_THAT(Types(), ElementsAre(ActionType::kJump));
  EXPECT_EQ(module().location.root, elsewhere.root);
  EXPECT_EQ(module().location.path, elsewhere.path);
}

TEST_F(ActionEntries, AreFoundWithoutRegardToCase) {
  Set("ONERR", "VARIABLE", "V");
  Set("onerr", "valeur", "7");
  const std::vector<ActionEntry> entries = library.ActionEntries(kTasks, "t1");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].type, ActionType::kOnError);
  EXPECT_EQ(entries[0].variable, "V");
  EXPECT_EQ(entries[0].value, "7");
}

TEST_F(ActionEntries, LeaveOutKeysThatAreNoActionsAndThoseOfOtherTasks) {
  Set("OnError", "Go", "1");
  Set("ExeIf\\OnErr", "Go", "1");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T2\\Action\\Goto", "Dest", "T9");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S2\\Taches\\T1\\Action\\Goto", "Dest", "T9");
  EXPECT_THAT(Types(), ElementsAre(ActionType::kConditional));
}

TEST_F(ActionEntries, HaveAnEmptyAssignmentWhereNoneIsStored) {
  Set("ExeIf", "Variable", "V");
  Set("Goto", "Valeur", "7");
  EXPECT_THAT(
      library.ActionEntries(kTasks, "T1"),
      ElementsAre(AllOf(Field(&ActionEntry::variable, "V"), Field(&ActionEntry::value, "")),
                  AllOf(Field(&ActionEntry::variable, ""), Field(&ActionEntry::value, "7"))));
}

TEST_F(OwnHostLibrary, ServesNothingBeforeItHasAComponent) {
  StandaloneHostLibrary unattached;
  EXPECT_THROW(unattached.CreateReportWriter(), RuntimeFault);
  EXPECT_THROW(unattached.Variable({}, "S1", "A"), RuntimeFault);
  EXPECT_THROW(unattached.ReferenceNames({}, "S1", ReferenceKind::kVariable), RuntimeFault);
  EXPECT_THROW(unattached.ActionEntries(kTasks, "T1"), RuntimeFault);
  EXPECT_THROW(unattached.TitleOfWrapperType(kWrapperType), RuntimeFault);
  EXPECT_THROW(unattached.SummaryOfWrapperType(kWrapperType), RuntimeFault);
}

}  // namespace
}  // namespace imptable
