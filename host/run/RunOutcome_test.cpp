#include "host/run/RunOutcome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "host/run/RunSummary.h"
#include "platform/testing/PlainEncodings.h"

namespace imptable {
namespace {

using testing::HasSubstr;
using testing::Not;

RunOutcome Ended(RunEnding ending, RunStatus status) {
  RunOutcome outcome;
  outcome.scenario = "S";
  outcome.task = "T";
  outcome.ending = ending;
  outcome.status = status;
  outcome.report = "T.txt";
  outcome.data_source = "db";
  outcome.side_files = "/data/CLIENTS";
  outcome.set_trace_command = "imptable set S T RecTrace=1";
  outcome.resume_command = "imptable run S T --resume";
  return outcome;
}

class OutcomeOfARun : public testing::Test {
 protected:
  std::string Line(const RunOutcome& outcome) {
    return ErrorLineOf(outcome, english).value_or("<none>");
  }

  Utf8TextEncoding encoding;
  HostTexts english{Language::kEnglish, encoding};
};

struct EndingCase {
  const char* what;
  RunStatus status;
  bool connected;
  bool fault;
  bool deletion_failed;
  std::int64_t errors;
  bool interrupted;
  RunEnding ending;
};

TEST(RunEnding, FollowsFromTheStateOfTheRun) {
  constexpr RunStatus kFailed = RunStatus::kFailed;
  const EndingCase cases[] = {
      {"done", RunStatus::kSucceeded, true, false, false, 0, false, RunEnding::kDone},
      {"stopped", RunStatus::kRunning, true, true, false, 0, false, RunEnding::kStopped},
      {"never begun", RunStatus::kNone, false, false, false, 0, false, RunEnding::kStopped},
      {"refused", kFailed, false, false, false, 0, false, RunEnding::kNoConnection},
      {"at the limit", kFailed, true, false, false, 100, false, RunEnding::kRejected},
      {"over the limit", kFailed, true, false, false, 101, false, RunEnding::kErrorLimit},
      {"mode faulted", kFailed, true, true, true, 3, false, RunEnding::kModeFaulted},
      {"deletion", kFailed, true, false, true, 0, false, RunEnding::kDeletionFailed},
      {"diagnostics only", kFailed, true, false, false, 0, false, RunEnding::kErrors},
      {"interrupted", kFailed, true, false, false, 3, true, RunEnding::kInterrupted},
  };
  for (const EndingCase& given : cases) {
    RunState run;
    run.most_errors = 100;
    run.status = given.status;
    if (given.fault) run.fault = RuntimeFault(FaultNumber::kDiskFull);
    run.pre_deletion_failed = given.deletion_failed;
    run.progress.lines[Outcome::kRejected] = given.errors;
    run.interrupted = given.interrupted;
    EXPECT_EQ(EndingOf(run, given.connected), given.ending) << given.what;
  }
}

TEST_F(OutcomeOfARun, IsCode0WithoutAWordWhenTheRunSucceeded) {
  const RunOutcome outcome = Ended(RunEnding::kDone, RunStatus::kSucceeded);
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kDone);
  EXPECT_EQ(ErrorLineOf(outcome, english), std::nullopt);
}

TEST_F(OutcomeOfARun, IsCode1AndNamesTheFilesOfRejectedLines) {
  RunOutcome outcome = Ended(RunEnding::kRejected, RunStatus::kFailed);
  outcome.progress.lines[Outcome::kRejected] = 1200;
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kRunFailed);
  EXPECT_EQ(Line(outcome),
            "task \"T\": 1,200 line(s) rejected, see /data/CLIENTS.ERR: mend them in a file of "
            "their own and import that alone, the others are done (RecErreurs=0)");
  outcome.next = NextStep::kResume;
  EXPECT_EQ(Line(outcome),
            "task \"T\": 1,200 line(s) rejected, see /data/CLIENTS.ERR: mend /data/CLIENTS.LER, "
            "then run again with --resume");
}

TEST_F(OutcomeOfARun, IsCode1AndNamesTheCauseOfEveryOtherFailure) {
  RunOutcome outcome = Ended(RunEnding::kNoConnection, RunStatus::kFailed);
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kRunFailed);
  EXPECT_THAT(Line(outcome), HasSubstr("no connection to \"db\", see the report T.txt"));
  outcome.ending = RunEnding::kDeletionFailed;
  EXPECT_THAT(Line(outcome), HasSubstr("deletion before the import failed, see the report T.txt"));
  outcome.ending = RunEnding::kModeFaulted;
  outcome.fault = "Disk full";
  EXPECT_EQ(Line(outcome), "task \"T\": Disk full: see the report T.txt");
  outcome.next = NextStep::kResume;
  EXPECT_EQ(Line(outcome),
            "task \"T\": Disk full: see the report T.txt, then run again with --resume");
  outcome.next = NextStep::kTraceThenResume;
  EXPECT_EQ(Line(outcome),
            "task \"T\": Disk full: see the report T.txt; to go on from there: imptable set S T "
            "RecTrace=1, then imptable run S T --resume");
  outcome.ending = RunEnding::kErrors;
  EXPECT_THAT(Line(outcome), Not(HasSubstr(".ERR")));
  outcome.has_error_file = true;
  EXPECT_THAT(Line(outcome), HasSubstr("see /data/CLIENTS.ERR and the report T.txt"));
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kRunFailed);
}

