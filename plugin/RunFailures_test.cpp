#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/kit/ImportRun.h"
#include "tests/kit/SideFileLines.h"
#include "tests/kit/TextFile.h"

namespace imptable {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class RunFailures : public testing::Test {
 protected:
  RunFailures() { run_.Source({"1;a", "2;b"}); }

  std::optional<RuntimeFault>& fault() { return run_.component.module().run.fault; }

  /// Expects that Complete was raised once, last, and that neither the timer nor a connection is
  /// left.
  void ExpectOneEnd() {
    EXPECT_EQ(std::count(run_.events.raised.begin(), run_.events.raised.end(), "Complete"), 1);
    ASSERT_FALSE(run_.events.raised.empty());
    EXPECT_EQ(run_.events.raised.back(), "Complete");
    EXPECT_THAT(run_.component.message_loop.armed(), IsEmpty());
    EXPECT_FALSE(run_.component.session().connection);
    EXPECT_THAT(run_.source.LogLines("SQLDisconnect"),
                SizeIs(run_.source.LogLines("SQLDriverConnect").size()));
  }

  std::int32_t Status() {
    return run_.component.registry.Number(ImportRun::kTaskPath, "Etat").value_or(-1);
  }

  ImportRun run_;
};

TEST_F(RunFailures, AConnectionThatIsRefusedEndsWithStatus3) {
  run_.Driver("on SQLDriverConnect return -1 diag 28000 1017 \"invalid password\"");
  run_.folder.Write("CLIENTS.ERR", "old\n");
  EXPECT_EQ(run_.Go(), 3);
  ASSERT_THAT(run_.Report(), SizeIs(4));
  EXPECT_EQ(run_.Report()[0], " --> Exécution du Traitement : T1");
  EXPECT_EQ(run_.Report()[1], " ... Connexion à la Source de Données : " + run_.source.name());
  EXPECT_THAT(run_.Report()[2], HasSubstr("invalid password"));
  EXPECT_EQ(run_.component.host.lines[3],
            (WrittenLine{" ARRET DE LA PROCEDURE : CONNEXION A LA SOURCE IMPOSSIBLE",
                         ReportKind::kError, nullptr}));
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Complete"));
  EXPECT_EQ(run_.folder.Read("CLIENTS.ERR"), "old\n") << "nothing is touched";
  EXPECT_EQ(run_.component.registry.Text(ImportRun::kTaskPath, "ExecuteLe"), std::nullopt);
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), IsEmpty());
  EXPECT_THAT(run_.component.message_loop.armed(), IsEmpty());
}

TEST_F(RunFailures, AConnectionThatIsRefusedIsToldInEnglishToo) {
  run_.component.registry.SetNumber("SOFTWARE\\KALDO\\Configuration", "Lang", 10000);
  run_.Driver("on SQLDriverConnect return -1 diag 28000 1017 \"invalid password\"");
  run_.Go();
  EXPECT_EQ(run_.Report().back(), " PROCEDURE HALTED: UNABLE TO CONNECT TO SOURCE");
}

TEST_F(RunFailures, ASettingThatIsNoNumberEndsBeforeTheFirstLineWithStatus1) {
  run_.Set("Mode", "insert");
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_THAT(run_.Report(), IsEmpty());
  EXPECT_THAT(run_.events.raised, ElementsAre("Complete"));
  EXPECT_EQ(fault()->number(), FaultNumber::kTypeMismatch);
  EXPECT_EQ(fault()->detail(), "\"Mode\" = \"insert\"");
  ExpectOneEnd();
}

TEST_F(RunFailures, AnErrorLimitThatIsNoNumberEndsBeforeTheFirstLineWithStatus1) {
  run_.Set("Erreurs", "many");
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_THAT(run_.Report(), IsEmpty());
  EXPECT_THAT(run_.events.raised, ElementsAre("Complete"));
}

TEST_F(RunFailures, ARunThatStopsBeforeConnectingDoesNotCloseTheConnectionOfTheOneBefore) {
  EXPECT_EQ(run_.Go(), 2);
  run_.Set("Mode", "insert");
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_THAT(run_.source.LogLines("SQLDisconnect"), IsEmpty());
}

