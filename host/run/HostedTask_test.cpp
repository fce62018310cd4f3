// What a task object tells about itself when the stand-alone host serves it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plugin/ImpTable.h"
#include "plugin/testing/HostedComponent.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kTask = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1";

class HostedTask : public testing::Test, protected HostedComponent {
 protected:
  HostedTask() { Initialize(kFrenchOffset); }

  void Initialize(std::int32_t language) { task.InitializeProperties("T1", "S1", language); }

  ImpTable task{state, nullptr};
};

TEST_F(HostedTask, HasItsTitleInBothLanguages) {
  EXPECT_EQ(task.GetTitle(), "Importation Table");
  Initialize(kEnglishOffset);
  EXPECT_EQ(task.GetTitle(), "Import Table");
}

TEST_F(HostedTask, HasItsSummaryInBothLanguages) {
  EXPECT_EQ(task.GetSummary(),
            "Importe un fichier texte dans une table d'une source de données ODBC.");
  task.SetLanguage(kEnglishOffset);
  EXPECT_EQ(task.GetSummary(), "Imports a text file into a table of an ODBC data source.");
}

TEST_F(HostedTask, HasAPictureATypeAndNoTrigger) {
  EXPECT_EQ(task.GetPicture(), "WRAPPER_PICTURE");
  EXPECT_EQ(task.GetWrapperType(), kWrapperType);
  EXPECT_FALSE(task.IsTrigger());
  EXPECT_FALSE(task.IsActionSupported(1));
  for (const std::int32_t action : {0, 2, 3}) EXPECT_TRUE(task.IsActionSupported(action)) << action;
}

TEST_F(HostedTask, HasTheStatusThatItsKeyHoldsOnceItIsDescribed) {
  registry.SetNumber(kTask, "Etat", 3);
  task.GetTaskDescription();
  EXPECT_EQ(task.GetStatus(), 3);
}

TEST_F(HostedTask, IsDescribedUnderItsTitleAndWithItsSettings) {
  registry.SetText(kTask, "Base Cible", "compta");
  EXPECT_THAT(task.GetTaskDescription(), StartsWith("<table class=\"t\"><tr><td class=\"k\">T1</td>"
                                                    "<td class=\"n\">Importation Table</td></tr>"));
  EXPECT_THAT(task.GetTaskDescription(),
              HasSubstr("<td class=\"i\">Source ODBC</td><td class=\"j\">compta</td>"));
}

TEST_F(HostedTask, TellsItsActionsFromItsOwnKeys) {
  task.GetTaskDescription();  // sets the location that actions are read at
  EXPECT_EQ(task.GetActions(), "");
  registry.SetText(std::string(kTask) + "\\Action\\EXEIF", "Variable", "V");
  registry.SetText(std::string(kTask) + "\\Action\\EXEIF", "Valeur", "7");
  registry.SetText(std::string(kTask) + "\\Action\\OnDec", "Loop", "1");
  EXPECT_EQ(task.GetActions(),
            "[OnDec]#Continuez le scénario : Faux\r\n    Auto-Relance : Vrai#[ExeIf]#@V = 7#");
}

/// The display object of a host, with a form that keeps what is put on it.
class FormDisplay : public HostDisplay, private HostForm {
 public:
  HostForm* wForm() override { return this; }

 private:
  std::string Text() const override { return text_; }
  void SetText(const std::string& text) override { text_ = text; }
  std::int32_t Tag() const override { return tag_; }
  void SetTag(std::int32_t tag) override { tag_ = tag; }

  std::string text_;
  std::int32_t tag_ = 0;
};

TEST_F(HostedTask, ReportsARunThroughTheHostsWriterOntoItsDisplay) {
  FormDisplay display;
  registry.SetText(kTask, "Base Cible", "there is no such source");
  registry.SetText(kTask, "Alias", "NONE");
  registry.SetText(kTask, "Dir", folder.path());
  task.SetReportFilePath(folder.path() + "report.txt");
  task.Bouton = &display;
  task.Run(1);
  const std::string report = folder.Read("report.txt");
  EXPECT_THAT(report, StartsWith("04/03/2026 05:06:07 "));
  EXPECT_THAT(display.wForm()->Text(), HasSubstr("04/03/2026 05:06:07 "));
  EXPECT_FALSE(library.report_failed());
}

TEST_F(HostedTask, ReadsAReferenceInItsSettingsFromTheScenariosVariables) {
  registry.SetText(kTask, "Base Cible", "@NAME");
  registry.SetText(kTask, "Dir", folder.path());
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "name", "no such source");
  task.SetReportFilePath(folder.path() + "report.txt");
  task.Run(1);
  EXPECT_EQ(registry.Text(kTask, "Base Cible"), "@NAME");
  EXPECT_THAT(folder.Read("report.txt"), HasSubstr("Source de Données : no such source\r\n"));
}

}  // namespace
}  // namespace imptable