TEST_F(OutcomeOfARun, IsCode4WhenAnUnexpectedFaultStoppedTheRun) {
  RunOutcome outcome = Ended(RunEnding::kStopped, RunStatus::kRunning);
  outcome.fault = "Type mismatch : \"Erreurs\" = \"x\"";
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kFault);
  EXPECT_THAT(Line(outcome), HasSubstr("Type mismatch : \"Erreurs\" = \"x\""));
  outcome.fault.clear();
  EXPECT_THAT(Line(outcome), HasSubstr("unknown cause"));
}

TEST_F(OutcomeOfARun, IsCode4WhenTheReportOrTheRegistryCouldNotBeWritten) {
  RunOutcome outcome = Ended(RunEnding::kDone, RunStatus::kSucceeded);
  outcome.registry_failure = "registry file \"r.db\" is locked";
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kFault);
  EXPECT_THAT(Line(outcome), HasSubstr("registry file \"r.db\" is locked"));
  outcome.report_failed = true;
  EXPECT_THAT(Line(outcome), HasSubstr("report T.txt"));
  outcome.registry_failure.reset();
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kFault);
}

TEST_F(OutcomeOfARun, NamesItsCauseEvenWhenTheReportAndTheRegistryLackIt) {
  RunOutcome outcome = Ended(RunEnding::kModeFaulted, RunStatus::kFailed);
  outcome.fault = "Too many open files : /data/CLIENTS.TRC";
  outcome.report_failed = true;
  outcome.registry_failure = "registry file \"r.db\" can't be used";
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kFault);
  EXPECT_EQ(Line(outcome),
            "task \"T\": Too many open files : /data/CLIENTS.TRC: see the report T.txt; report "
            "T.txt: lines are missing from it, writing failed: check the room and the rights; task "
            "\"T\": its status couldn't be written to the registry: registry file \"r.db\" can't "
            "be used");
}

TEST_F(OutcomeOfARun, IsCode130WhenInterruptedAndSaysHowToGoOn) {
  RunOutcome outcome = Ended(RunEnding::kInterrupted, RunStatus::kFailed);
  outcome.progress.read = 7;
  outcome.next = NextStep::kResume;
  outcome.report_failed = true;
  EXPECT_EQ(ExitCodeOf(outcome), ExitCode::kInterrupted);
  EXPECT_EQ(Line(outcome),
            "task \"T\": interrupted after 7 line(s): run again with --resume to go on from there");
  outcome.next = NextStep::kTraceThenResume;
  EXPECT_EQ(Line(outcome),
            "task \"T\": interrupted after 7 line(s), none rejected: to go on from there: imptable "
            "set S T RecTrace=1, then imptable run S T --resume");
  outcome.next = NextStep::kAfresh;
  EXPECT_THAT(Line(outcome), HasSubstr("before its first line: run it again"));
  outcome.next = NextStep::kNone;
  EXPECT_THAT(Line(outcome), HasSubstr("take the lines that are done out of the data file"));
}

TEST_F(OutcomeOfARun, IsSummedUpInAFewLines) {
  RunOutcome outcome = Ended(RunEnding::kRejected, RunStatus::kFailed);
  outcome.progress = {.read = 1000,
                      .lines = {{Outcome::kInserted, 700},
                                {Outcome::kModified, 200},
                                {Outcome::kDeleted, 50},
                                {Outcome::kRejected, 30},
                                {Outcome::kIgnored, 15},
                                {Outcome::kSkipped, 5}}};
  outcome.seconds = 2.34;
  outcome.has_error_file = true;
  outcome.has_rejected_file = true;
  outcome.next = NextStep::kResume;
  EXPECT_EQ(SummaryText(outcome, english, false),
            "Finished with rejected lines: scenario S, task T\n"
            "  read      1,000\n"
            "  written   700 inserted, 200 modified, 50 deleted\n"
            "  left out  30 rejected, 15 ignored, 5 skipped (done before)\n"
            "  time      2.3 s\n"
            "  report    T.txt\n"
            "  reasons   /data/CLIENTS.ERR\n"
            "  rejects   /data/CLIENTS.LER\n"
            "  Mend the lines in the .LER file, then run again with --resume.\n");
  EXPECT_THAT(SummaryText(outcome, HostTexts(Language::kFrench, encoding), false),
              HasSubstr("Terminé avec des lignes rejetées : scénario S, tâche T\n"));
}

TEST_F(OutcomeOfARun, IsSummedUpWithoutSideFilesWhenNothingWasRejected) {
  const std::string summary =
      SummaryText(Ended(RunEnding::kDone, RunStatus::kSucceeded), english, false);
  EXPECT_THAT(summary, HasSubstr("Done: scenario S, task T\n"));
  EXPECT_THAT(summary, Not(HasSubstr("CLIENTS")));
}