TEST_F(RunFailures, AFaultLeavesNoTraceInTheNextRun) {
  run_.Set("Mode", "insert");
  run_.Go();
  ASSERT_TRUE(fault());
  run_.Set("Mode", 0);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_FALSE(fault());
}

TEST_F(RunFailures, AReportThatFailsAtAnyLineEndsTheRunWithTheStatusReached) {
  run_.Go();
  const int lines = static_cast<int>(run_.component.host.lines.size());
  ASSERT_EQ(lines, 8);
  for (int line = 1; line <= lines; ++line) {
    run_.component.host.failing_write = line;
    run_.events.raised.clear();
    const std::size_t writes = run_.component.registry.writes().size();
    EXPECT_EQ(run_.Go(), 1) << line;
    EXPECT_THAT(run_.Report(), SizeIs(line - 1)) << line;
    EXPECT_THAT(run_.source.LogLines("SQLDriverConnect"), SizeIs(line > 2 ? 1 : 0)) << line;
    ExpectOneEnd();
    // Only "Etat" is written, before and after. The time of the end belongs to a run that came to
    // it.
    EXPECT_EQ(run_.component.registry.writes().size(), writes + 2) << line;
    ASSERT_TRUE(fault()) << line;
    EXPECT_EQ(fault()->number(), FaultNumber::kNoHostObject);
  }
}

TEST_F(RunFailures, ARegistryThatCannotBeReadAtAnyPointEndsTheRun) {
  run_.component.registry.ForgetReads();
  run_.Go();
  const int reads = static_cast<int>(run_.component.registry.reads().size());
  // The language before the run, and the status after it, are read outside it.
  for (int read = 2; read <= reads - 1; ++read) {
    run_.component.registry.FailReadsFrom(read);
    run_.events.raised.clear();
    EXPECT_THROW(run_.Go(), RuntimeFault) << "the status can't be read either";
    // The import catches its own faults, and the run goes on to its end.
    const std::vector<std::string> report = run_.Report();
    const bool import_began = std::count(report.begin(), report.end(), " -->   Mode INSERT") > 0;
    EXPECT_EQ(Status(), import_began ? 3 : 1) << read;
    EXPECT_EQ(fault()->number(), FaultNumber::kDeviceError) << read;
    ExpectOneEnd();
  }
}

TEST_F(RunFailures, ARegistryThatCannotBeWrittenIsPassedOver) {
  run_.component.registry.FailWrites(kRegistryAccessDenied);
  run_.Go();
  EXPECT_THAT(run_.Executed(), SizeIs(2));
  EXPECT_THAT(run_.Report(), Contains(" --------------- PROCEDURE TERMINEE ---------------"));
  EXPECT_EQ(run_.component.registry.Number(ImportRun::kTaskPath, "Etat"), std::nullopt);
  ExpectOneEnd();
}

TEST_F(RunFailures, ARegistryThatIsFreeAgainAtTheEndHasTheStatus) {
  run_.component.registry.FailWrites(kRegistryAccessDenied);
  run_.events.listener = [&](const std::string&) {
    run_.component.registry.FailWrites(kRegistryOk);
  };
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_TRUE(run_.component.module().run.status_stored);
  run_.events.listener = nullptr;
  run_.component.registry.FailWrites(kRegistryAccessDenied);
  run_.Go();
  EXPECT_FALSE(run_.component.module().run.status_stored);
}

TEST_F(RunFailures, AProgressEventThatFailsEndsTheRun) {
  for (std::size_t nth = 1; nth <= 3; ++nth) {
    run_.events.raised.clear();
    run_.events.listener = [&](const std::string&) {
      if (run_.events.raised.size() == nth) throw RuntimeFault(FaultNumber::kNoHostObject);
    };
    EXPECT_EQ(run_.Go(), 1) << nth;
    EXPECT_THAT(run_.source.LogLines("SQLExecute"), IsEmpty());
    ExpectOneEnd();
  }
}

