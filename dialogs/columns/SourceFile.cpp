#include "dialogs/columns/SourceFile.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "core/Blanks.h"
#include "core/SettingsTable.h"
#include "dialogs/HostReference.h"
#include "import/ledger/TaskFiles.h"
#include "import/source/FieldSplitting.h"
#include "import/source/LineReader.h"

namespace imptable {
namespace {

/// The dialog writes the extension like this, a run in upper case. Both name the same file.
constexpr std::string_view kAliasExtension = ".csv";

/// Gives only the first kFileStartBytes of a file, and notes whether there are more.
class StartOfFile final : public InputFile {
 public:
  StartOfFile(std::unique_ptr<InputFile> file, bool& goes_on)
      : file_(std::move(file)), goes_on_(goes_on) {}

  std::size_t Read(char* buffer, std::size_t size, std::error_code& error) override {
    if (left_ > 0) {
      const std::size_t got = file_->Read(buffer, std::min(size, left_), error);
      left_ -= got;
      return got;
    }
    char next = 0;
    goes_on_ = file_->Read(&next, 1, error) > 0;
    return 0;
  }

 private:
  std::unique_ptr<InputFile> file_;
  std::size_t left_ = kFileStartBytes;
  bool& goes_on_;
};

std::string DirectoryText(const ModuleCommun& module, const std::string& scenario,
                          const std::string& typed) {
  return FolderOf(ResolveReference(module, scenario, typed));
}

bool IsMissing(const std::error_code& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

}  // namespace

std::string SourceFilePath(const ModuleCommun& module, const std::string& scenario,
                           const SourceFields& fields) {
  const FileSystem& files = module.platform.files;
  const std::string alias(WithoutBlanks(ResolveReference(module, scenario, fields.alias)));
  if (alias.empty()) return {};
  const std::string in_directory = DirectoryText(module, scenario, fields.directory) + alias;
  if (!fields.complete_name) return files.Locate(in_directory + std::string(kAliasExtension));
  const std::string imported = files.Locate(in_directory);
  const std::string by_itself = files.Locate(alias);
  return files.Query(imported) || !files.Query(by_itself) ? imported : by_itself;
}

std::optional<FileStart> ReadFileStart(const ModuleCommun& module, const std::string& scenario,
                                       const SourceFields& fields) {
  FileStart start;
  start.path = SourceFilePath(module, scenario, fields);
  if (start.path.empty()) return std::nullopt;
  std::error_code error;
  auto file = module.platform.files.OpenForReading(start.path, error);
  if (IsMissing(error)) return std::nullopt;
  if (!file) throw FileFault(error, start.path);
  bool goes_on = false;
  LineReader lines(std::make_unique<StartOfFile>(std::move(file), goes_on), start.path,
                   module.platform.encoding.IsUtf8());
  std::string_view line;
  start.is_empty = !lines.Next(line);
  start.line = line;
  start.is_complete = lines.ended() || !goes_on;
  return start;
}

std::size_t CountFields(std::string_view line, std::string_view separator, bool utf8) {
  if (separator.empty()) separator = SettingOf(SettingId::kDelimiter).default_text;
  std::vector<std::string_view> fields;
  SplitDelimited(line, separator, DelimiterStep(separator, utf8), line.size() + 1, fields);
  return fields.size();
}

}  // namespace imptable
