#ifndef HOST_REGISTRY_REGISTRY_EXPORT_FILE_H_
#define HOST_REGISTRY_REGISTRY_EXPORT_FILE_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "host/HostTexts.h"
#include "platform/registry/RegistryStore.h"
#include "platform/text/TextEncoding.h"

namespace imptable {

/// Why a registry export file isn't taken.
struct RegistryExportError {
  std::string origin;    // the name of the file
  std::size_t line = 0;  // from 1; of a text over several lines, the first one
  HostText problem = HostText::kExportNoHeader;  // what is wrong and what to do
  std::vector<std::string> arguments;            // of that text
};

/// Reads a registry export file, as the Windows registry editor writes it or as somebody edited it.
/// Header:  "Windows Registry Editor Version 5.00" in UTF-16LE with byte order mark or in UTF-8, or
///          "REGEDIT4" in 8-bit text (Utf8FromAnsi).
/// Lines:   end with CR LF, LF or CR; ";" starts a comment. The last "]" ends a key's name.
/// Roots:   HKEY_LOCAL_MACHINE (HKLM) and HKEY_CURRENT_USER (HKCU).
/// Limits:  those of the other platform's registry, for the lengths of names and the depth of keys.
/// Returns: the edits in the order of the file, all text in UTF-8; or the first error.
/// @param origin  what to call the file in an error.
std::variant<std::vector<RegistryEdit>, RegistryExportError> ParseRegistryExport(
    std::string_view bytes, std::string_view origin, const TextEncoding& encoding);

/// How an export file is written: as the Windows registry editor does it, UTF-16LE with byte order
/// mark, or in UTF-8 without one, for version control and text tools.
enum class ExportEncoding { kUtf16, kUtf8 };

/// The text of an export file (Version 5.00) for these keys, in their order.
std::string RegistryExportOf(const std::vector<StoredKey>& keys,
                             ExportEncoding encoding = ExportEncoding::kUtf16);

/// The same for a key and all below it, or for the whole registry.
/// @return nullopt when there is no such key.
std::optional<std::string> WriteRegistryExport(const RegistryStore& store,
                                               const std::optional<KeyPath>& key,
                                               ExportEncoding encoding = ExportEncoding::kUtf16);

}  // namespace imptable

#endif  // HOST_REGISTRY_REGISTRY_EXPORT_FILE_H_
