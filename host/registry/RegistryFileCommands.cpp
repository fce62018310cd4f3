#include <array>
#include <iterator>
#include <string_view>
#include <variant>
#include <vector>

#include "host/Commands.h"
#include "host/HostError.h"
#include "host/registry/ColumnOrder.h"
#include "host/registry/RegistryExportFile.h"
#include "host/registry/RegistryRoots.h"
#include "host/registry/ReplacedFile.h"
#include "host/run/ReportPath.h"

namespace imptable {
namespace {

constexpr std::string_view kStandardStream = "-";

std::string ReadWhole(HostContext& context, const std::string& path, std::istream& in) {
  if (path == kStandardStream) return {std::istreambuf_iterator<char>(in), {}};
  std::error_code error;
  const auto file = context.files->OpenForReading(path, error);
  std::string bytes;
  if (file) {
    std::array<char, 65536> chunk;
    std::size_t count = 0;
    while ((count = file->Read(chunk.data(), chunk.size(), error)) > 0) {
      bytes.append(chunk.data(), count);
    }
  }
  if (error) {
    throw HostError(ExitCode::kMissing, HostText::kNoFile, {path, error.message()});
  }
  return bytes;
}

}  // namespace

ExitCode ImportRegistry(HostContext& context, const CommandRequest& request,
                        const HostConsole& console) {
  const std::string bytes = ReadWhole(context, request.file, console.in);
  const auto parsed = ParseRegistryExport(bytes, request.file, *context.encoding);
  if (const auto* error = std::get_if<RegistryExportError>(&parsed)) {
    throw HostError(ExitCode::kUsage, HostText::kFaultyExport,
                    {error->origin, std::to_string(error->line),
                     context.texts.Text(error->problem, error->arguments)});
  }
  const auto& edits = std::get<std::vector<RegistryEdit>>(parsed);
  context.store.Together([&] {
    context.store.Apply(edits);
    OrderColumnsOf(context.store, edits);
  });
  return ExitCode::kDone;
}

ExitCode ExportRegistry(HostContext& context, const CommandRequest& request,
                        const HostConsole& console) {
  std::optional<KeyPath> key;
  if (request.key) {
    key = KeyPathFromName(context.ToUtf8(*request.key));
    if (!key) throw HostError(ExitCode::kUsage, HostText::kUnknownRoot, {*request.key});
  }
  context.RequireRegistry();
  if (request.file != kStandardStream) {
    RequireNoRegistryFile(request.file, context.registry_path, *context.files, *context.encoding);
  }
  const std::optional<std::string> bytes = WriteRegistryExport(
      context.store, key, request.utf8 ? ExportEncoding::kUtf8 : ExportEncoding::kUtf16);
  if (!bytes) throw HostError(ExitCode::kMissing, HostText::kNoKey, {*request.key});
  if (request.file == kStandardStream) {
    console.out << *bytes;
  } else if (const std::error_code error = ReplaceFile(request.file, *bytes)) {
    throw HostError(ExitCode::kFault, HostText::kCannotWriteFile, {request.file, error.message()});
  }
  return ExitCode::kDone;
}

}  // namespace imptable
