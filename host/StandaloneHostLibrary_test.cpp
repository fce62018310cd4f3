#include "host/StandaloneHostLibrary.h"

#include <gtest/gtest.h>

#include "host/LiveDisplay.h"
#include "platform/ProfileFile_linux.h"
#include "platform/testing/FaultyFileSystem.h"
#include "platform/testing/ManualClock.h"
#include "platform/testing/ManualMessageLoop.h"
#include "platform/testing/MemoryRegistry.h"
#include "platform/testing/PlainEncodings.h"
#include "platform/testing/RecordingWarningBox.h"
#include "platform/testing/TemporaryFolder.h"
#include "plugin/ImpTable.h"

namespace imptable {
namespace {

class NoPointer : public MousePointer {
 public:
  void ShowHourglass() override {}
  void Reset() override {}
};

class StandaloneHostLibraryTest : public testing::Test {
 protected:
  StandaloneHostLibraryTest() { library.Attach(module); }

  std::string Variable(const std::string& name) { return library.Variable({}, "S1", name); }

  MemoryRegistry registry;
  ManualMessageLoop loop;
  ManualClock clock{{.year = 2026, .month = 3, .day = 4, .hour = 5, .minute = 6, .second = 7}};
  Utf8TextEncoding encoding;
  std::unique_ptr<FileSystem> system_files = SystemFileSystem();
  FaultyFileSystem files{*system_files};
  RecordingWarningBox warnings;
  NoPointer pointer;
  ProfileFileReader profile{files};
  StandaloneHostLibrary library;
  ModuleCommun module{Platform{registry, loop, clock, encoding, files, warnings, pointer, profile},
                      library};
  TemporaryFolder folder{testing::TempDir()};
};

TEST_F(StandaloneHostLibraryTest, FindsVariablesWithoutRegardToCase) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "Répertoire", "/data");
  EXPECT_EQ(Variable("RÉPERTOIRE"), "/data");
}

TEST_F(StandaloneHostLibraryTest, FindsAConstantWhenNoVariableHasTheName) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Constantes", "A", "constant");
  EXPECT_EQ(Variable("a"), "constant");
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "A", "variable");
  EXPECT_EQ(Variable("a"), "variable");
}

TEST_F(StandaloneHostLibraryTest, KnowsNoVariableOfAnotherScenarioOrType) {
  registry.SetText("SOFTWARE\\KALDO\\Scenarios\\S2\\Variables", "A", "other");
  registry.SetNumber("SOFTWARE\\KALDO\\Scenarios\\S1\\Variables", "N", 1);
  EXPECT_EQ(Variable("A"), "");
  EXPECT_EQ(Variable("N"), "");
}

TEST_F(StandaloneHostLibraryTest, WritesReportLinesInTheComponentsForm) {
  const auto writer = library.CreateReportWriter();
  LiveDisplay display;
  writer->SetScenario("S1");
  writer->SetReportPath(folder.path() + "report.txt");
  writer->WriteLine("first", &display, ReportKind::kHeading);
  writer->WriteLine("second", &display, ReportKind::kInformation);
  EXPECT_EQ(folder.Read("report.txt"),
            "04/03/2026 05:06:07 first\r\n04/03/2026 05:06:07 second\r\n");
  EXPECT_EQ(display.wForm()->Text(), "04/03/2026 05:06:07 second\n04/03/2026 05:06:07 first\n");
  EXPECT_EQ(display.wForm()->Tag(), 2);
  EXPECT_FALSE(library.report_failed());
}

TEST_F(StandaloneHostLibraryTest, RemembersThatALineDidNotReachTheReport) {
  const auto writer = library.CreateReportWriter();
  writer->SetReportPath(folder.path() + "report.txt");
  files.Fail(FileOperation::kWrite, 1, std::make_error_code(std::errc::no_space_on_device));
  writer->WriteLine("lost", nullptr, ReportKind::kInformation);
  writer->WriteLine("kept", nullptr, ReportKind::kInformation);
  EXPECT_TRUE(library.report_failed());
  EXPECT_EQ(folder.Read("report.txt"), "04/03/2026 05:06:07 kept\r\n");
}

TEST_F(StandaloneHostLibraryTest, PresentsTheTaskTypeInTheLanguageOfTheMoment) {
  EXPECT_EQ(library.TitleOfWrapperType(kWrapperType), "Importation Table");
  EXPECT_EQ(library.SummaryOfWrapperType(kWrapperType),
            "Importe un fichier texte dans une table d'une source de données ODBC.");
  module.language_offset = kEnglishOffset;
  EXPECT_EQ(library.TitleOfWrapperType(kWrapperType), "Import Table");
  EXPECT_EQ(library.SummaryOfWrapperType(kWrapperType),
            "Imports a text file into a table of an ODBC data source.");
}

TEST_F(StandaloneHostLibraryTest, PresentsNoOtherTaskType) {
  EXPECT_THROW(library.TitleOfWrapperType(51), RuntimeFault);
  EXPECT_THROW(library.SummaryOfWrapperType(51), RuntimeFault);
}

TEST_F(StandaloneHostLibraryTest, ServesNothingBeforeItHasAComponent) {
  StandaloneHostLibrary unattached;
  EXPECT_THROW(unattached.CreateReportWriter(), RuntimeFault);
  EXPECT_THROW(unattached.Variable({}, "S1", "A"), RuntimeFault);
}

}  // namespace
}  // namespace imptable