TEST_F(RunFailures, AFailureOfUnknownKindEndsTheRunToo) {
  run_.events.listener = [](const std::string& event) {
    if (event == "Progress") throw std::runtime_error("what happened");
  };
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_EQ(fault()->number(), FaultNumber::kDeviceError);
  EXPECT_EQ(fault()->detail(), "what happened");
  run_.events.raised.clear();
  run_.events.listener = [](const std::string& event) {
    if (event == "Progress") throw std::bad_alloc();
  };
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_EQ(fault()->number(), FaultNumber::kOutOfMemory);
  ExpectOneEnd();
}

TEST_F(RunFailures, ADataFileThatCannotBeReachedIsNotTakenForAMissingOne) {
  run_.Set("Alias", "NONE");
  run_.component.files.Fail(FileOperation::kOpenRead, 1,
                            std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_EQ(fault()->number(), FaultNumber::kPermissionDenied);
  EXPECT_EQ(fault()->detail(), run_.folder.path() + "NONE.CSV");
  ExpectOneEnd();
}

TEST_F(RunFailures, ADataFileWhoseNameNoFileCanHaveIsNotTakenForAMissingOne) {
  run_.Set("Alias", std::string(300, 'A'));
  EXPECT_EQ(run_.Go(), 1);
  EXPECT_EQ(fault()->number(), FaultNumber::kBadFileName);
  EXPECT_EQ(fault()->detail(), run_.folder.path() + std::string(300, 'A') + ".CSV");
  ExpectOneEnd();
}

TEST_F(RunFailures, ATraceThatCannotBeDeletedAfterASuccessIsNotResumed) {
  run_.Set("RecTrace", 1);
  // The first five removals are at the start.
  run_.component.files.Fail(FileOperation::kRemove, 6,
                            std::make_error_code(std::errc::permission_denied));
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Trace(), IsEmpty()) << "emptied, as it stays";
  run_.Source({"3;c", "4;d"});
  EXPECT_EQ(run_.Go(kResumeRequest), 2);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='3' 2='c'", "1='4' 2='d'"));
}

TEST_F(RunFailures, ATraceThatCanNeitherBeDeletedNorEmptiedAfterASuccessIsDeclaredOver) {
  run_.Set("RecTrace", 1);
  const std::error_code denied = std::make_error_code(std::errc::permission_denied);
  run_.component.files.Fail(FileOperation::kRemove, 6, denied);
  run_.component.files.Fail(FileOperation::kOpenWrite, 6, denied);
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Trace(), SizeIs(2));
  EXPECT_EQ(run_.folder.Read("CLIENTS.REP"), "VOID" + std::string(SystemLineEnd()));
  run_.Source({"3;c", "4;d"});
  EXPECT_EQ(run_.Go(kResumeRequest), 2);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='3' 2='c'", "1='4' 2='d'"));
  EXPECT_THAT(run_.FileNames(), testing::Not(Contains(HasSubstr(".REP"))));
}

TEST_F(RunFailures, AChainThatCannotBeDeclaredOverAfterASuccessIsDeletedAllTheSame) {
  run_.Set("RecTrace", 1);
  run_.folder.Write("CLIENTS.TRC", TextFile({Done(1)}));
  // The first flush is of the chain's file, at the start.
  run_.component.files.Fail(FileOperation::kFlush, 2, std::make_error_code(std::errc::io_error));
  EXPECT_EQ(run_.Go(kResumeRequest), 2);
  EXPECT_THAT(run_.Executed(), ElementsAre("1='2' 2='b'"));
  EXPECT_THAT(run_.FileNames(), testing::Not(Contains(HasSubstr(".REP"))));
  EXPECT_THAT(run_.Trace(), ElementsAre("<none>"));
  run_.Source({"3;c", "4;d"});
  EXPECT_EQ(run_.Go(kResumeRequest), 2);
  EXPECT_THAT(run_.Executed(), SizeIs(2));
}

