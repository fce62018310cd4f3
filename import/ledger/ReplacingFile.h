#ifndef IMPORT_LEDGER_REPLACING_FILE_H_
#define IMPORT_LEDGER_REPLACING_FILE_H_

#include <memory>
#include <optional>
#include <string>

#include "core/RunFile.h"
#include "platform/files/FileSystem.h"

namespace imptable {

/// A file that takes another's place once it is complete and on the disk; removed otherwise.
class ReplacingFile {
 public:
  /// @param files  borrowed. @param path  where this file is until then; in the directory of the
  /// other.
  /// @throws RuntimeFault  the file fault, as all members.
  ReplacingFile(FileSystem& files, const std::string& path);
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;
  ~ReplacingFile();

  RunFile& file() { return *file_; }

  /// @param path  of the file to replace. Nobody has it open: some systems can't replace an open
  /// file.
  void Replace(const std::string& path);

 private:
  FileSystem& files_;
  std::optional<RunFile> file_;
  std::string path_;
  bool done_ = false;
};

/// A file to copy. It is opened before the file that receives the copy is made.
class CopiedFile {
 public:
  /// @throws RuntimeFault  the file fault, naming the file, as all members.
  CopiedFile(FileSystem& files, std::string path);

  void CopyTo(RunFile& to);

 private:
  std::string path_;
  std::unique_ptr<InputFile> file_;
};

}  // namespace imptable

#endif  // IMPORT_LEDGER_REPLACING_FILE_H_