TEST_F(OutcomeOfARun, IsColouredOnlyWhenAsked) {
  RunOutcome outcome = Ended(RunEnding::kDone, RunStatus::kSucceeded);
  EXPECT_THAT(SummaryText(outcome, english, true), HasSubstr("\x1b[32mDone\x1b[0m: "));
  EXPECT_THAT(SummaryText(outcome, english, false), Not(HasSubstr("\x1b")));
  outcome.ending = RunEnding::kStopped;
  EXPECT_THAT(SummaryText(outcome, english, true), HasSubstr("\x1b[31m"));
}

TEST_F(OutcomeOfARun, IsOneJsonObjectForScripts) {
  RunOutcome outcome = Ended(RunEnding::kRejected, RunStatus::kFailed);
  outcome.progress = {.read = 7,
                      .lines = {{Outcome::kInserted, 1},
                                {Outcome::kModified, 2},
                                {Outcome::kDeleted, 3},
                                {Outcome::kRejected, 4},
                                {Outcome::kIgnored, 5},
                                {Outcome::kSkipped, 6}}};
  outcome.progress.lines[Outcome::kUnmatched] = 8;
  outcome.progress.deleted_before = 9;
  outcome.seconds = 1.23456;
  outcome.source_path = "/data/CLIENTS.CSV";
  outcome.source_state = SourceState::kPresent;
  outcome.table = "CLIENT";
  outcome.mode = ImportMode::kUpdateInsert;
  outcome.started = 1163579400;
  outcome.ended = 1163579401;
  outcome.resumed = true;
  outcome.next = NextStep::kResume;
  outcome.files = {"/data/CLIENTS.ERR", "/data/CLIENTS.LER"};
  outcome.warnings = {"\"Mode\""};
  EXPECT_EQ(
      SummaryJson(outcome, english),
      "{\"scenario\":\"S\",\"task\":\"T\",\"status\":3,\"read\":7,\"inserted\":1,"
      "\"modified\":2,\"deleted\":3,\"errors\":4,\"ignored\":5,\"skipped\":6,"
      "\"seconds\":1.235,\"report\":\"T.txt\",\"code\":1,\"resumed\":true,"
      "\"file\":{\"path\":\"/data/CLIENTS.CSV\",\"state\":\"read\"},\"table\":\"CLIENT\","
      "\"mode\":\"UPDATE/INSERT\",\"started\":\"2006-11-15T08:30:00Z\","
      "\"ended\":\"2006-11-15T08:30:01Z\",\"ended_by\":\"end\","
      "\"message\":\"task \\\"T\\\": 4 line(s) rejected, see /data/CLIENTS.ERR: mend "
      "/data/CLIENTS.LER, then run again with --resume\",\"before\":9,\"unmatched\":8,"
      "\"files\":[\"/data/CLIENTS.ERR\",\"/data/CLIENTS.LER\"],\"warnings\":[\"\\\"Mode\\\"\"]}\n");
}

TEST_F(OutcomeOfARun, IsJsonInUtf8WhateverTheNamesHold) {
  RunOutcome outcome = Ended(RunEnding::kDone, RunStatus::kSucceeded);
  outcome.task = "\xE9t\xE9\"\n";
  const Latin1TextEncoding latin1;
  const HostTexts in_latin1(Language::kFrench, latin1);
  EXPECT_EQ(nlohmann::json::parse(SummaryJson(outcome, in_latin1))["task"], "été\"\n");
  EXPECT_NO_THROW(SummaryJson(outcome, english));
}

TEST_F(OutcomeOfARun, SaysInJsonHowItEndedAndWhatItFound) {
  struct Case {
    RunEnding ending;
    const char* ended_by;
  };
  RunOutcome outcome;
  outcome.source_path = "/data/CLIENTS.CSV";
  for (const Case& each :
       {Case{RunEnding::kDone, "end"}, Case{RunEnding::kRejected, "end"},
        Case{RunEnding::kErrorLimit, "limit"}, Case{RunEnding::kInterrupted, "interruption"},
        Case{RunEnding::kNoConnection, "fault"}, Case{RunEnding::kStopped, "fault"},
        Case{RunEnding::kModeFaulted, "fault"}, Case{RunEnding::kDeletionFailed, "fault"}}) {
    outcome.ending = each.ending;
    const auto object = nlohmann::json::parse(SummaryJson(outcome, english));
    EXPECT_EQ(object["ended_by"], each.ended_by);
    EXPECT_EQ(object["message"].is_null(), each.ending == RunEnding::kDone);
    EXPECT_TRUE(object["file"]["state"].is_null());
  }
  outcome.progress.deleted_before.reset();
  outcome.source_state = SourceState::kMissing;
  auto object = nlohmann::json::parse(SummaryJson(outcome, english));
  EXPECT_TRUE(object["before"].is_null());
  EXPECT_EQ(object["file"]["state"], "missing");
  outcome.source_state = SourceState::kEmpty;
  object = nlohmann::json::parse(SummaryJson(outcome, english));
  EXPECT_EQ(object["file"]["state"], "empty");
}

}  // namespace
}  // namespace imptable
