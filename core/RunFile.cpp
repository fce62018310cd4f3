#include "core/RunFile.h"

#include <utility>

#include "core/RuntimeFault.h"

namespace imptable {

RunFile::RunFile(std::unique_ptr<OutputFile> file, std::string path)
    : file_(std::move(file)), path_(std::move(path)) {}

RunFile RunFile::Create(FileSystem& files, const std::string& path) {
  const std::string located = files.Locate(path);
  std::error_code error;
  auto file = files.OpenForWriting(located, WriteMode::kTruncate, error);
  if (!file) throw FileFault(error, located);
  return RunFile(std::move(file), located);
}

void RunFile::Write(std::string_view bytes) {
  if (const std::error_code error = file_->Write(bytes)) throw FileFault(error, path_);
}

void RunFile::Flush() {
  if (const std::error_code error = file_->Flush()) throw FileFault(error, path_);
}

void RunFile::Close() {
  if (const std::error_code error = file_->Close()) throw FileFault(error, path_);
}

}  // namespace imptable
