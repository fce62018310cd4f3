#include "host/run/RunWarnings.h"

#include "import/layout/ColumnLayout.h"
#include "import/ledger/ResumeChain.h"
#include "import/ledger/TaskFiles.h"
#include "platform/text/NameFolding.h"

namespace imptable {
namespace {

bool IsDeletion(Deletion deletion) {
  return deletion == Deletion::kNone || deletion == Deletion::kGlobal ||
         deletion == Deletion::kSelective;
}

/// The numbers, from 1, of the date columns whose date style doesn't exist.
std::vector<std::size_t> UnknownDateStyles(const OpenedTask& task) {
  std::vector<std::size_t> numbers;
  try {
    const auto layout =
        ParseColumnLayout(task.column_layout, task.file_format != FileFormat::kDelimited);
    for (std::size_t i = 0; i < layout.size(); ++i) {
      if (layout[i].type == FileColumnType::kDate && layout[i].date.style == 0) {
        numbers.push_back(i + 1);
      }
    }
  } catch (const RuntimeFault&) {
    // The run refuses that layout and names the column.
  }
  return numbers;
}

/// The other task whose unfinished run this one gives up, because both have the same side files;
/// nullopt when there is none.
std::optional<std::string> OtherTaskToResume(const OpenedTask& task, FileSystem& files) {
  try {
    const ResumeChain chain(files, SideFilePath(task, kChainExtension));
    const auto reader = chain.Open();
    if (!reader || !reader->identity()) return std::nullopt;
    const ChainIdentity& of = *reader->identity();
    const bool own = FoldName(of.scenario) == FoldName(OneLine(task.scenario)) &&
                     FoldName(of.task) == FoldName(OneLine(task.task));
    if (own) return std::nullopt;
    return of.scenario + '\\' + of.task;
  } catch (const RuntimeFault&) {
    return std::nullopt;  // The run says what is wrong with the chain.
  }
}

}  // namespace

std::vector<std::string> RunWarnings(const OpenedTask& task, bool resumes, FileSystem& files,
                                     const HostTexts& texts) {
  std::vector<std::string> warnings;
  const auto warn = [&](HostText text, const std::vector<std::string>& arguments) {
    warnings.push_back(texts.Text(text, arguments));
  };
  if (!ImportsAnything(task.mode)) {
    warn(HostText::kModeImportsNothing, {std::to_string(static_cast<int>(task.mode))});
  }
  if (!IsDeletion(task.deletion)) {
    warn(HostText::kDeletionIsNone, {std::to_string(static_cast<int>(task.deletion))});
  }
  if (task.deletion == Deletion::kSelective) {
    const std::string path = SideFilePath(task, kSelectionExtension);
    std::error_code error;
    if (!files.Query(files.Locate(path), error) && !error) {
      warn(HostText::kNoSelectionFile, {path});
    }
  }
  if (const auto other = resumes ? std::nullopt : OtherTaskToResume(task, files)) {
    warn(HostText::kGivesUpOtherTask, {*other, SideFilePath(task, kChainExtension)});
  }
  for (const std::size_t number : UnknownDateStyles(task)) {
    const std::string column = std::to_string(number);
    warn(HostText::kNoSuchDateStyle, {column, task.column_layout[number - 1]});
  }
  for (const MissingValue& origin : task.unset_origins) {
    warn(HostText::kOriginIsNull, {origin.setting, origin.stored, origin.variable, task.scenario});
  }
  return warnings;
}

}  // namespace imptable
