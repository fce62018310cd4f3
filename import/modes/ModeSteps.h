#ifndef IMPORT_MODES_MODE_STEPS_H_
#define IMPORT_MODES_MODE_STEPS_H_

#include <memory>
#include <optional>

#include "core/ModuleCommun.h"
#include "import/target/Record.h"
#include "import/target/RecordParser.h"
#include "import/target/SentValues.h"
#include "import/target/TargetTable.h"
#include "odbc/OdbcSession.h"

namespace imptable {

/// What one mode prepares before the first record and executes for each record. Its statements live
/// as long as it does.
class ModeSteps {
 public:
  ModeSteps(const ModeSteps&) = delete;
  ModeSteps& operator=(const ModeSteps&) = delete;
  virtual ~ModeSteps() = default;

  /// Prepares all that is known before the first record: columns, statements, bindings, parser.
  /// @return false when there is nothing to run; the reason has been reported.
  virtual bool Prepare() = 0;

  // To be called after a Prepare that returned true.

  /// Reads records into the buffers that the statements send.
  RecordParser& parser() { return *parser_; }

  /// Executes the record in the buffers, unless one of its values isn't fit to be sent.
  /// @param line  the line that the parser has read into the buffers.
  RecordResult ExecuteRecord(std::string_view line);

 protected:
  /// @param module, session  borrowed.
  ModeSteps(ModuleCommun& module, OdbcSession& session)
      : module_(module), session_(session), table_(module, session) {}

  virtual RecordResult Execute() = 0;

  /// Sets the parser, once the statements are bound.
  void ReadWith(RecordParser parser);

  /// Allocates a statement of the mode. @return false after a diagnostic has been reported.
  bool Allocate(Statement& statement);

  ModuleCommun& module() { return module_; }
  OdbcSession& session() { return session_; }
  TargetTable& table() { return table_; }

 private:
  ModuleCommun& module_;
  OdbcSession& session_;
  TargetTable table_;
  std::optional<RecordParser> parser_;
  std::optional<SentValues> values_;
};

/// The native code of the duplicates that the task ignores; nullopt when it ignores none.
/// @throws RuntimeFault  when the code is no number.
std::optional<SQLINTEGER> IgnorableCode(const ImportSettings& settings);

// One for each mode that imports something; module and session are borrowed.

/// Inserts every line of the source into the target table.
std::unique_ptr<ModeSteps> MakeInsertSteps(ModuleCommun& module, OdbcSession& session);

/// Changes, for every line of the source, the rows of the target table that have the line's key.
std::unique_ptr<ModeSteps> MakeUpdateSteps(ModuleCommun& module, OdbcSession& session);

/// The same, but inserts the line when it changed no row.
std::unique_ptr<ModeSteps> MakeUpdateInsertSteps(ModuleCommun& module, OdbcSession& session);

/// Removes, for every line of the source, the rows of the target table that have the line's key.
std::unique_ptr<ModeSteps> MakeDeleteSteps(ModuleCommun& module, OdbcSession& session);

}  // namespace imptable

#endif  // IMPORT_MODES_MODE_STEPS_H_
