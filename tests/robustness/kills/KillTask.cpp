#include "tests/robustness/kills/KillTask.h"

#include <filesystem>

#include "tests/robustness/kills/TableSql.h"

namespace imptable {
namespace {

constexpr const char* kTask = R"(Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\SOFTWARE\KALDO\Scenarios\S1\Taches\T1\Colonnes]
"1"="3"
"2"="1"
"3"="7,14"
"4"="3"

[HKEY_LOCAL_MACHINE\SOFTWARE\KALDO\Scenarios\S1\Taches\T1]
"Base Cible"="@SOURCE"
"Login"="@USER"
"Password"="@PASSWORD"
"Dir"="@FOLDER"
"Alias"="CLIENTS"
"Table"="client"
"FormatFile"=dword:00000001
"NombreColonnes"=dword:00000004
)";

std::string ModeLines(DatabaseKind kind, Work work) {
  switch (work) {
    case Work::kInsert:
    case Work::kInsertUnkeyed:
      return "\"Mode\"=dword:00000000\n";
    case Work::kInsertIgnoring:
      return std::string("\"Mode\"=dword:00000000\n\"DupKey\"=dword:00000001\n\"CodErr\"=\"") +
             (kind == DatabaseKind::kSqlite ? "19" : "1") + "\"\n";
    case Work::kUpdate:
      return "\"Mode\"=dword:00000001\n\"Cle/Index\"=\"code\"\n";
    case Work::kUpdateInsert:
      return "\"Mode\"=dword:00000003\n\"PrimKey\"=dword:00000001\n";
    case Work::kDelete:
    case Work::kDeleteReturning:
      return "\"Mode\"=dword:00000004\n\"PrimKey\"=dword:00000001\n";
  }
  return {};
}

}  // namespace

KillTask::KillTask(DatabaseKind kind, Work work, bool traced)
    : Workplace(kind), kind_(kind), work_(work), traced_(traced) {
  const std::string trace = traced ? "\"RecTrace\"=dword:00000001\n" : "";
  LoadTask(folder().Write("task.reg", kTask + trace + ModeLines(kind, work)));
  settings_ = folder().Read("registry.db");
}

void KillTask::Reset(const TableModel& table, int error_limit) {
  for (const auto& file : std::filesystem::directory_iterator(RunFolder())) {
    std::filesystem::remove(file.path());
  }
  for (const char* const journal : {"registry.db-journal", "registry.db-wal", "registry.db-shm"}) {
    std::filesystem::remove(folder().path() + journal);
  }
  folder().Write("registry.db", settings_);
  SetErrorLimit(error_limit);
  ResetTable(table);
}

void KillTask::ResetTable(const TableModel& table) {
  database().Execute(WaitSql(kind_) + TableSql(kind_, work_) + RowsSql(table) +
                     TriggerSql(kind_, work_));
  seen_ = 0;
}

void KillTask::SetErrorLimit(int limit) const {
  OutputOf(Command({"set", "S1", "T1", "Erreurs=" + std::to_string(limit)}));
}

void KillTask::BreakRegistry() const {
  for (const char* const change : {"INSERT", "UPDATE"}) {
    const std::string name = std::string("no_") + change;
    OutputOf({.words = {"sqlite3", folder().path() + "registry.db",
                        "CREATE TRIGGER " + name + " BEFORE " + change +
                            " ON \"values\" BEGIN SELECT RAISE(FAIL, 'broken'); END;"}});
  }
}

void KillTask::MendRegistry() const {
  OutputOf({.words = {"sqlite3", folder().path() + "registry.db",
                      "DROP TRIGGER no_INSERT; DROP TRIGGER no_UPDATE;"}});
}

void KillTask::HideTable() const { database().Execute("ALTER TABLE client RENAME TO hidden;\n"); }

void KillTask::ShowTable() const {
  database().Execute(WaitSql(kind_) + "ALTER TABLE hidden RENAME TO client;\n");
}

Invocation KillTask::RunCommand(bool resume) const {
  std::vector<std::string> words{"--lang", "en", "run", "S1", "T1", "--report", "report.txt"};
  if (resume) words.emplace_back("--resume");
  return Command(words);
}

Fate KillTask::Run(bool resume, const Kill& kill) const {
  return RunVictim(RunCommand(resume), kill, folder().path() + kTrace);
}

Fate KillTask::CountCalls() const {
  // More calls than any run makes.
  constexpr Kill kNoKill{.at = Kill::At::kCall, .call = 1 << 30};
  return RunVictim(RunCommand(false), kNoKill, folder().path() + kTrace);
}

std::string KillTask::ReadIfThere(const std::string& name) const {
  return folder().Exists(name) ? folder().Read(name) : std::string();
}

SideTexts KillTask::Left() const { return {ReadIfThere(kTrace), ReadIfThere(kRejected)}; }

std::string KillTask::ChainFiles() const {
  std::string names;
  for (const char* const name : {"CLIENTS.TRC", "CLIENTS.LER", "CLIENTS.REP", "CLIENTS.REP.NEW"}) {
    if (folder().Exists(std::string("run/") + name)) names.append(name).append(" ");
  }
  return names;
}

std::string KillTask::ChainText() const { return ReadIfThere("run/CLIENTS.REP"); }

std::string KillTask::Status() const {
  const std::string text = OutputOf(Command({"status", "S1", "T1"}));
  return text.substr(0, text.find('\n'));
}

std::vector<std::string> KillTask::NewEffects() {
  const std::string text =
      database().Rows(WaitSql(kind_) + "SELECT id, what FROM executions WHERE id > " +
                      std::to_string(seen_) + " ORDER BY id;\n");
  std::vector<std::string> effects;
  for (const std::string& line : LinesOf(text)) {
    const std::size_t at = line.find('|');
    seen_ = std::stoi(line.substr(0, at));
    effects.push_back(line.substr(at + 1));
  }
  return effects;
}

std::string KillTask::Rows() const {
  return database().Rows(
      "SELECT code, name, born, amount FROM client ORDER BY code, name, born, amount;\n");
}

}  // namespace imptable
