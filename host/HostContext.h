#ifndef HOST_HOST_CONTEXT_H_
#define HOST_HOST_CONTEXT_H_

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "host/HostConsole.h"
#include "host/HostTexts.h"
#include "platform/files/ProfileFileReader.h"
#include "platform/registry/RegistryStore.h"
#include "platform/registry/SqliteRegistry.h"
#include "plugin/ModuleState.h"
#include "plugin/StandaloneHostLibrary.h"

namespace imptable {

/// A command line has no mouse pointer.
class NoMousePointer : public MousePointer {
 public:
  void ShowHourglass() override {}
  void Reset() override {}
};

/// Ports of a program that shows windows; all borrowed.
struct HostWindows {
  WarningBox& warning_box;
  MousePointer& mouse_pointer;
};

/// What the commands work with: the open registry file, the system's ports and one component on
/// top of them.
class HostContext {
 public:
  /// Opens the registry file; where there is none, the first write creates it.
  /// @param language  asked for by the user; without it the registry's, else French.
  /// @param err  borrowed; where warnings go in a program without windows.
  /// @param windows  of a program that has them, else null.
  /// @throws RegistryFileError  when the file can't be used.
  HostContext(const std::string& registry_file, std::optional<Language> language, std::ostream& err,
              const HostWindows* windows = nullptr);
  HostContext(const HostContext&) = delete;
  HostContext& operator=(const HostContext&) = delete;

  const std::string registry_path;
  std::unique_ptr<TextEncoding> encoding;
  RegistryStore store;      // takes and gives UTF-8
  SqliteRegistry registry;  // the same in the system's code page
  std::unique_ptr<MessageLoop> message_loop;
  std::unique_ptr<Clock> clock;
  std::unique_ptr<FileSystem> files;
  ConsoleWarningBox warning_box;
  NoMousePointer mouse_pointer;
  ProfileFileReader profile_file;
  StandaloneHostLibrary library;
  ModuleState state;
  HostTexts texts;

  std::string ToUtf8(std::string_view text) const { return encoding->ToUtf8(text); }
  std::string FromUtf8(std::string_view text) const { return encoding->FromUtf8(text); }

  /// @throws HostError  missing, when there is no registry file.
  void RequireRegistry() const;

  /// Both take names in the system's code page.
  /// @throws HostError  wrong usage, for a name that no key can have; missing, when there is no
  /// such scenario or task.
  void RequireScenario(const std::string& scenario) const;
  void RequireTask(const std::string& scenario, const std::string& task) const;
};

/// The language that the registry is set to; French when it says nothing.
Language LanguageIn(const RegistryStore& store);

}  // namespace imptable

#endif  // HOST_HOST_CONTEXT_H_