TEST_F(RunFailures, AFaultWithinTheImportLetsTheRunGoOnToItsEnd) {
  run_.component.files.Fail(FileOperation::kRead, 1, std::make_error_code(std::errc::io_error));
  EXPECT_EQ(run_.Go(), 3);
  EXPECT_EQ(run_.Report().back(), " --------------- PROCEDURE TERMINEE ---------------");
  EXPECT_TRUE(run_.component.registry.Text(ImportRun::kTaskPath, "ExecuteLe"));
  EXPECT_EQ(fault()->number(), FaultNumber::kDeviceError);
  ExpectOneEnd();
}

TEST_F(RunFailures, ADisconnectThatFailsStillEndsWithComplete) {
  run_.Driver("on SQLDisconnect return -1 diag 25000 1 \"transaction open\"");
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.Report(), Contains("Erreur Déconnexion  (SQLDisconnect)"));
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
}

TEST_F(RunFailures, AReportThatFailsWhileDisconnectingStillEndsWithComplete) {
  run_.Driver("on SQLDisconnect return -1 diag 25000 1 \"transaction open\"");
  run_.component.host.failing_write = 9;
  EXPECT_EQ(run_.Go(), 2);
  EXPECT_THAT(run_.events.raised, ElementsAre("Progress", "Progress", "Progress", "Complete"));
}

/// A host that fails at one of its services.
class FailingHost : public TestHost {
 public:
  std::unique_ptr<ReportWriter> CreateReportWriter() override {
    if (makes_no_writer) return nullptr;
    return std::make_unique<Writer>(*this);
  }
  std::optional<std::string> Variable(const KeyPath&, const std::string&,
                                      const std::string&) override {
    throw RuntimeFault(FaultNumber::kNoHostObject, "Variable");
  }

  bool makes_no_writer = false;
  bool refuses_scenario = false;
  bool refuses_path = false;

 private:
  class Writer : public ReportWriter {
   public:
    explicit Writer(FailingHost& host) : host_(host) {}
    void SetScenario(const std::string&) override { FailIf(host_.refuses_scenario); }
    void SetReportPath(const std::string&) override { FailIf(host_.refuses_path); }
    void WriteLine(const std::string& text, HostDisplay* display, ReportKind kind) override {
      host_.lines.push_back({text, kind, display});
    }

   private:
    static void FailIf(bool refused) {
      if (refused) throw RuntimeFault(FaultNumber::kNoHostObject, "ReportWriter");
    }
    FailingHost& host_;
  };
};

class HostFailures : public testing::Test {
 protected:
  HostFailures() { component_.registry.SetText(ImportRun::kTaskPath, "Table", "@T"); }

  void Run() {
    ImpTable task(state_, &events_);
    task.InitializeProperties("T1", "S1", 0);
    task.Run(1);
  }

  TestComponent component_;
  FailingHost host_;
  ModuleState state_{component_.module().platform, host_};
  RecordingEvents events_;
};

TEST_F(HostFailures, AVariableThatCannotBeLookedUpEndsTheRunBeforeItsFirstLine) {
  Run();
  EXPECT_THAT(component_.registry.writes(),
              ElementsAre(HasSubstr("|Etat=1"), HasSubstr("|Etat=1")));
  EXPECT_THAT(host_.lines, IsEmpty());
  EXPECT_THAT(events_.raised, ElementsAre("Complete"));
  EXPECT_EQ(state_.commun.run.fault->detail(), "Variable");
}

TEST_F(HostFailures, AReportWriterThatIsMissingOrRefusesEndsTheRunBeforeItsFirstLine) {
  for (bool FailingHost::*way : {&FailingHost::makes_no_writer, &FailingHost::refuses_scenario,
                                 &FailingHost::refuses_path}) {
    host_.*way = true;
    events_.raised.clear();
    Run();
    EXPECT_THAT(host_.lines, IsEmpty());
    EXPECT_THAT(events_.raised, ElementsAre("Complete"));
    EXPECT_EQ(state_.commun.run.fault->number(), FaultNumber::kNoHostObject);
    EXPECT_THAT(component_.message_loop.armed(), IsEmpty());
    host_.*way = false;
  }
}

}  // namespace
}  // namespace imptable
