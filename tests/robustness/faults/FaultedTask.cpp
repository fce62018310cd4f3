#include "tests/robustness/faults/FaultedTask.h"

#include <algorithm>

#include "import/ledger/ResumeCheck.h"

namespace imptable {
namespace {

/// Where the task's files are, in memory.
const std::string kStem = "/data/CLIENTS";
const std::string kReportPath = "/data/report.txt";

constexpr std::string_view kTaskPath = "SOFTWARE\\KALDO\\Scenarios\\S1\\Taches\\T1";

std::string WithLineFeeds(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

std::vector<std::string> LinesOf(std::string_view text, std::string_view line_end) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(line_end), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + line_end.size(), text.size()));
  }
  return lines;
}

}  // namespace

bool RunRecord::Says(std::string_view text) const {
  const auto names = [text](const std::string& line) { return line.find(text) != line.npos; };
  return std::any_of(report.begin(), report.end(), names) || names(diagnostics) || names(fault);
}

class FaultedTask::Events : public ImpTableEvents {
 public:
  void Progress() override { last_is_complete = false; }
  void Complete() override {
    ++completes;
    last_is_complete = true;
  }
  int completes = 0;
  bool last_is_complete = false;
};

FaultedTask::FaultedTask(ScriptedDataSource& source, const Workload& workload, bool traced_resume)
    : workload_(workload),
      table_(workload.RowsBefore(), workload.HasUniqueKey()),
      state_(std::make_unique<ModuleState>(Platform{registry_, message_loop_, clock_, encoding_,
                                                    files_, warnings_, pointer_, profile_file_},
                                           host_)) {
  stand_alone_.Attach(state_->commun);
  if (workload_.stand_alone) host_.PassReportOn(stand_alone_);
  SetUp(source, traced_resume);
  WriteSource(workload_.SourceLines());
  memory_.files[kStem + ".SUP"] = WithLineFeeds(Workload::Selection());
  // Files of an earlier run.
  for (const char* extension : {".ERR", ".LER", ".TRC"}) {
    memory_.files[kStem + extension] = "00000009100000001\n";
  }
}

FaultedTask::~FaultedTask() = default;

void FaultedTask::Set(std::string_view name, std::string_view text) {
  stored_.SetText(kTaskPath, name, text);
}

void FaultedTask::Set(std::string_view name, std::int32_t number) {
  stored_.SetNumber(kTaskPath, name, number);
}

void FaultedTask::SetUp(const ScriptedDataSource& source, bool traced_resume) {
  host_.variables["TABLE"] = "CLIENT";
  Set("Base Cible", source.name());
  Set("Table", "@TABLE");
  Set("Alias", "CLIENTS");
  Set("Dir", "/data");
  Set("FormatFile", 1);
  Set("Mode", workload_.mode);
  Set("Suppression", workload_.deletion);
  Set("RecErreurs", workload_.record_errors);
  Set("RecTrace", traced_resume ? 1 : 0);
  if (workload_.mode == kDelete) {
    Set("Cle/Index", "CODE");
  } else {
    Set("PrimKey", 1);
  }
  Set("Param", 1);
  Set("NombreColonnes", 2);
  const std::string task(kTaskPath);
  for (const char* column : {"1", "2"}) {
    stored_.SetText(task + "\\Colonnes", column, "1");
    stored_.SetText(task + "\\Champs", column, std::string("1,(Col)") + column);
  }
  stored_.SetText(KeyPath{kHkeyCurrentUser, "Control Panel\\International"}, "sDecimal", ",");
}

void FaultedTask::WriteSource(const std::vector<std::string>& lines) {
  memory_.files[kStem + ".CSV"] = WithLineFeeds(lines);
}

void FaultedTask::RestoreRows() {
  table_ = ClientTable(workload_.RowsBefore(), workload_.HasUniqueKey());
}

std::string FaultedTask::FileText(const std::string& path) const {
  const auto found = memory_.files.find(path);
  return found == memory_.files.end() ? std::string() : found->second;
}

RunRecord FaultedTask::Run(std::int16_t request, std::optional<Fault> fault) {
  Events events;
  host_.lines.clear();
  files_.ForgetDropped();
  calls_.connections_made = calls_.disconnects_tried = 0;
  ImpTable task(*state_, &events);
  task.InitializeProperties("T1", "S1", 0);
  task.SetReportFilePath(kReportPath);
  plan_.source_is_known = [this] {
    return state_->commun.run.source_state != SourceState::kUnknown;
  };
  plan_.Start(fault);
  task.Run(request);
  plan_.Stop();

  const RunState& run = state_->commun.run;
  RunRecord record;
  record.etat = stored_.Number(kTaskPath, "Etat").value_or(-1);
  record.status = run.status;
  record.report = host_.Texts();
  record.own_report = FileText(kReportPath);
  record.own_report_failed = stand_alone_.report_failed();
  record.diagnostics = FileText(kStem + ".ERR");
  record.rejected = LinesOf(FileText(kStem + ".LER"), SystemLineEnd());
  const std::string trace = FileText(kStem + ".TRC");
  record.trace = LinesOf(trace, SystemLineEnd());
  if (!record.trace.empty() && !trace.ends_with(SystemLineEnd())) record.trace.pop_back();
  if (run.fault) record.fault = DescribeFault(*run.fault, 0, encoding_);
  record.progress = run.progress;
  record.completes = events.completes;
  record.complete_was_last = events.last_is_complete;
  record.armed_timers = message_loop_.armed().size();
  record.open_files = files_.open_files();
  record.dropped_files = files_.dropped();
  record.connections_made = calls_.connections_made;
  record.disconnects_tried = calls_.disconnects_tried;
  record.live_handles = calls_.live_handles();
  record.statements_left = calls_.statements_left();
  record.began_resumed = run.resume;
  record.rows = table_.Rows();
  return record;
}

RunRecord FaultedTask::RunWorkload(std::optional<Fault> fault) {
  if (workload_.resumes == 0) return Run(1, fault);
  Set("Erreurs", "0");
  Run(1, std::nullopt);
  for (int resume = 1; resume < workload_.resumes; ++resume) {
    MendRejectedLines();
    Run(2, std::nullopt);
  }
  MendRejectedLines();
  Set("Erreurs", "100");
  return Run(2, fault);
}

void FaultedTask::MendRejectedLines() {
  const auto rejected = memory_.files.find(kStem + ".LER");
  if (rejected == memory_.files.end()) return;
  std::string mended;
  for (const std::string& line : LinesOf(rejected->second, SystemLineEnd())) {
    mended += workload_.Mended(line) + std::string(SystemLineEnd());
  }
  rejected->second = mended;
}

bool FaultedTask::CanGoOn() { return CanResume(memory_, state_->commun.run); }

std::size_t FaultedTask::Unload() {
  state_.reset();
  return calls_.live_handles();
}

}  // namespace imptable
